// Any file is a settings file: its keys are what a naive twin finds, the first value of a key wins,
// and our own template, all commented out, changes nothing.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "host/config/ini_template.h"
#include "host/config/ini_text.h"
#include "host/config/setting_keys.h"
#include "host/config/settings.h"
#include "host/config/themes.h"
#include "load/text/decode_text.h"
#include "load/text/platform.h"

namespace {

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

bool IsBlank(wchar_t unit) {
    return unit == L' ' || unit == L'\t' || unit == L'\r' || unit == L'\n';
}

std::wstring Trimmed(std::wstring text) {
    while (!text.empty() && IsBlank(text.back())) {
        text.pop_back();
    }
    while (!text.empty() && IsBlank(text.front())) {
        text.erase(0, 1);
    }
    return text;
}

std::wstring Lowered(std::wstring text) {
    rl::platform::FoldCase(text);
    return text;
}

std::vector<std::wstring> Lines(const std::wstring& text) {
    std::vector<std::wstring> lines(1);
    for (const wchar_t unit : text) {
        if (unit == L'\r' || unit == L'\n') {
            lines.emplace_back();
        } else {
            lines.back() += unit;
        }
    }
    return lines;
}

/// The rule of a value, told once more: a comment ends it, one outer pair of quotes goes.
std::wstring Value(const std::wstring& raw) {
    std::wstring kept;
    bool inSingle = false;
    bool inDouble = false;
    for (const wchar_t unit : raw) {
        const bool mark = unit == L';' || unit == L'#';
        if (mark && !inSingle && !inDouble && !kept.empty() && kept.back() <= L' ') {
            break;
        }
        inSingle = unit == L'\'' && !inDouble ? !inSingle : inSingle;
        inDouble = unit == L'"' && !inSingle ? !inDouble : inDouble;
        kept += unit;
    }
    kept = Trimmed(kept);
    for (const wchar_t quote : {L'"', L'\''}) {
        if (kept.size() > 1 && kept.front() == quote && kept.back() == quote) {
            return kept.substr(1, kept.size() - 2);
        }
    }
    return kept;
}

/// The whole reader, told once more.
rl::IniSections NaiveSections(const std::wstring& text) {
    rl::IniSections sections;
    std::wstring section;
    sections[section];
    for (const std::wstring& untrimmed : Lines(text)) {
        const std::wstring line = Trimmed(untrimmed);
        if (line.empty() || line[0] == L';' || line[0] == L'#') {
            continue;
        }
        const size_t equals = line.find(L'=');
        if (line[0] == L'[' && line.back() == L']') {
            section = Lowered(Trimmed(line.substr(1, line.size() - 2)));
            sections[section];
        } else if (equals != std::wstring::npos) {
            sections[section].emplace(Lowered(Trimmed(line.substr(0, equals))),
                                      Value(line.substr(equals + 1)));
        }
    }
    return sections;
}

/// A number as the C library reads it; `fallback` where it refuses.
int32_t NaiveInt(const std::wstring& value, int32_t fallback) {
    std::string narrow;
    for (const wchar_t unit : Trimmed(value)) {
        narrow += unit > 0 && unit < 128 ? static_cast<char>(unit) : 'x';
    }
    if (narrow.empty()) {
        return fallback;
    }
    char* end = nullptr;
    const long long number = std::strtoll(narrow.c_str(), &end, 10);
    if (end == narrow.c_str() || *end != '\0') {
        return fallback;
    }
    using Limits = std::numeric_limits<int32_t>;
    return static_cast<int32_t>(
        std::max<long long>(Limits::min(), std::min<long long>(Limits::max(), number)));
}

void CheckLookUps(const rl::SettingsMap& map, const rl::IniSections& sections) {
    for (const auto& [name, section] : sections) {
        for (const auto& [key, value] : section) {
            const std::wstring* found = map.Find(key);
            Require(name != rl::kOwnSection || (found != nullptr && *found == value));
            Require(rl::IntFromSetting(value, -7) == NaiveInt(value, -7));
        }
    }
}

void CheckColors(const rl::SettingsMap& map) {
    const rl::IntLookup lookup = [&map](std::wstring_view key, int32_t fallback) {
        const std::wstring* value = map.Find(key);
        return value != nullptr ? rl::IntFromSetting(*value, fallback) : fallback;
    };
    for (const rl::Theme& theme : rl::BuiltInThemes()) {
        const rl::ThemeColors ui = rl::LoadThemeColors(lookup, theme);
        const rl::SourceColors source = rl::LoadSourceColors(lookup, theme, ui);
        Require(ui.dark == theme.dark && source.back == ui.back);
        Require((ui.text | ui.accent | source.tag | source.punctuation) <= 0xFFFFFF);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    rl::TextEncoding found;
    const std::wstring text = rl::DecodeText(
        std::string_view(reinterpret_cast<const char*>(data), size), rl::EncodingRequest{}, found);

    rl::IniSections sections;
    rl::AddIniText(text, sections);
    Require(sections == NaiveSections(text));

    rl::IniSections twice = sections;
    rl::AddIniText(text, twice);
    Require(twice == sections);

    static const std::string commented = rl::IniTemplate();
    twice[std::wstring(rl::kOwnSection)];
    rl::IniSections withTemplate = twice;
    rl::AddIniText(std::wstring(commented.begin(), commented.end()), withTemplate);
    Require(withTemplate == twice);

    rl::SettingsMap map;
    map.Add(text);
    CheckLookUps(map, sections);
    CheckColors(map);
    return 0;
}
