#include "model/outline_model.h"

#include <algorithm>
#include <utility>

namespace rl {

namespace {

constexpr int32_t kNameColumn = 0;
constexpr int32_t kValueColumn = 1;

/// From the name to the closing quote, as far as there is one.
TreeTableView::SourceRange SourceOfAttribute(const XmlDocument& document, int32_t index) {
    const XmlAttribute& attribute = document.attributes[static_cast<size_t>(index)];
    const uint32_t valueEnd = attribute.valueOffset + attribute.valueLength;
    const bool closed = valueEnd < document.text.size() &&
                        document.text[valueEnd] == static_cast<wchar_t>(attribute.quote);
    return {.start = attribute.nameOffset, .end = valueEnd + (closed ? 1 : 0)};
}

}  // namespace

TreeTableView::TreeTableView(const JsonDocument& document, int32_t expandMax) : tree_(document) {
    OpenFirstLevels();
    OpenLevelsToFit(expandMax);
}

TreeTableView::TreeTableView(const XmlDocument& document, int32_t expandMax) : tree_(document) {
    OpenFirstLevels();
    OpenLevelsToFit(expandMax);
}

int32_t TreeTableView::RowCount() const {
    return static_cast<int32_t>(rows_.Get().size());
}

int32_t TreeTableView::ColumnCount() const {
    return static_cast<int32_t>(filters_.size());
}

std::wstring TreeTableView::CellText(int32_t row, int32_t column) const {
    std::wstring text;
    ReadCell(row, column, text);
    return text;
}

void TreeTableView::ReadCell(int32_t row, int32_t column, std::wstring& out) const {
    out.clear();
    const OutlineRow& shown = Row(row);
    if (shown.node < 0) {
        return;
    }
    if (column == kNameColumn) {
        if (shown.IsAttribute()) {
            tree_.ReadAttributeName(shown.aux, out);
        } else {
            tree_.ReadName(shown.node, shown.aux, out);
        }
    } else if (column == kValueColumn) {
        if (shown.IsAttribute()) {
            tree_.ReadAttributeValue(shown.aux, out);
        } else {
            tree_.ReadValue(shown.node, out);
        }
        FoldOntoOneLine(out);
    }
}

bool TreeTableView::IsCommentRow(int32_t row) const {
    return Row(row).rowType == OutlineRowType::XmlComment;
}

bool TreeTableView::IsCellEditable(int32_t row, int32_t column) const {
    const OutlineRow& shown = Row(row);
    return column == kValueColumn && shown.node >= 0 &&
           (shown.IsAttribute() || tree_.IsValueEditable(shown.node));
}

void TreeTableView::Rebuild() {
    capped_ = !ListOutlineRows(tree_, state_, rows_);
}

int32_t TreeTableView::RowOf(int32_t node, int32_t attribute) const {
    // Nodes are numbered in document order and rows stand in it, attributes after their element.
    const int32_t aux = tree_.Xml() != nullptr ? attribute : -1;
    const auto rows = rows_.Get();
    const auto found =
        std::ranges::lower_bound(rows, std::pair(node, aux), {}, [this](const OutlineRow& row) {
            return std::pair(row.node, tree_.Xml() != nullptr ? row.aux : -1);
        });
    if (found == rows.end() || found->node != node ||
        (tree_.Xml() != nullptr && found->aux != aux)) {
        return -1;
    }
    return static_cast<int32_t>(found - rows.begin());
}

const OutlineRow& TreeTableView::Row(int32_t index) const {
    static const OutlineRow none;
    const auto rows = rows_.Get();
    return index >= 0 && static_cast<size_t>(index) < rows.size() ? rows[static_cast<size_t>(index)]
                                                                  : none;
}

std::wstring TreeTableView::NameText(int32_t row) const {
    return CellText(row, kNameColumn);
}

std::wstring TreeTableView::ValueText(int32_t row) const {
    return CellText(row, kValueColumn);
}

std::wstring TreeTableView::FullValueText(int32_t row) const {
    std::wstring text;
    const OutlineRow& shown = Row(row);
    if (shown.IsAttribute()) {
        tree_.ReadAttributeValue(shown.aux, text);
    } else if (shown.node >= 0) {
        tree_.ReadValue(shown.node, text);
    }
    return text;
}

std::wstring TreeTableView::SummaryText(int32_t row) const {
    const OutlineRow& shown = Row(row);
    return shown.node < 0 || shown.IsAttribute() ? std::wstring() : tree_.SummaryText(shown.node);
}

bool TreeTableView::IsCapped() const {
    return capped_;
}

std::wstring TreeTableView::FullCellText(int32_t row, int32_t column) const {
    return column == 1 ? FullValueText(row) : CellText(row, column);
}

// The blocks of a broken document are gathered below a node that a single block leaves unused.
int32_t TreeTableView::NodeCount() const {
    return tree_.Json() != nullptr ? tree_.Size() - std::max(0, tree_.Root()) : tree_.Size();
}

TreeTableView::SourceRange TreeTableView::SourceOf(int32_t row) const {
    const OutlineRow& shown = Row(row);
    if (shown.node < 0) {
        return {};
    }
    const auto node = static_cast<size_t>(shown.node);
    if (const JsonDocument* json = tree_.Json()) {
        const JsonNode& value = json->nodes[node];
        return {.start = value.valueOffset, .end = value.valueOffset + value.valueLength};
    }
    const XmlDocument& xml = *tree_.Xml();
    if (shown.IsAttribute()) {
        return SourceOfAttribute(xml, shown.aux);
    }
    return {.start = xml.nodes[node].sourceStart, .end = xml.nodes[node].sourceEnd};
}

XmlValueRef TreeTableView::ValueRefOf(int32_t row) const {
    const OutlineRow& shown = Row(row);
    if (tree_.Xml() == nullptr || shown.node < 0) {
        return {};
    }
    if (shown.IsAttribute()) {
        return XmlDocument::AttributeRef(shown.node, shown.aux);
    }
    return tree_.IsValueEditable(shown.node) ? tree_.Xml()->ValueRefOf(shown.node) : XmlValueRef();
}

}  // namespace rl
