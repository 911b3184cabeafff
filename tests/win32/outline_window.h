// A grid that shows an outline on a real window: what the tests of both stand on.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "model/outline_model.h"
#include "tests/win32/grid_window.h"

namespace rl::test {

inline constexpr ThemeColors kThemeColors{.text = 0x202020,
                                          .back = 0xFFFFFF,
                                          .back2 = 0xF0F0F0,
                                          .headerText = 0x000000,
                                          .headerBack = 0xE0E0E0,
                                          .currentCellBack = 0x00C0C0,
                                          .selectionText = 0xFFFF00,
                                          .selectionBack = 0x800000,
                                          .lineNumberText = 0x010101,
                                          .lineNumberBack = 0xEEEEEE,
                                          .accent = 0x0000FF};
inline constexpr SourceColors kSyntax{.tag = 0xC00000,
                                      .attribute = 0x00A000,
                                      .string = 0x0000C0,
                                      .number = 0xC000C0,
                                      .keyword = 0xC0C000,
                                      .comment = 0x808000};

inline constexpr std::wstring_view kOutlineJson =
    LR"({"name": "x", "list": [{"id": "first", "deep": [1, 2]}, 3], "none": null})";

struct OutlineOptions {
    std::wstring json = std::wstring(kOutlineJson);
    GridWindowOptions window = {.colors = kThemeColors};
    int32_t expandMax = 0;  // everything open
};

/// A grid that shows the outline of a JSON text.
class OutlineWindow {
public:
    explicit OutlineWindow(OutlineOptions options = {}) : window({}, options.window) {
        EXPECT_TRUE(document.Parse(options.json, false, false));
        outline.emplace(document, options.expandMax);
        view.emplace(*outline, false);
        style = options.window.style;
        style.outline = &*outline;
        window.grid.SetOutlineColors(kSyntax);
        window.grid.ShowTable(&*view, style);
        window.Paint();
        window.Reset();
    }

    [[nodiscard]] Grid& TheGrid() { return window.grid; }
    [[nodiscard]] RECT Name(int row) {
        return window.grid.CellBounds({row, window.grid.GridColumnOf(0)});
    }
    /// The bounds of a row's box at 96 dpi.
    [[nodiscard]] RECT Box(int row) {
        const RECT cell = Name(row);
        const LONG left = cell.left + 5 + 16 * outline->Row(row).depth;
        const LONG top = cell.top + (cell.bottom - cell.top - 10) / 2;
        return {left, top, left + 10, top + 10};
    }
    [[nodiscard]] RECT Mark(int row) {
        const RECT cell = Name(row);
        const LONG left = cell.left + 18 + 16 * outline->Row(row).depth;
        const LONG top = cell.top + (cell.bottom - cell.top - 7) / 2;
        return {left, top, left + 7, top + 7};
    }
    [[nodiscard]] COLORREF Pixel(LONG x, LONG y) {
        const WindowDc dc(window.grid.Window());
        return GetPixel(dc.Get(), x, y);
    }
    [[nodiscard]] int Count(const RECT& area, COLORREF color) {
        return GridWindow::CountPixels(window.grid.Window(), area, color);
    }
    [[nodiscard]] int Height(int row) {
        const RECT cell = Name(row);
        return cell.bottom - cell.top;
    }
    void Toggle(int row) {
        EXPECT_TRUE(outline->Toggle(row));
        view->Rebuild();
        window.grid.RowsChanged(true);
    }
    void ClickAt(LONG x, LONG y, UINT down = WM_LBUTTONDOWN, UINT up = WM_LBUTTONUP) {
        PostMessageW(window.grid.Window(), up, 0, MAKELPARAM(x, y));
        window.Send(down, 0, MAKELPARAM(x, y));
        window.Paint();
    }
    void MoveTo(LONG x, LONG y) {
        window.Send(WM_MOUSEMOVE, 0, MAKELPARAM(x, y));
        window.Paint();
    }

    JsonDocument document;
    std::optional<TreeTableView> outline;
    std::optional<RowView> view;
    Grid::Style style;
    GridWindow window;
};

}  // namespace rl::test
