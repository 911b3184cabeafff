// Painting and hover of the tabs.
#include "view/tab_strip.h"

#include <windowsx.h>

#include "view/control.h"
#include "view/paint_scope.h"

namespace rl {

namespace {

constexpr int kTabWidth = 96;  // all at 96 dpi, pixels
constexpr int kTabHeight = 24;
constexpr int kAccentInset = 10;
constexpr int kAccentHeight = 3;
constexpr int kHotTextFade = 40;  // weights of MixColors
constexpr int kTextFade = 90;
constexpr int kHotBackFade = 128;

constexpr const wchar_t* kTitles[] = {L"Data", L"Source"};

/// The same font no higher than `room`; none where it is not higher anyway. The tabs do not grow
/// with their font.
UniqueFont LowerFont(HFONT font, int room) {
    LOGFONTW record{};
    if (GetObjectW(font, sizeof record, &record) == 0 || -record.lfHeight <= room) {
        return {};
    }
    record.lfHeight = -room;
    return UniqueFont(CreateFontIndirectW(&record));
}

}  // namespace

bool TabStrip::Create(HWND parent) {
    constexpr DWORD kStyle = WS_TABSTOP | TCS_FOCUSNEVER | TCS_OWNERDRAWFIXED | TCS_FIXEDWIDTH;
    window_ = CreateControl(parent, WC_TABCONTROLW, L"View", kStyle, kTabStripId);
    if (window_ == nullptr) {
        return false;
    }
    int index = 0;
    for (const wchar_t* title : kTitles) {
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(title);  // only read
        SendMessageW(window_, TCM_INSERTITEMW, static_cast<WPARAM>(index++),
                     reinterpret_cast<LPARAM>(&item));
    }
    return subclass_.Attach(window_, [this](HWND, const Message& in) { return OnMessage(in); });
}

void TabStrip::SetFonts(HFONT normal, HFONT bold, int dpi) {
    const int room = Scale(kTabHeight - kAccentHeight, dpi);
    fittedNormal_ = LowerFont(normal, room);
    fittedBold_ = LowerFont(bold, room);
    normal_ = fittedNormal_ ? fittedNormal_.Get() : normal;
    bold_ = fittedBold_ ? fittedBold_.Get() : bold;
    dpi_ = dpi;
    SetControlFont(window_, normal);
    SendMessageW(window_, TCM_SETITEMSIZE, 0,
                 MAKELPARAM(Scale(kTabWidth, dpi), Scale(kTabHeight, dpi)));
}

void TabStrip::SetColors(const ThemeColors& colors) {
    colors_ = colors;
    SetControlDark(window_, colors.dark);
}

ViewerTab TabStrip::Selected() const {
    return SendMessageW(window_, TCM_GETCURSEL, 0, 0) == 1 ? ViewerTab::Source : ViewerTab::Data;
}

void TabStrip::Select(ViewerTab tab) {
    SendMessageW(window_, TCM_SETCURSEL, static_cast<WPARAM>(tab), 0);
}

void TabStrip::Draw(const DRAWITEMSTRUCT& item) const {
    DrawTab(item.hDC, FromRECT(item.rcItem), static_cast<int>(item.itemID));
}

Answer TabStrip::OnMessage(const Message& in) {
    switch (in.id) {
        case WM_ERASEBKGND: return TRUE;
        case WM_PAINT: Paint(); return 0;
        case WM_MOUSEMOVE:
            TrackPointer({GET_X_LPARAM(in.lparam), GET_Y_LPARAM(in.lparam)});
            return std::nullopt;
        case WM_MOUSELEAVE: SetHot(-1); return std::nullopt;
        default: return std::nullopt;
    }
}

// The control would draw a frame of its own around the tabs, in the colours of no theme of ours.
void TabStrip::Paint() const {
    const PaintScope paint(window_);
    for (int index = 0; index < static_cast<int>(std::size(kTitles)); ++index) {
        RECT item{};
        if (SendMessageW(window_, TCM_GETITEMRECT, static_cast<WPARAM>(index),
                         reinterpret_cast<LPARAM>(&item)) != 0) {
            DrawTab(paint.Dc(), FromRECT(item), index);
            ExcludeClipRect(paint.Dc(), item.left, item.top, item.right, item.bottom);
        }
    }
    FillSolid(paint.Dc(), ClientRect(window_), colors_.headerBack);
}

void TabStrip::DrawTab(HDC dc, const Rect& rect, int index) const {
    if (index < 0 || index >= static_cast<int>(std::size(kTitles))) {
        return;
    }
    const bool current = index == static_cast<int>(Selected());
    const bool hot = index == hot_;
    const Color back = current ? colors_.back
                       : hot   ? MixColors(colors_.headerBack, colors_.back, kHotBackFade)
                               : colors_.headerBack;
    const Color text =
        current ? colors_.text
                : MixColors(colors_.text, colors_.headerBack, hot ? kHotTextFade : kTextFade);
    FillSolid(dc, rect, back);
    if (current) {
        const int inset = Scale(kAccentInset, dpi_);
        const int height = Scale(kAccentHeight, dpi_);
        FillSolid(dc, {rect.left + inset, rect.Bottom() - height, rect.width - 2 * inset, height},
                  colors_.accent);
    }
    const SelectScope font(dc, current ? bold_ : normal_);
    const int mode = SetBkMode(dc, TRANSPARENT);
    const COLORREF previous = SetTextColor(dc, text);
    // Above where the bar is or would be: no text moves when its tab becomes current.
    const Rect above{rect.left, rect.top, rect.width, rect.height - Scale(kAccentHeight, dpi_)};
    DrawIn(dc, above, kTitles[index], DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    SetTextColor(dc, previous);
    SetBkMode(dc, mode);
}

void TabStrip::SetHot(int index) {
    if (index != hot_) {
        hot_ = index;
        InvalidateRect(window_, nullptr, FALSE);
    }
}

void TabStrip::TrackPointer(POINT client) {
    TCHITTESTINFO hit{.pt = client, .flags = 0};
    SetHot(static_cast<int>(SendMessageW(window_, TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit))));
    TRACKMOUSEEVENT leave{
        .cbSize = sizeof leave, .dwFlags = TME_LEAVE, .hwndTrack = window_, .dwHoverTime = 0};
    TrackMouseEvent(&leave);
}

}  // namespace rl
