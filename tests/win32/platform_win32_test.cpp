// The seam against the system it ships on: what its answers must be for the rest to hold.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "load/text/decode_text.h"
#include "load/text/encode_text.h"
#include "load/text/platform.h"
#include "load/text/single_byte_page.h"

namespace rl {
namespace {

using platform::Collate;
using platform::CollationKey;
using platform::DecodeCodePage;
using platform::EncodeCodePage;

TEST(PlatformWin32, RunsOnAMachineWithCodePage1252) {
    EXPECT_EQ(GetACP(), 1252u);
}

TEST(PlatformWin32, DecodesPagesOfOneAndTwoBytes) {
    EXPECT_EQ(DecodeCodePage("\x80", 1252), L"\x20AC");
    EXPECT_EQ(DecodeCodePage("\x80", 0), L"\x20AC");
    EXPECT_EQ(DecodeCodePage("\x93\x8C\x8B\x9E", 932), L"\x6771\x4EAC");
    EXPECT_EQ(DecodeCodePage("", 1252), L"");
}

TEST(PlatformWin32, DecodesNothingForAMissingPage) {
    EXPECT_EQ(DecodeCodePage("a", 8859), std::nullopt);
    EXPECT_EQ(EncodeCodePage(L"a", 8859), std::nullopt);
}

TEST(PlatformWin32, ReplacesInvalidUtf8) {
    EXPECT_EQ(DecodeCodePage("a\xFFz", 65001), L"a\xFFFDz");
}

TEST(PlatformWin32, LeavesLittleRoomUnusedAfterTwoByteCharacters) {
    std::string bytes;
    while (bytes.size() < 100'000) {
        bytes += "\x93\x8C";
    }
    const std::optional<std::wstring> text = DecodeCodePage(bytes, 932);
    ASSERT_TRUE(text.has_value());
    EXPECT_EQ(text->size(), 50'000u);
    EXPECT_LE(text->capacity(), 50'500u);
}

TEST(PlatformWin32, EncodesOnlyWhatThePageHolds) {
    EXPECT_EQ(EncodeCodePage(L"K\x00F6ln \x20AC", 1252), "K\xF6ln \x80");
    EXPECT_EQ(EncodeCodePage(L"\x03A9", 1252), std::nullopt);
    EXPECT_EQ(EncodeCodePage(L"\x0100", 1252), std::nullopt);
    EXPECT_EQ(EncodeCodePage(L"", 1252), "");
}

TEST(PlatformWin32, EncodesWithoutTheCheckWherePagesRefuseIt) {
    EXPECT_EQ(EncodeCodePage(L"\x03A9", 65001), "\xCE\xA9");
    EXPECT_EQ(EncodeCodePage(L"a", 65000), "a");
}

TEST(PlatformWin32, FoldsBeyondAsciiAndKeepsTheLength) {
    std::wstring text = L"A\x00C4\x0416\x03A3\xFF21\x0130!";
    platform::FoldCase(text);
    EXPECT_EQ(text, L"a\x00E4\x0436\x03C3\xFF41\x0130!");
}

TEST(PlatformWin32, FoldsNothingInAnEmptyText) {
    std::wstring text;
    platform::FoldCase(text);
    EXPECT_EQ(text, L"");
}

TEST(PlatformWin32, CollatesDigitsAsNumbers) {
    EXPECT_LT(Collate(L"item2", L"item10"), 0);
    EXPECT_GT(Collate(L"item10", L"item2"), 0);
}

TEST(PlatformWin32, CollatesWithoutCaseAndWidth) {
    EXPECT_EQ(Collate(L"ABC", L"abc"), 0);
    EXPECT_EQ(Collate(L"\xFF21", L"a"), 0);
    EXPECT_EQ(Collate(L"", L""), 0);
    EXPECT_LT(Collate(L"", L"a"), 0);
}

TEST(PlatformWin32, GivesKeysInTheOrderOfTheirTexts) {
    const std::vector<std::wstring> words{L"",      L"a",      L"A",      L"item2",   L"item10",
                                          L"Item3", L"\x00E4", L"z",      L"10",      L"9",
                                          L"a b",   L"a-b",    L"\x0436", L"\xFF21z", L"_x"};
    for (const std::wstring& left : words) {
        for (const std::wstring& right : words) {
            const int order = CollationKey(left).compare(CollationKey(right));
            EXPECT_EQ(std::clamp(order, -1, 1), std::clamp(Collate(left, right), -1, 1))
                << testing::PrintToString(left) << " and " << testing::PrintToString(right);
        }
    }
}

/// What the system makes of bytes as UTF-8.
std::wstring SystemUtf8(std::string_view bytes) {
    const int length = static_cast<int>(bytes.size());
    std::wstring text(bytes.size() + 1, L'\0');
    const int units = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, text.data(),
                                          static_cast<int>(text.size()));
    text.resize(static_cast<size_t>(units));
    return text;
}

TEST(DecodeTextOnWindows, GivesExactlyWhatTheSystemGivesForUtf8) {
    const std::vector<std::string> pieces{"a",
                                          "some plain text, some more",
                                          "\xD0\xB1",
                                          "\xE4\xBD\xA0",
                                          "\xF0\x9F\x98\x80",
                                          "\xC0\x80",
                                          "\xE0\x9F\xBF",
                                          "\xED\xA0\x80\xED\xB0\x80",
                                          "\xF4\x90\x80\x80",
                                          "\x80",
                                          "\xFF",
                                          "\xE4\xBD",
                                          "\xF0\x9F\x98",
                                          "\xC3"};
    std::mt19937 random(3);
    for (int round = 0; round < 4000; ++round) {
        const size_t kinds = round % 2 == 0 ? 5 : pieces.size();
        std::string bytes;
        const size_t size = 1 + random() % 300;
        while (bytes.size() < size) {
            bytes += pieces[random() % kinds];
        }
        TextEncoding found;
        const std::wstring text = DecodeText(bytes, {.name = L"UTF-8"}, found);
        ASSERT_EQ(text, SystemUtf8(bytes)) << "round " << round;
    }
}

TEST(EncodeTextOnWindows, GivesExactlyWhatTheSystemGivesForUtf8) {
    constexpr wchar_t kUnits[] = {L'a', L'b', 0xE9, 0x4F60, 0xD83D, 0xDE00, 0xFFFF, 0x7FF, 0x800};
    std::mt19937 random(5);
    for (int round = 0; round < 4000; ++round) {
        std::wstring text;
        const size_t size = 1 + random() % 200;
        while (text.size() < size) {
            text.append(1 + random() % 3 * (random() % 12), kUnits[random() % std::size(kUnits)]);
        }
        std::string bytes;
        ASSERT_TRUE(EncodeText(text, {.name = L"UTF-8"}, bytes));
        ASSERT_EQ(bytes, EncodeCodePage(text, 65001)) << "round " << round;
    }
}

TEST(SingleBytePageOnWindows, NeverDisagreesWithTheSystem) {
    for (const uint32_t id : {437u, 850u, 866u, 874u, 1250u, 1251u, 1252u, 1253u, 1254u, 1255u,
                              1256u, 1257u, 1258u, 20866u, 28591u, 28592u, 28605u}) {
        SCOPED_TRACE(id);
        const std::optional<SingleBytePage> page = SingleBytePage::Make(id);
        ASSERT_TRUE(page.has_value());
        std::string bytes;
        for (unsigned unit = 0; unit < 0x10000; ++unit) {
            const std::wstring text(1, static_cast<wchar_t>(unit));
            const bool done = page->Encode(text, bytes);
            // What the table lacks is asked of the system again, so it may lack too much.
            if (done) {
                ASSERT_EQ(EncodeCodePage(text, id), bytes) << unit;
            }
        }
    }
}

TEST(SingleBytePageOnWindows, HoldsTheLettersOfItsPage) {
    const std::optional<SingleBytePage> page = SingleBytePage::Make(1251);
    ASSERT_TRUE(page.has_value());
    std::string bytes;
    EXPECT_TRUE(page->Encode(L"\x041C\x043E\x0441\x043A\x0432\x0430", bytes));
    EXPECT_EQ(bytes, "\xCC\xEE\xF1\xEA\xE2\xE0");
}

}  // namespace
}  // namespace rl
