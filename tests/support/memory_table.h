// A table from literals, for tests of everything that stands on `ITableModel`.
//
// Counts how often a cell is asked for: some callers promise to ask once.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "model/table_model.h"

namespace rl::test {

class MemoryTable final : public ITableModel {
public:
    using Rows = std::vector<std::vector<std::wstring>>;

    MemoryTable() = default;
    explicit MemoryTable(Rows rows) : rows_(std::move(rows)) {}

    /// A table of one column.
    static MemoryTable Column(std::vector<std::wstring> cells) {
        Rows rows;
        for (std::wstring& cell : cells) {
            rows.push_back({std::move(cell)});
        }
        return MemoryTable(std::move(rows));
    }

    /// A table of one row.
    static MemoryTable Row(std::vector<std::wstring> cells) {
        Rows rows;
        rows.push_back(std::move(cells));
        return MemoryTable(std::move(rows));
    }

    [[nodiscard]] int32_t RowCount() const override { return static_cast<int32_t>(rows_.size()); }

    [[nodiscard]] int32_t ColumnCount() const override {
        size_t widest = 0;
        for (const auto& row : rows_) {
            widest = row.size() > widest ? row.size() : widest;
        }
        return static_cast<int32_t>(widest);
    }

    [[nodiscard]] std::wstring CellText(int32_t row, int32_t column) const override {
        ++cellTextCalls;
        if (row < 0 || row >= RowCount() || column < 0) {
            return {};
        }
        const auto& cells = rows_[static_cast<size_t>(row)];
        return static_cast<size_t>(column) < cells.size() ? cells[static_cast<size_t>(column)]
                                                          : std::wstring();
    }

    [[nodiscard]] bool IsCommentRow(int32_t) const override { return false; }
    [[nodiscard]] bool IsCellEditable(int32_t, int32_t) const override { return false; }

    /// The cells, to change them between two questions.
    [[nodiscard]] Rows& Content() { return rows_; }

    mutable int64_t cellTextCalls = 0;

private:
    Rows rows_;
};

}  // namespace rl::test
