#include "view/edit_line.h"

// Needs the types of windows.h.
#include <commctrl.h>

#include "view/gdi_handles.h"
#include "view/logic/edit_place.h"
#include "view/paint_scope.h"

namespace rl {
namespace {

/// Messages in which a control draws, some of them without waiting to be asked to paint.
bool MayDraw(const Message& in) {
    switch (in.id) {
        case WM_PAINT:
        case WM_CHAR:
        case WM_KEYDOWN:
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_SETTEXT:
        case WM_PASTE:
        case WM_CUT:
        case WM_CLEAR:
        case WM_UNDO:
        case EM_UNDO:
        case EM_SETSEL:
        case EM_REPLACESEL: return true;
        case WM_MOUSEMOVE: return (in.wparam & MK_LBUTTON) != 0;  // drags a selection
        default: return false;
    }
}

void PlaceClient(HWND edit, RECT& window, const EditLineLook& look) {
    RECT line{};
    SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&line));
    Rect box = FromRECT(window);
    box.height -= look.below;
    window = ToRECT(PlanEditClient(box, look.lineHeight, line.top));
}

/// A client area higher than the box would be painted beyond it.
void ClipToBox(HWND edit, const EditLineLook& look) {
    RECT window{};
    GetWindowRect(edit, &window);
    UniqueRegion box;
    if (window.bottom - window.top < look.lineHeight) {
        box.Reset(CreateRectRgn(0, 0, window.right - window.left, window.bottom - window.top));
    }
    if (SetWindowRgn(edit, box.Get(), TRUE) != 0) {
        (void)box.Release();  // the system's from now on
    }
}

/// The client area in the coordinates of its window.
Rect ClientInWindow(HWND edit, const RECT& window) {
    const Rect client = ClientRect(edit);
    POINT origin{};
    ClientToScreen(edit, &origin);
    return {origin.x - window.left, origin.y - window.top, client.width, client.height};
}

}  // namespace

int LineHeight(HWND window, HFONT font) {
    const WindowDc dc(window);
    const SelectScope selected(dc.Get(), font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc.Get(), &metrics);
    return metrics.tmHeight;
}

Answer OnEditLineMessage(HWND edit, const Message& in, const EditLineLook& look) {
    if (look.lineHeight <= 0) {
        return std::nullopt;
    }
    switch (in.id) {
        case WM_NCCALCSIZE:  // with either parameter the rectangle stands first
            PlaceClient(edit, *reinterpret_cast<RECT*>(in.lparam), look);
            return 0;
        case WM_WINDOWPOSCHANGED: {
            const LRESULT result = DefSubclassProc(edit, in.id, in.wparam, in.lparam);
            if ((reinterpret_cast<const WINDOWPOS*>(in.lparam)->flags & SWP_NOSIZE) == 0) {
                ClipToBox(edit, look);
            }
            return result;
        }
        case WM_NCPAINT: PaintEditFrame(edit, look); return 0;
        case WM_NCHITTEST: return HTCLIENT;  // all of the box is the text's
        default: break;
    }
    if (!MayDraw(in)) {
        return std::nullopt;
    }
    const LRESULT result = DefSubclassProc(edit, in.id, in.wparam, in.lparam);
    if (IsWindow(edit) && IsWindowVisible(edit)) {
        PaintEditFrame(edit, look);
    }
    return result;
}

// A client area higher than the box reaches over the frame: it is painted after the text.
void PaintEditFrame(HWND edit, const EditLineLook& look) {
    const bool hasFocus = GetFocus() == edit;
    const COLORREF color = hasFocus ? look.focusFrame : look.frame;
    RECT window{};
    GetWindowRect(edit, &window);
    const Rect client = ClientInWindow(edit, window);
    const Rect box{0, 0, window.right - window.left, window.bottom - window.top};
    const bool caret = hasFocus && HideCaret(edit);
    {
        const WindowDc dc(edit, DcArea::Window);
        const int bottom = client.Bottom() - kEditFrame;
        const Rect above{0, 0, box.width, client.top + kEditFrame};
        const Rect below{0, bottom, box.width, box.height - bottom};
        for (const Rect& rest : {above, below}) {
            if (!rest.IsEmpty()) {
                FillSolid(dc.Get(), rest, look.back);
            }
        }
        FillSolid(dc.Get(), {0, 0, box.width, kEditFrame}, color);
        FillSolid(dc.Get(), {0, box.height - kEditFrame, box.width, kEditFrame}, color);
        FillSolid(dc.Get(), {0, 0, kEditFrame, box.height}, color);
        FillSolid(dc.Get(), {box.width - kEditFrame, 0, kEditFrame, box.height}, color);
    }
    if (caret) {
        ShowCaret(edit);
    }
}

void RefitEditLine(HWND edit, const EditLineLook& look) {
    constexpr UINT kFrameOnly =
        SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED;
    SetWindowPos(edit, nullptr, 0, 0, 0, 0, kFrameOnly);
    ClipToBox(edit, look);
}

}  // namespace rl
