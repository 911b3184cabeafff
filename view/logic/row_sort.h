// The order of two cells, and a stable order of many rows.
//
// Numbers compare as numbers, everything else as the user's language orders texts. Where numbers
// meet texts the two rules can contradict each other in a circle (5 < 1e3 as numbers, but
// 1e3 < 2x < 5 as texts), so the sort must be one that any comparison leaves safe: a plain merge.
//
// Knows nothing of filters or of the grid. Safe on any thread.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace rl {

/// Negative, zero or positive: how two cells stand to each other in an ascending sort.
[[nodiscard]] int CompareCells(std::wstring_view left, std::wstring_view right);

/// Puts the cell that a row is sorted by into `cell`, whose room is used again.
using CellOfRow = std::function<void(int32_t modelRow, std::wstring& cell)>;

/// Puts rows in the order of their cells; rows that compare equal keep their order, descending
/// too. Each row's cell is asked for once in a column of numbers, and up to three times in others.
/// A direction of 0 leaves the rows as they are.
void SortRows(std::vector<int32_t>& rows, const CellOfRow& cellOf, int32_t direction);

/// Merges runs of 1, 2, 4, ... positions: stable, and safe whatever `before` answers. What stands
/// in `positions` is only moved, never lost. `before(a, b)`: a must come first.
template <typename Before>
void MergeSort(std::vector<uint32_t>& positions, const Before& before) {
    const size_t count = positions.size();
    std::vector<uint32_t> target(count);
    for (size_t width = 1; width < count; width *= 2) {
        for (size_t begin = 0; begin < count; begin += 2 * width) {
            const size_t middle = begin + width < count ? begin + width : count;
            const size_t end = middle + width < count ? middle + width : count;
            size_t left = begin;
            size_t right = middle;
            for (size_t out = begin; out < end; ++out) {
                const bool takeRight =
                    left == middle || (right < end && before(positions[right], positions[left]));
                target[out] = positions[takeRight ? right++ : left++];
            }
        }
        positions.swap(target);
    }
}

}  // namespace rl
