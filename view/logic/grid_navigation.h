// Where the arrow keys lead in the grid. Columns of width 0 are hidden and stepped over.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "view/logic/key_codes.h"

namespace rl {

/// A cell of the grid: view row and grid column.
struct GridPosition {
    int32_t row = -1;
    int32_t column = -1;

    bool operator==(const GridPosition&) const = default;
};

/// What the grid looks like when an arrow key is pressed; rows are view rows, -1: none.
struct NavigationState {
    GridPosition current = {};
    int32_t focusedRow = -1;  // the list view's own
    int32_t firstSelectedRow = -1;
    int32_t visibleRows = 0;
    std::span<const int> columnWidths = {};  // by grid column
};

/// The cell to make current; nothing when the key is no arrow, or there is no cell to go to.
[[nodiscard]] std::optional<GridPosition> Navigate(const NavigationState& state, VirtualKey key,
                                                   bool ctrl);

/// How far to scroll right (negative: left) so that a cell is seen; client pixels.
[[nodiscard]] int ScrollToShow(int cellLeft, int cellRight, int clientWidth);

}  // namespace rl
