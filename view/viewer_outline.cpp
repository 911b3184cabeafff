// The outline of a JSON or XML document in the grid: keys, opening and closing, copying of nodes.
#include <vector>

#include "host/store/settings.h"
#include "view/clipboard.h"
#include "view/control.h"
#include "view/logic/outline_keys.h"
#include "view/logic/row_filter.h"
#include "view/viewer.h"
#include "view/wait_cursor.h"

namespace rl {

namespace {

int AttributeOf(const OutlineRow& row) {
    return row.IsAttribute() ? row.aux : -1;
}

}  // namespace

/// The grid's current row, else the one with the list's focus; -1 without one.
int Viewer::CurrentViewRow() const {
    const int current = grid_.Current().viewRow;
    return current >= 0 ? current : grid_.FocusedRow();
}

/// The record of the current row; an empty one without an outline or a row.
OutlineRow Viewer::CurrentOutlineRow() const {
    return document_.ShowsOutline()
               ? document_.outline->Row(document_.rows->ModelRow(CurrentViewRow()))
               : OutlineRow();
}

bool Viewer::OnOutlineKey(WPARAM key) {
    if (!loaded_ || !document_.ShowsOutline() || editor_.IsOpen() || IsKeyDown(VK_CONTROL)) {
        return false;
    }
    const int viewRow = CurrentViewRow();
    const OutlineRow row = CurrentOutlineRow();
    const OutlineStep step = PlanOutlineKey(static_cast<VirtualKey>(key), IsKeyDown(VK_SHIFT),
                                            {.exists = row.node >= 0,
                                             .hasChildren = row.hasChildren,
                                             .isOpen = row.expanded,
                                             .isLast = viewRow + 1 >= grid_.RowCount()});
    switch (step) {
        case OutlineStep::NotOurs: return false;
        case OutlineStep::Nothing: break;
        case OutlineStep::ToParent: GoToOutlineRow(OutlineParentOf(viewRow)); break;
        case OutlineStep::ToNext: GoToOutlineRow(viewRow + 1); break;
        case OutlineStep::Toggle: ToggleOutlineRow(viewRow); break;
        case OutlineStep::ExpandAll: OnExpandAll(Command::ExpandAll); break;
        case OutlineStep::ExpandSubtree: OnExpandNode(Command::ExpandNode); break;
        case OutlineStep::CollapseAll: OnCollapseAll(Command::CollapseAll); break;
    }
    return true;
}

/// The nearest row above that stands less deep; the row itself when there is none.
int Viewer::OutlineParentOf(int viewRow) const {
    const auto depthOf = [this](int row) {
        return document_.outline->Row(document_.rows->ModelRow(row)).depth;
    };
    const int depth = depthOf(viewRow);
    for (int above = viewRow - 1; above >= 0; --above) {
        if (depthOf(above) < depth) {
            return above;
        }
    }
    return viewRow;
}

/// Keeps the current column; without one it is the first of the data.
void Viewer::GoToOutlineRow(int viewRow) {
    const int column = grid_.Current().gridColumn;
    grid_.GoTo({viewRow, column >= 0 ? column : grid_.GridColumnOf(0)});
}

// Which rows there are has changed: the row at `modelRow` becomes the current one.
void Viewer::OutlineChanged(int modelRow) {
    const RedrawScope still(grid_.Window());
    document_.rows->Rebuild();
    grid_.ClearTypeAhead();
    grid_.RowsChanged(true);
    grid_.SelectOnly(-1);
    GoToOutlineRow(document_.rows->ViewRowOf(modelRow));
    grid_.RecomputeWidths();
    UpdateStatusBar();
    Relayout();
}

void Viewer::ToggleOutlineRow(int viewRow) {
    const int modelRow = document_.rows->ModelRow(viewRow);
    const OutlineRow row = document_.outline->Row(modelRow);
    if (!row.hasChildren || !EndCellEdit(true)) {
        return;
    }
    const WaitCursor waiting;
    if (document_.outline->Toggle(modelRow)) {
        OutlineChanged(document_.outline->RowOf(row.node, AttributeOf(row)));
    }
}

void Viewer::OnExpandNode(Command) {
    const OutlineRow row = CurrentOutlineRow();
    if (row.node < 0 || !EndCellEdit(true)) {
        return;
    }
    const WaitCursor waiting;
    document_.outline->ExpandSubtree(document_.rows->ModelRow(CurrentViewRow()));
    OutlineChanged(document_.outline->RowOf(row.node, AttributeOf(row)));
}

void Viewer::OnExpandAll(Command) {
    const OutlineRow row = CurrentOutlineRow();
    if (!document_.ShowsOutline() || !EndCellEdit(true)) {
        return;
    }
    const WaitCursor waiting;
    document_.outline->ExpandAll();
    OutlineChanged(row.node < 0 ? 0 : document_.outline->RowOf(row.node, AttributeOf(row)));
}

// A node that is no longer listed leaves its place to the root.
void Viewer::OnCollapseAll(Command) {
    const OutlineRow row = CurrentOutlineRow();
    if (!document_.ShowsOutline() || !EndCellEdit(true)) {
        return;
    }
    const WaitCursor waiting;
    document_.outline->CollapseAll();
    const int found = row.node < 0 ? 0 : document_.outline->RowOf(row.node, AttributeOf(row));
    OutlineChanged(found < 0 ? 0 : found);
}

/// Its columns share the width that the grid has by now.
void Viewer::FitOutline() {
    if (document_.ShowsOutline()) {
        grid_.RecomputeWidths();
    }
}

void Viewer::OnExpanderClicked(int viewRow) {
    if (document_.ShowsOutline()) {
        ToggleOutlineRow(viewRow);
    }
}

// The current row stays with its node, where that is still listed.
void Viewer::FilterOutline(int column, const std::wstring& text) {
    const bool caseSensitive = settings::IsOn(settings::kFilterCaseSensitive);
    const OutlineRow row = CurrentOutlineRow();
    document_.outline->SetFilter(
        column, text,
        [filter = CompileFilter(text, caseSensitive), caseSensitive](std::wstring& shown) {
            return MatchesFilter(filter, shown, caseSensitive);
        });
    OutlineChanged(document_.outline->RowOf(row.node, AttributeOf(row)));
}

/// Before a fresh search: all that it can find is listed.
void Viewer::RevealMatches(std::wstring_view text) {
    const WaitCursor waiting;
    const OutlineRow row = CurrentOutlineRow();
    document_.outline->RevealMatches(text);
    OutlineChanged(document_.outline->RowOf(row.node, AttributeOf(row)));
}

// Where there is nothing to copy, or too much, the clipboard keeps what it has.
void Viewer::OnCopyNodes(Command command) {
    if (!document_.ShowsOutline()) {
        return;
    }
    std::vector<int> selected = grid_.SelectedRows();
    if (selected.empty()) {
        selected.push_back(CurrentViewRow());
    }
    std::vector<int32_t> rows;
    for (const int viewRow : selected) {
        if (const int row = document_.rows->ModelRow(viewRow); row >= 0) {
            rows.push_back(row);
        }
    }
    const CopyFormat format = command == Command::CopyAsJson  ? CopyFormat::Json
                              : command == Command::CopyAsXml ? CopyFormat::Xml
                                                              : CopyFormat::Path;
    const WaitCursor waiting;
    const std::optional<std::wstring> text = NodeTextsAs(*document_.outline, rows, format);
    if (text && !text->empty()) {
        SetClipboardText(window_, *text);
    } else {
        MessageBeep(MB_ICONWARNING);
    }
}

}  // namespace rl
