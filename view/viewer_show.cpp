// What is on view: the current tab, the current cell's text, the status bar.
#include "host/store/settings.h"
#include "view/control.h"
#include "view/viewer.h"

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
    StatusTexts texts;
    texts[0] = L" Loading...";
    if (loaded_) {
        texts[0] = L" " + document_.encoding.name;
    }
    status_.Update(texts, dpi_);
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

void Viewer::OnColumnsMoved() {}

void Viewer::OnFontStep(int direction) {
    SetFontSize(settings_.font.points + direction);
}

}  // namespace rl
