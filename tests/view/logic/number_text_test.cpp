#include "view/logic/number_text.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cwchar>
#include <limits>
#include <random>
#include <string>
#include <system_error>

namespace rl {
namespace {

TEST(ParseNumber, ReadsDigitsPointSignAndExponent) {
    const struct {
        std::wstring_view text;
        double value;
    } cases[] = {
        {L"0", 0},
        {L"42", 42},
        {L"1.", 1},
        {L".5", 0.5},
        {L" -3e+2 ", -300},
        {L"7E1", 70},
        {L"+8", 8},
        {L"\t 9\t", 9},
        {L"-.5e-1", -0.05},
        {L"007", 7},
        {L"1.e2", 100},
        {L"0.1", 0.1},
        {L"1e22", 1e22},
        {L"1e23", 1e23},
        {L"123456789012345678901234567890", 1.2345678901234568e29},
        {L"0.000001", 1e-6},
        {L"999999999999999", 999999999999999.0},
        {L"9007199254740993", 9007199254740992.0},
    };
    for (const auto& [text, value] : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(text)));
        EXPECT_EQ(ParseNumber(text), value);
    }
}

TEST(ParseNumber, RefusesEverythingElse) {
    for (const std::wstring_view text :
         {L"",     L" ",     L"\t",  L"1,5",     L"1e",     L"e5",   L"0x10", L"inf",
          L"nan",  L"1.2.3", L"-",   L"+",       L".",      L"-.",   L"--1",  L"+-1",
          L"1 2",  L"1e+",   L"1e-", L"1e5.",    L"1e5e5",  L"1ee5", L".e5",  L"1e 5",
          L"12px", L"- 1",   L"1\n", L"\u00A01", L"\u0661", L"1e1.0"}) {
        EXPECT_FALSE(ParseNumber(text).has_value()) << testing::PrintToString(std::wstring(text));
    }
}

TEST(ParseNumber, GoesToInfinityAndToZeroBeyondADouble) {
    EXPECT_EQ(ParseNumber(L"1e400"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(ParseNumber(L"-1e99999999999999999999"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(ParseNumber(L"1e-400"), 0.0);
    EXPECT_EQ(ParseNumber(L"0e999999999999"), 0.0);
    EXPECT_EQ(ParseNumber(L"4.9e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(ParseNumber(L"1e-310"), 1e-310);
    EXPECT_EQ(ParseNumber(L"1" + std::wstring(400, L'0') + L"e-400"), 1.0);
    EXPECT_EQ(ParseNumber(L"0." + std::wstring(400, L'0') + L"1e401"), 1.0);
}

TEST(ParseNumber, KeepsTheSignOfZero) {
    ASSERT_TRUE(ParseNumber(L"-0").has_value());
    EXPECT_TRUE(std::signbit(*ParseNumber(L"-0")));
}

TEST(ParseNumber, AgreesWithTheLibraryToTheLastBit) {
    std::mt19937 random(20240817);
    const auto digit = [&] { return static_cast<wchar_t>(L'0' + random() % 10); };
    for (int i = 0; i < 20000; ++i) {
        std::wstring text = random() % 2 == 0 ? L"-" : L"";
        for (auto n = random() % 22; n > 0; --n) {
            text.push_back(digit());
        }
        text.push_back(digit());
        if (random() % 2 == 0) {
            text.push_back(L'.');
            for (auto n = random() % 22; n > 0; --n) {
                text.push_back(digit());
            }
        }
        if (random() % 2 == 0) {
            text += (random() % 2 == 0 ? L"e-" : L"E+") + std::to_wstring(random() % 340);
        }
        // Not wcstod: the one of Windows' C library is off by a bit for long numbers.
        const std::string narrow(text.begin(), text.end());
        double expected = 0;
        const auto [end, error] =
            std::from_chars(narrow.data(), narrow.data() + narrow.size(), expected);
        if (error == std::errc::result_out_of_range) {  // it leaves the value alone then
            const double size = narrow.contains('+') ? INFINITY : 0.0;
            expected = narrow.front() == '-' ? -size : size;
        }
        ASSERT_EQ(ParseNumber(text), expected) << narrow;
    }
}

void ExpectNumber(std::wstring_view text, NumberShape shape, std::wstring_view integer,
                  std::wstring_view fraction) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(text)));
    const NumberText number = ClassifyNumber(text);
    EXPECT_EQ(number.shape, shape);
    EXPECT_EQ(number.integer, integer);
    EXPECT_EQ(number.fraction, fraction);
}

TEST(ClassifyNumber, SplitsADecimalAtPointOrComma) {
    ExpectNumber(L"1.5", NumberShape::Decimal, L"1", L".5");
    ExpectNumber(L"-22.25", NumberShape::Decimal, L"-22", L".25");
    ExpectNumber(L"1,5", NumberShape::Decimal, L"1", L",5");
    ExpectNumber(L" \t+0,50 ", NumberShape::Decimal, L"+0", L",50");
}

TEST(ClassifyNumber, TakesDigitsWithASignAsInteger) {
    ExpectNumber(L"3", NumberShape::Integer, L"3", L"");
    ExpectNumber(L" -17\t", NumberShape::Integer, L"-17", L"");
    ExpectNumber(L"+0", NumberShape::Integer, L"+0", L"");
}

TEST(ClassifyNumber, LeavesEverythingElseAsText) {
    for (const std::wstring_view text :
         {L"", L" ", L"-", L"+", L".", L",", L"1.000,5", L"1e5", L"+.5", L".5", L"5.", L"5,",
          L"1..5", L"1 5", L"--5", L"5-", L"1.5-", L"abc", L"1.5\n"}) {
        ExpectNumber(text, NumberShape::Text, L"", L"");
    }
}

}  // namespace
}  // namespace rl
