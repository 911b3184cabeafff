// The Source tab's pane.
#include "view/source_view.h"

#include "view/control.h"
#include "view/paint_scope.h"

namespace rl {

namespace {

constexpr const wchar_t* kClassName = L"RowlarkSourceView";

}  // namespace

bool SourceView::RegisterWindowClass() noexcept {
    WNDCLASSEXW record{};
    record.cbSize = sizeof record;
    record.style = CS_DBLCLKS;
    record.lpfnWndProc = &WindowProc;
    record.hInstance = OwnInstance();
    record.hCursor = LoadCursorW(nullptr, IDC_IBEAM);
    record.lpszClassName = kClassName;
    return RegisterClassExW(&record) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

void SourceView::UnregisterWindowClass() noexcept {
    UnregisterClassW(kClassName, OwnInstance());
}

bool SourceView::Create(HWND parent) {
    window_ = CreateControl(parent, kClassName, L"Source", WS_TABSTOP, kSourceViewId);
    if (window_ == nullptr) {
        return false;
    }
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    return true;
}

void SourceView::SetFont(HFONT font) {
    font_ = font;
    InvalidateRect(window_, nullptr, FALSE);
}

void SourceView::SetColors(const SourceColors& colors, bool dark) {
    colors_ = colors;
    SetControlDark(window_, dark);
    InvalidateRect(window_, nullptr, FALSE);
}

void SourceView::Paint() const {
    const PaintScope paint(window_);
    FillSolid(paint.Dc(), ClientRect(window_), colors_.back);
}

LRESULT CALLBACK SourceView::WindowProc(HWND window, UINT id, WPARAM wparam, LPARAM lparam) {
    auto* view = reinterpret_cast<SourceView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (view == nullptr) {
        return DefWindowProcW(window, id, wparam, lparam);
    }
    switch (id) {
        case WM_NCDESTROY: SetWindowLongPtrW(window, GWLP_USERDATA, 0); break;
        case WM_ERASEBKGND: return TRUE;
        case WM_PAINT: view->Paint(); return 0;
        case WM_LBUTTONDOWN: SetFocus(window); return 0;
        default: break;
    }
    return DefWindowProcW(window, id, wparam, lparam);
}

}  // namespace rl
