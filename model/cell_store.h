// Which node stands in which cell of a table whose rows have some of the columns.
//
// Cells are given row by row. As long as most of them exist they are one array; a table of many
// columns of which each row has few keeps only what there is.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace rl {

class CellStore {
public:
    struct Entry {
        int32_t column;
        int32_t node;
    };

    void BeginRow() { starts_.push_back(entries_.size()); }
    /// The first cell of a column in a row stays; later ones are left out.
    void Add(int32_t column, int32_t node) { entries_.push_back({column, node}); }
    /// No more rows: sorts them, and spreads them out where that costs little.
    void Finish(int32_t columns) {
        columns_ = columns;
        starts_.push_back(entries_.size());
        const uint64_t cells = uint64_t{RowCount()} * static_cast<uint64_t>(columns);
        if (cells <= kSpreadUpTo * (uint64_t{entries_.size()} + 16)) {
            Spread(static_cast<size_t>(cells));
        } else {
            SortRows();
        }
    }

    /// The node of a cell, -1 when the row lacks the column. Both must be in the table.
    [[nodiscard]] int32_t At(int32_t row, int32_t column) const {
        const auto index = static_cast<size_t>(row);
        if (!cells_.empty()) {
            return cells_[index * static_cast<size_t>(columns_) + static_cast<size_t>(column)];
        }
        const auto first = entries_.begin() + static_cast<std::ptrdiff_t>(starts_[index]);
        const auto last = entries_.begin() + static_cast<std::ptrdiff_t>(starts_[index + 1]);
        const auto found = std::ranges::lower_bound(first, last, column, {}, &Entry::column);
        return found != last && found->column == column ? found->node : -1;
    }

private:
    static constexpr uint64_t kSpreadUpTo = 4;  // cells for each one that exists

    [[nodiscard]] size_t RowCount() const { return starts_.size() - 1; }

    void Spread(size_t cells) {
        cells_.assign(cells, -1);
        for (size_t row = 0; row < RowCount(); ++row) {
            int32_t* const out = cells_.data() + row * static_cast<size_t>(columns_);
            for (size_t i = starts_[row]; i < starts_[row + 1]; ++i) {
                int32_t& cell = out[entries_[i].column];
                cell = cell < 0 ? entries_[i].node : cell;
            }
        }
        std::vector<Entry>().swap(entries_);
        std::vector<size_t>().swap(starts_);
    }

    void SortRows() {
        for (size_t row = 0; row < RowCount(); ++row) {
            const auto first = entries_.begin() + static_cast<std::ptrdiff_t>(starts_[row]);
            const auto last = entries_.begin() + static_cast<std::ptrdiff_t>(starts_[row + 1]);
            std::ranges::stable_sort(first, last, {}, &Entry::column);
        }
    }

    int32_t columns_ = 0;
    std::vector<size_t> starts_;  // of each row in `entries_`, and the end of the last
    std::vector<Entry> entries_;  // as they came; sorted by column within a row
    std::vector<int32_t> cells_;  // row by row, when spread out
};

}  // namespace rl
