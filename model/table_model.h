// The one shape in which the grid meets every document.
#pragma once

#include <cstdint>
#include <string>

namespace rl {

/// A table the grid can show: a delimited file, a JSON array, an XML element, an outline.
///
/// Rows and columns are numbered from 0. An index outside the table is not an error: the answer is
/// an empty text or false, because the grid may paint a row that an edit has just removed.
///
/// A model that has a header presents it as row 0. A model belongs to one thread at a time.
class ITableModel {
public:
    virtual ~ITableModel() = default;

    /// Rows before filtering and sorting, header and comments included.
    [[nodiscard]] virtual int32_t RowCount() const = 0;

    /// Columns before hiding. Ragged rows count as wide as the widest.
    [[nodiscard]] virtual int32_t ColumnCount() const = 0;

    /// What the user reads in the cell: quotes and escapes resolved, edits applied. Built on each
    /// call; neighbouring calls on the same row are cheap, random ones cost a scan of that row.
    [[nodiscard]] virtual std::wstring CellText(int32_t row, int32_t column) const = 0;

    /// True for a line the file carries beside its data, such as a title or a remark.
    [[nodiscard]] virtual bool IsCommentRow(int32_t row) const = 0;

    /// Whether edit mode may open an editor on this cell.
    [[nodiscard]] virtual bool IsCellEditable(int32_t row, int32_t column) const = 0;

    /// The same text as `CellText`, put into `out`, whose room is used again: for callers that look
    /// at every row, to whom an allocation for each cell would cost more than the work itself.
    virtual void ReadCell(int32_t row, int32_t column, std::wstring& out) const {
        out = CellText(row, column);
    }

    /// The whole text of a cell that `CellText` may show shortened or on one line: for copying, for
    /// a closer look and for editing.
    [[nodiscard]] virtual std::wstring FullCellText(int32_t row, int32_t column) const {
        return CellText(row, column);
    }

protected:
    ITableModel() = default;
    ITableModel(const ITableModel&) = default;
    ITableModel(ITableModel&&) = default;
    ITableModel& operator=(const ITableModel&) = default;
    ITableModel& operator=(ITableModel&&) = default;
};

}  // namespace rl
