// The status bar on screen.
#include "view/status_bar.h"

#include <commctrl.h>

#include <string>
#include <utility>

#include "view/control.h"
#include "view/paint_scope.h"

namespace rl {

bool StatusBar::Create(HWND parent) {
    window_ = CreateStatusWindowW(WS_CHILD | WS_VISIBLE, L"", parent, kStatusBarId);
    return window_ != nullptr &&
           subclass_.Attach(window_, [this](HWND, const Message& in) { return OnMessage(in); });
}

void StatusBar::Update(const StatusTexts& texts, int dpi) {
    if (window_ == nullptr || !IsWindow(window_)) {
        return;
    }
    FitFont(dpi);
    const std::array<int, kStatusPartCount> edges = StatusPartEdges(dpi);
    SendMessageW(window_, SB_SETPARTS, kStatusPartCount, reinterpret_cast<LPARAM>(edges.data()));
    for (size_t part = 0; part < kStatusPartCount; ++part) {
        SendMessageW(window_, SB_SETTEXTW, part, reinterpret_cast<LPARAM>(texts[part].c_str()));
    }
}

// The bar takes the system's font, which follows the system's dpi, not that of our window.
void StatusBar::FitFont(int dpi) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (dpi == fontDpi_ ||
        !SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) {
        return;
    }
    fontDpi_ = dpi;
    LOGFONTW& font = metrics.lfStatusFont;
    const WindowDc dc(window_);
    font.lfHeight = MulDivRound(font.lfHeight, dpi, GetDeviceCaps(dc.Get(), LOGPIXELSY));
    UniqueFont fresh(CreateFontIndirectW(&font));
    if (fresh) {
        SetControlFont(window_, fresh.Get());
        font_ = std::move(fresh);
    }
}

void StatusBar::SetColors(const ThemeColors& colors) {
    colors_ = colors;
    SetControlDark(window_, colors.dark);
    InvalidateRect(window_, nullptr, TRUE);
}

Answer StatusBar::OnMessage(const Message& in) const {
    switch (in.id) {
        case WM_ERASEBKGND: return TRUE;
        case WM_PAINT: Paint(); return 0;
        default: return std::nullopt;
    }
}

void StatusBar::Paint() const {
    const PaintScope paint(window_);
    const HDC dc = paint.Dc();
    const Rect client = ClientRect(window_);
    FillSolid(dc, client, colors_.headerBack);
    FillSolid(dc, {0, 0, client.width, 1}, LineColor());
    const SelectScope font(dc, reinterpret_cast<HFONT>(SendMessageW(window_, WM_GETFONT, 0, 0)));
    const int mode = SetBkMode(dc, TRANSPARENT);
    const COLORREF previous = SetTextColor(dc, colors_.headerText);
    for (int part = 0; part < static_cast<int>(kStatusPartCount); ++part) {
        PaintPart(dc, part);
    }
    SetTextColor(dc, previous);
    SetBkMode(dc, mode);
}

Color StatusBar::LineColor() const {
    constexpr int kLineWeight = 64;  // of MixColors
    return MixColors(colors_.headerBack, colors_.headerText, kLineWeight);
}

void StatusBar::PaintPart(HDC dc, int part) const {
    const auto index = static_cast<WPARAM>(part);
    RECT bounds{};
    SendMessageW(window_, SB_GETRECT, index, reinterpret_cast<LPARAM>(&bounds));
    const Rect rect = FromRECT(bounds);
    if (part > 0) {
        FillSolid(dc, {rect.left - 1, rect.top, 1, rect.height}, LineColor());
    }
    const LRESULT length = LOWORD(SendMessageW(window_, SB_GETTEXTLENGTHW, index, 0));
    std::wstring text(static_cast<size_t>(length) + 1, L'\0');
    SendMessageW(window_, SB_GETTEXTW, index, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(length));
    DrawIn(dc, rect, text, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

int StatusBar::FitToParent() {
    SendMessageW(window_, WM_SIZE, 0, 0);
    RECT bounds{};
    GetWindowRect(window_, &bounds);
    return bounds.bottom - bounds.top;
}

}  // namespace rl
