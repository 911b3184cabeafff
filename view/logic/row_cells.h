// The cells that a search visits: those of a row view, as the grid shows them, without line
// numbers.
#pragma once

#include <memory>

#include "view/logic/find_text.h"
#include "view/logic/record_probe.h"
#include "view/logic/row_view.h"

namespace rl {

/// The view must outlive it and stay as it is.
class RowCells final : public ICellSource {
public:
    explicit RowCells(const RowView& rows) : rows_(rows) {}

    [[nodiscard]] int32_t RowCount() const override { return rows_.VisibleRowCount(); }
    [[nodiscard]] int32_t ColumnCount() const override { return rows_.Model().ColumnCount(); }
    [[nodiscard]] std::wstring CellText(int32_t row, int32_t column) const override {
        return rows_.CellText(row, column);
    }
    void ReadCell(int32_t row, int32_t column, std::wstring& out) const override {
        rows_.Model().ReadCell(rows_.ModelRow(row), column, out);
    }
    [[nodiscard]] std::function<bool(int32_t row)> MakeProbe(std::wstring_view wanted,
                                                             bool matchCase) const override {
        auto probe = std::make_shared<RecordProbe>(rows_.Model(), wanted, matchCase);
        if (!probe->IsUseful()) {
            return {};
        }
        return [this, probe](int32_t row) { return probe->MayHold(rows_.ModelRow(row)); };
    }

private:
    const RowView& rows_;
};

}  // namespace rl
