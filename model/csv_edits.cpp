// Edits: they stand beside the text, which is never rewritten.
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
        my.Inserted(id)[static_cast<size_t>(textColumn)] = text;
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
    my.insertedRows.emplace_back(static_cast<size_t>(my.columnCount));
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
