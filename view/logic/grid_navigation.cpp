#include "view/logic/grid_navigation.h"

#include <algorithm>

namespace rl {
namespace {

std::optional<int32_t> StartRow(const NavigationState& state) {
    for (const int32_t row : {state.current.row, state.focusedRow, state.firstSelectedRow}) {
        if (row >= 0 && row < state.visibleRows) {
            return row;
        }
    }
    return std::nullopt;
}

/// The nearest shown column from `column` on, in steps of 1 or -1; nothing when there is none.
std::optional<int32_t> ShownColumn(std::span<const int> widths, int32_t column, int32_t step) {
    const auto count = static_cast<int32_t>(widths.size());
    for (; column >= 0 && column < count; column += step) {
        if (widths[static_cast<size_t>(column)] != 0) {
            return column;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<GridPosition> Navigate(const NavigationState& state, VirtualKey key, bool ctrl) {
    const std::span<const int> widths = state.columnWidths;
    const std::optional<int32_t> row = StartRow(state);
    const std::optional<int32_t> first = ShownColumn(widths, 0, 1);
    if (!row || !first) {
        return std::nullopt;
    }
    const auto columnCount = static_cast<int32_t>(widths.size());
    const int32_t wanted = state.current.column;
    const bool usable =
        wanted >= 0 && wanted < columnCount && widths[static_cast<size_t>(wanted)] != 0;
    const int32_t column = usable ? wanted : *first;
    const int32_t lastRow = state.visibleRows - 1;
    switch (key) {
        case key::kUp: return GridPosition{ctrl ? 0 : std::max(0, *row - 1), column};
        case key::kDown: return GridPosition{ctrl ? lastRow : std::min(lastRow, *row + 1), column};
        case key::kLeft:
            return GridPosition{
                *row, ctrl ? *first : ShownColumn(widths, column - 1, -1).value_or(column)};
        case key::kRight: {
            const auto next = ctrl ? ShownColumn(widths, columnCount - 1, -1)
                                   : ShownColumn(widths, column + 1, 1);
            return GridPosition{*row, next.value_or(column)};
        }
        default: return std::nullopt;
    }
}

int ScrollToShow(int cellLeft, int cellRight, int clientWidth) {
    if (cellLeft < 0) {
        return cellLeft;
    }
    return std::max(0, cellRight - clientWidth);
}

}  // namespace rl
