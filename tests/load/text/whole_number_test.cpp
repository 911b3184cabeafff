#include "load/text/whole_number.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace rl {
namespace {

using Limits = std::numeric_limits<int64_t>;

TEST(ParseWholeNumber, ReadsASignAndDigits) {
    EXPECT_EQ(ParseWholeNumber(L"0"), 0);
    EXPECT_EQ(ParseWholeNumber(L"42"), 42);
    EXPECT_EQ(ParseWholeNumber(L"-42"), -42);
    EXPECT_EQ(ParseWholeNumber(L"+42"), 42);
    EXPECT_EQ(ParseWholeNumber(L"-0"), 0);
    EXPECT_EQ(ParseWholeNumber(L"000000000000000000000000042"), 42);
}

TEST(ParseWholeNumber, SkipsBlanksBeforeButNotBehind) {
    EXPECT_EQ(ParseWholeNumber(L" \t\n\v\f\r42"), 42);
    EXPECT_EQ(ParseWholeNumber(L"42 "), std::nullopt);
    EXPECT_EQ(ParseWholeNumber(L"- 42"), std::nullopt);
}

TEST(ParseWholeNumber, RefusesAnythingElse) {
    for (const wchar_t* text : {L"", L" ", L"+", L"-", L"+-1", L"1-", L"4/2", L"4:2", L"0x1",
                                L"1,000", L"\xFF14\xFF12"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(text)));
        EXPECT_EQ(ParseWholeNumber(text), std::nullopt);
    }
    EXPECT_EQ(ParseWholeNumber(std::wstring_view(L"4\0", 2)), std::nullopt);
}

TEST(ParseWholeNumber, ReachesBothEnds) {
    EXPECT_EQ(ParseWholeNumber(L"9223372036854775807"), Limits::max());
    EXPECT_EQ(ParseWholeNumber(L"9223372036854775806"), Limits::max() - 1);
    EXPECT_EQ(ParseWholeNumber(L"-9223372036854775808"), Limits::min());
    EXPECT_EQ(ParseWholeNumber(L"-9223372036854775807"), Limits::min() + 1);
}

TEST(ParseWholeNumber, StaysAtTheEndsBeyondThem) {
    EXPECT_EQ(ParseWholeNumber(L"9223372036854775808"), Limits::max());
    EXPECT_EQ(ParseWholeNumber(L"9223372036854775809"), Limits::max());
    EXPECT_EQ(ParseWholeNumber(L"-9223372036854775809"), Limits::min());
    EXPECT_EQ(ParseWholeNumber(L"92233720368547758070"), Limits::max());
    EXPECT_EQ(ParseWholeNumber(std::wstring(10'000, L'9')), Limits::max());
    EXPECT_EQ(ParseWholeNumber(L"-" + std::wstring(10'000, L'9')), Limits::min());
    EXPECT_EQ(ParseWholeNumber(std::wstring(10'000, L'9') + L"x"), std::nullopt);
}

}  // namespace
}  // namespace rl
