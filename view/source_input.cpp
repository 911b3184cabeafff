// What keys, mouse and wheel do to the source view.
#include <windowsx.h>

#include <algorithm>

#include "view/clipboard.h"
#include "view/control.h"
#include "view/source_view.h"

namespace rl {

namespace {

constexpr int kColumnsPerNotch = 8;  // sideways

POINT PointOf(LPARAM lparam) {
    return {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
}

/// AltGr arrives as Ctrl and Alt together and types a character.
bool IsCtrlDown() {
    return IsKeyDown(VK_CONTROL) && !IsKeyDown(VK_MENU);
}

int LinesPerNotch(int pageLines) {
    UINT lines = 3;
    if (!SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0)) {
        lines = 3;
    }
    return lines == WHEEL_PAGESCROLL ? pageLines : static_cast<int>(std::min(lines, 1000U));
}

}  // namespace

Answer SourceView::HandleInput(const Message& in) {
    switch (in.id) {
        case WM_KEYDOWN: return OnKeyDown(in.wparam);
        case WM_LBUTTONDOWN: return OnPress(PointOf(in.lparam), (in.wparam & MK_SHIFT) != 0);
        case WM_MOUSEMOVE: return OnDrag(PointOf(in.lparam));
        case WM_LBUTTONUP: return OnRelease();
        case WM_LBUTTONDBLCLK: return OnDoubleClick(PointOf(in.lparam));
        case WM_CAPTURECHANGED: mouseSelecting_ = false; return 0;
        case WM_MOUSEWHEEL: return OnWheel(in.wparam);
        case WM_MOUSEHWHEEL: return OnSidewaysWheel(in.wparam);
        default: return std::nullopt;
    }
}

Answer SourceView::OnKeyDown(WPARAM key) {
    const auto action = FindSourceAction(static_cast<VirtualKey>(key), IsCtrlDown());
    if (!action) {
        return std::nullopt;
    }
    if (IsCaretMove(*action)) {
        MoveCaretTo(MoveCaret(text_, selection_.caret, *action, Page().PageLines()),
                    IsKeyDown(VK_SHIFT));
        return 0;
    }
    switch (*action) {
        case SourceAction::ScrollUp: ScrollTo(int64_t{topLine_} - 1, scrollX_); break;
        case SourceAction::ScrollDown: ScrollTo(int64_t{topLine_} + 1, scrollX_); break;
        case SourceAction::SelectAll: Select({.anchor = 0, .caret = text_.Size()}); break;
        case SourceAction::Copy: Copy(); break;
        default: break;
    }
    return 0;
}

Answer SourceView::OnPress(POINT at, bool extend) {
    SetFocus(window_);
    SetCapture(window_);
    mouseSelecting_ = true;
    MoveCaretTo(PositionAt(at), extend);
    return 0;
}

Answer SourceView::OnDrag(POINT at) {
    if (mouseSelecting_) {
        MoveCaretTo(PositionAt(at), true);
    }
    return 0;
}

Answer SourceView::OnRelease() {
    if (mouseSelecting_) {
        mouseSelecting_ = false;
        ReleaseCapture();
    }
    return 0;
}

Answer SourceView::OnDoubleClick(POINT at) {
    if (const auto word = WordAt(text_, UnitAt(at))) {
        Select(*word);
    }
    return 0;
}

Answer SourceView::OnWheel(WPARAM wparam) {
    if ((GET_KEYSTATE_WPARAM(wparam) & MK_CONTROL) != 0) {
        return std::nullopt;
    }
    const int notches = GET_WHEEL_DELTA_WPARAM(wparam) / WHEEL_DELTA;
    if ((GET_KEYSTATE_WPARAM(wparam) & MK_SHIFT) != 0) {
        ScrollTo(topLine_, scrollX_ - int64_t{notches} * cell_.width * kColumnsPerNotch);
    } else {
        ScrollTo(topLine_ - int64_t{notches} * LinesPerNotch(Page().PageLines()), scrollX_);
    }
    return 0;
}

Answer SourceView::OnSidewaysWheel(WPARAM wparam) {
    const int notches = GET_WHEEL_DELTA_WPARAM(wparam) / WHEEL_DELTA;
    ScrollTo(topLine_, scrollX_ + int64_t{notches} * cell_.width * kColumnsPerNotch);
    return 0;
}

void SourceView::MoveCaretTo(size_t position, bool extend) {
    Select({.anchor = extend ? selection_.anchor : position, .caret = position});
}

void SourceView::Copy() const {
    if (selection_.IsEmpty()) {
        return;
    }
    const std::wstring_view selected =
        text_.All().substr(selection_.First(), selection_.Last() - selection_.First());
    SetClipboardText(window_, CopySize(selected),
                     [&](wchar_t* units) { WriteCopy(selected, units); });
}

size_t SourceView::PositionAt(POINT at) const {
    const SourcePage page = Page();
    const int32_t line = page.LineAtY(at.y);
    return text_.LineStart(line) +
           OffsetNear(text_.Line(line), page.TextX(at.x), cell_.width, text_.TabWidth());
}

/// The unit that is seen at a point, or one that is no part of a word.
size_t SourceView::UnitAt(POINT at) const {
    const SourcePage page = Page();
    const size_t edge = PositionAt(at);
    const int32_t line = page.LineAtY(at.y);
    const int64_t left = text_.ColumnOf(edge) * cell_.width;
    const bool before = page.TextX(at.x) < left && edge > text_.LineStart(line);
    return before ? edge - 1 : edge;
}

}  // namespace rl
