// The filter row as values: where its boxes stand, when a typed filter is applied, when the hint of
// an empty box shows.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "view/logic/geometry.h"

namespace rl {

/// From this many rows on a filter waits until the typing pauses.
inline constexpr int32_t kDelayedFilterRows = 250'000;
inline constexpr uint32_t kFilterDelayMs = 250;

/// From this grid column on a box exists only while its column is in view: windows are not without
/// number.
inline constexpr int32_t kLazyBoxColumn = 1000;

/// How the text of the boxes and their hint are aligned; from the `filter-align` setting.
enum class FilterAlign { Left, Center, Right };
[[nodiscard]] FilterAlign FilterAlignOf(int32_t setting);

/// Where the boxes stand. `edges` are the columns' left edges and the last one's right edge, in
/// client pixels of the grid; `row` is the filter row and `clientWidth` the width of the grid
/// without its scroll bar. One rectangle for each column, of no width where nothing is in view.
[[nodiscard]] std::vector<Rect> PlanFilterBoxes(std::span<const int> edges, int clientWidth,
                                                const Rect& row);

/// Where the hint is drawn in a box of this client area; empty when it would not fit whole.
[[nodiscard]] Rect PlanFilterHint(const Rect& client, int textWidth, int dpi);

/// What a keystroke in a box leads to. Columns are grid columns, -1: none.
struct FilterStep {
    int32_t applyFirst = -1;  // another box whose filter was still waiting
    int32_t applyNow = -1;
    int32_t pending = -1;  // waits for the typing to pause: the timer starts again

    bool operator==(const FilterStep&) const = default;
};

/// `modelRows` counts the rows of the table, `pending` is the column waiting so far.
[[nodiscard]] FilterStep PlanTypedFilter(int32_t gridColumn, int32_t pending, int32_t modelRows);

/// The direction a click on a column's header leads to: up, down, then the order of the file.
[[nodiscard]] int32_t NextSortDirection(int32_t dataColumn, int32_t sortColumn,
                                        int32_t sortDirection);

/// What is looked at after a sort: the row that was current, or one near the old top.
struct SortPlace {
    int32_t current = -1;  // view row to make current; -1: it is gone
    int32_t show = -1;     // view row to bring into view; -1: there is none

    bool operator==(const SortPlace&) const = default;
};
/// `found` is the view row that now shows the row that was current, -1 when none does.
[[nodiscard]] SortPlace PlaceAfterSort(int32_t found, int32_t oldTop, int32_t visibleRows);

}  // namespace rl
