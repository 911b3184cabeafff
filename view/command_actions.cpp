// One function for each command.
#include <array>

#include "host/store/settings.h"
#include "view/clipboard.h"
#include "view/font_dialog.h"
#include "view/logic/copy_text.h"
#include "view/viewer.h"

namespace rl {

// One of many themes, delimiters, encodings has no row of its own.
bool Viewer::RunCommand(UINT id) {
    struct Route {
        Command command;
        void (Viewer::*run)(Command);
    };
    static constexpr Route kRoutes[] = {
        {Command::CopyCell, &Viewer::OnCopyCell},
        {Command::CopyRows, &Viewer::OnCopyRows},
        {Command::CopyColumn, &Viewer::OnCopyColumn},
        {Command::HideColumn, &Viewer::OnHideColumn},
        {Command::ShowAllColumns, &Viewer::OnShowAllColumns},
        {Command::ToggleFilters, &Viewer::OnToggleFilters},
        {Command::ToggleHeaderRow, &Viewer::OnToggleHeaderRow},
        {Command::ToggleLineNumbers, &Viewer::OnToggleLineNumbers},
        {Command::ToggleValuePane, &Viewer::OnToggleValuePane},
        {Command::ToggleOutline, &Viewer::OnToggleOutline},
        {Command::ExpandNode, &Viewer::OnExpandNode},
        {Command::ExpandAll, &Viewer::OnExpandAll},
        {Command::CollapseAll, &Viewer::OnCollapseAll},
        {Command::CopyAsJson, &Viewer::OnCopyNodes},
        {Command::CopyAsXml, &Viewer::OnCopyNodes},
        {Command::CopyPath, &Viewer::OnCopyNodes},
        {Command::ToggleEdit, &Viewer::OnToggleEdit},
        {Command::Save, &Viewer::OnSave},
        {Command::InsertRow, &Viewer::InsertRowBelow},
        {Command::DeleteRows, &Viewer::DeleteSelectedRows},
        {Command::DeleteColumn, &Viewer::DeleteCurrentColumn},
        {Command::ChooseFont, &Viewer::OnChooseFont},
        {Command::ChooseSourceFont, &Viewer::OnChooseFont},
        {Command::LocateInSource, &Viewer::OnLocateInSource},
    };
    const CommandInfo* info = FindCommand(id);
    if (!loaded_ || info == nullptr) {
        return false;
    }
    if (!EndCellEdit(true)) {
        return true;
    }
    for (const Route& route : kRoutes) {
        if (route.command == info->id) {
            (this->*route.run)(info->id);
            return true;
        }
    }
    if (const int theme = ThemeIndexOf(info->id); theme >= 0) {
        ChooseTheme(theme);
    } else if (DelimiterOf(info->id) != nullptr || CommentModeOf(info->id) != nullptr ||
               !EncodingOf(info->id).empty()) {
        ReloadAs(info->id);
    }
    return true;
}

void Viewer::OnCopyCell(Command) {
    const GridCell cell = grid_.Current();
    SetClipboardText(window_, FullCellText(cell));
}

// Where there is nothing to copy, the clipboard keeps what it has.
void Viewer::OnCopyRows(Command) {
    const std::wstring separator = ValueSeparator(settings::Get(settings::kColumnDelimiter));
    const std::vector<int> rows = RowsToCopy(grid_.SelectedRows(), grid_.Current().viewRow,
                                             grid_.FocusedRow(), grid_.RowCount());
    if (!rows.empty()) {
        SetClipboardText(window_, RowsAsText(*document_.rows, grid_.Columns(), rows, separator));
    }
}

void Viewer::OnCopyColumn(Command) {
    const std::wstring separator = ValueSeparator(settings::Get(settings::kColumnDelimiter));
    const int column = grid_.DataColumn(grid_.Current().gridColumn);
    if (column >= 0) {
        SetClipboardText(window_, ColumnAsText(*document_.rows, column, separator));
    }
}

void Viewer::CopyByKey(bool ctrl, bool shift) {
    const auto selected = SendMessageW(grid_.Window(), LVM_GETSELECTEDCOUNT, 0, 0);
    switch (PlanCopyKey(ctrl, shift, settings::IsOn(settings::kCopyColumn),
                        static_cast<int>(selected))) {
        case CopyKind::Cell: OnCopyCell(Command::CopyCell); break;
        case CopyKind::Rows: OnCopyRows(Command::CopyRows); break;
        case CopyKind::Column: OnCopyColumn(Command::CopyColumn); break;
    }
}

void Viewer::OnHideColumn(Command) {
    grid_.HideColumn(grid_.Current().gridColumn);
}

void Viewer::OnShowAllColumns(Command) {
    grid_.ShowAllColumns();
}

void Viewer::OnToggleFilters(Command) {
    settings_.filterRow = !settings_.filterRow;
    settings::Set(settings::kFilterRow, settings_.filterRow ? 1 : 0);
    Relayout();
}

void Viewer::OnToggleHeaderRow(Command) {
    if (document_.csv == nullptr) {
        return;  // only delimited text may have one or not
    }
    std::unique_ptr<RowView> rows = MakeRows(*document_.csv, !settings_.headerRow);
    ShowInstead(RememberPlace(), [&] {
        std::swap(document_.rows, rows);
        settings_.headerRow = !settings_.headerRow;
    });
    settings::Set(settings::kHeaderRow, settings_.headerRow ? 1 : 0);
}

// The rows stay as they are filtered and sorted; only columns are numbered anew.
void Viewer::OnToggleLineNumbers(Command) {
    ApplyPendingFilter();
    ShowInstead(RememberPlace(), [&] { settings_.lineNumbers = !settings_.lineNumbers; });
    settings::Set(settings::kShowLineNumbers, settings_.lineNumbers ? 1 : 0);
}

void Viewer::OnToggleValuePane(Command) {
    SetValuePaneShown(!settings_.valuePane);
}

void Viewer::OnToggleEdit(Command) {
    editMode_ = !editMode_;
    UpdateStatusBar();
}

void Viewer::OnSave(Command) {
    if (!asking_) {
        (void)SaveDocument();
    }
}

void Viewer::ChooseTheme(int index) {
    const Theme& theme = BuiltInThemes()[static_cast<size_t>(index)];
    LoadTheme(theme);
    ApplyTheme();
    settings::Set(settings::kTheme,
                  theme.name);  // which may fail: the theme is on view all the same
}

// The dialog pumps messages: the host may close the viewer from inside it.
void Viewer::OnChooseFont(Command command) {
    const FontRole role = command == Command::ChooseSourceFont ? FontRole::Source : FontRole::Grid;
    const std::optional<PickedFont> picked = PickFont(window_, role, settings_.font);
    if (!picked || IsGone()) {
        return;
    }
    if (role == FontRole::Source) {
        settings_.font.sourceFace = picked->face;
        settings::Set(settings::kSourceFont, picked->face);
    } else {
        settings_.font.face = picked->face;
        settings_.font.weight = WeightFromSetting(picked->weightSetting);
        settings::Set(settings::kFont, picked->face);
        settings::Set(settings::kFontWeight, picked->weightSetting);
    }
    settings_.font.points = picked->points;
    settings::Set(settings::kFontSize, picked->points);
    RebuildFonts();
    RefitAfterFonts();
    InvalidateRect(grid_.Window(), nullptr, FALSE);
}

}  // namespace rl
