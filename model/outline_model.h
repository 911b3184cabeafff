// A whole JSON or XML document as an outline of names and values, opened level by level.
//
// Each visible node is one row. One flag a node says whether it is open; the rows are listed anew
// from the tree whenever a flag changes. All walks are iterative and capped at kMaxOutlineRows.
//
// The document must outlive the outline; both belong to one thread.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include <array>
#include <vector>

#include "model/json_document.h"
#include "model/outline_rows.h"
#include "model/table_model.h"
#include "model/xml_document.h"

namespace rl {

/// Whether a text of a column passes that column's filter; the text may be changed.
using OutlineFilter = std::function<bool(std::wstring& text)>;

class TreeTableView final : public ITableModel {
public:
    /// The first two levels open, then more while they fit `expandMax`; below 1: everything.
    TreeTableView(const JsonDocument& document, int32_t expandMax);
    TreeTableView(const XmlDocument& document, int32_t expandMax);

    [[nodiscard]] int32_t RowCount() const override;
    [[nodiscard]] int32_t ColumnCount() const override;  // 2: name, value
    [[nodiscard]] std::wstring CellText(int32_t row, int32_t column) const override;
    [[nodiscard]] bool IsCommentRow(int32_t row) const override;
    [[nodiscard]] bool IsCellEditable(int32_t row, int32_t column) const override;
    void ReadCell(int32_t row, int32_t column, std::wstring& out) const override;

    /// Lists the rows anew from the flags.
    void Rebuild();
    /// Opens or closes a row; false when it has no children or is outside the outline.
    bool Toggle(int32_t row);
    /// Opens a row and all below it.
    void ExpandSubtree(int32_t row);
    /// Closes all but the root.
    void CollapseAll();
    void ExpandAll();
    void OpenLevelsToFit(int32_t limit);
    /// Opens what hides a node (or one of its attributes, else -1) and answers its row; -1 when it
    /// is never listed.
    int32_t RevealNode(int32_t node, int32_t attribute);
    /// Opens the way to every node that contains the text, ignoring case; how many there are.
    int32_t RevealMatches(std::wstring_view text);
    /// The row that shows a node or attribute now; -1 when none does.
    [[nodiscard]] int32_t RowOf(int32_t node, int32_t attribute) const;

    /// Lists only nodes whose name and value pass, with all their ancestors opened. An empty `text`
    /// takes the column's filter away; with the last one the old opening comes back.
    void SetFilter(int32_t column, std::wstring_view text, OutlineFilter filter);
    [[nodiscard]] std::wstring_view FilterText(int32_t column) const;

    /// The record of a row; an empty one outside the outline.
    [[nodiscard]] const OutlineRow& Row(int32_t index) const;
    [[nodiscard]] std::wstring NameText(int32_t row) const;
    /// On one line: each run of CR, LF and TAB is one blank.
    [[nodiscard]] std::wstring ValueText(int32_t row) const;
    /// The value as it is, for the value pane, copying and editing.
    [[nodiscard]] std::wstring FullValueText(int32_t row) const;
    /// What stands greyed behind a container's name; empty for none.
    [[nodiscard]] std::wstring SummaryText(int32_t row) const;
    /// Whether the walk stopped at kMaxOutlineRows.
    [[nodiscard]] bool IsCapped() const;
    /// Nodes of the document, whatever is open.
    [[nodiscard]] int32_t NodeCount() const;

    [[nodiscard]] const JsonDocument* Json() const { return json_; }  // null for XML
    [[nodiscard]] const XmlDocument* Xml() const { return xml_; }     // null for JSON
    /// The units of the text behind a row: a value (JSON), the node's source (XML), an attribute
    /// from its name to its closing quote. Both 0 outside the outline.
    struct SourceRange {
        uint32_t start = 0;
        uint32_t end = 0;  // exclusive
    };
    [[nodiscard]] SourceRange SourceOf(int32_t row) const;
    /// The value to edit behind a row; XML only.
    [[nodiscard]] XmlValueRef ValueRefOf(int32_t row) const;

private:
    const XmlDocument* xml_ = nullptr;
    const JsonDocument* json_ = nullptr;
    std::vector<OutlineRow> rows_;
    std::vector<uint8_t> expanded_;
    std::vector<uint8_t> matches_;
    std::array<std::wstring, 2> filters_;
};

}  // namespace rl
