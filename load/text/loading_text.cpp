#include "load/text/loading_text.h"

namespace rl {

std::wstring_view FileNameOf(std::wstring_view path) {
    const size_t separator = path.find_last_of(L"\\/");
    return separator == std::wstring_view::npos ? path : path.substr(separator + 1);
}

std::wstring LoadingText(std::wstring_view path, std::optional<uint64_t> bytes) {
    std::wstring text = L"Loading ";
    text += FileNameOf(path);
    if (bytes) {
        // In two steps: ten times the size need not fit into 64 bits.
        const uint64_t whole = *bytes >> 20;
        const uint64_t tenths = (*bytes & 0xFFFFF) * 10 >> 20;
        text += L" (" + std::to_wstring(whole) + L'.' + std::to_wstring(tenths) + L" MB)";
    }
    text += L'\x2026';
    return text;
}

}  // namespace rl
