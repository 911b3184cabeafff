#include "model/name_units.h"

#include <gtest/gtest.h>

#include <string>

namespace rl {
namespace {

TEST(NameUnits, KnowLettersAndDigitsOfManyScripts) {
    for (const wchar_t letter : std::wstring(L"azAZ\x00E9\x00DF\x0416\x05D0\x4E2D\xAC00")) {
        EXPECT_TRUE(IsAlphabetic(letter)) << static_cast<uint32_t>(letter);
        EXPECT_TRUE(IsAlphanumeric(letter)) << static_cast<uint32_t>(letter);
    }
    for (const wchar_t digit : std::wstring(L"09\x0660\x0966")) {
        EXPECT_FALSE(IsAlphabetic(digit)) << static_cast<uint32_t>(digit);
        EXPECT_TRUE(IsAlphanumeric(digit)) << static_cast<uint32_t>(digit);
    }
    for (const wchar_t other :
         std::wstring(L"@[`{/: _-.\0\x00D7\x00F7\x2028\xD800\xDC00\xFFFF", 16)) {
        EXPECT_FALSE(IsAlphanumeric(other)) << static_cast<uint32_t>(other);
    }
}

TEST(NameUnits, TellXmlNamesFromOtherTexts) {
    for (const wchar_t* name : {L"a", L"_", L":", L"a:b", L"a-b.c1", L"\x00E9", L"a\x00B7",
                                L"\xD800\xDC00", L"a\xDB7F\xDFFF"}) {
        EXPECT_TRUE(IsXmlName(name)) << name;
    }
    for (const wchar_t* name :
         {L"", L"1", L"-", L".a", L"a b", L"a'", L"\x00B7", L"a\x00D7", L"\x00AA", L"\xD800",
          L"a\xD800", L"\xDC00\xD800", L"\xDB80\xDC00", L"a\xFFFE"}) {
        EXPECT_FALSE(IsXmlName(name)) << name;
    }
}

TEST(NameUnits, LetANameGoOnWithWhateverItMayBeginWith) {
    for (uint32_t unit = 0; unit < 0x10000; ++unit) {
        const auto c = static_cast<wchar_t>(unit);
        EXPECT_LE(IsXmlNameStart(c), IsXmlNameUnit(c)) << unit;
        EXPECT_LE(IsAlphabetic(c), IsAlphanumeric(c)) << unit;
    }
}

}  // namespace
}  // namespace rl
