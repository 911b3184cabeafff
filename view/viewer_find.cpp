// The host's search, applied to the grid.
#include "view/viewer.h"

#include "host/lister_api.h"

namespace rl {

namespace {

/// The grid's cells without its line numbers: what a search visits.
class GridCells final : public ICellSource {
public:
    explicit GridCells(const RowView& rows) : rows_(rows) {}

    [[nodiscard]] int32_t RowCount() const override { return rows_.VisibleRowCount(); }
    [[nodiscard]] int32_t ColumnCount() const override { return rows_.Model().ColumnCount(); }
    [[nodiscard]] std::wstring CellText(int32_t row, int32_t column) const override {
        return rows_.CellText(row, column);
    }

private:
    const RowView& rows_;
};

}  // namespace

bool Viewer::Find(std::wstring_view text, int flags) {
    if (!loaded_ || document_.rows == nullptr) {
        return false;
    }
    const FindRequest request{.text = text,
                              .first = (flags & lister::kFindFirst) != 0,
                              .matchCase = (flags & lister::kMatchCase) != 0,
                              .wholeWords = (flags & lister::kWholeWords) != 0,
                              .backwards = (flags & lister::kBackwards) != 0};
    const FindAnswer answer = finder_.Find(GridCells(*document_.rows), request);
    if (answer.outcome == FindOutcome::AtEnd) {
        MessageBeep(MB_OK);
    }
    if (answer.outcome != FindOutcome::Hit) {
        return false;
    }
    SwitchTab(ViewerTab::Data);
    grid_.GoTo({answer.row, grid_.GridColumnOf(answer.column)});
    UpdateStatusBar();
    SetFocus(grid_.Window());
    return true;
}

}  // namespace rl
