// The rows the grid shows: those of a model that pass every filter, in sorted order.
//
// Belongs to one thread. The model must outlive the view.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/table_model.h"
#include "view/logic/record_probe.h"
#include "view/logic/row_filter.h"

namespace rl {

class RowView {
public:
    /// All rows of the model, the first left out when `hasHeaderRow`. No filter, no sort.
    RowView(const ITableModel& model, bool hasHeaderRow);

    /// Shows only rows whose cell in `column` matches; an empty text takes the filter away.
    /// Ignored for a column the model does not have.
    void SetFilter(int32_t column, std::wstring_view text);
    /// Ascending for a positive direction, descending for a negative one; otherwise, or for a
    /// column the model does not have, the order of the file.
    void SetSort(int32_t column, int32_t direction);
    void SetCaseSensitive(bool caseSensitive);
    /// Filters and sorts anew, after the model's content changed.
    void Rebuild();

    /// Makes sure that RowInserted finds memory for one more row.
    void MakeRoom();
    /// The model has got a row directly below the one behind `viewRow`: it is shown there, whatever
    /// filters and sort say, until they are applied again. Needs MakeRoom.
    void RowInserted(int32_t viewRow) noexcept;
    /// The model has lost these rows, in ascending order. The others stay as they are shown.
    void RowsDeleted(std::span<const int32_t> modelRows) noexcept;

    [[nodiscard]] int32_t VisibleRowCount() const;
    /// The model row behind a view row; -1 outside the view.
    [[nodiscard]] int32_t ModelRow(int32_t viewRow) const;
    /// The view row that shows a model row; -1 when it is filtered away. Costs a pass over the
    /// view.
    [[nodiscard]] int32_t ViewRowOf(int32_t modelRow) const;
    /// The cell as the grid shows it; empty outside the view.
    [[nodiscard]] std::wstring CellText(int32_t viewRow, int32_t column) const;

    [[nodiscard]] const ITableModel& Model() const;
    [[nodiscard]] bool HasHeaderRow() const;
    [[nodiscard]] int32_t SortColumn() const;     // -1: unsorted
    [[nodiscard]] int32_t SortDirection() const;  // 1, -1, or 0
    /// The text of a column's filter as typed; empty when there is none.
    [[nodiscard]] std::wstring_view FilterText(int32_t column) const;

private:
    struct ActiveFilter {
        int32_t column;
        const ColumnFilter* filter;
        RecordProbe probe;

        [[nodiscard]] bool Passes(const ITableModel& model, int32_t modelRow, bool caseSensitive,
                                  std::wstring& scratch) const;
    };

    void Compile();
    [[nodiscard]] std::vector<ActiveFilter> ActiveFilters() const;
    void CollectRows(std::span<const ActiveFilter> active);

    const ITableModel* model_;
    bool hasHeaderRow_;
    bool caseSensitive_ = false;
    std::vector<std::wstring> filterTexts_;
    std::vector<ColumnFilter> filters_;
    std::vector<int32_t> visibleRows_;
    int32_t sortColumn_ = -1;
    int32_t sortDirection_ = 0;
};

}  // namespace rl
