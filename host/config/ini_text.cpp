#include "host/config/ini_text.h"

#include <span>

#include "load/text/platform.h"

namespace rl {
namespace {

constexpr std::wstring_view kBlanks = L" \t\r\n";

/// Cuts the first line off `rest`; the break goes with it. CR LF needs no care of its own: the
/// empty line between the two is skipped like any other.
std::wstring_view TakeLine(std::wstring_view& rest) {
    const size_t end = rest.find_first_of(L"\r\n");
    const std::wstring_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::wstring_view::npos ? rest.size() : end + 1);
    return line;
}

/// The value before a comment: a ";" or "#" behind a blank or a control character, outside quotes.
std::wstring_view WithoutComment(std::wstring_view value) {
    wchar_t quote = 0;  // of the run we are in, or 0
    for (size_t i = 0; i < value.size(); ++i) {
        const wchar_t unit = value[i];
        if (quote != 0) {
            quote = unit == quote ? L'\0' : quote;
        } else if (unit == L'"' || unit == L'\'') {
            quote = unit;
        } else if ((unit == L';' || unit == L'#') && i > 0 && value[i - 1] < 33) {
            return value.substr(0, i);
        }
    }
    return value;
}

/// Removes one pair of quotes around the whole value. Nothing inside is unescaped.
std::wstring_view WithoutQuotes(std::wstring_view value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == L'"' || value.front() == L'\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

std::wstring_view TrimIniText(std::wstring_view text) {
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == std::wstring_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::wstring FoldIniName(std::wstring_view text) {
    std::wstring folded(text);
    platform::FoldCase(folded);
    return folded;
}

void AddIniText(std::wstring_view text, IniSections& sections) {
    IniSection* section = &sections[L""];
    while (!text.empty()) {
        const std::wstring_view line = TrimIniText(TakeLine(text));
        if (line.empty() || line.front() == L';' || line.front() == L'#') {
            continue;
        }
        if (line.front() == L'[' && line.back() == L']') {
            // A lone bracket is no header, because it cannot be both of them; nor has it a "=".
            section = &sections[FoldIniName(TrimIniText(line.substr(1, line.size() - 2)))];
            continue;
        }
        const size_t equals = line.find(L'=');
        if (equals == std::wstring_view::npos) {
            continue;
        }
        const std::wstring_view value = TrimIniText(WithoutComment(line.substr(equals + 1)));
        section->try_emplace(FoldIniName(TrimIniText(line.substr(0, equals))),
                             WithoutQuotes(value));
    }
}

}  // namespace rl
