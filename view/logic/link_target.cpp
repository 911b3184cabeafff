#include "view/logic/link_target.h"

#include <algorithm>

namespace rl {
namespace {

constexpr std::wstring_view kSchemes[] = {L"https://", L"http://", L"ftp://", L"www."};

bool EndsLink(wchar_t unit) {
    return unit <= L' ' || unit == L'"' || unit == L'\'' || unit == L'>' || unit == L')';
}

/// The link that begins `text`, without the punctuation of the sentence around it.
std::wstring_view CutLink(std::wstring_view text) {
    const auto end = std::find_if(text.begin(), text.end(), EndsLink);
    std::wstring_view link = text.substr(0, static_cast<size_t>(end - text.begin()));
    while (!link.empty() && std::wstring_view(L".,;").find(link.back()) != link.npos) {
        link.remove_suffix(1);
    }
    return link;
}

}  // namespace

std::wstring LinkTarget(std::wstring_view cell) {
    for (const std::wstring_view scheme : kSchemes) {
        const size_t start = cell.find(scheme);
        if (start == std::wstring_view::npos) {
            continue;
        }
        const std::wstring_view link = CutLink(cell.substr(start));
        if (link.size() <= scheme.size()) {
            return {};  // nothing behind the beginning: no address
        }
        return std::wstring(scheme == L"www." ? L"http://" : L"").append(link);
    }
    return {};
}

}  // namespace rl
