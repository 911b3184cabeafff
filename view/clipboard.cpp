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

/// A reader of the clipboard takes the first NUL for the end of the text.
constexpr wchar_t kSymbolForNul = 0x2400;

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

UniqueGlobal WriteToGlobal(size_t size, const std::function<void(wchar_t*)>& write) {
    UniqueGlobal memory(GlobalAlloc(GMEM_MOVEABLE, (size + 1) * sizeof(wchar_t)));
    auto* units = memory ? static_cast<wchar_t*>(GlobalLock(memory.Get())) : nullptr;
    if (units == nullptr) {
        return {};
    }
    write(units);
    std::replace(units, units + size, L'\0', kSymbolForNul);
    units[size] = L'\0';
    GlobalUnlock(memory.Get());
    return memory;
}

}  // namespace

bool SetClipboardText(HWND owner, std::wstring_view text) {
    return SetClipboardText(owner, text.size(),
                            [text](wchar_t* units) { std::ranges::copy(text, units); });
}

bool SetClipboardText(HWND owner, size_t units, const std::function<void(wchar_t*)>& write) {
    UniqueGlobal memory = WriteToGlobal(units, write);
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
