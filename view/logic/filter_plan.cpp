#include "view/logic/filter_plan.h"

#include <algorithm>

namespace rl {
namespace {

constexpr int kHintPadding = 3;  // at 96 dpi, pixels, on each side

}  // namespace

FilterAlign FilterAlignOf(int32_t setting) {
    return setting == -1  ? FilterAlign::Left
           : setting == 1 ? FilterAlign::Right
                          : FilterAlign::Center;
}

std::vector<Rect> PlanFilterBoxes(std::span<const int> edges, int clientWidth, const Rect& row) {
    std::vector<Rect> boxes;
    for (size_t i = 1; i < edges.size(); ++i) {
        const int left = std::clamp(edges[i - 1], 0, std::max(0, clientWidth));
        const int right = std::clamp(edges[i], left, std::max(left, clientWidth));
        boxes.push_back({row.left + left, row.top, right - left, row.height});
    }
    return boxes;
}

Rect PlanFilterHint(const Rect& client, int textWidth, int dpi) {
    const int padding = Scale(kHintPadding, dpi);
    const int room = client.width - 2 * padding;
    if (textWidth > room) {
        return {};
    }
    return {client.left + padding, client.top, room, client.height};
}

FilterStep PlanTypedFilter(int32_t gridColumn, int32_t pending, int32_t modelRows) {
    FilterStep step;
    step.applyFirst = pending == gridColumn ? -1 : pending;
    (modelRows >= kDelayedFilterRows ? step.pending : step.applyNow) = gridColumn;
    return step;
}

int32_t NextSortDirection(int32_t dataColumn, int32_t sortColumn, int32_t sortDirection) {
    if (dataColumn != sortColumn || sortDirection == 0) {
        return 1;
    }
    return sortDirection > 0 ? -1 : 0;
}

SortPlace PlaceAfterSort(int32_t found, int32_t oldTop, int32_t visibleRows) {
    if (found >= 0) {
        return {.current = found, .show = found};
    }
    return {.current = -1, .show = std::min(visibleRows - 1, oldTop)};
}

}  // namespace rl
