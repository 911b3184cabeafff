#include "host/config/ini_template.h"

#include <string_view>

#include "host/config/setting_keys.h"

namespace rl {
namespace {

constexpr size_t kCommentColumn = 37;  // where "; " stands behind an option
constexpr size_t kLineLimit = 160;     // columns

constexpr std::string_view kHeader =
    "; rowlark.wlx64 1.1.0 - all options with their defaults (remove the\n"
    "; leading ';' to change one). Colors are decimal COLORREF values\n"
    "; (blue*65536 + green*256 + red). This file lives beside the plugin\n"
    "; and wins over the same keys in Total Commander's default ini.\n"
    "[rowlark]\n";

/// The key table is plain ASCII.
std::string Narrow(std::wstring_view text) {
    std::string narrow;
    for (const wchar_t unit : text) {
        narrow += static_cast<char>(unit);
    }
    return narrow;
}

std::string Assignment(const settings::Option& option) {
    if (const auto* const* number = std::get_if<const IntSetting*>(&option)) {
        return Narrow((*number)->key) + '=' + std::to_string((*number)->fallback);
    }
    const TextSetting& text = *std::get<const TextSetting*>(option);
    return Narrow(text.key) + '=' + Narrow(text.inTemplate);
}

std::string Comment(const settings::Option& option) {
    return std::visit([](const auto* setting) { return Narrow(setting->comment); }, option);
}

void AppendGroupTitle(std::string& out, std::string_view title) {
    out += "\n; ---- ";
    out += title;
    out += " ----\n";
}

/// One option with its explanation beside it, wrapped greedily at blanks.
void AppendOption(std::string& out, const settings::Option& option) {
    std::string line = "; " + Assignment(option);
    line.resize(kCommentColumn, ' ');
    line += "; ";
    const std::string comment = Comment(option);
    bool lineHasWord = false;
    for (size_t start = 0; start < comment.size();) {
        const size_t end = std::min(comment.find(' ', start), comment.size());
        const std::string_view word = std::string_view(comment).substr(start, end - start);
        if (lineHasWord && line.size() + 1 + word.size() > kLineLimit) {
            out += line + '\n';
            line = "; " + std::string(kCommentColumn, ' ');
            lineHasWord = false;
        }
        line += lineHasWord ? " " : "";
        line += word;
        lineHasWord = true;
        start = end + 1;
    }
    out += line + '\n';
}

void AppendColor(std::string& out, std::wstring_view key, std::wstring_view suffix,
                 uint32_t example) {
    out += "; " + Narrow(key) + Narrow(suffix) + '=' + std::to_string(example) + '\n';
}

void AppendColors(std::string& out, std::span<const ColorSetting> colors, bool dark) {
    for (const ColorSetting& color : colors) {
        AppendColor(out, color.key, dark ? settings::kDarkSuffix : L"",
                    dark ? color.darkExample : color.lightExample);
    }
}

}  // namespace

std::string IniTemplate() {
    std::string out(kHeader);
    for (const settings::OptionGroup& group : settings::kOptionGroups) {
        AppendGroupTitle(out, Narrow(group.title));
        for (const settings::Option& option : group.options) {
            AppendOption(out, option);
        }
    }
    AppendGroupTitle(out, "theme overrides (light)");
    AppendColors(out, settings::kUiColors, false);
    AppendGroupTitle(out, "theme overrides (dark themes)");
    AppendColors(out, settings::kUiColors, true);
    AppendGroupTitle(out, "source view syntax colors (light / append -dark for dark)");
    AppendColors(out, settings::kSourceColors, false);
    AppendColors(out, settings::kSourceColors, true);
    return out;
}

}  // namespace rl
