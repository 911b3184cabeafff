// Line ends, soft breaks, and where a long text may be cut.
#include "view/logic/pane_text.h"

#include <algorithm>

namespace rl {

namespace {

constexpr wchar_t kSymbolForNul = 0x2400;
constexpr std::wstring_view kSoftBreak = L"\r\r\n";

bool IsLineEnd(wchar_t unit) {
    return unit == L'\r' || unit == L'\n';
}

bool IsPair(wchar_t before, wchar_t after) {
    return before >= 0xD800 && before <= 0xDBFF && after >= 0xDC00 && after <= 0xDFFF;
}

// A CR never ends a line alone here: PaneText has seen to that.
bool BelongsTogether(wchar_t before, wchar_t after) {
    return before == L'\r' || IsPair(before, after);
}

}  // namespace

std::wstring PaneText(std::wstring_view text) {
    const auto ends = static_cast<size_t>(std::ranges::count_if(text, IsLineEnd));
    std::wstring out;
    out.reserve(text.size() + ends + text.size() / kLongestPaneLine * kSoftBreak.size());
    size_t lineLength = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t unit = text[i];
        if (IsLineEnd(unit)) {
            out += L"\r\n";
            lineLength = 0;
            i += unit == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n' ? 1 : 0;
            continue;
        }
        if (lineLength >= kLongestPaneLine && !IsPair(text[i - 1], unit)) {
            out += kSoftBreak;
            lineLength = 0;
        }
        out += unit == L'\0' ? kSymbolForNul : unit;
        ++lineLength;
    }
    return out;
}

std::wstring WithoutSoftBreaks(std::wstring_view text) {
    std::wstring out;
    out.reserve(text.size());
    size_t start = 0;
    for (size_t at = text.find(kSoftBreak); at != std::wstring_view::npos;
         at = text.find(kSoftBreak, start)) {
        out += text.substr(start, at - start);
        start = at + kSoftBreak.size();
    }
    out += text.substr(start);
    return out;
}

size_t PaneChunk(std::wstring_view text, size_t most) {
    if (text.size() <= most) {
        return text.size();
    }
    size_t cut = most;
    while (cut > 1 && BelongsTogether(text[cut - 1], text[cut])) {
        --cut;
    }
    return cut;
}

}  // namespace rl
