// What is on view: the current tab, the current cell's text, the status bar.
#include "view/viewer.h"

#include <exception>

#include "host/store/settings.h"
#include "view/control.h"
#include "view/open_link.h"

namespace rl {

namespace {

void DescribeDelimited(const CsvModel& csv, const Document& document, StatusState& state) {
    state.kind = StatusKind::Csv;
    state.totalRows = TotalDataRows(csv.RowCount(), document.rows->HasHeaderRow());
    state.delimiter = csv.Delimiter();
    state.delimiterIsAuto = document.delimiterDetected;
    state.commentMode = csv.Options().commentMode;
    state.commentLines = csv.HiddenCommentCount();
}

void DescribeOutline(const Document& document, StatusState& state) {
    const TreeTableView& outline = *document.outline;
    state.kind = StatusKind::Outline;
    state.totalRows = outline.NodeCount();
    state.isXml = document.xml != nullptr;
    state.isJsonLines = document.json != nullptr && document.json->lines;
    state.isMalformed = document.xml != nullptr && document.xml->malformed;
    state.isCapped = outline.IsCapped();
    state.recordCount = document.Records().size;
    const int row = document.rows->ModelRow(state.focusedRow);
    if (row >= 0) {
        state.nodeName = outline.CellText(row, 0);
    }
}

/// The table of one node, its header row left out of the counts.
void DescribeTable(const Document& document, StatusState& state) {
    state.totalRows = document.rows->Model().RowCount() - 1;
    if (document.json != nullptr) {
        state.kind = StatusKind::Json;
        state.isJsonLines = document.json->lines;
        state.isMalformed = document.json->salvaged;
        state.nodeName = document.json->TypeName(document.tableNode);
    } else {
        state.kind = StatusKind::Xml;
        state.isMalformed = document.xml->malformed;
        state.isKeyValue = document.xmlTable->IsKeyValue();
        state.nodeName = document.xml->NodeName(document.tableNode);
    }
}

}  // namespace

void Viewer::SwitchTab(ViewerTab tab) {
    if (!loaded_ || tab == tab_) {
        return;
    }
    if (!EndCellEdit(true)) {
        tabs_.Select(tab_);
        return;
    }
    tab_ = tab;
    tabs_.Select(tab);
    if (tab == ViewerTab::Source) {
        FillSourceView();
    }
    Relayout();
    FocusContent();
}

void Viewer::FocusContent() {
    if (editor_.IsOpen()) {
        SetFocus(editor_.Window());
        return;
    }
    const bool toSource = tab_ == ViewerTab::Source && source_.Window() != nullptr;
    SetFocus(toSource ? source_.Window() : grid_.Window());
}

/// A cell's text; in an outline, which shows values on one line, the value as it is.
std::wstring Viewer::FullCellText(GridCell cell) const {
    const int modelRow = document_.rows->ModelRow(cell.viewRow);
    const int column = grid_.DataColumn(cell.gridColumn);
    return modelRow >= 0 && column >= 0 ? document_.rows->Model().FullCellText(modelRow, column)
                                        : grid_.CellText(cell.viewRow, cell.gridColumn);
}

// Whatever has changed has changed, told or not: no edit may stop half way because memory ends over
// telling of it. A moment later there may be enough again.
void Viewer::UpdateValuePane() {
    try {
        ShowValue();
    } catch (const std::exception&) {
        PostMessageW(window_, kTellAgain, 0, 0);
    }
}

void Viewer::UpdateStatusBar() {
    try {
        ShowStatus();
    } catch (const std::exception&) {
        PostMessageW(window_, kTellAgain, 0, 0);
    }
}

Answer Viewer::OnTellAgain() {
    ShowValue();
    ShowStatus();
    return 0;
}

void Viewer::ShowValue() {
    if (!loaded_ || !settings_.valuePane) {
        return;
    }
    const GridCell cell = grid_.Current();
    pane_.Show(cell.IsCell() ? FullCellText(cell) : std::wstring());
}

void Viewer::ShowStatus() {
    status_.Update(ComposeStatus(DescribeStatus()), dpi_);
}

StatusState Viewer::DescribeStatus() const {
    if (!loaded_ || document_.rows == nullptr) {
        return {};
    }
    const GridCell cell = grid_.Current();
    StatusState state;
    state.encodingName = document_.encoding.name;
    state.editMode = editMode_;
    state.modified = document_.IsModified();
    state.visibleRows = document_.rows->VisibleRowCount();
    state.focusedRow = cell.viewRow;
    state.focusedColumn = cell.gridColumn;
    if (document_.csv != nullptr) {
        DescribeDelimited(*document_.csv, document_, state);
    } else if (document_.outline != nullptr) {
        DescribeOutline(document_, state);
    } else {
        DescribeTable(document_, state);
    }
    return state;
}

Grid::Style Viewer::GridStyle() const {
    return {.lineNumbers = settings_.lineNumbers,
            .decimalAlign = settings_.decimalAlign,
            .maxColumnWidth = settings::Get(settings::kMaxColumnWidth),
            .maxColumnSamples = settings::Get(settings::kMaxColumnSamples),
            .outline = document_.ShowsOutline() ? document_.outline.get() : nullptr};
}

void Viewer::OnCurrentCellChanged() {
    UpdateValuePane();
    UpdateStatusBar();
}

bool Viewer::OnCellPressed(GridClick, GridCell) {
    return !EndCellEdit(true);
}

/// In an outline, unless the double click begins to edit a value.
bool Viewer::TogglesByDoubleClick(GridCell cell) const {
    if (!document_.ShowsOutline()) {
        return false;
    }
    const int column = grid_.DataColumn(cell.gridColumn);
    const bool beginsEdit =
        editMode_ && column != 0 &&
        document_.outline->IsCellEditable(document_.rows->ModelRow(cell.viewRow), column);
    return !beginsEdit;
}

void Viewer::OnCellClicked(GridClick click, GridCell cell) {
    if (click == GridClick::Double && TogglesByDoubleClick(cell)) {
        ToggleOutlineRow(cell.viewRow);
    } else if (click == GridClick::Double) {
        BeginCellEdit(cell);
    } else if (click == GridClick::Single && IsKeyDown(VK_MENU)) {
        OpenLinkIn(window_, grid_.CellText(cell.viewRow, cell.gridColumn));
    }
}

void Viewer::OnColumnsMoved() {
    PlaceEditor();
    LayoutFilterRow();
}

void Viewer::OnFontStep(int direction) {
    if (!EndCellEdit(true)) {
        return;
    }
    SetFontSize(settings_.font.points + direction);
}

}  // namespace rl
