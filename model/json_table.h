// One value of a JSON document as a table: records, members or a single cell.
//
// Row 0 holds the column names. Cells are nodes, resolved when they are asked for, so that edits
// show at once. The document must outlive the table; both belong to one thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/json_document.h"
#include "model/table_model.h"

namespace rl {

class JsonTableView final : public ITableModel {
public:
    /// `node` -1 or a null document gives a table of no columns. `missingText` is shown where a
    /// record lacks a key. `firstRecordOnly`: columns are the keys of the first object alone.
    JsonTableView(const JsonDocument* document, int32_t node, std::wstring_view missingText,
                  bool firstRecordOnly);
    ~JsonTableView() override;

    [[nodiscard]] int32_t RowCount() const override;
    [[nodiscard]] int32_t ColumnCount() const override;
    [[nodiscard]] std::wstring CellText(int32_t row, int32_t column) const override;
    [[nodiscard]] bool IsCommentRow(int32_t row) const override;
    [[nodiscard]] bool IsCellEditable(int32_t row, int32_t column) const override;
    void ReadCell(int32_t row, int32_t column, std::wstring& out) const override;

    /// The value behind a cell; -1 for the header, a key, a missing cell and outside the table.
    [[nodiscard]] int32_t CellNode(int32_t row, int32_t column) const;
    /// The element or member behind a row; -1 for the header and outside the table.
    [[nodiscard]] int32_t RowNode(int32_t row) const;

private:
    struct Table;
    const JsonDocument* document_;
    std::unique_ptr<Table> table_;
};

}  // namespace rl
