// Messages of the viewer's window and of its children: who handles what.
#include "view/viewer.h"

#include <commctrl.h>
#include <windowsx.h>

#include "view/control.h"
#include "view/paint_scope.h"

namespace rl {

namespace {

POINT PointOf(LPARAM lparam) {
    return {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
}

bool IsExpandAllKey(const Message& in) {
    return (in.id == WM_KEYDOWN && in.wparam == VK_MULTIPLY) ||
           (in.id == WM_CHAR && in.wparam == L'*');
}

}  // namespace

LRESULT CALLBACK Viewer::WindowProc(HWND window, UINT id, WPARAM wparam, LPARAM lparam) {
    auto* found = reinterpret_cast<Viewer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (found == nullptr) {
        return DefWindowProcW(window, id, wparam, lparam);
    }
    const std::shared_ptr<Viewer> viewer = found->shared_from_this();
    if (id == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        viewer->TearDown();
        return DefWindowProcW(window, id, wparam, lparam);
    }
    Answer answer;
    try {
        answer = viewer->Handle({id, wparam, lparam});
    } catch (const std::exception&) {  // out of memory, or a text too long to hold
        MessageBeep(MB_ICONWARNING);
        if (id == WM_CLOSE) {
            return 0;  // the system's answer would destroy the window, unsaved edits and all
        }
    }
    return answer ? *answer : DefWindowProcW(window, id, wparam, lparam);
}

Answer Viewer::Handle(const Message& in) {
    switch (in.id) {
        case WM_SIZE: Relayout(); return 0;
        case WM_CLOSE: Close(); return 0;
        case WM_DESTROY:
            editor_.Close();
            tree_.Mute();
            return std::nullopt;
        case WM_ERASEBKGND: return OnEraseBackground(reinterpret_cast<HDC>(in.wparam));
        case WM_CTLCOLORSTATIC:
            return OnStaticColors(reinterpret_cast<HDC>(in.wparam),
                                  reinterpret_cast<HWND>(in.lparam));
        case WM_CTLCOLOREDIT:
            return OnEditColors(reinterpret_cast<HDC>(in.wparam),
                                reinterpret_cast<HWND>(in.lparam));
        case WM_COMMAND: return OnCommand(in.wparam, in.lparam);
        case WM_CONTEXTMENU: return OnContextMenu();
        case WM_DRAWITEM: return OnDrawItem(*reinterpret_cast<DRAWITEMSTRUCT*>(in.lparam));
        case WM_NOTIFY: return OnNotify(*reinterpret_cast<NMHDR*>(in.lparam));
        case WM_TIMER: return OnTimer(static_cast<TimerId>(in.wparam));
        case WM_KEYDOWN: return OnKeyDown(in.wparam);
        case WM_SETFOCUS: return OnFocus();
        case WM_DPICHANGED:
        case WM_DPICHANGED_AFTERPARENT: return OnDpiChanged();
        case kFocusRequest: return OnFocusRequest();
        case kTellAgain: return OnTellAgain();
        case kLoadFinished: return OnLoadFinished();
        default: return HandlePointer(in);
    }
}

Answer Viewer::HandlePointer(const Message& in) {
    switch (in.id) {
        case WM_SETCURSOR: return OnSetCursor(in);
        case WM_MOUSEMOVE: return OnDrag(PointOf(in.lparam));
        case WM_LBUTTONDOWN: return OnPress(PointOf(in.lparam));
        case WM_LBUTTONUP: return OnRelease();
        case WM_CAPTURECHANGED: draggingSplitter_ = false; return std::nullopt;
        case WM_MOUSEWHEEL: return OnWheel(in.wparam);
        default: return std::nullopt;
    }
}

Answer Viewer::OnTimer(TimerId timer) {
    switch (timer) {
        case TimerId::StartLoad:
            KillTimer(window_, static_cast<UINT_PTR>(timer));
            StartLoad();
            return 0;
        case TimerId::PendingFilter: ApplyPendingFilter(); return 0;
        default: return std::nullopt;
    }
}

Answer Viewer::OnNotify(NMHDR& note) {
    if (note.hwndFrom == grid_.Window() || note.hwndFrom == grid_.Header()) {
        return loaded_ ? grid_.OnNotify(note) : Answer(0);
    }
    if (tree_.Window() != nullptr && note.hwndFrom == tree_.Window()) {
        return OnTreeNotify(note);
    }
    struct Route {
        UINT_PTR control;
        UINT code;
        Answer (Viewer::*handle)(NMHDR&);
    };
    static constexpr Route kRoutes[] = {
        {kTabStripId, static_cast<UINT>(TCN_SELCHANGE), &Viewer::OnTabChange},
        {kStatusBarId, static_cast<UINT>(NM_CLICK), &Viewer::OnStatusClick},
        {kStatusBarId, static_cast<UINT>(NM_RCLICK), &Viewer::OnStatusClick},
    };
    for (const Route& route : kRoutes) {
        if (route.control == note.idFrom && route.code == note.code) {
            return (this->*route.handle)(note);
        }
    }
    return std::nullopt;
}

Answer Viewer::OnTabChange(NMHDR&) {
    SwitchTab(tabs_.Selected());
    return 0;
}

// Boxes first: their identifiers reach into those of the menu when there are many columns.
Answer Viewer::OnCommand(WPARAM wparam, LPARAM lparam) {
    if (filters_.OnCommand(wparam, lparam)) {
        return 0;
    }
    const bool fromMenu = lparam == 0 && HIWORD(wparam) == 0;
    return fromMenu && RunCommand(LOWORD(wparam)) ? Answer(0) : std::nullopt;
}

Answer Viewer::OnContextMenu() {
    ShowContextMenu();
    return 0;
}

Answer Viewer::OnEraseBackground(HDC dc) {
    if (!brushes_.back) {
        return std::nullopt;
    }
    const RECT area = ToRECT(ClientRect(window_));
    FillRect(dc, &area, brushes_.back.Get());
    return TRUE;
}

Answer Viewer::OnStaticColors(HDC dc, HWND control) {
    const bool isPane = control == pane_.Window();
    const HBRUSH brush = (isPane ? brushes_.paneBack : brushes_.back).Get();
    if ((!isPane && control != placeholder_) || brush == nullptr) {
        return std::nullopt;
    }
    SetTextColor(dc, colors_.text);
    SetBkColor(dc, isPane ? colors_.back2 : colors_.back);
    return reinterpret_cast<LRESULT>(brush);
}

Answer Viewer::OnDrawItem(const DRAWITEMSTRUCT& item) {
    if (item.CtlID != kTabStripId) {
        return std::nullopt;
    }
    tabs_.Draw(item);
    return TRUE;
}

Answer Viewer::OnWheel(WPARAM wparam) {
    if ((GET_KEYSTATE_WPARAM(wparam) & MK_CONTROL) == 0) {
        return std::nullopt;
    }
    OnFontStep(GET_WHEEL_DELTA_WPARAM(wparam) > 0 ? 1 : -1);
    return 0;
}

// Given the focus, the viewer hands it to the part that uses it.
Answer Viewer::OnFocus() {
    if (loaded_) {
        FocusContent();
    }
    return 0;
}

Answer Viewer::OnFocusRequest() {
    if (loaded_ && (mayTakeFocus_ || HasFocusInside())) {
        FocusContent();
    }
    return 0;
}

Answer Viewer::OnDpiChanged() {
    const int dpi = static_cast<int>(GetDpiForWindow(window_));
    if (dpi == 0 || dpi == dpi_) {
        return 0;
    }
    dpi_ = dpi;
    RebuildFonts();
    UpdateStatusBar();  // before the layout, which asks the bar for its height
    RefitAfterFonts();
    InvalidateRect(grid_.Window(), nullptr, TRUE);
    return 0;
}

Answer Viewer::OnChildMessage(HWND child, const Message& in) {
    if (child == grid_.Window()) {
        // A right click on the header has been told already; some systems then ask once more.
        const bool again =
            in.id == WM_CONTEXTMENU && reinterpret_cast<HWND>(in.wparam) == grid_.Header();
        return again ? Answer(0) : std::nullopt;  // anything else the grid tells its listener
    }
    if (child == tree_.Window() && editor_.IsOpen() && KeepsGridFrom(in)) {
        return 0;  // another node is another table: not while a text waits to be corrected
    }
    if (in.id == WM_MOUSEWHEEL) {
        return OnWheel(in.wparam);
    }
    if (child == tree_.Window() && IsExpandAllKey(in)) {
        return 0;  // the control would open everything below, by recursion
    }
    if (child == source_.Window() || child == pane_.Window() || child == tree_.Window()) {
        return OnPartKey(in, KeyFocus::Source);
    }
    return std::nullopt;
}

}  // namespace rl
