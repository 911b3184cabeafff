// The scalar conversions by literal answers, and the kernels of the way back against them.
#include "load/text/utf.h"

#include <gtest/gtest.h>

#include <random>

#include "load/text/simd_encode.h"
#include "load/text/utf_encode.h"
#include "load/text/utf_scalar.h"

namespace rl::utf {
namespace {

using namespace std::string_view_literals;

struct Converted {
    Progress progress;
    std::wstring units;

    bool operator==(const Converted&) const = default;
};

Converted Convert(std::string_view bytes, size_t room = 16) {
    std::wstring units(room, L'?');
    const Progress done = Utf8ToUnitsScalar(bytes, std::span<wchar_t>(units));
    units.resize(done.written);
    return {done, units};
}

std::wstring Units(std::initializer_list<int> units) {
    std::wstring out;
    for (const int unit : units) {
        out += static_cast<wchar_t>(unit);
    }
    return out;
}

TEST(Utf8ToUnitsScalar, ConvertsTheFirstAndLastOfEachLength) {
    EXPECT_EQ(Convert("\0\x7F"sv), (Converted{{2, 2}, Units({0, 0x7F})}));
    EXPECT_EQ(Convert("\xC2\x80\xDF\xBF"), (Converted{{4, 2}, Units({0x80, 0x7FF})}));
    EXPECT_EQ(Convert("\xE0\xA0\x80\xEF\xBF\xBF"), (Converted{{6, 2}, Units({0x800, 0xFFFF})}));
    EXPECT_EQ(Convert("\xED\x9F\xBF\xEE\x80\x80"), (Converted{{6, 2}, Units({0xD7FF, 0xE000})}));
    EXPECT_EQ(Convert("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"),
              (Converted{{8, 4}, Units({0xD800, 0xDC00, 0xDBFF, 0xDFFF})}));
}

TEST(Utf8ToUnitsScalar, StopsAtWhatIsNotWellFormed) {
    for (const std::string_view bad :
         {"\x80"sv, "\xC0\x80"sv, "\xC1\xBF"sv, "\xC3"sv, "\xC3\x28"sv, "\xE0\x9F\xBF"sv,
          "\xED\xA0\x80"sv, "\xE4\xBD"sv, "\xE4\xBD\x28"sv, "\xF0\x8F\xBF\xBF"sv,
          "\xF4\x90\x80\x80"sv, "\xF5\x80\x80\x80"sv, "\xF0\x9F\x98"sv, "\xFF"sv}) {
        SCOPED_TRACE(testing::PrintToString(bad));
        EXPECT_EQ(Convert("ab" + std::string(bad)), (Converted{{2, 2}, L"ab"}));
    }
}

TEST(Utf8ToUnitsScalar, StopsWhereTheRoomEnds) {
    EXPECT_EQ(Convert("abc", 2), (Converted{{2, 2}, L"ab"}));
    EXPECT_EQ(Convert("a\xF0\x9F\x98\x80", 2), (Converted{{1, 1}, L"a"}));
    EXPECT_EQ(Convert("a", 0), (Converted{{0, 0}, L""}));
}

using Text = std::basic_string<simd::TextUnit>;
using TextView = std::basic_string_view<simd::TextUnit>;

/// One character at a time: what the kernels must agree with.
std::string Slowly(TextView text) {
    std::string out;
    char bytes[4];
    while (!text.empty()) {
        const Character next = CharacterAt(text);
        out.append(bytes, static_cast<size_t>(PutUtf8(next.point, bytes) - bytes));
        text.remove_prefix(next.units);
    }
    return out;
}

void ExpectSameUtf8(const Text& text) {
    const std::string expected = Slowly(text);
    std::string bytes(CountUtf8Of(TextView(text)), '?');
    ASSERT_EQ(bytes.size(), expected.size());
    UnitsToUtf8At(TextView(text), bytes.data());
    EXPECT_EQ(bytes, expected);
}

TEST(UnitsToUtf8At, AgreesWithOneCharacterAtATime) {
    constexpr int kUnits[] = {'a',  'b',    0x7F,   0x80,   0x7FF,  0x800,  0xFFFF,
                              0xE9, 0x4F60, 0xD7FF, 0xE000, 0xD83D, 0xDE00, 0xDBFF};
    std::mt19937 random(11);
    for (int round = 0; round < 3000; ++round) {
        SCOPED_TRACE(round);
        Text text;
        const size_t size = random() % 120;
        while (text.size() < size) {
            const auto unit = static_cast<simd::TextUnit>(kUnits[random() % std::size(kUnits)]);
            text.append(1 + (random() % 3 == 0 ? random() % 40 : 0), unit);
        }
        ExpectSameUtf8(text);
    }
}

TEST(UnitsToUtf8At, WritesSurrogatesPairedAcrossEveryStep) {
    const Text pair{static_cast<simd::TextUnit>(0xD83D), static_cast<simd::TextUnit>(0xDE00)};
    for (size_t at = 0; at < 40; ++at) {
        SCOPED_TRACE(at);
        Text text(40, static_cast<simd::TextUnit>('a'));
        text.insert(at, pair);
        ExpectSameUtf8(text);
        text.erase(at, 1);
        ExpectSameUtf8(text);
    }
}

TEST(PrefixOfWholePairs, PartsNoPair) {
    const std::wstring text = Units({'a', 0xD83D, 0xDE00, 'b', 0xD83D});
    EXPECT_EQ(PrefixOfWholePairs(text, 1).size(), 1u);
    EXPECT_EQ(PrefixOfWholePairs(text, 2).size(), 1u);
    EXPECT_EQ(PrefixOfWholePairs(text, 3).size(), 3u);
    EXPECT_EQ(PrefixOfWholePairs(text, 9).size(), 5u);
    EXPECT_EQ(PrefixOfWholePairs(Units({0xDE00, 0xD83D, 0xD83D, 'a'}), 2).size(), 2u);
    EXPECT_EQ(PrefixOfWholePairs(L"", 4).size(), 0u);
}

TEST(CountUtf8Of, CountsLongTexts) {
    constexpr size_t kSize = 3'000'000;
    EXPECT_EQ(CountUtf8Of(TextView(Text(kSize, static_cast<simd::TextUnit>('a')))), kSize);
    EXPECT_EQ(CountUtf8Of(TextView(Text(kSize, static_cast<simd::TextUnit>(0xE9)))), 2 * kSize);
    EXPECT_EQ(CountUtf8Of(TextView(Text(kSize, static_cast<simd::TextUnit>(0x4F60)))), 3 * kSize);
}

TEST(BytesToUnits, KeepsEveryUnitInEitherOrder) {
    const std::string_view bytes = "\x34\x12\xFF\xFE\x00\xD8"sv;
    std::wstring units(3, L'?');
    BytesToUnits(bytes, ByteOrder::Little, units.data());
    EXPECT_EQ(units, Units({0x1234, 0xFEFF, 0xD800}));
    std::string back(6, '?');
    UnitsToBytes(units, ByteOrder::Little, back.data());
    EXPECT_EQ(back, bytes);
    BytesToUnits(bytes, ByteOrder::Big, units.data());
    EXPECT_EQ(units, Units({0x3412, 0xFFFE, 0x00D8}));
    UnitsToBytes(units, ByteOrder::Big, back.data());
    EXPECT_EQ(back, bytes);
}

}  // namespace
}  // namespace rl::utf
