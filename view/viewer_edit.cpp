// Edit mode: the editor over a cell, rows and columns that come and go.
#include <algorithm>
#include <utility>

#include "view/control.h"
#include "view/flag_scope.h"
#include "view/logic/cell_plan.h"
#include "view/logic/edit_rules.h"
#include "view/viewer.h"
#include "view/wait_cursor.h"

namespace rl {

void Viewer::BeginCellEdit(GridCell cell) {
    if (document_.rows == nullptr || !EndCellEdit(true)) {
        return;
    }
    if (pendingFilter_ >= 0) {
        ApplyPendingFilter();  // the row at that place is another one then
        return;
    }
    const ITableModel& model = document_.rows->Model();
    const int modelRow = document_.rows->ModelRow(cell.viewRow);
    const int column = grid_.DataColumn(cell.gridColumn);
    // A hidden column has no place to edit in.
    const bool isCell = modelRow >= 0 && column >= 0 && column < model.ColumnCount() &&
                        grid_.ColumnWidth(cell.gridColumn) > 0;
    switch (PlanEditStart({.kind = kind_,
                           .editMode = editMode_,
                           .isCell = isCell,
                           .isEditable = isCell && model.IsCellEditable(modelRow, column)})) {
        case EditStart::Refuse: MessageBeep(MB_ICONEXCLAMATION); return;
        case EditStart::RefuseSilently: return;
        case EditStart::Open: break;
    }
    grid_.BringIntoView(cell);
    EditedCell edited{.viewRow = cell.viewRow,
                      .dataColumn = column,
                      .value = document_.ValueOf(modelRow, column)};
    const CellEditor::Look look{.font = fonts_.normal.Get(),
                                .back = colors_.back,
                                .frame = colors_.accent,
                                .gridLine = grid_.HasGridLines() ? kGridLine : 0};
    if (editor_.Open(grid_.Window(), grid_.CellBounds(cell), edited.value, look, *this)) {
        edited_ = std::move(edited);
    }
    UpdateStatusBar();
}

/// True when no editor is open any more.
bool Viewer::EndCellEdit(bool commit) {
    std::wstring reason;
    if (EndCellEdit(commit, true, reason)) {
        return true;
    }
    if (!endingEdit_) {
        SetFocus(editor_.Window());
        editor_.ShowReason(reason);
    }
    return false;
}

// A rejected text beeps here, once, and stays as it was typed.
bool Viewer::EndCellEdit(bool commit, bool takeFocus, std::wstring& reason) {
    if (!editor_.IsOpen() || endingEdit_) {
        return !editor_.IsOpen();
    }
    const FlagScope guard(endingEdit_);
    if (commit && !StoreTyped(reason)) {
        MessageBeep(MB_ICONEXCLAMATION);
        return false;
    }
    editor_.Close();
    edited_ = {};
    if (takeFocus) {
        SetFocus(grid_.Window());
    }
    UpdateStatusBar();
    return true;
}

/// For what cannot be put off: a text that is not taken is given up.
void Viewer::CloseCellEdit() {
    if (!EndCellEdit(true)) {
        EndCellEdit(false);
    }
}

bool Viewer::StoreTyped(std::wstring& reason) {
    const std::wstring typed = editor_.Text();
    switch (PlanEditEnd({.value = edited_.value, .opened = editor_.OpenedText(), .typed = typed})) {
        case EditEnd::Cancel: return true;
        case EditEnd::Refuse: reason = RefusedEditReason(edited_.value); return false;
        case EditEnd::Store: break;
    }
    const int modelRow = document_.rows->ModelRow(edited_.viewRow);
    if (modelRow < 0 || !document_.SetValue(modelRow, edited_.dataColumn, typed, reason)) {
        return false;
    }
    grid_.TextsChanged();
    UpdateValuePane();
    RefreshSource();
    return true;
}

// The focus is on its way elsewhere. Within the viewer it comes back to a text that was not taken;
// other windows keep it.
void Viewer::OnEditorLeft(EditorLeft how, HWND focus) {
    if (how != EditorLeft::ByFocus) {
        EndCellEdit(how == EditorLeft::ByEnter);
        return;
    }
    std::wstring reason;
    const bool wasEnding = endingEdit_;
    if (!EndCellEdit(true, false, reason) && !wasEnding && IsChild(window_, focus)) {
        editor_.ReturnWithReason(reason);
    }
}

// These lead out of the editor and so are not its own; all other keys are.
bool Viewer::OnEditorCtrlKey(WPARAM key) {
    const bool leads = key == 'S' || key == 'E' || key == 'R' || key == VK_TAB;
    const KeyPress press{.key = static_cast<VirtualKey>(key), .ctrl = true};
    const KeyBinding* binding =
        leads ? FindKey(press, KeyFocus::Viewer, DescribeCommands()) : nullptr;
    return binding != nullptr && RunKey(*binding, press);
}

/// Whether the editor's text keeps a click or a turn of the wheel from the grid. Asked before the
/// grid takes the focus.
bool Viewer::KeepsGridFrom(const Message& in) {
    switch (in.id) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
        case WM_MBUTTONDOWN:
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
        case WM_VSCROLL:
        case WM_HSCROLL: return !EndCellEdit(true);
        case WM_RBUTTONUP: return true;  // of a press that was kept away
        default: return false;
    }
}

Answer Viewer::OnEditorColors(const Message& in) {
    if (reinterpret_cast<HWND>(in.lparam) != editor_.Window() || !brushes_.back) {
        return std::nullopt;
    }
    const auto dc = reinterpret_cast<HDC>(in.wparam);
    SetTextColor(dc, colors_.text);
    SetBkColor(dc, colors_.back);
    return reinterpret_cast<LRESULT>(brushes_.back.Get());
}

/// Keeps the editor over its cell when columns move; a hidden column ends it.
void Viewer::PlaceEditor() {
    if (!editor_.IsOpen() || endingEdit_) {
        return;
    }
    const RECT place = grid_.CellBounds({edited_.viewRow, grid_.GridColumnOf(edited_.dataColumn)});
    editor_.MoveTo(place);
    if (place.right <= place.left) {
        CloseCellEdit();
    }
}

/// Rows came or went, in the model and in the view. The grid knows it first: what follows may run
/// out of memory.
void Viewer::RefreshRows() {
    grid_.ClearTypeAhead();
    grid_.SelectOnly(-1);
    grid_.RowsChanged(true);
    RefreshSource();
    grid_.SetCurrent({-1, grid_.Current().gridColumn});
}

// The new row stays below the current one until filters or sort are applied again: it is empty and
// would stand, or vanish, elsewhere before it is filled.
void Viewer::InsertRowBelow(Command) {
    const GridCell cell = grid_.Current();
    CsvModel* const csv = document_.csv.get();
    const int modelRow = csv != nullptr ? document_.rows->ModelRow(cell.viewRow) : -1;
    if (!MayChangeRows(kind_, editMode_) || modelRow < 0) {
        return;
    }
    document_.rows->MakeRoom();
    if (!csv->InsertRowBelow(modelRow)) {
        return;
    }
    document_.rows->RowInserted(cell.viewRow);
    const RedrawScope still(grid_.Window());
    RefreshRows();
    grid_.GoTo({cell.viewRow + 1, std::max(cell.gridColumn, grid_.GridColumnOf(0))});
    UpdateValuePane();
    UpdateStatusBar();
}

void Viewer::DeleteSelectedRows(Command) {
    const std::vector<int> selected = grid_.SelectedRows();
    if (!MayChangeRows(kind_, editMode_) || document_.csv == nullptr || selected.empty()) {
        return;
    }
    std::vector<int32_t> modelRows;
    modelRows.reserve(selected.size());
    for (const int viewRow : selected) {
        modelRows.push_back(document_.rows->ModelRow(viewRow));
    }
    std::ranges::sort(modelRows);
    if (!document_.csv->DeleteRows(modelRows)) {
        return;
    }
    document_.rows->RowsDeleted(modelRows);
    const int column = grid_.Current().gridColumn;
    const RedrawScope still(grid_.Window());
    RefreshRows();
    grid_.GoTo({RowAfterDeletion(selected.front(), grid_.RowCount()), column});
    UpdateValuePane();
    UpdateStatusBar();
}

// The question pumps messages: the host may close the viewer from inside it.
void Viewer::DeleteCurrentColumn(Command) {
    const int gridColumn = grid_.Current().gridColumn;
    const int column = grid_.DataColumn(gridColumn);
    if (!MayChangeRows(kind_, editMode_) || document_.csv == nullptr || column < 0 ||
        column >= document_.csv->ColumnCount() ||
        !AskYesNo(window_, DeleteColumnText(grid_.HeaderText(gridColumn)), DefaultButton::No) ||
        IsGone()) {
        return;
    }
    UserPlace place = RememberPlace();
    // Before the column goes: without memory for them nothing has happened.
    std::unique_ptr<RowView> rows = MakeRows(*document_.csv, settings_.headerRow);
    if (!document_.csv->DeleteColumn(column)) {
        return;
    }
    place.dataColumn = std::min(column, document_.csv->ColumnCount() - 1);
    ShowWithoutColumn(column, std::move(rows), place);
}

// What was on view before does not fit any more: where showing the rest fails, nothing is shown.
void Viewer::ShowWithoutColumn(int column, std::unique_ptr<RowView> rows, const UserPlace& place) {
    const RedrawScope still(window_);
    grid_.ForgetColumn(column);
    std::swap(document_.rows, rows);
    try {
        ShowRows(place);
    } catch (const std::exception&) {
        grid_.ShowTable(nullptr, {});
        RefreshSource();
        throw;
    }
    RefreshSource();
}

}  // namespace rl
