// A single-line edit control whose text stands in the middle of its box, in a frame of our colours.
//
// The control itself sets its line at the upper edge, where a font higher than the box loses what
// stands below the line and a small one hangs under the frame. So the client area is moved instead,
// and what is left between it and the frame is painted here. The control draws its own border along
// the client area: the frame, and what lies between, are painted over that.
//
// User-interface thread only.
#pragma once

#include <windows.h>

#include "view/logic/geometry.h"
#include "view/message.h"

namespace rl {

/// Styles to make such a control with. It heeds its neighbours, as it would draw on its parent's
/// whole area otherwise.
inline constexpr DWORD kEditLineStyle = WS_BORDER | ES_AUTOHSCROLL | WS_CLIPSIBLINGS;

struct EditLineLook {
    int lineHeight = 0;  // of the control's font, pixels; 0: the control is left as it is
    int below = 0;       // pixels at the lower edge above which the line is centred
    COLORREF back = 0;
    COLORREF frame = 0;
    COLORREF focusFrame = 0;  // while it has the focus
};

/// The height of a line of that font on the window.
[[nodiscard]] int LineHeight(HWND window, HFONT font);

/// To be asked for each message of the control.
[[nodiscard]] Answer OnEditLineMessage(HWND edit, const Message& in, const EditLineLook& look);

/// Paints the frame over the control's own, and what belongs to neither it nor the client area.
void PaintEditFrame(HWND edit, const EditLineLook& look);

/// Has the client area computed anew, for another look.
void RefitEditLine(HWND edit, const EditLineLook& look);

}  // namespace rl
