// How one cell of the grid is painted: which colours, which rectangles, which pieces of its text.
//
// The painter carries a plan out stroke by stroke and decides nothing. Rectangles are in the
// coordinates of the cell's rectangle, pixels.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "host/config/themes.h"
#include "view/logic/geometry.h"

namespace rl {

inline constexpr int kGridLine = 1;  // pixels, at every dpi

struct CellState {
    int32_t viewRow = 0;
    bool selected = false;  // the row is
    bool current = false;   // the cell is: current row and current column
};

struct CellColors {
    Color text = 0;
    Color back = 0;

    bool operator==(const CellColors&) const = default;
};

/// Stripes for rows, one colour for a selected row, another for the current cell in it.
[[nodiscard]] CellColors ColorsFor(const ThemeColors& theme, const CellState& cell);

/// All that a plan depends on. The text must outlive the plan.
struct CellInput {
    Rect rect = {};  // the subitem's bounds; for column 0 with the column's width
    std::wstring_view text = {};
    CellState state = {};
    int dpi = kBaseDpi;
    bool lineNumber = false;     // the cell is one of the line-number column
    bool decimalAlign = false;   // the setting
    bool numericColumn = false;  // as measured with the column's width
    int integerWidth = 0;        // likewise, pixels
    bool gridLines = true;
};

enum class TextAlign { Left, Right };

/// A text on one line, centred vertically.
struct TextPiece {
    std::wstring_view text;
    Rect rect;
    TextAlign align = TextAlign::Left;
    bool ellipsis = false;

    bool operator==(const TextPiece&) const = default;
};

struct CellPlan {
    CellColors colors;
    bool custom = false;  // false: left to the list view, with these colours; all below is empty
    Rect fill;            // with `colors.back`
    Rect clip;            // for the pieces
    std::array<TextPiece, 2> pieces;
    int pieceCount = 0;
    std::array<Rect, 2> lines;  // grid lines, one pixel thick; empty when there are none
};

[[nodiscard]] CellPlan PlanCell(const ThemeColors& theme, const CellInput& cell);

/// Whether the list view must ask for each cell of a row, or may paint the row on its own.
[[nodiscard]] bool NeedsSubitemPainting(bool lineNumbers, bool decimalAlign, bool outlineInGrid,
                                        bool rowIsCurrent);

/// A header item: its text, and the triangle of the sort column (left empty otherwise).
struct HeaderPlan {
    Rect text;
    Rect mark;  // the triangle's bounds
};

[[nodiscard]] HeaderPlan PlanHeader(const Rect& item, bool sorted, int dpi);

}  // namespace rl
