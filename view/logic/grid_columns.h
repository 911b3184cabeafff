// Which data column a grid column shows, what it is called and whether it is hidden.
//
// Data columns are those of the model; grid columns have the line-number column in front when it is
// shown. Both are counted from 0.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/table_model.h"
#include "view/logic/row_view.h"

namespace rl {

inline constexpr std::wstring_view kLineNumberHeader = L"#";

/// The name in the header row, else "Column " and its number from 1.
[[nodiscard]] std::wstring DataColumnName(const ITableModel& model, bool hasHeaderRow,
                                          int32_t dataColumn);

/// The columns of the grid: how they are numbered and which are hidden.
class GridColumns {
public:
    GridColumns() = default;
    GridColumns(int32_t dataColumnCount, bool lineNumbers) { Reset(dataColumnCount, lineNumbers); }

    /// Takes on a new shape; columns that were there before stay hidden or shown.
    void Reset(int32_t dataColumnCount, bool lineNumbers);

    [[nodiscard]] int32_t DataCount() const { return static_cast<int32_t>(hidden_.size()); }
    [[nodiscard]] int32_t GridCount() const { return DataCount() + Shift(); }
    [[nodiscard]] bool HasLineNumbers() const { return lineNumbers_; }
    [[nodiscard]] bool IsLineNumber(int32_t gridColumn) const {
        return lineNumbers_ && gridColumn == 0;
    }

    /// -1 for the line-number column and outside the grid.
    [[nodiscard]] int32_t DataColumn(int32_t gridColumn) const;
    /// -1 outside the data.
    [[nodiscard]] int32_t GridColumn(int32_t dataColumn) const;

    [[nodiscard]] bool IsHidden(int32_t dataColumn) const;
    /// False where there is no such column.
    bool Hide(int32_t dataColumn);
    /// Shows one column again; nothing happens where there is none.
    void Show(int32_t dataColumn);
    void ShowAll();
    /// A data column is gone: those behind it move up, hidden or shown as they were.
    void Remove(int32_t dataColumn);

private:
    [[nodiscard]] int32_t Shift() const { return lineNumbers_ ? 1 : 0; }
    [[nodiscard]] bool HasData(int32_t dataColumn) const {
        return dataColumn >= 0 && dataColumn < DataCount();
    }

    std::vector<bool> hidden_;
    bool lineNumbers_ = false;
};

/// What stands above a grid column. `outlineInGrid`: "Name" for the first data column, "Value" for
/// every other.
[[nodiscard]] std::wstring GridHeaderText(const GridColumns& columns, const RowView& rows,
                                          int32_t gridColumn, bool outlineInGrid = false);

/// What stands in a grid cell: the position in the view, counted from 1, in the line-number column.
[[nodiscard]] std::wstring GridCellText(const GridColumns& columns, const RowView& rows,
                                        int32_t viewRow, int32_t gridColumn);

}  // namespace rl
