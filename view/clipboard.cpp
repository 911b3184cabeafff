// Text onto the clipboard.
#include "view/clipboard.h"

#include <algorithm>

#include "load/files/unique_handle.h"

namespace rl {

namespace {

struct GlobalTraits {
    using Handle = HGLOBAL;
    static Handle Empty() noexcept { return nullptr; }
    static void Close(Handle memory) noexcept { GlobalFree(memory); }
};

using UniqueGlobal = UniqueHandle<GlobalTraits>;

/// Another program may hold the clipboard for a moment.
bool OpenClipboardPatiently(HWND owner) {
    constexpr int kTries = 5;
    constexpr DWORD kPause = 10;  // milliseconds
    for (int i = 0; i < kTries; ++i) {
        if (OpenClipboard(owner)) {
            return true;
        }
        Sleep(kPause);
    }
    return false;
}

UniqueGlobal CopyToGlobal(std::wstring_view text) {
    UniqueGlobal memory(GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t)));
    auto* units = memory ? static_cast<wchar_t*>(GlobalLock(memory.Get())) : nullptr;
    if (units == nullptr) {
        return {};
    }
    std::ranges::copy(text, units);
    units[text.size()] = L'\0';
    GlobalUnlock(memory.Get());
    return memory;
}

}  // namespace

bool SetClipboardText(HWND owner, std::wstring_view text) {
    UniqueGlobal memory = CopyToGlobal(text);
    if (!memory || !OpenClipboardPatiently(owner)) {
        return false;
    }
    const bool placed =
        EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory.Get()) != nullptr;
    CloseClipboard();
    if (placed) {
        (void)memory.Release();  // the clipboard owns it now
    }
    return placed;
}

}  // namespace rl
