#include "model/json_table.h"

#include <algorithm>

#include "model/json_columns.h"

namespace rl {

namespace {

enum class Mode { Records, Members, Single, Empty };

/// More cells than this for each member, and only those that are there are kept.
constexpr uint64_t kMostCellsPerMember = 4;

}  // namespace

struct JsonTableView::Table {
    struct Entry {
        int32_t column;
        int32_t node;
    };

    Table(const JsonDocument* source, int32_t shown, std::wstring_view missing,
          bool firstRecordOnly)
        : missingText(missing), columns(source) {
        if (source == nullptr || shown < 0) {
            return;
        }
        document = source;
        switch (Node(shown).kind) {
            case JsonKind::Array:
                mode = Mode::Records;
                ListRows(shown);
                FindColumns(firstRecordOnly);
                FillCells();
                break;
            case JsonKind::Object:
                mode = Mode::Members;
                names = {L"Attribute", L"Value"};
                ListRows(shown);
                break;
            default:
                mode = Mode::Single;
                names = {L"Value"};
                rows.push_back(shown);
        }
    }

    const JsonNode& Node(int32_t node) const { return document->nodes[static_cast<size_t>(node)]; }

    void ListRows(int32_t parent) {
        rows.reserve(Node(parent).childCount);
        for (int32_t row = Node(parent).firstChild; row >= 0; row = Node(row).nextSibling) {
            rows.push_back(row);
        }
    }

    void FindColumns(bool firstRecordOnly) {
        bool isLooking = true;
        for (const int32_t row : rows) {
            const JsonNode& record = Node(row);
            if (record.kind != JsonKind::Object) {
                continue;
            }
            members += record.childCount;
            int32_t guess = 0;
            for (int32_t at = isLooking ? record.firstChild : -1; at >= 0;
                 at = Node(at).nextSibling) {
                guess = columns.FindOrAdd(at, guess) + 1;
            }
            isLooking = isLooking && !firstRecordOnly;
        }
        if (columns.Size() == 0) {
            mode = Mode::Single;
            names = {L"Element"};
        }
    }

    void FillCells() {
        const uint64_t all = uint64_t{rows.size()} * static_cast<uint64_t>(columns.Size());
        if (columns.Size() == 0) {
            return;
        }
        if (all > kMostCellsPerMember * members) {
            FillSparse();
            return;
        }
        cells.assign(static_cast<size_t>(all), -1);
        int32_t* cellsOfRow = cells.data();
        for (const int32_t row : rows) {
            ForEachCell(row, [cellsOfRow](int32_t column, int32_t node) {
                int32_t& cell = cellsOfRow[column];
                cell = cell < 0 ? node : cell;
            });
            cellsOfRow += columns.Size();
        }
    }

    void FillSparse() {
        entryStarts.reserve(rows.size() + 1);
        entryStarts.push_back(0);
        for (const int32_t row : rows) {
            const auto first = static_cast<ptrdiff_t>(entries.size());
            ForEachCell(row, [this](int32_t column, int32_t node) {
                entries.push_back({column, node});
            });
            // Nodes rise in document order: the first of a repeated key comes first.
            std::sort(entries.begin() + first, entries.end(), [](const Entry& a, const Entry& b) {
                return a.column != b.column ? a.column < b.column : a.node < b.node;
            });
            entryStarts.push_back(entries.size());
        }
    }

    template <typename Visit>
    void ForEachCell(int32_t row, Visit visit) {
        if (Node(row).kind != JsonKind::Object) {
            return;
        }
        int32_t guess = 0;
        for (int32_t at = Node(row).firstChild; at >= 0; at = Node(at).nextSibling) {
            const int32_t column = columns.Find(at, guess);
            if (column >= 0) {
                visit(column, at);
                guess = column + 1;
            }
        }
    }

    int32_t ColumnCount() const {
        return names.empty() ? columns.Size() : static_cast<int32_t>(names.size());
    }

    /// Both numbered from 0, the header not counted, and inside the table.
    int32_t Cell(size_t row, int32_t column) const {
        if (mode != Mode::Records) {
            return mode == Mode::Members && column == 0 ? -1 : rows[row];
        }
        if (entryStarts.empty()) {
            return cells[row * static_cast<size_t>(columns.Size()) + static_cast<size_t>(column)];
        }
        const auto first = entries.begin() + static_cast<ptrdiff_t>(entryStarts[row]);
        const auto last = entries.begin() + static_cast<ptrdiff_t>(entryStarts[row + 1]);
        const auto found = std::lower_bound(
            first, last, column,
            [](const Entry& entry, int32_t wanted) { return entry.column < wanted; });
        return found != last && found->column == column ? found->node : -1;
    }

    const JsonDocument* document = nullptr;
    Mode mode = Mode::Empty;
    std::wstring missingText;
    std::vector<std::wstring_view> names;  // where they are fixed
    std::vector<int32_t> rows;
    JsonColumns columns;  // where they are found
    uint64_t members = 0;
    std::vector<int32_t> cells;  // row by row; or, where most would be missing,
    std::vector<size_t> entryStarts;
    std::vector<Entry> entries;
};

JsonTableView::JsonTableView(const JsonDocument* document, int32_t node,
                             std::wstring_view missingText, bool firstRecordOnly)
    : document_(document),
      table_(std::make_unique<Table>(document, node, missingText, firstRecordOnly)) {}

JsonTableView::~JsonTableView() = default;

int32_t JsonTableView::RowCount() const {
    return static_cast<int32_t>(table_->rows.size()) + 1;
}

int32_t JsonTableView::ColumnCount() const {
    return table_->ColumnCount();
}

std::wstring JsonTableView::CellText(int32_t row, int32_t column) const {
    std::wstring cell;
    ReadCell(row, column, cell);
    return cell;
}

void JsonTableView::ReadCell(int32_t row, int32_t column, std::wstring& out) const {
    out.clear();
    if (row < 0 || row >= RowCount() || column < 0 || column >= ColumnCount()) {
        return;
    }
    if (row == 0) {
        if (table_->names.empty()) {
            document_->ReadKey(table_->columns.KeyNode(column), out);
        } else {
            out = table_->names[static_cast<size_t>(column)];
        }
    } else if (table_->mode == Mode::Members && column == 0) {
        document_->ReadKey(RowNode(row), out);
    } else if (const int32_t node = CellNode(row, column); node >= 0) {
        document_->ReadDisplay(node, out);
    } else {
        out = table_->missingText;
    }
}

bool JsonTableView::IsCommentRow(int32_t) const {
    return false;
}

bool JsonTableView::IsCellEditable(int32_t row, int32_t column) const {
    const int32_t node = CellNode(row, column);
    return node >= 0 && !table_->Node(node).IsContainer();
}

int32_t JsonTableView::CellNode(int32_t row, int32_t column) const {
    if (row < 1 || row >= RowCount() || column < 0 || column >= ColumnCount()) {
        return -1;
    }
    return table_->Cell(static_cast<size_t>(row) - 1, column);
}

int32_t JsonTableView::RowNode(int32_t row) const {
    return row < 1 || row >= RowCount() ? -1 : table_->rows[static_cast<size_t>(row) - 1];
}

}  // namespace rl
