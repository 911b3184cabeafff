#include "view/logic/grid_columns.h"

#include <algorithm>

namespace rl {

std::wstring DataColumnName(const ITableModel& model, bool hasHeaderRow, int32_t dataColumn) {
    std::wstring name;
    if (hasHeaderRow && model.RowCount() > 0) {
        name = model.CellText(0, dataColumn);
    }
    return name.empty() ? L"Column " + std::to_wstring(int64_t{dataColumn} + 1) : name;
}

void GridColumns::Reset(int32_t dataColumnCount, bool lineNumbers) {
    hidden_.resize(static_cast<size_t>(std::max(0, dataColumnCount)), false);
    lineNumbers_ = lineNumbers;
}

int32_t GridColumns::DataColumn(int32_t gridColumn) const {
    if (gridColumn < Shift()) {
        return -1;
    }
    const int32_t dataColumn = gridColumn - Shift();
    return HasData(dataColumn) ? dataColumn : -1;
}

int32_t GridColumns::GridColumn(int32_t dataColumn) const {
    return HasData(dataColumn) ? dataColumn + Shift() : -1;
}

bool GridColumns::IsHidden(int32_t dataColumn) const {
    return HasData(dataColumn) && hidden_[static_cast<size_t>(dataColumn)];
}

bool GridColumns::Hide(int32_t dataColumn) {
    if (!HasData(dataColumn)) {
        return false;
    }
    hidden_[static_cast<size_t>(dataColumn)] = true;
    return true;
}

void GridColumns::Show(int32_t dataColumn) {
    if (HasData(dataColumn)) {
        hidden_[static_cast<size_t>(dataColumn)] = false;
    }
}

void GridColumns::ShowAll() {
    hidden_.assign(hidden_.size(), false);
}

void GridColumns::Remove(int32_t dataColumn) {
    if (HasData(dataColumn)) {
        hidden_.erase(hidden_.begin() + dataColumn);
    }
}

std::wstring GridHeaderText(const GridColumns& columns, const RowView& rows, int32_t gridColumn,
                            bool outlineInGrid) {
    if (columns.IsLineNumber(gridColumn)) {
        return std::wstring(kLineNumberHeader);
    }
    const int32_t dataColumn = columns.DataColumn(gridColumn);
    if (dataColumn < 0) {
        return {};
    }
    if (outlineInGrid) {
        return dataColumn == 0 ? L"Name" : L"Value";
    }
    return DataColumnName(rows.Model(), rows.HasHeaderRow(), dataColumn);
}

std::wstring GridCellText(const GridColumns& columns, const RowView& rows, int32_t viewRow,
                          int32_t gridColumn) {
    if (columns.IsLineNumber(gridColumn)) {
        const bool inside = viewRow >= 0 && viewRow < rows.VisibleRowCount();
        return inside ? std::to_wstring(int64_t{viewRow} + 1) : std::wstring();
    }
    const int32_t dataColumn = columns.DataColumn(gridColumn);
    return dataColumn < 0 ? std::wstring() : rows.CellText(viewRow, dataColumn);
}

}  // namespace rl
