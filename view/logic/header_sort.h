// What a click on a column header asks for, and which row is shown afterwards.
#pragma once

#include <cstdint>

#include "view/logic/row_view.h"

namespace rl {

/// The direction that a click asks for: ascending, descending, then the order of the file (0). A
/// click on another column begins anew. Columns are data columns.
[[nodiscard]] int32_t NextSortDirection(int32_t sortColumn, int32_t sortDirection,
                                        int32_t clickedColumn);

enum class SortMark { None, Up, Down };

[[nodiscard]] SortMark SortMarkOf(const RowView& rows, int32_t dataColumn);

/// Where the user is after the rows have changed their order or number.
struct RowAfterChange {
    bool makeCurrent = false;  // false: nothing is selected, the row is only scrolled into view
    int32_t viewRow = -1;      // -1: there are no rows

    bool operator==(const RowAfterChange&) const = default;
};

/// `modelRow` was the current row (-1: none), `oldTopRow` the first one on screen.
[[nodiscard]] RowAfterChange PlanRowAfterChange(const RowView& rows, int32_t modelRow,
                                                int32_t oldTopRow);

}  // namespace rl
