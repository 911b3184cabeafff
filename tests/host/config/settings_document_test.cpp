// docs/settings.md is made from the key table and the themes; here it is made and compared.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "host/config/setting_keys.h"
#include "host/config/themes.h"
#include "tests/support/golden_file.h"

namespace rl {
namespace {

constexpr std::string_view kIntroduction =
    R"(# Settings

<!-- Made from host/config/setting_keys.h and host/config/themes.cpp. A test compares; when it
     fails, it prints the command that accepts the new text. -->

All options are `key=value` lines under the header `[rowlark]` of `rowlark.ini`, which lies beside
`rowlark.wlx64`. Where the file is missing it is written at the next start, with every option in it
behind a semicolon. An edit shows the next time the option is used; most take effect with the next
file, none needs a restart.

The same keys in the file manager's own INI file count where `rowlark.ini` has none. So do the
sections `[brenlo]`, `[quivel]` and `[tormax]` of earlier plugins, in this order, after `[rowlark]`.

- Section names and keys may be written in any letter case. The first line of a key wins.
- Lines that begin with `;` or `#` are comments. Behind a value, a `;` or `#` with a blank before it
  begins one: `font-size=20 ; big` is 20, `filter-hint=a;b` is `a;b`.
- One pair of double or single quotes around a value is taken off. Inside quotes nothing is a
  comment: `"x ;y"` is `x ;y`. Nothing is unescaped.
- An empty value is a value: `filter-hint=` shows no hint, where a missing line shows `Filter`.
- Numbers are whole and decimal. Anything else, such as `12px`, counts as if the line were missing.
- The file may be UTF-8, UTF-16 with a mark, or in the system's ANSI code page.
)";

constexpr std::string_view kColorIntroduction = R"(
## Colours

A colour is one decimal number: blue * 65536 + green * 256 + red. A colour that is not set is the
selected theme's. Light themes read the keys below; dark themes read the same keys with `-dark`
behind them, and neither sees the other's. (The values that the file written at the first start
shows are examples and differ from these.)
)";

std::string Narrow(std::wstring_view text) {
    std::string narrow;
    for (const wchar_t unit : text) {
        narrow += static_cast<char>(unit);
    }
    return narrow;
}

std::string Code(std::string_view text) {
    if (text.empty()) {
        return "empty";
    }
    std::string code(1, '`');
    code += text;
    code += '`';
    return code;
}

std::string Row(std::string_view key, std::string_view value, std::string_view meaning) {
    std::string row = "| " + Code(key) + " | " + std::string(value) + " | ";
    row += meaning.empty() ? std::string() : std::string(meaning) + ' ';
    return row + "|\n";
}

/// `parts` that are not empty, with `separator` between them.
std::string Joined(std::initializer_list<std::string> parts, std::string_view separator) {
    std::string text;
    for (const std::string& part : parts) {
        text += text.empty() || part.empty() ? "" : separator;
        text += part;
    }
    return text;
}

std::string RowOf(const IntSetting& setting) {
    const std::string words = Joined({Narrow(setting.comment), Narrow(setting.note)}, "; ");
    const std::string range = setting.meaning == IntMeaning::Switch ? "0 or 1" : "";
    return Row(Narrow(setting.key), std::to_string(setting.fallback), Joined({range, words}, ": "));
}

/// A default that the template does not show either is described, not spelled out.
std::string RowOf(const TextSetting& setting) {
    const bool shown = setting.fallback == setting.inTemplate;
    const std::string value = shown                      ? Code(Narrow(setting.fallback))
                              : setting.fallback.empty() ? "none: see `dark-theme`"
                                                         : "built in";
    return Row(Narrow(setting.key), value,
               Joined({Narrow(setting.comment), Narrow(setting.note)}, "; "));
}

std::string Groups() {
    std::string text;
    for (const settings::OptionGroup& group : settings::kOptionGroups) {
        std::string title = Narrow(group.title);
        title.front() = static_cast<char>(title.front() - 'a' + 'A');
        text += "\n## " + title + "\n\n| Key | Default | Meaning |\n|---|---|---|\n";
        for (const settings::Option& option : group.options) {
            text += std::visit([](const auto* setting) { return RowOf(*setting); }, option);
        }
    }
    return text;
}

std::string ThemeTable() {
    std::string names = "\n| Key |";
    std::string rule = "|---|";
    for (const Theme& theme : BuiltInThemes()) {
        names += ' ' + Narrow(theme.name) + (theme.dark ? " (dark) |" : " |");
        rule += "---|";
    }
    return names + '\n' + rule + '\n';
}

/// The themes keep the accent last, the key table names it first.
std::string ColorRows() {
    std::string text;
    for (size_t i = 0; i < kUiColorCount; ++i) {
        text += "| " + Code(Narrow(settings::kUiColors[(i + 1) % kUiColorCount].key)) + " |";
        for (const Theme& theme : BuiltInThemes()) {
            text += ' ' + std::to_string(theme.ui[i]) + " |";
        }
        text += '\n';
    }
    for (size_t i = 0; i < kSourceColorCount; ++i) {
        text += "| " + Code(Narrow(settings::kSourceColors[i].key)) + " |";
        for (const Theme& theme : BuiltInThemes()) {
            text += ' ' + std::to_string(theme.source[i]) + " |";
        }
        text += '\n';
    }
    return text;
}

TEST(SettingsDocument, ListsEveryKeyOfTheTable) {
    std::string text(kIntroduction);
    text += Groups();
    text += kColorIntroduction;
    text += ThemeTable();
    text += ColorRows();

    test::ExpectGolden(text, "docs/settings.md");
}

}  // namespace
}  // namespace rl
