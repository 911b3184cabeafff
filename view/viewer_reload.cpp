// The same document read again: in another encoding, with another delimiter or comment handling.
// And the same model shown again: with or without a header row or line numbers.
#include "view/viewer.h"

// Needs the types of windows.h.
#include <commctrl.h>

#include <optional>

#include "host/store/settings.h"
#include "load/load_options.h"
#include "load/text/messages.h"
#include "view/control.h"
#include "view/wait_cursor.h"

namespace rl {

namespace {

/// Where a row begins in its document's text; nothing for a row that is not there.
std::optional<size_t> RowStart(const CsvModel& model, int row) {
    const std::wstring_view raw = model.RawRow(row);
    return raw.data() != nullptr
               ? std::optional(static_cast<size_t>(raw.data() - model.Text().data()))
               : std::nullopt;
}

/// The row that stands in another reading of the same text where `row` stands in `before`; -1 when
/// it is hidden there.
int SameRow(const CsvModel& before, int row, const CsvModel& after) {
    const std::optional<size_t> start = RowStart(before, row);
    if (!start) {
        return -1;
    }
    int low = 0;
    int high = after.RowCount();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (RowStart(after, middle).value_or(0) < *start) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return RowStart(after, low) == start ? low : -1;
}

}  // namespace

Viewer::UserPlace Viewer::RememberPlace() const {
    const GridCell cell = grid_.Current();
    return {.modelRow = document_.rows->ModelRow(cell.viewRow),
            .dataColumn = grid_.DataColumn(cell.gridColumn),
            .onLineNumbers = grid_.Columns().IsLineNumber(cell.gridColumn),
            .topModelRow = document_.rows->ModelRow(
                static_cast<int>(SendMessageW(grid_.Window(), LVM_GETTOPINDEX, 0, 0)))};
}

void Viewer::ReturnTo(const UserPlace& place) {
    const int top = document_.rows->ViewRowOf(place.topModelRow);
    if (top > 0) {
        // From below, so that the row comes to stand at the top.
        SendMessageW(grid_.Window(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(grid_.RowCount() - 1),
                     FALSE);
        SendMessageW(grid_.Window(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(top), FALSE);
    }
    const GridCell cell{
        .viewRow = document_.rows->ViewRowOf(place.modelRow),
        .gridColumn = place.onLineNumbers ? 0 : grid_.GridColumnOf(place.dataColumn)};
    if (cell.viewRow >= 0) {
        grid_.GoTo(cell);
    } else {
        grid_.SetCurrent({-1, cell.gridColumn});
    }
}

void Viewer::ShowRows(const UserPlace& place) {
    EndCellEdit(false);
    grid_.ShowTable(document_.rows.get(), GridStyle());
    grid_.SetSortMark(grid_.GridColumnOf(document_.rows->SortColumn()),
                      document_.rows->SortDirection());
    RebuildFilterRow();
    Relayout();
    FitOutline();
    ReturnTo(place);
    UpdateValuePane();
    UpdateStatusBar();
}

// What `exchange` takes away stays with the caller, so that a second call brings it back.
void Viewer::ShowInstead(const UserPlace& place, const std::function<void()>& exchange) {
    CloseCellEdit();
    const RedrawScope still(window_);
    const UserPlace before = RememberPlace();
    GridColumns columns = grid_.Columns();
    exchange();
    try {
        ShowRows(place);
    } catch (const std::exception&) {  // no memory: what was on view is there again, then
        exchange();
        grid_.RestoreColumns(std::move(columns));
        ShowRows(before);
        throw;
    }
}

void Viewer::ReplaceRows(std::unique_ptr<RowView> rows) {
    ShowInstead(RememberPlace(), [&] { std::swap(document_.rows, rows); });
}

LoadOptions Viewer::CurrentLoadOptions() const {
    LoadOptions options = CaptureLoadOptions(kind_);
    options.encoding.name = document_.encoding.name;
    options.delimiterDetected = document_.delimiterDetected;
    if (document_.csv != nullptr) {
        options.csv.delimiter = document_.delimiterDetected ? L'\0' : document_.csv->Delimiter();
        options.csv.commentMode = document_.csv->Options().commentMode;
    }
    return options;
}

/// Where the same nodes stand in another reading of the document, when it has as many.
void Viewer::KeepNodes(UserPlace& place, Document& fresh) const {
    const bool isSame =
        (fresh.json != nullptr && fresh.json->nodes.size() == document_.json->nodes.size()) ||
        (fresh.xml != nullptr && fresh.xml->nodes.size() == document_.xml->nodes.size() &&
         fresh.xml->attributes.size() == document_.xml->attributes.size());
    if (fresh.csv != nullptr || !isSame) {
        place = fresh.csv != nullptr ? place : UserPlace();
        return;
    }
    if (fresh.outline == nullptr) {
        MakeTable(fresh, fresh, document_.tableNode);
        return;
    }
    const auto reveal = [&](int modelRow) {
        const OutlineRow row = document_.outline->Row(modelRow);
        return row.node < 0 ? -1
                            : fresh.outline->RevealNode(row.node, row.IsAttribute() ? row.aux : -1);
    };
    (void)reveal(place.topModelRow);
    place.modelRow = reveal(place.modelRow);
    place.topModelRow = reveal(place.topModelRow);  // open by now: only asked for
    fresh.rows->Rebuild();
}

bool Viewer::Reload(const LoadOptions& options) {
    const WaitCursor wait;
    const LoadJob job{.doc = std::make_shared<detail::LoadedDoc>(),
                      .viewerWindow = nullptr,
                      .kind = kind_,
                      .path = path_,
                      .options = options};
    RunLoad(job);
    if (!job.doc->HasModel()) {
        return false;
    }
    Document fresh = DocumentOf(*job.doc, options.delimiterDetected);
    MakeContent(fresh);

    UserPlace place = RememberPlace();
    // Rows are counted without hidden comment lines. In another encoding their places differ, but
    // then their numbers do not.
    if (fresh.csv != nullptr && fresh.Text().size() == document_.Text().size()) {
        place.modelRow = SameRow(*document_.csv, place.modelRow, *fresh.csv);
        place.topModelRow = SameRow(*document_.csv, place.topModelRow, *fresh.csv);
    }
    KeepNodes(place, fresh);
    ShowInstead(place, [&] { std::swap(document_, fresh); });
    finder_.Reset();
    RefreshSource();
    FillTree();
    return true;
}

void Viewer::ReloadAs(Command command) {
    if (!document_.IsLoaded() || !AskToSave(SaveReason::Reloading) || IsGone()) {
        return;
    }
    LoadOptions options = CurrentLoadOptions();
    const DelimiterChoice* delimiter = DelimiterOf(command);
    if (delimiter != nullptr) {
        options.csv.delimiter = delimiter->delimiter;
        options.delimiterDetected = delimiter->delimiter == L'\0';
    }
    if (const CommentMode* comments = CommentModeOf(command)) {
        options.csv.commentMode = *comments;
    }
    if (const std::wstring_view encoding = EncodingOf(command); !encoding.empty()) {
        options.encoding.name = encoding;
    }
    bool done = false;
    try {
        done = Reload(options);
    } catch (const std::exception&) {  // no memory for a second copy: the first one stays
    }
    if (!done) {
        MessageBoxW(window_, messages::kNotReloaded.data(), messages::kCaption.data(),
                    MB_OK | MB_ICONERROR);
    } else if (delimiter != nullptr) {
        settings::Set(settings::kDefaultColumnDelimiter, delimiter->settingText);
    }
}

}  // namespace rl
