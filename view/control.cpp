// Making child controls, and the few things done to all of them alike.
#include "view/control.h"

#include <uxtheme.h>

namespace rl {

HINSTANCE OwnInstance() noexcept {
    static const int anchor = 0;
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(&anchor), &module);
    return module;
}

HWND CreateControl(HWND parent, const wchar_t* className, const wchar_t* text, DWORD style, int id,
                   DWORD extendedStyle) noexcept {
    const auto menu = reinterpret_cast<HMENU>(static_cast<INT_PTR>(id));
    return CreateWindowExW(extendedStyle, className, text, WS_CHILD | style, 0, 0, 0, 0, parent,
                           menu, OwnInstance(), nullptr);
}

void SetControlFont(HWND control, HFONT font) noexcept {
    if (control != nullptr) {
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    }
}

void SetControlDark(HWND control, bool dark) noexcept {
    if (control != nullptr) {
        SetWindowTheme(control, dark ? L"DarkMode_Explorer" : L"Explorer", nullptr);
    }
}

std::wstring WindowText(HWND window) {
    std::wstring text;
    const int length = GetWindowTextLengthW(window);
    if (length <= 0) {
        return text;
    }
    const auto fill = [&](wchar_t* units, size_t room) {
        const int written = GetWindowTextW(window, units, static_cast<int>(room) + 1);
        return static_cast<size_t>(written > 0 ? written : 0);
    };
    text.resize_and_overwrite(static_cast<size_t>(length), fill);
    return text;
}

// Redrawing is switched by the visible style itself: switched on for a hidden window, it would
// show it.
RedrawScope::RedrawScope(HWND window) noexcept
    : window_((GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0 ? window : nullptr) {
    if (window_ != nullptr) {
        SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
    }
}

RedrawScope::~RedrawScope() {
    if (window_ != nullptr && IsWindow(window_)) {
        SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
        constexpr UINT kAll =
            RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW;
        RedrawWindow(window_, nullptr, nullptr, kAll);
    }
}

}  // namespace rl
