// One element of an XML document as a table: its repeated children as records, or key and value.
//
// Row 0 holds the column names. Cells refer into the document and are resolved when they are asked
// for, so that edits show at once. The document must outlive the table; both belong to one thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "model/table_model.h"
#include "model/xml_document.h"

namespace rl {

/// What one cell shows: the first of a fixed text, an attribute, an element's text, a value.
struct XmlCell {
    XmlValueRef ref;        // the value that the cell shows and edits
    int32_t textNode = -1;  // an element whose inner text the cell shows
    std::wstring_view text;
    bool hasText = false;
};

class XmlTableView final : public ITableModel {
public:
    /// `element` may be any node; below 0, or with a null document, the table is an empty key/value
    /// one. `recordName` names the children that become rows; empty: chosen by how often they
    /// occur.
    XmlTableView(const XmlDocument* document, int32_t element, std::wstring_view recordName);
    ~XmlTableView() override;

    [[nodiscard]] int32_t RowCount() const override;
    [[nodiscard]] int32_t ColumnCount() const override;
    [[nodiscard]] std::wstring CellText(int32_t row, int32_t column) const override;
    [[nodiscard]] bool IsCommentRow(int32_t row) const override;
    [[nodiscard]] bool IsCellEditable(int32_t row, int32_t column) const override;
    void ReadCell(int32_t row, int32_t column, std::wstring& out) const override;

    [[nodiscard]] bool IsKeyValue() const;
    /// The cell; an empty one for the header and outside the table. Valid as long as the table.
    [[nodiscard]] XmlCell Cell(int32_t row, int32_t column) const;
    /// The node a row stands for; -1 for the header and outside the table.
    [[nodiscard]] int32_t RowNode(int32_t row) const;

private:
    struct Table;
    const XmlDocument* document_;
    std::unique_ptr<Table> table_;
};

}  // namespace rl
