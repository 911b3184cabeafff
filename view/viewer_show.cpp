// What is on view: the current tab, the current cell's text, the status bar.
#include "view/viewer.h"

#include "host/store/settings.h"
#include "view/control.h"
#include "view/open_link.h"

namespace rl {

void Viewer::SwitchTab(ViewerTab tab) {
    if (!loaded_ || tab == tab_) {
        return;
    }
    tab_ = tab;
    tabs_.Select(tab);
    Relayout();
    FocusContent();
}

void Viewer::FocusContent() {
    SetFocus(tab_ == ViewerTab::Source ? source_.Window() : grid_.Window());
}

void Viewer::UpdateValuePane() {
    if (!loaded_ || !settings_.valuePane) {
        return;
    }
    const GridCell cell = grid_.Current();
    pane_.Show(cell.IsCell() ? grid_.CellText(cell.viewRow, cell.gridColumn) : std::wstring());
}

void Viewer::UpdateStatusBar() {
    status_.Update(ComposeStatus(DescribeStatus()), dpi_);
}

StatusState Viewer::DescribeStatus() const {
    if (!loaded_ || document_.rows == nullptr) {
        return {};
    }
    const CsvModel& csv = *document_.csv;
    const GridCell cell = grid_.Current();
    StatusState state;
    state.kind = StatusKind::Csv;
    state.encodingName = document_.encoding.name;
    state.editMode = editMode_;
    state.modified = csv.IsModified();
    state.visibleRows = document_.rows->VisibleRowCount();
    state.totalRows = TotalDataRows(csv.RowCount(), document_.rows->HasHeaderRow());
    state.focusedRow = cell.viewRow;
    state.focusedColumn = cell.gridColumn;
    state.delimiter = csv.Delimiter();
    state.delimiterIsAuto = document_.delimiterDetected;
    state.commentMode = csv.Options().commentMode;
    state.commentLines = csv.HiddenCommentCount();
    return state;
}

Grid::Style Viewer::GridStyle() const {
    return {.lineNumbers = settings_.lineNumbers,
            .decimalAlign = settings_.decimalAlign,
            .maxColumnWidth = settings::Get(settings::kMaxColumnWidth),
            .maxColumnSamples = settings::Get(settings::kMaxColumnSamples)};
}

void Viewer::OnCurrentCellChanged() {
    UpdateValuePane();
    UpdateStatusBar();
}

void Viewer::OnCellClicked(GridClick click, GridCell cell) {
    if (click == GridClick::Single && IsKeyDown(VK_MENU)) {
        OpenLinkIn(window_, grid_.CellText(cell.viewRow, cell.gridColumn));
    }
}

void Viewer::OnColumnsMoved() {
    LayoutFilterRow();
}

void Viewer::OnFontStep(int direction) {
    SetFontSize(settings_.font.points + direction);
}

}  // namespace rl
