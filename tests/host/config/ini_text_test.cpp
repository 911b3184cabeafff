#include "host/config/ini_text.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace rl {
namespace {

/// The value of a key of [s] after reading one text; nothing when it is not there.
std::optional<std::wstring> ValueIn(std::wstring_view text, std::wstring_view key) {
    IniSections sections;
    AddIniText(text, sections);
    const auto section = sections.find(L"s");
    if (section == sections.end()) {
        return std::nullopt;
    }
    const auto value = section->second.find(key);
    return value == section->second.end() ? std::nullopt : std::optional(value->second);
}

/// What `raw` behind "k=" is read as.
std::wstring ReadValue(std::wstring_view raw) {
    return ValueIn(L"[s]\nk=" + std::wstring(raw) + L"\n", L"k").value_or(L"(no such key)");
}

TEST(IniText, HasNothingToSayWhenItIsEmpty) {
    IniSections sections;
    AddIniText(L"", sections);

    ASSERT_EQ(sections.size(), 1u);
    EXPECT_TRUE(sections[L""].empty());
}

TEST(IniText, EndsLinesAtCrLfAndLfAndCr) {
    constexpr std::wstring_view kText = L"[s]\r\na=1\nb=2\rc=3\r\n\r\nd=4";

    EXPECT_EQ(ValueIn(kText, L"a"), L"1");
    EXPECT_EQ(ValueIn(kText, L"b"), L"2");
    EXPECT_EQ(ValueIn(kText, L"c"), L"3");
    EXPECT_EQ(ValueIn(kText, L"d"), L"4") << "the last line needs no break";
}

TEST(IniText, SkipsCommentsOfBothKinds) {
    constexpr std::wstring_view kText = L"[s]\n;a=1\n#b=2\n  ;c=3\n\t# d=4\n; [t]\ne=5";

    EXPECT_EQ(ValueIn(kText, L"a"), std::nullopt);
    EXPECT_EQ(ValueIn(kText, L";a"), std::nullopt);
    EXPECT_EQ(ValueIn(kText, L"b"), std::nullopt);
    EXPECT_EQ(ValueIn(kText, L"#b"), std::nullopt);
    EXPECT_EQ(ValueIn(kText, L"c"), std::nullopt);
    EXPECT_EQ(ValueIn(kText, L"d"), std::nullopt);
    EXPECT_EQ(ValueIn(kText, L"e"), L"5");
}

TEST(IniText, TrimsSpacesTabsAndBreaksOnly) {
    EXPECT_EQ(TrimIniText(L" \t\r\n a b \n"), L"a b");
    EXPECT_EQ(TrimIniText(L"\va\f"), L"\va\f");
    EXPECT_EQ(TrimIniText(L"\x00A0"), L"\x00A0");
    EXPECT_EQ(TrimIniText(L" \t"), L"");
}

TEST(IniText, LowersTheNamesOfSectionsAndKeysButNotValues) {
    EXPECT_EQ(ValueIn(L"[ S ]\n Font Face = Arial Black \n", L"font face"), L"Arial Black");
}

TEST(IniText, LowersLettersBeyondAscii) {
    EXPECT_EQ(ValueIn(L"[s]\n\x00C4=1", L"\x00E4"), L"1");
}

TEST(IniText, TakesAHeaderOnlyWhenTheLineEndsWithItsBracket) {
    EXPECT_EQ(ValueIn(L"[s]\n[t] ; not a header\na=1", L"a"), L"1");
    EXPECT_EQ(ValueIn(L"[s]\n[t\na=1", L"a"), L"1");
    EXPECT_EQ(ValueIn(L"[s]\n[\na=1", L"a"), L"1");
    EXPECT_EQ(ValueIn(L"[s]\n[]\na=1", L"a"), std::nullopt) << "a section without a name";
    EXPECT_EQ(ValueIn(L"[s]\n[a=1]", L"[a"), std::nullopt) << "a header although it has a =";
    EXPECT_EQ(ValueIn(L"[s]\n[a=1] x", L"[a"), L"1] x");
}

TEST(IniText, KeepsKeysBeforeAnyHeaderApart) {
    IniSections sections;
    AddIniText(L"a=1\n[s]\na=2", sections);

    EXPECT_EQ(sections[L""][L"a"], L"1");
    EXPECT_EQ(sections[L"s"][L"a"], L"2");
}

TEST(IniText, StartsASecondTextOutsideAnySection) {
    IniSections sections;
    AddIniText(L"[s]", sections);
    AddIniText(L"a=1", sections);

    EXPECT_TRUE(sections[L"s"].empty());
}

TEST(IniText, IgnoresLinesWithoutAnEqualsSign) {
    EXPECT_EQ(ValueIn(L"[s]\nnonsense\na=1", L"nonsense"), std::nullopt);
}

TEST(IniText, SplitsAtTheFirstEqualsSign) {
    EXPECT_EQ(ValueIn(L"[s]\na=b=c", L"a"), L"b=c");
    EXPECT_EQ(ValueIn(L"[s]\n=b", L""), L"b");
}

TEST(IniText, LetsTheFirstLineOfAKeyWin) {
    EXPECT_EQ(ValueIn(L"[s]\na=1\nA=2\n[t]\n[S]\na=3", L"a"), L"1");
}

TEST(IniText, LetsTheFirstTextWin) {
    IniSections sections;
    AddIniText(L"[s]\na=1", sections);
    AddIniText(L"[s]\na=2\nb=3", sections);

    EXPECT_EQ(sections[L"s"][L"a"], L"1");
    EXPECT_EQ(sections[L"s"][L"b"], L"3");
}

TEST(IniText, LetsAnEmptyFirstValueWin) {
    EXPECT_EQ(ValueIn(L"[s]\na=\na=2", L"a"), L"");
}

TEST(IniText, EndsAValueAtACommentBehindABlank) {
    EXPECT_EQ(ReadValue(L"20 ; big"), L"20");
    EXPECT_EQ(ReadValue(L"20\t# big"), L"20");
    EXPECT_EQ(ReadValue(L"a ;b"), L"a");
    EXPECT_EQ(ReadValue(L"a\x01;b"), L"a\x01") << "any control character will do";
    EXPECT_EQ(ReadValue(std::wstring_view(L"a\0;b", 4)), std::wstring(L"a\0", 2));
    EXPECT_EQ(ReadValue(L" ;b"), L"");
}

TEST(IniText, KeepsASemicolonWithoutABlankBefore) {
    EXPECT_EQ(ReadValue(L"a;b"), L"a;b");
    EXPECT_EQ(ReadValue(L"a#b"), L"a#b");
    EXPECT_EQ(ReadValue(L"a!;b"), L"a!;b") << "33 is the first character that does not count";
    EXPECT_EQ(ReadValue(L"a\x00A0;b"), L"a\x00A0;b");
}

TEST(IniText, KeepsASemicolonAtTheVeryStart) {
    EXPECT_EQ(ReadValue(L";"), L";");
    EXPECT_EQ(ReadValue(L";a"), L";a");
    EXPECT_EQ(ReadValue(L"#a ; b"), L"#a");
}

TEST(IniText, KeepsCommentMarksInsideQuotes) {
    EXPECT_EQ(ReadValue(L"\"x ;y\""), L"x ;y");
    EXPECT_EQ(ReadValue(L"'x #y' ; z"), L"x #y");
    EXPECT_EQ(ReadValue(L"\"it's ;fine\""), L"it's ;fine") << "only its own kind ends a run";
    EXPECT_EQ(ReadValue(L"a\" ;b"), L"a\" ;b") << "a run that is never closed";
    EXPECT_EQ(ReadValue(L"\"a\" ;b\""), L"a");
}

TEST(IniText, RemovesOnePairOfOuterQuotes) {
    EXPECT_EQ(ReadValue(L"\"a\""), L"a");
    EXPECT_EQ(ReadValue(L"'a'"), L"a");
    EXPECT_EQ(ReadValue(L"\"\"a\"\""), L"\"a\"");
    EXPECT_EQ(ReadValue(L"\"\""), L"");
    EXPECT_EQ(ReadValue(L"\" a \""), L" a ") << "blanks inside stay";
    EXPECT_EQ(ReadValue(L"\"a'"), L"\"a'");
    EXPECT_EQ(ReadValue(L"a\""), L"a\"");
    EXPECT_EQ(ReadValue(L"\"a\\\"b\""), L"a\\\"b") << "nothing is unescaped";
}

TEST(IniText, KeepsALoneQuote) {
    EXPECT_EQ(ReadValue(L"'"), L"'");
    EXPECT_EQ(ReadValue(L"\""), L"\"");
    EXPECT_EQ(ReadValue(L"'''"), L"'");
}

TEST(IniText, ReadsALongFileOfOneKeyInOnePass) {
    std::wstring text = L"[s]\n";
    for (int i = 0; i < 200'000; ++i) {
        text += L"k=1\n";
    }
    EXPECT_EQ(ValueIn(text, L"k"), L"1");
}

}  // namespace
}  // namespace rl
