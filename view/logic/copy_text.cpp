#include "view/logic/copy_text.h"

namespace rl {

CopyKind PlanCopyKey(bool ctrl, bool shift, bool copyColumn, int32_t selectedRows) {
    if (shift) {
        return CopyKind::Rows;
    }
    if (ctrl) {
        return CopyKind::Column;
    }
    return copyColumn && selectedRows > 1 ? CopyKind::Rows : CopyKind::Cell;
}

std::vector<int32_t> RowsToCopy(std::vector<int32_t> selected, int32_t current, int32_t focused,
                                int32_t rowCount) {
    if (selected.empty()) {
        const int32_t row = current >= 0 ? current : focused;
        if (row >= 0 && row < rowCount) {
            selected.push_back(row);
        }
    }
    return selected;
}

std::wstring ValueSeparator(std::wstring_view setting) {
    return setting.empty() || setting == L"\\t" ? std::wstring(L"\t") : std::wstring(setting);
}

std::wstring RowsAsText(const RowView& rows, const GridColumns& columns,
                        std::span<const int32_t> viewRows, std::wstring_view separator) {
    std::wstring text;
    bool isFirstRow = true;
    for (const int32_t viewRow : viewRows) {
        if (rows.ModelRow(viewRow) < 0) {
            continue;
        }
        text.append(isFirstRow ? L"" : L"\r\n");
        isFirstRow = false;
        bool isFirstCell = true;
        for (int32_t column = 0; column < columns.DataCount(); ++column) {
            if (!columns.IsHidden(column)) {
                text.append(isFirstCell ? std::wstring_view() : separator);
                text.append(rows.Model().FullCellText(rows.ModelRow(viewRow), column));
                isFirstCell = false;
            }
        }
    }
    return text;
}

std::wstring ColumnAsText(const RowView& rows, int32_t dataColumn, std::wstring_view separator) {
    std::wstring text;
    if (dataColumn < 0 || dataColumn >= rows.Model().ColumnCount()) {
        return text;
    }
    for (int32_t viewRow = 0; viewRow < rows.VisibleRowCount(); ++viewRow) {
        text.append(viewRow == 0 ? std::wstring_view() : separator);
        text.append(rows.Model().FullCellText(rows.ModelRow(viewRow), dataColumn));
    }
    return text;
}

}  // namespace rl
