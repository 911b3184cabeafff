// The status bar on screen.
#include "view/status_bar.h"

#include <commctrl.h>

#include "view/control.h"

namespace rl {

bool StatusBar::Create(HWND parent) {
    window_ = CreateStatusWindowW(WS_CHILD | WS_VISIBLE, L"", parent, kStatusBarId);
    return window_ != nullptr;
}

void StatusBar::Update(const StatusTexts& texts, int dpi) {
    if (window_ == nullptr || !IsWindow(window_)) {
        return;
    }
    const std::array<int, kStatusPartCount> edges = StatusPartEdges(dpi);
    SendMessageW(window_, SB_SETPARTS, kStatusPartCount, reinterpret_cast<LPARAM>(edges.data()));
    for (size_t part = 0; part < kStatusPartCount; ++part) {
        SendMessageW(window_, SB_SETTEXTW, part, reinterpret_cast<LPARAM>(texts[part].c_str()));
    }
}

void StatusBar::SetColors(const ThemeColors& colors) {
    SetControlDark(window_, colors.dark);
}

int StatusBar::FitToParent() {
    SendMessageW(window_, WM_SIZE, 0, 0);
    RECT bounds{};
    GetWindowRect(window_, &bounds);
    return bounds.bottom - bounds.top;
}

}  // namespace rl
