#include "load/text/loading_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace rl {
namespace {

TEST(LoadingText, NamesTheFileAndItsMebibytes) {
    EXPECT_EQ(LoadingText(L"C:\\some folder\\data.csv", 1'572'864),
              L"Loading data.csv (1.5 MB)\x2026");
}

TEST(LoadingText, LeavesAnUnknownSizeOut) {
    EXPECT_EQ(LoadingText(L"C:\\data.csv", std::nullopt), L"Loading data.csv\x2026");
}

TEST(LoadingText, TakesTheNameBehindEitherSeparator) {
    EXPECT_EQ(LoadingText(L"C:\\a/b.csv", std::nullopt), L"Loading b.csv\x2026");
    EXPECT_EQ(LoadingText(L"C:/a\\b.csv", std::nullopt), L"Loading b.csv\x2026");
    EXPECT_EQ(LoadingText(L"b.csv", std::nullopt), L"Loading b.csv\x2026");
    EXPECT_EQ(LoadingText(L"", std::nullopt), L"Loading \x2026");
    EXPECT_EQ(LoadingText(L"a\\", std::nullopt), L"Loading \x2026");
}

TEST(LoadingText, CutsTheSizeInsteadOfRoundingIt) {
    EXPECT_EQ(LoadingText(L"a", 0), L"Loading a (0.0 MB)\x2026");
    EXPECT_EQ(LoadingText(L"a", 104'857), L"Loading a (0.0 MB)\x2026");
    EXPECT_EQ(LoadingText(L"a", 104'858), L"Loading a (0.1 MB)\x2026");
    EXPECT_EQ(LoadingText(L"a", 1'048'575), L"Loading a (0.9 MB)\x2026");
    EXPECT_EQ(LoadingText(L"a", 1'048'576), L"Loading a (1.0 MB)\x2026");
    EXPECT_EQ(LoadingText(L"a", 2'147'483'647), L"Loading a (2047.9 MB)\x2026");
}

TEST(LoadingText, KnowsNoLargestFile) {
    EXPECT_EQ(LoadingText(L"a", std::numeric_limits<uint64_t>::max()),
              L"Loading a (17592186044415.9 MB)\x2026");
}

}  // namespace
}  // namespace rl
