#include "model/xml_table.h"

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "model/cell_store.h"
#include "model/key_columns.h"

namespace rl {

namespace {

constexpr std::wstring_view kKey = L"Key";
constexpr std::wstring_view kValue = L"Value";
constexpr std::wstring_view kNested = L"\x2026";  // stands for what has elements of its own
constexpr wchar_t kAttributeMark = L'@';

/// Calls `take(child, node)` for each child in order.
template <class Take>
void ForEachChild(const XmlDocument& document, int32_t parent, Take take) {
    for (int32_t child = document.nodes[static_cast<size_t>(parent)].firstChild; child >= 0;) {
        const XmlNode& node = document.nodes[static_cast<size_t>(child)];
        take(child, node);
        child = node.nextSibling;
    }
}

/// Calls `take(attribute, name)` for each attribute in order.
template <class Take>
void ForEachAttribute(const XmlDocument& document, int32_t element, Take take) {
    const XmlNode& node = document.nodes[static_cast<size_t>(element)];
    for (uint32_t i = 0; i < node.attributeCount; ++i) {
        const auto attribute = static_cast<int32_t>(node.firstAttribute + i);
        take(attribute, document.AttributeName(attribute));
    }
}

/// Which children of an element are rows.
struct RecordChoice {
    bool keyValue = false;        // all are different: none
    std::wstring_view name = {};  // empty: all elements
};

RecordChoice ChooseRecords(const XmlDocument& document, int32_t element) {
    struct Name {
        std::wstring_view text;
        size_t count;
    };
    std::vector<Name> names;
    std::unordered_map<std::wstring_view, size_t> indices;
    ForEachChild(document, element, [&](int32_t child, const XmlNode& node) {
        if (node.kind == XmlKind::Element) {
            const std::wstring_view name = document.NodeName(child);
            const auto [at, isNew] = indices.try_emplace(name, names.size());
            if (isNew) {
                names.push_back({name, 0});
            }
            ++names[at->second].count;
        }
    });
    const Name* best = nullptr;
    for (const Name& name : names) {
        if (name.count >= 2 && (best == nullptr || name.count > best->count)) {
            best = &name;
        }
    }
    if (best != nullptr) {
        return {.name = best->text};
    }
    return {.keyValue = names.size() >= 2};
}

}  // namespace

struct XmlTableView::Table {
    struct Column {
        bool isAttribute;
        std::wstring name;  // with its mark
    };

    explicit Table(const XmlDocument* shown) : document(shown) {}

    const XmlDocument* document;
    bool keyValue = false;
    int32_t element = -1;
    std::vector<Column> columns;
    std::vector<int32_t> rowNodes;
    CellStore cells;                  // records: attributes and elements
    std::vector<int32_t> attributes;  // key and value: those of the first rows

    void BuildRecords(std::wstring_view recordName);
    void BuildKeyValue();
    [[nodiscard]] XmlCell RecordCell(size_t row, int32_t column) const;
    [[nodiscard]] XmlCell KeyCell(size_t row) const;
    [[nodiscard]] XmlCell ValueCell(size_t row) const;
    void ReadKey(size_t row, std::wstring& out) const;

private:
    void CollectRecords(std::wstring_view recordName);
    [[nodiscard]] XmlCell ElementCell(int32_t child, bool keyed) const;
};

void XmlTableView::Table::CollectRecords(std::wstring_view recordName) {
    ForEachChild(*document, element, [&](int32_t child, const XmlNode& node) {
        if (node.kind == XmlKind::Element &&
            (recordName.empty() || document->NodeName(child) == recordName)) {
            rowNodes.push_back(child);
        }
    });
}

// Attributes and elements are numbered together by the names of their columns: an element may be
// named like the column of an attribute.
void XmlTableView::Table::BuildRecords(std::wstring_view recordName) {
    CollectRecords(recordName);
    KeyColumns attributeNames;
    KeyColumns elementNames;
    std::vector<int32_t> attributeColumns;  // by the number in each of the two
    std::vector<int32_t> elementColumns;
    const auto columnOf = [this](KeyColumns& names, std::vector<int32_t>& numbers,
                                 std::wstring_view name, bool isAttribute) {
        const auto index = static_cast<size_t>(names.Add(name));
        if (index == numbers.size()) {
            numbers.push_back(static_cast<int32_t>(columns.size()));
            std::wstring shown(isAttribute ? 1 : 0, kAttributeMark);
            columns.push_back({isAttribute, shown += name});
        }
        return numbers[index];
    };
    for (const int32_t record : rowNodes) {
        cells.BeginRow();
        attributeNames.StartRecord();
        elementNames.StartRecord();
        ForEachAttribute(*document, record, [&](int32_t attribute, std::wstring_view name) {
            cells.Add(columnOf(attributeNames, attributeColumns, name, true), attribute);
        });
        ForEachChild(*document, record, [&](int32_t child, const XmlNode& node) {
            if (node.kind != XmlKind::Element) {
                return;
            }
            const std::wstring_view name = document->NodeName(child);
            if (name.starts_with(kAttributeMark)) {
                columnOf(attributeNames, attributeColumns, name.substr(1), true);
            } else {
                cells.Add(columnOf(elementNames, elementColumns, name, false), child);
            }
        });
    }
    cells.Finish(static_cast<int32_t>(columns.size()));
}

void XmlTableView::Table::BuildKeyValue() {
    keyValue = true;
    rowNodes.clear();
    columns.clear();
    columns.push_back({false, std::wstring(kKey)});
    columns.push_back({false, std::wstring(kValue)});
    if (element < 0) {
        return;
    }
    ForEachAttribute(*document, element, [&](int32_t attribute, std::wstring_view) {
        attributes.push_back(attribute);
        rowNodes.push_back(element);
    });
    ForEachChild(*document, element,
                 [&](int32_t child, const XmlNode&) { rowNodes.push_back(child); });
}

XmlCell XmlTableView::Table::ElementCell(int32_t child, bool keyed) const {
    XmlCell cell;
    if (document->HasElementChild(child)) {
        cell.text = kNested;
        cell.hasText = true;
        return cell;
    }
    cell.ref = document->ValueRefOf(child);
    const bool isElement = document->nodes[static_cast<size_t>(child)].kind == XmlKind::Element;
    if (!keyed || (isElement && cell.ref.kind == XmlValueRef::Kind::None)) {
        cell.textNode = child;
    }
    return cell;
}

XmlCell XmlTableView::Table::RecordCell(size_t row, int32_t column) const {
    const int32_t found = cells.At(static_cast<int32_t>(row), column);
    if (found < 0) {
        return {};
    }
    if (!columns[static_cast<size_t>(column)].isAttribute) {
        return ElementCell(found, false);
    }
    XmlCell cell;
    cell.ref = XmlDocument::AttributeRef(rowNodes[row], found);
    return cell;
}

// The key's text is made when it is asked for: most keys are parts of the document's own text.
XmlCell XmlTableView::Table::KeyCell(size_t row) const {
    XmlCell cell;
    cell.hasText = true;
    if (row >= attributes.size()) {
        const int32_t child = rowNodes[row];
        const XmlKind kind = document->nodes[static_cast<size_t>(child)].kind;
        const bool isText = kind == XmlKind::Text || kind == XmlKind::Cdata;
        const XmlNode& above = document->nodes[static_cast<size_t>(element)];
        const bool named = above.kind == XmlKind::Element && above.nameLength > 0;
        cell.text = document->NodeName(isText && named ? element : child);
    }
    return cell;
}

XmlCell XmlTableView::Table::ValueCell(size_t row) const {
    if (row < attributes.size()) {
        XmlCell cell;
        cell.ref = XmlDocument::AttributeRef(element, attributes[row]);
        return cell;
    }
    return ElementCell(rowNodes[row], true);
}

void XmlTableView::Table::ReadKey(size_t row, std::wstring& out) const {
    out.clear();
    if (row < attributes.size()) {
        out += kAttributeMark;
        out += document->AttributeName(attributes[row]);
    } else {
        out += KeyCell(row).text;
    }
}

XmlTableView::XmlTableView(const XmlDocument* document, int32_t element,
                           std::wstring_view recordName)
    : document_(document), table_(std::make_unique<Table>(document)) {
    if (document == nullptr || element < 0) {
        table_->BuildKeyValue();
        return;
    }
    table_->element = element;
    RecordChoice choice{.name = recordName};
    if (recordName.empty()) {
        choice = ChooseRecords(*document, element);
    }
    if (!choice.keyValue) {
        table_->BuildRecords(choice.name);
    }
    if (table_->columns.empty()) {
        table_->BuildKeyValue();
    }
}

XmlTableView::~XmlTableView() = default;

int32_t XmlTableView::RowCount() const {
    return static_cast<int32_t>(table_->rowNodes.size()) + 1;
}

int32_t XmlTableView::ColumnCount() const {
    return static_cast<int32_t>(table_->columns.size());
}

bool XmlTableView::IsKeyValue() const {
    return table_->keyValue;
}

std::wstring XmlTableView::CellText(int32_t row, int32_t column) const {
    std::wstring text;
    ReadCell(row, column, text);
    return text;
}

void XmlTableView::ReadCell(int32_t row, int32_t column, std::wstring& out) const {
    out.clear();
    if (column < 0 || column >= ColumnCount() || row < 0 || row >= RowCount()) {
        return;
    }
    if (row == 0) {
        out = table_->columns[static_cast<size_t>(column)].name;
        return;
    }
    if (table_->keyValue && column == 0) {
        table_->ReadKey(static_cast<size_t>(row) - 1, out);
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

bool XmlTableView::IsCommentRow(int32_t) const {
    return false;
}

bool XmlTableView::IsCellEditable(int32_t row, int32_t column) const {
    return Cell(row, column).ref.kind != XmlValueRef::Kind::None;
}

XmlCell XmlTableView::Cell(int32_t row, int32_t column) const {
    if (row < 1 || column < 0 || column >= ColumnCount() || row >= RowCount()) {
        return {};
    }
    const size_t index = static_cast<size_t>(row) - 1;
    if (!table_->keyValue) {
        return table_->RecordCell(index, column);
    }
    return column == 0 ? table_->KeyCell(index) : table_->ValueCell(index);
}

int32_t XmlTableView::RowNode(int32_t row) const {
    return row < 1 || row >= RowCount() ? -1 : table_->rowNodes[static_cast<size_t>(row) - 1];
}

}  // namespace rl
