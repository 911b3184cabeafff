#include "host/config/setting_keys.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

namespace rl {
namespace {

std::string_view TypeName(const settings::Option& option) {
    return std::holds_alternative<const IntSetting*>(option) ? "number" : "text";
}

std::wstring_view KeyOf(const settings::Option& option) {
    return std::visit([](const auto* setting) { return setting->key; }, option);
}

TEST(SettingKeys, NameEveryOptionOnce) {
    std::set<std::wstring_view> keys;
    size_t count = 0;
    for (const settings::OptionGroup& group : settings::kOptionGroups) {
        for (const settings::Option& option : group.options) {
            EXPECT_TRUE(keys.insert(KeyOf(option)).second)
                << testing::PrintToString(std::wstring(KeyOf(option))) << TypeName(option);
            ++count;
        }
    }
    EXPECT_EQ(count, 39u);
}

TEST(SettingKeys, AreLowerCaseWordsJoinedByHyphens) {
    for (const settings::OptionGroup& group : settings::kOptionGroups) {
        for (const settings::Option& option : group.options) {
            EXPECT_EQ(KeyOf(option).find_first_not_of(L"abcdefghijklmnopqrstuvwxyz-"),
                      std::wstring_view::npos)
                << testing::PrintToString(std::wstring(KeyOf(option)));
        }
    }
}

TEST(SettingKeys, AnswerWithTheirDefaults) {
    EXPECT_EQ(settings::kMaxFileSize.fallback, L"");
    EXPECT_EQ(settings::kQuoteChar.fallback, L"\"");
    EXPECT_EQ(settings::kTrimValues.fallback, 1);
    EXPECT_EQ(settings::kHeaderRow.fallback, 1);
    EXPECT_EQ(settings::kFont.fallback, L"Segoe UI");
    EXPECT_EQ(settings::kFontSize.fallback, 16);
    EXPECT_EQ(settings::kSourceFont.fallback, L"Consolas");
    EXPECT_EQ(settings::kSourceTabWidth.fallback, 4);
    EXPECT_EQ(settings::kSourceViewLimit.fallback, 16'000'000);
    EXPECT_EQ(settings::kFilterRow.fallback, 1);
    EXPECT_EQ(settings::kValuePane.fallback, 1);
    EXPECT_EQ(settings::kFilterHint.fallback, L"Filter");
    EXPECT_EQ(settings::kDecimalAlign.fallback, 1);
    EXPECT_EQ(settings::kMaxColumnWidth.fallback, 300);
    EXPECT_EQ(settings::kMaxColumnSamples.fallback, 1000);
    EXPECT_EQ(settings::kTreeOutline.fallback, 1);
    EXPECT_EQ(settings::kTreeWidth.fallback, 250);
    EXPECT_EQ(settings::kOutlineExpandMax.fallback, 120);
    EXPECT_EQ(settings::kDefaultTab.fallback, L"data");
    EXPECT_EQ(settings::kStartMode.fallback, L"default");
    EXPECT_EQ(settings::kColumnDelimiter.fallback, L"\\t");
}

TEST(SettingKeys, AreOffOrZeroOtherwise) {
    for (const IntSetting& setting :
         {settings::kSkipComments, settings::kParseMode, settings::kSkipAttributesScan,
          settings::kFontWeight, settings::kFilterAlign, settings::kFilterCaseSensitive,
          settings::kShowLineNumbers, settings::kDisableGridLines, settings::kCopyColumn,
          settings::kDisableNumKeys, settings::kDisableNpKeys, settings::kExitByQ,
          settings::kDarkTheme}) {
        EXPECT_EQ(setting.fallback, 0) << testing::PrintToString(std::wstring(setting.key));
    }
}

TEST(SettingKeys, ShowAnotherValueInTheTemplateWhereTheLookUpNeedsItsOwn) {
    EXPECT_EQ(settings::kTheme.fallback, L"") << "dark-theme alone gives Dark";
    EXPECT_EQ(settings::kTheme.inTemplate, L"Light");
    EXPECT_EQ(settings::kDetectString.fallback.size(), 503u);
    EXPECT_EQ(settings::kDetectString.inTemplate, L"");
}

TEST(DetectString, OffersEveryKnownSuffixAndConfig) {
    const std::wstring_view text = kLongDetectString;

    EXPECT_TRUE(text.starts_with(L"MULTIMEDIA & (ext=\"CSV\" | ext=\"TSV\" | ext=\"TAB\" | "));
    EXPECT_TRUE(text.ends_with(L" | ext=\"XLF\" | ext=\"XLIFF\" | ext=\"RUNSETTINGS\")"));
    EXPECT_NE(text.find(L"ext=\"KML\" | ext=\"CONFIG\" | ext=\"MANIFEST\""),
              std::wstring_view::npos);
    EXPECT_EQ(kShortDetectString, L"MULTIMEDIA & (ext=\"CSV\" | ext=\"JSON\" | ext=\"XML\")");
}

}  // namespace
}  // namespace rl
