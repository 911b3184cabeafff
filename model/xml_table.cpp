#include "model/xml_table.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "model/xml_table_cells.h"

namespace rl {

namespace {

constexpr std::array<std::wstring_view, 2> kKeyValueColumns = {L"Key", L"Value"};
constexpr std::wstring_view kNested = L"\x2026";

const XmlNode& NodeOf(const XmlDocument& document, int32_t node) {
    return document.nodes[static_cast<size_t>(node)];
}

std::vector<int32_t> ElementChildren(const XmlDocument& document, int32_t node) {
    std::vector<int32_t> elements;
    for (int32_t child = NodeOf(document, node).firstChild; child >= 0;) {
        const XmlNode& below = NodeOf(document, child);
        if (below.kind == XmlKind::Element) {
            elements.push_back(child);
        }
        child = below.nextSibling;
    }
    return elements;
}

/// The name that occurs most often, at least twice; of several the one that came first.
std::optional<std::wstring_view> MostRepeatedName(const XmlDocument& document,
                                                  const std::vector<int32_t>& elements) {
    detail::XmlColumns names(elements.size());
    std::vector<size_t> counts;
    size_t place = 0;
    for (const int32_t element : elements) {
        const std::wstring_view name = document.NodeName(element);
        if (counts.empty() || names.All()[place].name != name) {
            place = static_cast<size_t>(names.FindOrAdd({.name = name}));
            if (place == counts.size()) {
                counts.push_back(0);
            }
        }
        ++counts[place];
    }
    const auto most = std::ranges::max_element(counts);  // the first of them
    if (most == counts.end() || *most < 2) {
        return std::nullopt;
    }
    return names.All()[static_cast<size_t>(most - counts.begin())].name;
}

/// The children that become rows; none when they are better shown as key and value.
std::vector<int32_t> ChooseRecords(const XmlDocument& document, int32_t node,
                                   std::wstring_view recordName) {
    std::vector<int32_t> elements = ElementChildren(document, node);
    if (recordName.empty()) {
        const auto repeated = MostRepeatedName(document, elements);
        if (!repeated) {
            return elements.size() < 2 ? elements : std::vector<int32_t>{};
        }
        recordName = *repeated;
        if (recordName.empty()) {
            return elements;  // without a name to tell them by, all are records
        }
    }
    std::erase_if(elements, [&document, recordName](int32_t element) {
        return document.NodeName(element) != recordName;
    });
    return elements;
}

}  // namespace

struct XmlTableView::Table {
    int32_t element = -1;
    std::vector<int32_t> rowNodes;
    std::optional<detail::XmlRecordCells> records;  // none: key and value

    // Of key and value.
    std::wstring attributeKeys;       // "@name" of all attributes, one after the other
    std::vector<uint32_t> keyStarts;  // into `attributeKeys`, and the end

    void AppendColumnName(size_t column, std::wstring& out) const;
    void MakeKeyValue(const XmlDocument& document);
    [[nodiscard]] XmlCell RecordCell(const XmlDocument& document, size_t row, int32_t column) const;
    [[nodiscard]] XmlCell KeyCell(const XmlDocument& document, size_t row) const;
    [[nodiscard]] XmlCell ValueCell(const XmlDocument& document, size_t row) const;
};

void XmlTableView::Table::AppendColumnName(size_t column, std::wstring& out) const {
    if (!records) {
        out += kKeyValueColumns[column];
        return;
    }
    const detail::XmlColumn& named = records->Columns()[column];
    out += named.isAttribute ? L"@" : L"";
    out += named.name;
}

void XmlTableView::Table::MakeKeyValue(const XmlDocument& document) {
    records.reset();
    const XmlNode& node = NodeOf(document, element);
    rowNodes.assign(node.attributeCount, element);
    keyStarts.push_back(0);
    for (uint32_t i = 0; i < node.attributeCount; ++i) {
        attributeKeys += L'@';
        attributeKeys += document.AttributeName(static_cast<int32_t>(node.firstAttribute + i));
        keyStarts.push_back(static_cast<uint32_t>(attributeKeys.size()));
    }
    for (int32_t child = node.firstChild; child >= 0; child = NodeOf(document, child).nextSibling) {
        rowNodes.push_back(child);
    }
}

XmlCell XmlTableView::Table::RecordCell(const XmlDocument& document, size_t row,
                                        int32_t column) const {
    XmlCell cell;
    if (!records) {
        return cell;
    }
    const int32_t index = records->At(row, column);
    if (index == detail::XmlRecordCells::kEmpty) {
        return cell;
    }
    if (records->Columns()[static_cast<size_t>(column)].isAttribute) {
        cell.ref = XmlDocument::AttributeRef(rowNodes[row], index);
    } else if (document.HasElementChild(index)) {
        cell.text = kNested;
        cell.hasText = true;
    } else {
        cell.textNode = index;
        cell.ref = document.ValueRefOf(index);
    }
    return cell;
}

XmlCell XmlTableView::Table::KeyCell(const XmlDocument& document, size_t row) const {
    XmlCell cell;
    cell.hasText = true;
    if (row + 1 < keyStarts.size()) {
        cell.text = std::wstring_view(attributeKeys)
                        .substr(keyStarts[row], keyStarts[row + 1] - keyStarts[row]);
        return cell;
    }
    const XmlKind kind = NodeOf(document, rowNodes[row]).kind;
    const bool isText = kind == XmlKind::Text || kind == XmlKind::Cdata;
    const XmlNode& above = NodeOf(document, element);
    const bool isNamed = above.kind == XmlKind::Element && above.nameLength > 0;
    cell.text = document.NodeName(isText && isNamed ? element : rowNodes[row]);
    return cell;
}

XmlCell XmlTableView::Table::ValueCell(const XmlDocument& document, size_t row) const {
    XmlCell cell;
    if (row + 1 < keyStarts.size()) {
        const uint32_t first = NodeOf(document, element).firstAttribute;
        cell.ref = XmlDocument::AttributeRef(element, static_cast<int32_t>(first + row));
        return cell;
    }
    const int32_t child = rowNodes[row];
    const bool isElement = NodeOf(document, child).kind == XmlKind::Element;
    if (isElement && document.HasElementChild(child)) {
        cell.text = kNested;
        cell.hasText = true;
        return cell;
    }
    cell.ref = document.ValueRefOf(child);
    if (isElement && cell.ref.kind == XmlValueRef::Kind::None) {
        cell.textNode = child;
    }
    return cell;
}

XmlTableView::XmlTableView(const XmlDocument* document, int32_t element,
                           std::wstring_view recordName)
    : document_(document), table_(std::make_unique<Table>()) {
    Table& table = *table_;
    table.element = element;
    const bool exists = document != nullptr && element >= 0 &&
                        static_cast<size_t>(element) < document->nodes.size();
    if (exists) {
        table.rowNodes = ChooseRecords(*document, element, recordName);
        table.records.emplace(*document, table.rowNodes);
        if (table.records->Columns().empty()) {
            table.MakeKeyValue(*document);
        }
    }
}

XmlTableView::~XmlTableView() = default;

int32_t XmlTableView::RowCount() const {
    return static_cast<int32_t>(table_->rowNodes.size()) + 1;
}

int32_t XmlTableView::ColumnCount() const {
    return static_cast<int32_t>(table_->records ? table_->records->Columns().size()
                                                : kKeyValueColumns.size());
}

std::wstring XmlTableView::CellText(int32_t row, int32_t column) const {
    std::wstring text;
    ReadCell(row, column, text);
    return text;
}

bool XmlTableView::IsCommentRow(int32_t) const {
    return false;
}

bool XmlTableView::IsCellEditable(int32_t row, int32_t column) const {
    return Cell(row, column).ref.kind != XmlValueRef::Kind::None;
}

void XmlTableView::ReadCell(int32_t row, int32_t column, std::wstring& out) const {
    out.clear();
    if (row == 0 && column >= 0 && column < ColumnCount()) {
        table_->AppendColumnName(static_cast<size_t>(column), out);
        return;
    }
    const XmlCell cell = Cell(row, column);
    if (cell.hasText) {
        out = cell.text;
    } else if (cell.ref.kind == XmlValueRef::Kind::Attribute) {
        document_->ReadAttributeValue(cell.ref.attribute, out);
    } else if (cell.textNode >= 0) {
        document_->ReadInnerText(cell.textNode, out);
    } else if (cell.ref.kind != XmlValueRef::Kind::None) {
        document_->ReadNodeValue(cell.ref.node, out);
    }
}

bool XmlTableView::IsKeyValue() const {
    return !table_->records;
}

XmlCell XmlTableView::Cell(int32_t row, int32_t column) const {
    if (row < 1 || row >= RowCount() || column < 0 || column >= ColumnCount()) {
        return {};
    }
    const size_t dataRow = static_cast<size_t>(row) - 1;
    if (table_->records) {
        return table_->RecordCell(*document_, dataRow, column);
    }
    return column == 0 ? table_->KeyCell(*document_, dataRow)
                       : table_->ValueCell(*document_, dataRow);
}

int32_t XmlTableView::RowNode(int32_t row) const {
    return row < 1 || row >= RowCount() ? -1 : table_->rowNodes[static_cast<size_t>(row) - 1];
}

}  // namespace rl
