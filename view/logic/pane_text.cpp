// Line ends, and where a long text may be cut.
#include "view/logic/pane_text.h"

#include <algorithm>

namespace rl {

namespace {

constexpr wchar_t kSymbolForNul = 0x2400;

bool BelongsTogether(wchar_t before, wchar_t after) {
    const bool lineEnd = before == L'\r' && after == L'\n';
    const bool pair = before >= 0xD800 && before <= 0xDBFF && after >= 0xDC00 && after <= 0xDFFF;
    return lineEnd || pair;
}

}  // namespace

std::wstring PaneText(std::wstring_view text) {
    const auto isLineEnd = [](wchar_t unit) { return unit == L'\r' || unit == L'\n'; };
    std::wstring out;
    out.reserve(text.size() + static_cast<size_t>(std::ranges::count_if(text, isLineEnd)));
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t unit = text[i];
        if (!isLineEnd(unit)) {
            out += unit == L'\0' ? kSymbolForNul : unit;
            continue;
        }
        out += L"\r\n";
        if (unit == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') {
            ++i;
        }
    }
    return out;
}

size_t PaneChunk(std::wstring_view text, size_t most) {
    if (text.size() <= most) {
        return text.size();
    }
    const size_t cut = std::max<size_t>(most, 1);
    if (cut > 1 && cut < text.size() && BelongsTogether(text[cut - 1], text[cut])) {
        return cut - 1;
    }
    return cut;
}

}  // namespace rl
