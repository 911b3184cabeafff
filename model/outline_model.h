// A whole JSON or XML document as an outline of names and values, opened level by level.
//
// Each visible node is one row. One flag a node says whether it is open; the rows are listed anew
// from the tree whenever a flag changes. All walks are iterative and capped at kMaxOutlineRows.
//
// The document must outlive the outline; both belong to one thread.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "model/json_document.h"
#include "model/outline_rows.h"
#include "model/outline_tree.h"
#include "model/outline_walk.h"
#include "model/table_model.h"
#include "model/xml_document.h"

namespace rl {

/// Whether a text of a column passes that column's filter; the text may be changed.
using OutlineFilter = std::function<bool(std::wstring& text)>;
/// For a filter that wants one text somewhere in a column's text: where it stands next in a text of
/// any length, `from` or behind it; npos when it does not.
using OutlineSearch = std::function<size_t(std::wstring_view text, size_t from)>;

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
    [[nodiscard]] std::wstring FullCellText(int32_t row, int32_t column) const override;

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
    /// `search`, when given, must find the text in what `filter` lets pass and in nothing else; it
    /// saves copying most values.
    void SetFilter(int32_t column, std::wstring_view text, OutlineFilter filter,
                   OutlineSearch search = {});
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

    [[nodiscard]] const JsonDocument* Json() const { return tree_.Json(); }  // null for XML
    [[nodiscard]] const XmlDocument* Xml() const { return tree_.Xml(); }     // null for JSON
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
    struct Filter {
        std::wstring text;  // empty: the column has none
        OutlineFilter passes;
        OutlineSearch search;

        [[nodiscard]] bool Passes(std::wstring& shown) const {
            return text.empty() || !passes || passes(shown);
        }
    };

    void OpenFirstLevels();
    void CollectClosed(std::vector<int32_t>& closed) const;
    [[nodiscard]] bool IsListed(int32_t node) const;
    [[nodiscard]] int64_t ListedAttributes(int32_t node) const;
    [[nodiscard]] int64_t CountBelow(int32_t node, int64_t most,
                                     std::vector<int32_t>& closed) const;

    [[nodiscard]] bool IsFiltered() const;
    void MarkMatches();
    [[nodiscard]] bool CanSearchWholeText() const;
    void MarkHitsInText();
    [[nodiscard]] bool ValuePasses(int32_t node, std::wstring& text) const;
    [[nodiscard]] bool AttributeValuePasses(int32_t attribute, std::wstring& text) const;
    [[nodiscard]] bool MarkAttributes(int32_t node, std::wstring& text);
    void MarkListed(int32_t node);
    void OpenAllAbove(int32_t node);

    OutlineTree tree_;
    OutlineState state_;
    OutlineRowList rows_;
    bool capped_ = false;
    std::array<Filter, 2> filters_;  // of names and of values
};

}  // namespace rl
