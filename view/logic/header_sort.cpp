#include "view/logic/header_sort.h"

#include <algorithm>

namespace rl {

int32_t NextSortDirection(int32_t sortColumn, int32_t sortDirection, int32_t clickedColumn) {
    if (sortColumn != clickedColumn || sortDirection == 0) {
        return 1;
    }
    return sortDirection > 0 ? -1 : 0;
}

SortMark SortMarkOf(const RowView& rows, int32_t dataColumn) {
    if (rows.SortDirection() == 0 || rows.SortColumn() != dataColumn) {
        return SortMark::None;
    }
    return rows.SortDirection() > 0 ? SortMark::Up : SortMark::Down;
}

RowAfterChange PlanRowAfterChange(const RowView& rows, int32_t modelRow, int32_t oldTopRow) {
    const int32_t viewRow = modelRow < 0 ? -1 : rows.ViewRowOf(modelRow);
    if (viewRow >= 0) {
        return {.makeCurrent = true, .viewRow = viewRow};
    }
    return {.makeCurrent = false,
            .viewRow = std::min(rows.VisibleRowCount() - 1, std::max(0, oldTopRow))};
}

}  // namespace rl
