#include "model/json_table.h"

#include <cstddef>

#include "model/cell_store.h"
#include "model/json_text.h"
#include "model/key_columns.h"

namespace rl {

namespace {

enum class Mode { Records, Members, SingleValue };

constexpr std::wstring_view kElement = L"Element";
constexpr std::wstring_view kAttribute = L"Attribute";
constexpr std::wstring_view kValue = L"Value";

}  // namespace

struct JsonTableView::Table {
    Mode mode = Mode::SingleValue;
    std::wstring missingText;
    std::vector<std::wstring> columns;
    std::vector<int32_t> rows;  // nodes
    CellStore cells;            // records only

    void BuildRecords(const JsonDocument& document, int32_t array, bool firstRecordOnly);
    [[nodiscard]] int32_t NodeAt(size_t row, int32_t column) const;

private:
    void FindColumns(const JsonDocument& document, bool firstRecordOnly, KeyColumns& keys) const;
};

namespace {

/// Calls `take(member, key)` for each member of an object, the key decoded. A key without escapes
/// is a part of the text; any other lives only as long as the call.
template <class Take>
void ForEachMember(const JsonDocument& document, int32_t object, Take take) {
    const std::wstring_view text = document.text;
    std::wstring decoded;
    for (int32_t member = document.nodes[static_cast<size_t>(object)].firstChild; member >= 0;
         member = document.nodes[static_cast<size_t>(member)].nextSibling) {
        const JsonNode& node = document.nodes[static_cast<size_t>(member)];
        const std::wstring_view inner = text.substr(node.keyOffset + 1, node.keyLength - 2);
        if (inner.find(L'\\') == std::wstring_view::npos) {
            take(member, inner, false);
        } else {
            decoded.clear();
            DecodeJsonString(text.substr(node.keyOffset, node.keyLength), decoded);
            take(member, std::wstring_view(decoded), true);
        }
    }
}

bool IsObject(const JsonDocument& document, int32_t node) {
    return document.nodes[static_cast<size_t>(node)].kind == JsonKind::Object;
}

}  // namespace

void JsonTableView::Table::FindColumns(const JsonDocument& document, bool firstRecordOnly,
                                       KeyColumns& keys) const {
    for (const int32_t row : rows) {
        if (!IsObject(document, row)) {
            continue;
        }
        keys.StartRecord();
        ForEachMember(document, row, [&](int32_t, std::wstring_view key, bool goes) {
            if (goes) {
                keys.AddCopy(std::wstring(key));
            } else {
                keys.Add(key);
            }
        });
        if (firstRecordOnly) {
            return;
        }
    }
}

void JsonTableView::Table::BuildRecords(const JsonDocument& document, int32_t array,
                                        bool firstRecordOnly) {
    mode = Mode::Records;
    rows = document.ChildIndices(array);
    KeyColumns keys;
    FindColumns(document, firstRecordOnly, keys);
    if (keys.Count() == 0) {
        mode = Mode::SingleValue;
        columns = {std::wstring(kElement)};
        return;
    }
    columns.reserve(static_cast<size_t>(keys.Count()));
    for (int32_t column = 0; column < keys.Count(); ++column) {
        columns.emplace_back(keys.Name(column));
    }
    for (const int32_t row : rows) {
        cells.BeginRow();
        if (!IsObject(document, row)) {
            continue;
        }
        keys.StartRecord();
        ForEachMember(document, row, [&](int32_t member, std::wstring_view key, bool) {
            if (const int32_t column = keys.Find(key); column >= 0) {
                cells.Add(column, member);
            }
        });
    }
    cells.Finish(keys.Count());
}

int32_t JsonTableView::Table::NodeAt(size_t row, int32_t column) const {
    switch (mode) {
        case Mode::Records: return cells.At(static_cast<int32_t>(row), column);
        case Mode::Members: return column == 1 ? rows[row] : -1;
        default: return rows[row];
    }
}

JsonTableView::JsonTableView(const JsonDocument* document, int32_t node,
                             std::wstring_view missingText, bool firstRecordOnly)
    : document_(document), table_(std::make_unique<Table>()) {
    table_->missingText = missingText;
    if (document == nullptr || node < 0) {
        return;
    }
    switch (document->nodes[static_cast<size_t>(node)].kind) {
        case JsonKind::Array: table_->BuildRecords(*document, node, firstRecordOnly); return;
        case JsonKind::Object:
            table_->mode = Mode::Members;
            table_->columns = {std::wstring(kAttribute), std::wstring(kValue)};
            table_->rows = document->ChildIndices(node);
            return;
        default:
            table_->columns = {std::wstring(kValue)};
            table_->rows = {node};
            return;
    }
}

JsonTableView::~JsonTableView() = default;

int32_t JsonTableView::RowCount() const {
    return static_cast<int32_t>(table_->rows.size()) + 1;
}

int32_t JsonTableView::ColumnCount() const {
    return static_cast<int32_t>(table_->columns.size());
}

std::wstring JsonTableView::CellText(int32_t row, int32_t column) const {
    std::wstring text;
    ReadCell(row, column, text);
    return text;
}

void JsonTableView::ReadCell(int32_t row, int32_t column, std::wstring& out) const {
    if (column < 0 || column >= ColumnCount() || row < 0 || row >= RowCount()) {
        out.clear();
        return;
    }
    if (row == 0) {
        out = table_->columns[static_cast<size_t>(column)];
        return;
    }
    if (table_->mode == Mode::Members && column == 0) {
        document_->ReadKey(RowNode(row), out);
        return;
    }
    const int32_t node = CellNode(row, column);
    if (node < 0) {
        out = table_->missingText;
    } else {
        document_->ReadDisplay(node, out);
    }
}

bool JsonTableView::IsCommentRow(int32_t) const {
    return false;
}

bool JsonTableView::IsCellEditable(int32_t row, int32_t column) const {
    const int32_t node = CellNode(row, column);
    return node >= 0 && !document_->nodes[static_cast<size_t>(node)].IsContainer();
}

int32_t JsonTableView::CellNode(int32_t row, int32_t column) const {
    if (row < 1 || row >= RowCount() || column < 0 || column >= ColumnCount()) {
        return -1;
    }
    return table_->NodeAt(static_cast<size_t>(row) - 1, column);
}

int32_t JsonTableView::RowNode(int32_t row) const {
    return row < 1 || row >= RowCount() ? -1 : table_->rows[static_cast<size_t>(row) - 1];
}

}  // namespace rl
