// A viewer as its user sees it: rows, headers, status, tabs, panes and colours.
//
// Controls are found by their identifiers and read with their own messages. Holds no state: every
// answer is asked for anew.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tools/common/capture.h"

namespace rl::test {

using Texts = std::vector<std::wstring>;

class Viewer {
public:
    explicit Viewer(HWND window) : window_(window) {}

    [[nodiscard]] HWND Window() const { return window_; }
    [[nodiscard]] HWND Grid() const { return Control(1001); }
    [[nodiscard]] HWND StatusBar() const { return Control(1002); }
    [[nodiscard]] HWND Placeholder() const { return Control(1003); }
    [[nodiscard]] HWND Tree() const { return Control(1004); }
    [[nodiscard]] HWND Tabs() const { return Control(1005); }
    [[nodiscard]] HWND Source() const { return Control(1006); }
    [[nodiscard]] HWND Pane() const { return Control(1007); }
    [[nodiscard]] HWND Header() const;

    /// Alive, and the placeholder gone.
    [[nodiscard]] bool IsLoaded() const;

    [[nodiscard]] int RowCount() const;
    [[nodiscard]] int ColumnCount() const;
    [[nodiscard]] std::wstring Cell(int row, int column) const;
    [[nodiscard]] Texts Row(int row) const;
    [[nodiscard]] Texts Headers() const;
    [[nodiscard]] int Width(int column) const;
    [[nodiscard]] std::vector<int> SelectedRows() const;
    [[nodiscard]] int FocusedRow() const;
    [[nodiscard]] int TopRow() const;

    /// The middle of a cell, in the grid's client area; scroll it into view before.
    [[nodiscard]] POINT CellCenter(int row, int column) const;
    [[nodiscard]] RECT CellRect(int row, int column) const;
    [[nodiscard]] POINT HeaderCenter(int column) const;

    [[nodiscard]] std::wstring Status(int part) const;
    [[nodiscard]] Texts StatusTexts() const;
    [[nodiscard]] std::vector<int> StatusEdges() const;
    [[nodiscard]] RECT StatusPart(int part) const;

    [[nodiscard]] Texts TabTexts() const;
    [[nodiscard]] int CurrentTab() const;
    [[nodiscard]] POINT TabCenter(int tab) const;

    [[nodiscard]] std::wstring PaneText() const;

    /// Where a control lies in the viewer's client area.
    [[nodiscard]] RECT Place(HWND control) const;

    /// The control's client area as it looks on the screen. Taking it costs some milliseconds: who
    /// wants many pixels takes it once.
    [[nodiscard]] static tools::Image Picture(HWND control);

    /// Colour of one pixel on the screen; the point is in the control's client area.
    [[nodiscard]] static COLORREF ColorAt(HWND control, POINT at);

    /// How many pixels of the rectangle have the colour.
    [[nodiscard]] static int CountColor(HWND control, const RECT& area, COLORREF color);

private:
    [[nodiscard]] HWND Control(int id) const { return GetDlgItem(window_, id); }

    HWND window_;
};

/// The text of any window.
[[nodiscard]] std::wstring TextOf(HWND window);

}  // namespace rl::test
