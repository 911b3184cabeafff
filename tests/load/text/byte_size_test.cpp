#include "load/text/byte_size.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

namespace rl {
namespace {

TEST(FormatByteSize, SaysSmallSizesInBytesAlone) {
    EXPECT_EQ(FormatByteSize(0), L"0 bytes");
    EXPECT_EQ(FormatByteSize(1), L"1 bytes");
    EXPECT_EQ(FormatByteSize(512), L"512 bytes");
    EXPECT_EQ(FormatByteSize(1023), L"1023 bytes");
    EXPECT_EQ(FormatByteSize(-5), L"-5 bytes");
}

TEST(FormatByteSize, AddsKilobytesFrom1024On) {
    EXPECT_EQ(FormatByteSize(1024), L"1024 bytes (1.0 KB)");
    EXPECT_EQ(FormatByteSize(1536), L"1536 bytes (1.5 KB)");
    EXPECT_EQ(FormatByteSize(1048575), L"1048575 bytes (1024.0 KB)");
}

TEST(FormatByteSize, AddsMegabytesFrom1048576On) {
    EXPECT_EQ(FormatByteSize(1048576), L"1048576 bytes (1.0 MB)");
    EXPECT_EQ(FormatByteSize(3000000), L"3000000 bytes (2.9 MB)");
    EXPECT_EQ(FormatByteSize(500000000), L"500000000 bytes (476.8 MB)");
    EXPECT_EQ(FormatByteSize(2147483647), L"2147483647 bytes (2048.0 MB)");
    EXPECT_EQ(FormatByteSize(2147483648), L"2147483648 bytes (2048.0 MB)");
    EXPECT_EQ(FormatByteSize(std::numeric_limits<int64_t>::max()),
              L"9223372036854775807 bytes (8796093022208.0 MB)");
}

TEST(FormatByteSize, RoundsToTheNearestTenth) {
    EXPECT_EQ(FormatByteSize(1024 + 51), L"1075 bytes (1.0 KB)");
    EXPECT_EQ(FormatByteSize(1024 + 52), L"1076 bytes (1.1 KB)");
    EXPECT_EQ(FormatByteSize(1024 + 256), L"1280 bytes (1.2 KB)") << "halves go to the even digit";
    EXPECT_EQ(FormatByteSize(1024 + 768), L"1792 bytes (1.8 KB)");
}

TEST(DefaultSizeLimit, IsAQuarterOfTheMemoryBetweenItsBounds) {
    EXPECT_EQ(DefaultSizeLimit(1'073'741'824), 500'000'000u);
    EXPECT_EQ(DefaultSizeLimit(3'221'225'472), 805'306'368u);
    EXPECT_EQ(DefaultSizeLimit(8'589'934'592), 1'073'741'824u);
    EXPECT_EQ(DefaultSizeLimit(137'438'953'472), 1'073'741'824u);
    EXPECT_EQ(DefaultSizeLimit(0), 500'000'000u);
    EXPECT_EQ(DefaultSizeLimit(std::numeric_limits<uint64_t>::max()), 1'073'741'824u);
}

TEST(DefaultSizeLimit, ReachesItsBoundsExactly) {
    EXPECT_EQ(DefaultSizeLimit(2'000'000'003), 500'000'000u);
    EXPECT_EQ(DefaultSizeLimit(2'000'000'004), 500'000'001u);
    EXPECT_EQ(DefaultSizeLimit(4'294'967'295), 1'073'741'823u);
    EXPECT_EQ(DefaultSizeLimit(4'294'967'296), 1'073'741'824u);
}

TEST(SizeLimitFromSetting, TakesWholeNumbersFromZeroOn) {
    EXPECT_EQ(SizeLimitFromSetting(L"0"), 0);
    EXPECT_EQ(SizeLimitFromSetting(L"1000"), 1000);
    EXPECT_EQ(SizeLimitFromSetting(L"+1000"), 1000);
    EXPECT_EQ(SizeLimitFromSetting(L" 1000"), 1000);
    EXPECT_EQ(SizeLimitFromSetting(L"-0"), 0);
    EXPECT_EQ(SizeLimitFromSetting(L"5000000000"), 5'000'000'000);
}

TEST(SizeLimitFromSetting, LeavesEverythingElseToTheDefault) {
    for (const wchar_t* value :
         {L"", L" ", L"-5", L"1e9", L"10MB", L"1000 ", L"0x10", L"1.5", L"-", L"abc"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(value)));
        EXPECT_EQ(SizeLimitFromSetting(value), std::nullopt);
    }
}

TEST(SizeLimitFromSetting, ClampsWhatDoesNotFit) {
    EXPECT_EQ(SizeLimitFromSetting(L"99999999999999999999"), std::numeric_limits<int64_t>::max());
    EXPECT_EQ(SizeLimitFromSetting(L"-99999999999999999999"), std::nullopt);
}

TEST(SizeRefusal, LetsASizeEqualToTheLimitPass) {
    EXPECT_EQ(SizeRefusal(1000, 1000), L"");
    EXPECT_EQ(SizeRefusal(999, 1000), L"");
    EXPECT_EQ(SizeRefusal(0, 1), L"");
}

TEST(SizeRefusal, NamesBothSizesAboveTheConfiguredLimit) {
    EXPECT_EQ(SizeRefusal(1001, 1000),
              L"The file could not be loaded because it exceeds the configured size limit.\r\n"
              L"File size: 1001 bytes\r\n"
              L"Limit: 1000 bytes\r\n"
              L"\r\n"
              L"Raise max-file-size in rowlark.ini to open it (memory use peaks at roughly 4x the "
              L"file size).");
}

TEST(SizeRefusal, HoldsTheHardLimitWithoutAConfiguredOne) {
    constexpr wchar_t kTooLarge[] =
        L"The file is too large for this plugin.\r\n"
        L"File size: 2147483648 bytes (2048.0 MB)\r\n"
        L"Hard limit: 2147483647 bytes (2048.0 MB)";

    EXPECT_EQ(SizeRefusal(2'147'483'648, 0), kTooLarge);
    EXPECT_EQ(SizeRefusal(2'147'483'648, -1), kTooLarge);
    EXPECT_EQ(SizeRefusal(2'147'483'648, 9'000'000'000), kTooLarge);
    EXPECT_EQ(SizeRefusal(2'147'483'647, 0), L"");
    EXPECT_EQ(SizeRefusal(1'500'000'000, 0), L"");
}

TEST(SizeRefusal, AsksTheConfiguredLimitFirst) {
    EXPECT_TRUE(
        SizeRefusal(2'147'483'648, 1000)
            .starts_with(
                L"The file could not be loaded because it exceeds the configured size limit.\r\n"
                L"File size: 2147483648 bytes (2048.0 MB)\r\nLimit: 1000 bytes\r\n"));
}

}  // namespace
}  // namespace rl
