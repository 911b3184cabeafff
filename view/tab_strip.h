// The Data and Source tabs: drawn by us, switched by the system's control.
//
// Tells nobody anything: the strip's parent gets the control's own notifications.
#pragma once

#include <windows.h>

#include "host/config/themes.h"
#include "view/gdi_handles.h"
#include "view/logic/geometry.h"
#include "view/subclass.h"

namespace rl {

enum class ViewerTab { Data = 0, Source = 1 };

class TabStrip {
public:
    /// False when the system refuses.
    [[nodiscard]] bool Create(HWND parent);
    [[nodiscard]] HWND Window() const { return window_; }

    /// Fonts are borrowed: `bold` marks the current tab.
    void SetFonts(HFONT normal, HFONT bold, int dpi);
    void SetColors(const ThemeColors& colors);

    [[nodiscard]] ViewerTab Selected() const;
    /// Notifies nobody.
    void Select(ViewerTab tab);

    /// Answers the parent's WM_DRAWITEM.
    void Draw(const DRAWITEMSTRUCT& item) const;

private:
    Answer OnMessage(const Message& in);
    void Paint() const;
    void DrawTab(HDC dc, const Rect& rect, int index) const;
    void SetHot(int index);
    void TrackPointer(POINT client);

    HWND window_ = nullptr;
    HFONT normal_ = nullptr;
    HFONT bold_ = nullptr;
    UniqueFont fittedNormal_;  // none: the one that was given is used
    UniqueFont fittedBold_;
    int dpi_ = kBaseDpi;
    int hot_ = -1;  // the tab under the pointer
    ThemeColors colors_;
    Subclass subclass_;
};

}  // namespace rl
