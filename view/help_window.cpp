// The keyboard help on screen.
#include "view/help_window.h"

#include <algorithm>

#include "view/control.h"
#include "view/logic/help_text.h"
#include "view/paint_scope.h"

namespace rl {

namespace {

constexpr const wchar_t* kClassName = L"RowlarkHelpDialog";
constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME;
constexpr int kTextId = 1;
constexpr int kPoints = 10;
constexpr int kMargin = 16;  // at 96 dpi, pixels; room for the scroll bar too

/// The rectangle of that size centred over a window, inside the work area of its monitor.
Rect CenterOver(HWND window, SIZE size) {
    RECT over{};
    GetWindowRect(window, &over);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& work = monitor.rcWork;
    const int width = std::min<int>(size.cx, work.right - work.left);
    const int height = std::min<int>(size.cy, work.bottom - work.top);
    const int left = (over.left + over.right - width) / 2;
    const int top = (over.top + over.bottom - height) / 2;
    return {std::clamp<int>(left, work.left, work.right - width),
            std::clamp<int>(top, work.top, work.bottom - height), width, height};
}

}  // namespace

bool HelpWindow::RegisterWindowClass() noexcept {
    WNDCLASSEXW record{};
    record.cbSize = sizeof record;
    record.lpfnWndProc = &WindowProc;
    record.hInstance = OwnInstance();
    record.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    record.lpszClassName = kClassName;
    return RegisterClassExW(&record) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

void HelpWindow::UnregisterWindowClass() noexcept {
    UnregisterClassW(kClassName, OwnInstance());
}

void HelpWindow::Show(HWND viewer, const std::wstring& face, int dpi, const ThemeColors& colors) {
    SetColors(colors);
    if (window_ != nullptr) {
        SetForegroundWindow(window_);
        return;
    }
    focusBefore_ = GetFocus();
    font_ = UniqueFont(CreateFontW(FontHeight(kPoints, dpi), 0, 0, 0, 0, FALSE, FALSE, FALSE,
                                   DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                   DEFAULT_QUALITY, FIXED_PITCH | FF_MODERN, face.c_str()));
    if (!RegisterWindowClass() || !Create(viewer, dpi)) {
        Close();
        return;
    }
    const Rect place = CenterOver(viewer, FitText(dpi));
    SetWindowPos(window_, nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_SHOWWINDOW);
    SetFocus(text_);
}

bool HelpWindow::Create(HWND viewer, int dpi) {
    const std::wstring title(kHelpTitle);
    window_ = CreateWindowExW(kExtendedStyle, kClassName, title.c_str(), kStyle, 0, 0, 0, 0, viewer,
                              nullptr, OwnInstance(), nullptr);
    if (window_ == nullptr) {
        return false;
    }
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    constexpr DWORD kTextStyle =
        WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL;
    text_ = CreateControl(window_, L"EDIT", HelpText().c_str(), kTextStyle, kTextId);
    if (text_ == nullptr) {
        return false;
    }
    SetControlFont(text_, font_.Get());
    SetControlDark(text_, colors_.dark);
    const int margin = Scale(kMargin, dpi) / 2;
    SendMessageW(text_, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(margin, margin));
    return subclass_.Attach(text_, [this](HWND, const Message& in) { return OnTextMessage(in); });
}

void HelpWindow::SetColors(const ThemeColors& colors) {
    colors_ = colors;
    back_.Reset(CreateSolidBrush(colors.back));
    if (text_ != nullptr) {
        SetControlDark(text_, colors.dark);
        InvalidateRect(text_, nullptr, TRUE);
    }
}

LRESULT HelpWindow::OnTextColors(HDC dc) const {
    SetTextColor(dc, colors_.text);
    SetBkColor(dc, colors_.back);
    return reinterpret_cast<LRESULT>(back_ ? back_.Get() : GetSysColorBrush(COLOR_WINDOW));
}

void HelpWindow::Close() noexcept {
    if (window_ != nullptr) {
        DestroyWindow(window_);
    }
    OnGone();
}

SIZE HelpWindow::FitText(int dpi) const {
    const WindowDc dc(text_);
    const SelectScope font(dc.Get(), font_.Get());
    RECT area{};
    const std::wstring text = HelpText();
    DrawTextW(dc.Get(), text.data(), static_cast<int>(text.size()), &area,
              DT_CALCRECT | DT_NOPREFIX);
    const int margin = Scale(kMargin, dpi);
    area.right += margin + GetSystemMetrics(SM_CXVSCROLL);
    area.bottom += margin;
    AdjustWindowRectEx(&area, kStyle, FALSE, kExtendedStyle);
    return {area.right - area.left, area.bottom - area.top};
}

void HelpWindow::FillWindow() const {
    const Rect client = ClientRect(window_);
    MoveWindow(text_, 0, 0, client.width, client.height, TRUE);
}

Answer HelpWindow::OnTextMessage(const Message& in) {
    const bool closes = in.id == WM_KEYDOWN &&
                        (in.wparam == VK_ESCAPE || in.wparam == VK_RETURN || in.wparam == VK_F1);
    if (!closes) {
        return std::nullopt;
    }
    PostMessageW(window_, WM_CLOSE, 0, 0);
    return 0;
}

void HelpWindow::OnGone() noexcept {
    window_ = nullptr;
    text_ = nullptr;
    font_.Reset();
}

LRESULT CALLBACK HelpWindow::WindowProc(HWND window, UINT id, WPARAM wparam, LPARAM lparam) {
    auto* help = reinterpret_cast<HelpWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (help == nullptr) {
        return DefWindowProcW(window, id, wparam, lparam);
    }
    switch (id) {
        case WM_SIZE: help->FillWindow(); return 0;
        case WM_SETFOCUS: SetFocus(help->text_); return 0;
        case WM_ERASEBKGND: return TRUE;  // the text covers all of it
        case WM_CTLCOLORSTATIC: return help->OnTextColors(reinterpret_cast<HDC>(wparam));
        case WM_DESTROY:
            if (IsWindow(help->focusBefore_)) {
                SetFocus(help->focusBefore_);
            }
            return 0;
        case WM_NCDESTROY:
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            help->OnGone();
            break;
        default: break;
    }
    return DefWindowProcW(window, id, wparam, lparam);
}

}  // namespace rl
