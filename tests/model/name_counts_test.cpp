#include "model/name_counts.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace rl {
namespace {

TEST(NameCounts, AreKeptForEachNameHoweverManyThereAre) {
    std::wstring text;
    constexpr size_t kNames = 20'000;
    constexpr size_t kLength = 6;
    for (size_t i = 0; i < kNames; ++i) {
        text += L"n" + std::to_wstring(10'000 + i);
    }
    NameCounts<wchar_t> counts{text};
    const std::wstring_view all(text);
    for (int round = 0; round < 2; ++round) {
        for (size_t i = 0; i < kNames; ++i) {
            counts.CountOf(all.substr(i * kLength, kLength)) += static_cast<uint32_t>(i);
        }
    }
    for (size_t i = 0; i < kNames; ++i) {
        const uint32_t* const count = counts.FindCount(L"n" + std::to_wstring(10'000 + i));
        ASSERT_NE(count, nullptr) << i;
        EXPECT_EQ(*count, 2 * i);
    }
}

TEST(NameCounts, OfNamesNeverAskedForAreNone) {
    const std::wstring_view text = L"abab";
    NameCounts<wchar_t> counts(text);
    EXPECT_EQ(counts.FindCount(L"ab"), nullptr);
    ++counts.CountOf(text.substr(0, 2));
    ++counts.CountOf(text.substr(2, 2));
    EXPECT_EQ(*counts.FindCount(L"ab"), 2U);
    EXPECT_EQ(counts.FindCount(L"a"), nullptr);
    EXPECT_EQ(counts.FindCount(L""), nullptr);
}

TEST(NameCounts, KnowTheEmptyName) {
    const std::wstring_view text = L"ab";
    NameCounts<wchar_t> counts(text);
    counts.CountOf(text.substr(1, 0)) = 7;
    EXPECT_EQ(*counts.FindCount(L""), 7U);
    EXPECT_EQ(counts.FindCount(L"b"), nullptr);
}

}  // namespace
}  // namespace rl
