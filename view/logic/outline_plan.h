// How a row of an outline is painted in its name cell: where its guide lines, its box, its type
// mark and its texts stand and which colours they have; and how wide the value column is.
//
// Each level of depth takes one slot of equal width. The box stands in the slot after those of the
// ancestors, the mark and the name follow it. Depth is bounded only by what a row can hold: nothing
// outside the cell is planned.
//
// Rectangles are in the coordinates of the cell's rectangle, pixels.
#pragma once

#include <cstdint>
#include <span>

#include "host/config/themes.h"
#include "model/outline_rows.h"
#include "view/logic/geometry.h"

namespace rl {

/// The colour of a row's mark and name.
[[nodiscard]] Color OutlineTypeColor(OutlineRowType type, const ThemeColors& theme,
                                     const SourceColors& syntax);

/// All that a plan depends on.
struct OutlineCell {
    Rect rect = {};  // of the name cell
    int32_t viewRow = 0;
    int depth = 0;
    OutlineRowType rowType = OutlineRowType::XmlDocument;
    bool hasChildren = false;
    bool expanded = false;
    bool selected = false;  // the row is
    bool hot = false;       // the mouse is over the row's box
    int nameWidth = 0;      // of the name in its font
    int dpi = kBaseDpi;
};

/// One pixel column for each ancestor, as far as the cell reaches.
struct GuideLines {
    int count = 0;
    int firstLeft = 0;
    int step = 0;
    int thickness = 0;

    [[nodiscard]] Rect At(int index, const Rect& cell) const {
        return {firstLeft + index * step, cell.top, thickness, cell.height};
    }
    bool operator==(const GuideLines&) const = default;
};

/// A shape: its outline is `thickness` pixels inside its bounds.
struct OutlineShape {
    Rect rect;  // empty: not there
    Color fill = 0;
    Color line = 0;
    int thickness = 1;

    bool operator==(const OutlineShape&) const = default;
};

struct OutlineText {
    Rect rect;  // empty: not there
    Color color = 0;

    bool operator==(const OutlineText&) const = default;
};

struct OutlinePlan {
    Color back = 0;  // of the whole cell
    GuideLines guides;
    Color guideColor = 0;
    OutlineShape box;
    Rect horizontalStroke;  // empty without a box
    Rect verticalStroke;    // likewise, and in an open row's box
    Color strokeColor = 0;
    OutlineShape mark;  // square with children, round without
    OutlineText name;
    OutlineText summary;  // ": " and the summary, when the row has one
};

[[nodiscard]] OutlinePlan PlanOutlineCell(const ThemeColors& theme, const SourceColors& syntax,
                                          const OutlineCell& cell);

/// The box that opens and closes a row; empty when it does not touch the cell.
[[nodiscard]] Rect OutlineBox(const Rect& cell, int depth, int dpi);
/// Whether a point of the cell is in the box or so near that it is meant.
[[nodiscard]] bool HitsOutlineBox(const Rect& cell, int depth, int dpi, int x, int y);

/// What the other columns leave to the value column. `widths` by grid column, `valueColumn` one of
/// them.
[[nodiscard]] int OutlineValueWidth(int clientWidth, std::span<const int> widths, int valueColumn,
                                    int dpi);

/// The height of a row for a line of text of `lineHeight` pixels.
[[nodiscard]] int OutlineRowHeight(int lineHeight, int dpi);

}  // namespace rl
