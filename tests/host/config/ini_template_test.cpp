#include "host/config/ini_template.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "host/config/ini_text.h"
#include "tests/support/golden_file.h"

namespace rl {
namespace {

/// The template as text, with the comment mark before `key` removed.
std::wstring TemplateWith(const std::string& key) {
    std::string text = IniTemplate();
    const size_t at = text.find("\n; " + key + "=");
    EXPECT_NE(at, std::string::npos) << key;
    text.erase(at + 1, 2);
    return {text.begin(), text.end()};
}

std::wstring ValueOf(const std::string& key) {
    IniSections sections;
    AddIniText(TemplateWith(key), sections);
    const IniSection& section = sections[L"rowlark"];
    return section.size() == 1 ? section.begin()->second : L"(not alone)";
}

TEST(IniTemplate, IsTheFileWeHaveAlwaysWritten) {
    EXPECT_EQ(IniTemplate().size(), 5257u);
    test::ExpectGolden(IniTemplate(), "tests/golden/rowlark.ini");
}

TEST(IniTemplate, IsAsciiWithLineFeedsAlone) {
    const std::string text = IniTemplate();

    EXPECT_TRUE(
        std::ranges::all_of(text, [](char c) { return c == '\n' || (c >= 32 && c < 127); }));
    EXPECT_TRUE(text.ends_with("\n"));
    EXPECT_FALSE(text.ends_with("\n\n"));
    EXPECT_EQ(text.find("\n\n\n"), std::string::npos);
}

TEST(IniTemplate, HasNoLineLongerThan160) {
    const std::string text = IniTemplate();
    for (size_t start = 0; start < text.size();) {
        const size_t end = text.find('\n', start);
        EXPECT_LE(end - start, 160u) << text.substr(start, end - start);
        start = end + 1;
    }
}

TEST(IniTemplate, OpensWithItsHeader) {
    EXPECT_TRUE(IniTemplate().starts_with(
        "; rowlark.wlx64 1.1.0 - all options with their defaults (remove the\n"
        "; leading ';' to change one). Colors are decimal COLORREF values\n"
        "; (blue*65536 + green*256 + red). This file lives beside the plugin\n"
        "; and wins over the same keys in Total Commander's default ini.\n"
        "[rowlark]\n"
        "\n"
        "; ---- files & parsing ----\n"));
}

TEST(IniTemplate, PadsOptionsAndHangsLongExplanations) {
    EXPECT_NE(
        IniTemplate().find(
            "\n; default-column-delimiter=          ; empty = automatic detection; otherwise any "
            "single character, or the word \"TAB\"; automatic detection obeys a leading Excel\n"
            ";                                      \"sep=;\" line and otherwise scores the first "
            "rows\n"),
        std::string::npos);
    EXPECT_NE(IniTemplate().find("\n; exit-by-q=0                        ; \n"), std::string::npos);
    EXPECT_NE(IniTemplate().find("\n; source-color-tag=128\n"), std::string::npos);
}

TEST(IniTemplate, ChangesNothingUntilItIsEdited) {
    IniSections sections;
    const std::string text = IniTemplate();
    AddIniText(std::wstring(text.begin(), text.end()), sections);

    for (const auto& [name, section] : sections) {
        EXPECT_TRUE(section.empty()) << testing::PrintToString(name);
    }
}

TEST(IniTemplate, ReadsAsItsDefaultOnceALineIsUncommented) {
    EXPECT_EQ(ValueOf("max-file-size"), L"");
    EXPECT_EQ(ValueOf("default-column-delimiter"), L"");
    EXPECT_EQ(ValueOf("trim-values"), L"1");
    EXPECT_EQ(ValueOf("missing-attribute-value"), L"N/A");
    EXPECT_EQ(ValueOf("font"), L"Segoe UI");
    EXPECT_EQ(ValueOf("source-view-limit"), L"16000000");
    EXPECT_EQ(ValueOf("filter-case-sensitive"), L"0");
    EXPECT_EQ(ValueOf("column-delimiter"), L"\\t");
    EXPECT_EQ(ValueOf("theme"), L"Light");
    EXPECT_EQ(ValueOf("text-color"), L"0");
    EXPECT_EQ(ValueOf("source-color-punct-dark"), L"9868950");
}

}  // namespace
}  // namespace rl
