// The outline of a JSON or XML document in the grid: keys, opening and closing, copying of nodes.
#include <algorithm>
#include <vector>

#include "host/store/settings.h"
#include "view/clipboard.h"
#include "view/control.h"
#include "view/logic/outline_keys.h"
#include "view/logic/row_filter.h"
#include "view/logic/text_needle.h"
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

/// The row of the node above: an attribute's is its element. The row itself when there is none.
int Viewer::OutlineParentOf(int viewRow) const {
    const OutlineRow row = document_.outline->Row(document_.rows->ModelRow(viewRow));
    const auto node = static_cast<size_t>(row.node);
    const int32_t above = row.IsAttribute()           ? row.node
                          : document_.json != nullptr ? document_.json->nodes[node].parent
                                                      : document_.xml->nodes[node].parent;
    const int found =
        above < 0 ? -1 : document_.rows->ViewRowOf(document_.outline->RowOf(above, -1));
    return found < 0 ? viewRow : found;
}

/// Keeps the current column; without one it is the first of the data.
void Viewer::GoToOutlineRow(int viewRow) {
    const int column = grid_.Current().gridColumn;
    grid_.GoTo({viewRow, column >= 0 ? column : grid_.GridColumnOf(0)});
}

// Which rows there are has changed: the row at `modelRow` becomes the current one, or none.
void Viewer::OutlineChanged(int modelRow) {
    const RedrawScope still(grid_.Window());
    const int top = grid_.TopRow();
    document_.rows->Rebuild();
    grid_.ClearTypeAhead();
    grid_.RowsChanged(true);
    grid_.SelectOnly(-1);
    const int viewRow = document_.rows->ViewRowOf(modelRow);
    GoToOutlineRow(viewRow);
    if (viewRow < 0) {
        grid_.BringIntoView({std::min(top, grid_.RowCount() - 1), -1});
    }
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

/// The node a user has chosen; the list's own focus, which stays where a row was, is no choice.
OutlineRow Viewer::ChosenOutlineRow() const {
    return document_.outline->Row(document_.rows->ModelRow(grid_.Current().viewRow));
}

// The current row stays with its node, where that is still listed.
void Viewer::FilterOutline(int column, const std::wstring& text) {
    const bool caseSensitive = settings::IsOn(settings::kFilterCaseSensitive);
    const OutlineRow row = ChosenOutlineRow();
    const ColumnFilter filter = CompileFilter(text, caseSensitive);
    OutlineSearch search;
    if (const TextNeedle needle(filter.operand, caseSensitive);
        filter.op == 0 && needle.IsUsable()) {
        search = [needle](std::wstring_view in, size_t from) { return needle.FindIn(in, from); };
    }
    document_.outline->SetFilter(
        column, text,
        [filter, caseSensitive](std::wstring& shown) {
            return MatchesFilter(filter, shown, caseSensitive);
        },
        std::move(search));
    OutlineChanged(document_.outline->RowOf(row.node, AttributeOf(row)));
}

/// Before a fresh search: all that it can find is listed.
void Viewer::RevealMatches(std::wstring_view text) {
    const WaitCursor waiting;
    const OutlineRow row = ChosenOutlineRow();
    document_.outline->RevealMatches(text);
    OutlineChanged(document_.outline->RowOf(row.node, AttributeOf(row)));
}

/// Before a search goes on: its last hit may stand in another row by now, or be hidden.
void Viewer::ReturnToHit() {
    const OutlineRow hit = foundRow_;
    if (hit.node < 0) {
        return;
    }
    const int before = document_.outline->RowCount();
    const int row = document_.outline->RevealNode(hit.node, AttributeOf(hit));
    if (document_.outline->RowCount() != before) {
        OutlineChanged(row);
    }
    finder_.MoveHit(document_.rows->ViewRowOf(row));
}

// Too long a text beeps and leaves the clipboard alone.
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
    if (text) {
        SetClipboardText(window_, *text);
    } else {
        MessageBeep(MB_ICONWARNING);
    }
}

}  // namespace rl
