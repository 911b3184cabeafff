// The context menu and the popups of the status bar.
#include "view/viewer.h"

// Needs the types of windows.h.
#include <commctrl.h>

namespace rl {

void Viewer::BuildMenus() {
    menus_ = {.context = BuildMenu(MenuId::Context),
              .encoding = BuildMenu(MenuId::Encoding),
              .delimiter = BuildMenu(MenuId::Delimiter),
              .comments = BuildMenu(MenuId::Comments)};
}

HMENU Viewer::MenuOf(MenuId menu) const {
    switch (menu) {
        case MenuId::Context: return menus_.context.Get();
        case MenuId::Encoding: return menus_.encoding.Get();
        case MenuId::Delimiter: return menus_.delimiter.Get();
        case MenuId::Comments: return menus_.comments.Get();
        default: return nullptr;  // submenus live in the context menu
    }
}

CommandState Viewer::DescribeCommands() const {
    CommandState state;
    state.kind = kind_;
    state.editMode = editMode_;
    state.filterRow = settings_.filterRow;
    state.valuePane = settings_.valuePane;
    state.headerRow = settings_.headerRow;
    state.lineNumbers = settings_.lineNumbers;
    state.themeIndex = themeIndex_;
    if (document_.rows == nullptr) {
        return state;
    }
    const GridCell cell = grid_.Current();
    state.visibleRows = document_.rows->VisibleRowCount();
    state.columnCount = document_.rows->Model().ColumnCount();
    state.currentRow = cell.viewRow;
    state.currentDataColumn = grid_.DataColumn(cell.gridColumn);
    state.outlineInGrid = document_.ShowsOutline();
    state.canExpandNode = CurrentOutlineRow().hasChildren;
    state.encodingName = document_.encoding.name;
    if (document_.csv != nullptr) {
        state.delimiter = document_.csv->Delimiter();
        state.delimiterIsAuto = document_.delimiterDetected;
        state.commentMode = document_.csv->Options().commentMode;
    }
    return state;
}

// Everything behind the menu's end is the chosen command's: the viewer may be gone by then.
void Viewer::ShowMenu(MenuId menu, POINT at, UINT flags) {
    RefreshMenu(MenuOf(menu), menu, DescribeCommands());
    const UINT chosen = TrackMenu(MenuOf(menu), at, flags, window_);
    if (chosen != 0 && !IsGone()) {
        RunCommand(chosen);
    }
}

void Viewer::ShowContextMenu() {
    POINT pointer{};
    if (loaded_ && GetCursorPos(&pointer)) {
        ShowMenu(MenuId::Context, pointer, 0);
    }
}

Answer Viewer::OnStatusClick(NMHDR& note) {
    const auto& click = reinterpret_cast<const NMMOUSE&>(note);
    const auto part = static_cast<int>(click.dwItemSpec);
    const MenuId* menu = loaded_ ? StatusPopup(part, kind_) : nullptr;
    if (menu == nullptr) {
        return TRUE;  // or the bar would ask for the context menu after a right click
    }
    RECT bounds{};
    SendMessageW(status_.Window(), SB_GETRECT, click.dwItemSpec, reinterpret_cast<LPARAM>(&bounds));
    POINT corner{bounds.left, bounds.top};
    ClientToScreen(status_.Window(), &corner);
    ShowMenu(*menu, corner, TPM_LEFTALIGN | TPM_BOTTOMALIGN);
    return TRUE;
}

void Viewer::OnHeaderMenu() {
    ShowContextMenu();
}

}  // namespace rl
