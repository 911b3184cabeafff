#include "host/config/settings.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "load/text/whole_number.h"

namespace rl {
namespace {

/// Our own section, then those of earlier plugins for single formats: what people set there still
/// works. Other sections are other people's.
constexpr std::wstring_view kSections[] = {kOwnSection, L"brenlo", L"quivel", L"tormax"};

constexpr std::wstring_view kTabEscape = L"\\t";

}  // namespace

const std::wstring* SettingsMap::Find(std::wstring_view key) const {
    const std::wstring folded = FoldIniName(key);
    for (const std::wstring_view name : kSections) {
        const auto section = sections_.find(name);
        if (section == sections_.end()) {
            continue;
        }
        const auto found = section->second.find(folded);
        if (found != section->second.end()) {
            return &found->second;
        }
    }
    return nullptr;
}

void SettingsMap::Set(std::wstring_view key, std::wstring_view value) {
    sections_[std::wstring(kOwnSection)].insert_or_assign(FoldIniName(key), std::wstring(value));
}

int32_t IntFromSetting(std::wstring_view value, int32_t fallback) {
    const std::optional<int64_t> number = ParseWholeNumber(TrimIniText(value));
    if (!number) {
        return fallback;
    }
    using Limits = std::numeric_limits<int32_t>;
    return static_cast<int32_t>(
        std::clamp(*number, int64_t{Limits::min()}, int64_t{Limits::max()}));
}

wchar_t DelimiterFromSetting(std::wstring_view value) {
    if (value == kTabEscape || FoldIniName(value) == L"tab") {
        return L'\t';
    }
    return value.empty() ? L'\0' : value.front();
}

wchar_t QuoteFromSetting(std::wstring_view value) {
    return value.empty() ? L'"' : value.front();
}

std::wstring CopySeparatorFromSetting(std::wstring_view value) {
    return value.empty() || value == kTabEscape ? std::wstring(L"\t") : std::wstring(value);
}

}  // namespace rl
