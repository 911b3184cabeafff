// How wide the grid's columns are, from a sample of rows; and where their numbers line up.
//
// Both come from one pass, because fetching and measuring a cell is what costs: each sampled cell
// is fetched once and measured once, a decimal's integer part once more.
//
// Knows nothing of fonts: measuring a text is passed in.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "view/logic/geometry.h"
#include "view/logic/grid_columns.h"
#include "view/logic/row_view.h"

namespace rl {

/// The width of a text in the grid's font, pixels.
using MeasureText = std::function<int(std::wstring_view)>;

struct ColumnSizing {
    int dpi = kBaseDpi;
    int32_t maxColumnSamples = 1000;  // the settings of these names
    int32_t maxColumnWidth = 300;     // at 96 dpi; below 1: no cap
    bool decimalAlign = true;
};

/// One row of an outline, as far as the width of its name needs it.
struct OutlineName {
    int depth = 0;
    std::wstring summary;  // empty: none
};

/// What is different when the grid shows an outline.
struct OutlineSizing {
    int clientWidth = 0;  // of the grid, pixels
    std::function<OutlineName(int32_t viewRow)> nameOf;
};

/// All by grid column.
struct ColumnMetrics {
    std::vector<int> widths;         // pixels; 0 for a hidden column
    std::vector<int> integerWidths;  // widest integer part seen, pixels
    std::vector<bool> isNumeric;     // some sampled cell is a number
    int outlineName = 0;             // what an outline's names ask for, whatever their column's cap
};

/// An outline's names get no more of the client area than this; below 1: no limit.
[[nodiscard]] int OutlineNameCap(int clientWidth, int dpi);

/// How many rows are looked at.
[[nodiscard]] int32_t SampleCount(int32_t visibleRows, int32_t maxSamples);

/// The view row of sample `index` of `count`: the first and the last are always among them.
[[nodiscard]] int32_t SampleRow(int32_t visibleRows, int32_t index, int32_t count);

[[nodiscard]] ColumnMetrics MeasureColumns(const RowView& rows, const GridColumns& columns,
                                           const ColumnSizing& sizing, const MeasureText& measure,
                                           const OutlineSizing* outline = nullptr);

}  // namespace rl
