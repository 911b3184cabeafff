#include "host/config/settings.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace rl {
namespace {

/// What a look-up answers after reading `text`.
std::wstring Lookup(std::wstring_view text, std::wstring_view key) {
    SettingsMap map;
    map.Add(text);
    const std::wstring* value = map.Find(key);
    return value != nullptr ? *value : L"(default)";
}

TEST(SettingsMap, FindsKeysInAnyLetterCase) {
    EXPECT_EQ(Lookup(L"[ROWLARK]\nFont=Arial", L"font"), L"Arial");
    EXPECT_EQ(Lookup(L"[rowlark]\nfont=Arial", L"FONT"), L"Arial");
}

TEST(SettingsMap, AsksOurOwnSectionFirst) {
    EXPECT_EQ(Lookup(L"[brenlo]\na=2\n[rowlark]\na=1", L"a"), L"1");
}

TEST(SettingsMap, AsksTheOlderSectionsInOrder) {
    EXPECT_EQ(Lookup(L"[tormax]\na=4\n[quivel]\na=3\n[brenlo]\na=2", L"a"), L"2");
    EXPECT_EQ(Lookup(L"[tormax]\na=4\n[quivel]\na=3", L"a"), L"3");
    EXPECT_EQ(Lookup(L"[tormax]\na=4", L"a"), L"4");
}

TEST(SettingsMap, AsksSectionsBeforeFiles) {
    SettingsMap map;
    map.Add(L"[brenlo]\na=2");
    map.Add(L"[rowlark]\na=1");

    EXPECT_EQ(*map.Find(L"a"), L"1");
}

TEST(SettingsMap, TakesNothingFromOtherSections) {
    EXPECT_EQ(Lookup(L"[other]\na=1", L"a"), L"(default)");
    EXPECT_EQ(Lookup(L"[]\na=1", L"a"), L"(default)");
    EXPECT_EQ(Lookup(L"a=1\n[rowlark]", L"a"), L"(default)");
}

TEST(SettingsMap, TellsAnEmptyValueFromNone) {
    EXPECT_EQ(Lookup(L"[rowlark]\nfilter-hint=", L"filter-hint"), L"");
    EXPECT_EQ(Lookup(L"[rowlark]\n[brenlo]\na=2", L"a"), L"2");
    EXPECT_EQ(Lookup(L"[rowlark]\na=\n[brenlo]\na=2", L"a"), L"") << "present is present";
}

TEST(SettingsMap, PrefersTheTextAddedFirst) {
    SettingsMap map;
    map.Add(L"[rowlark]\na=plugin");
    map.Add(L"[rowlark]\na=host\nb=host");

    EXPECT_EQ(*map.Find(L"a"), L"plugin");
    EXPECT_EQ(*map.Find(L"b"), L"host");
}

TEST(SettingsMap, OverwritesAValueThatIsSet) {
    SettingsMap map;
    map.Add(L"[rowlark]\na=1\n[brenlo]\nb=2");
    map.Set(L"A", L"10");
    map.Set(L"b", L"20");

    EXPECT_EQ(*map.Find(L"a"), L"10");
    EXPECT_EQ(*map.Find(L"b"), L"20");
}

TEST(SettingsMap, ForgetsEverythingWhenCleared) {
    SettingsMap map;
    map.Set(L"a", L"1");
    map.Clear();

    EXPECT_EQ(map.Find(L"a"), nullptr);
}

TEST(IntFromSetting, ReadsWholeDecimalNumbers) {
    EXPECT_EQ(IntFromSetting(L"7", 16), 7);
    EXPECT_EQ(IntFromSetting(L" \t7\r\n", 16), 7);
    EXPECT_EQ(IntFromSetting(L"-1", 16), -1);
    EXPECT_EQ(IntFromSetting(L"+5", 16), 5);
    EXPECT_EQ(IntFromSetting(L"007", 16), 7) << "never octal";
}

TEST(IntFromSetting, GivesTheFallbackForAnythingElse) {
    for (const wchar_t* value : {L"", L" ", L"abc", L"16px", L"12px", L"0x10", L"1e3", L"1.5", L"-",
                                 L"+", L"--1", L"1 2", L"- 1", L"\xFF11", L"7\x00A0"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(value)));
        EXPECT_EQ(IntFromSetting(value, 16), 16);
    }
}

TEST(IntFromSetting, ClampsTo32Bits) {
    EXPECT_EQ(IntFromSetting(L"2147483647", 0), 2147483647);
    EXPECT_EQ(IntFromSetting(L"2147483648", 0), 2147483647);
    EXPECT_EQ(IntFromSetting(L"99999999999", 0), 2147483647);
    EXPECT_EQ(IntFromSetting(L"-2147483648", 0), -2147483647 - 1);
    EXPECT_EQ(IntFromSetting(L"-99999999999", 0), -2147483647 - 1);
    EXPECT_EQ(IntFromSetting(std::wstring(1000, L'9'), 0), 2147483647);
    EXPECT_EQ(IntFromSetting(L"-" + std::wstring(1000, L'9'), 0), -2147483647 - 1);
}

TEST(DelimiterFromSetting, KnowsTheWordAndTheEscapeForTab) {
    EXPECT_EQ(DelimiterFromSetting(L"TAB"), L'\t');
    EXPECT_EQ(DelimiterFromSetting(L"tab"), L'\t');
    EXPECT_EQ(DelimiterFromSetting(L"Tab"), L'\t');
    EXPECT_EQ(DelimiterFromSetting(L"\\t"), L'\t');
    EXPECT_EQ(DelimiterFromSetting(L"\t"), L'\t');
}

TEST(DelimiterFromSetting, TakesTheFirstCharacterOfAnythingElse) {
    EXPECT_EQ(DelimiterFromSetting(L";"), L';');
    EXPECT_EQ(DelimiterFromSetting(L"|x"), L'|');
    EXPECT_EQ(DelimiterFromSetting(L"\\T"), L'\\') << "the escape has a small t";
    EXPECT_EQ(DelimiterFromSetting(L"tabs"), L't');
}

TEST(DelimiterFromSetting, LeavesAnEmptyValueToDetection) {
    EXPECT_EQ(DelimiterFromSetting(L""), L'\0');
}

TEST(QuoteFromSetting, TakesTheFirstCharacterOrTheDoubleQuote) {
    EXPECT_EQ(QuoteFromSetting(L""), L'"');
    EXPECT_EQ(QuoteFromSetting(L"'"), L'\'');
    EXPECT_EQ(QuoteFromSetting(L"`x"), L'`');
}

TEST(QuoteFromSetting, SeesTheQuoteOfTheTemplateLineOnceItIsUncommented) {
    EXPECT_EQ(
        QuoteFromSetting(Lookup(L"[rowlark]\nquote-char=\"        ; CSV field quote character; "
                                L"some exports use an apostrophe",
                                L"quote-char")),
        L'"');
    EXPECT_EQ(QuoteFromSetting(Lookup(L"[rowlark]\nquote-char='   ; an apostrophe", L"quote-char")),
              L'\'');
}

TEST(CopySeparatorFromSetting, IsTabUnlessAnotherIsNamed) {
    EXPECT_EQ(CopySeparatorFromSetting(L""), L"\t");
    EXPECT_EQ(CopySeparatorFromSetting(L"\\t"), L"\t");
    EXPECT_EQ(CopySeparatorFromSetting(L";"), L";");
    EXPECT_EQ(CopySeparatorFromSetting(L", "), L", ");
}

}  // namespace
}  // namespace rl
