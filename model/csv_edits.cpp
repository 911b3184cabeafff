// Edits: they stand beside the text, which is never rewritten.
#include <algorithm>
#include <functional>
#include <utility>

#include "model/csv_model.h"
#include "model/csv_model_state.h"

namespace rl {

void CsvModel::SetCellText(int32_t row, int32_t column, std::wstring_view text) {
    if (!IsCellEditable(row, column)) {
        return;
    }
    detail::CsvModelState& my = *state_;
    const int32_t id = my.order.VisibleId(row);
    const int32_t textColumn = my.TextColumn(column);
    if (id < 0) {
        my.Inserted(id).insert_or_assign(textColumn, std::wstring(text));
    } else {
        my.editedCells.insert_or_assign(detail::MakeCellKey(id, textColumn), std::wstring(text));
    }
    my.modified = true;
}

bool CsvModel::InsertRowBelow(int32_t row) {
    detail::CsvModelState& my = *state_;
    if (!my.HasRow(row)) {
        return false;
    }
    my.insertedRows.emplace_back();
    const auto index = static_cast<int32_t>(my.insertedRows.size() - 1);
    my.order.InsertBelow(row, ~index, my.records);
    my.modified = true;
    return true;
}

bool CsvModel::DeleteRow(int32_t row) {
    detail::CsvModelState& my = *state_;
    if (!my.HasRow(row)) {
        return false;
    }
    my.order.Erase(row, my.records);
    my.modified = true;
    return true;
}

bool CsvModel::DeleteRows(std::span<const int32_t> rows) {
    detail::CsvModelState& my = *state_;
    if (rows.empty() || !my.HasRow(rows.front()) || !my.HasRow(rows.back()) ||
        std::ranges::adjacent_find(rows, std::greater_equal()) != rows.end()) {
        return false;
    }
    my.order.EraseAll(rows, my.records);
    my.modified = true;
    return true;
}

bool CsvModel::DeleteColumn(int32_t column) {
    detail::CsvModelState& my = *state_;
    if (column < 0 || column >= my.VisibleColumnCount()) {
        return false;
    }
    const auto textColumn = static_cast<size_t>(my.TextColumn(column));
    std::vector<bool> deleted = my.deletedColumns;
    deleted.resize(static_cast<size_t>(my.columnCount));
    deleted[textColumn] = true;
    std::vector<int32_t> visible;
    for (int32_t i = 0; i < my.columnCount; ++i) {
        if (!deleted[static_cast<size_t>(i)]) {
            visible.push_back(i);
        }
    }
    my.deletedColumns = std::move(deleted);
    my.visibleColumns = std::move(visible);
    my.modified = true;
    return true;
}

int32_t CsvModel::FileRow(int32_t row) const {
    return state_->HasRow(row) ? state_->order.PlaceOf(row) : -1;
}

int32_t CsvModel::RowAt(int32_t fileRow) const {
    return state_->order.RowAt(fileRow);
}

bool CsvModel::IsModified() const {
    return state_->modified;
}

bool CsvModel::HasEditedCells() const {
    return !state_->editedCells.empty();
}

void CsvModel::ClearModified() {
    state_->modified = false;
}

}  // namespace rl
