// Which rows the grid shows, and in which order: the filter row and the clicks on headers.
#include <algorithm>
#include <limits>

#include "host/store/settings.h"
#include "view/control.h"
#include "view/viewer.h"
#include "view/wait_cursor.h"

namespace rl {

FilterRow::Look Viewer::FilterLook() const {
    return {.normal = fonts_.normal.Get(),
            .italic = fonts_.italic.Get(),
            .dpi = dpi_,
            .text = colors_.filterText,
            .back = colors_.filterBack,
            .accent = colors_.accent};
}

void Viewer::RebuildFilterRow() {
    KillTimer(window_, static_cast<UINT_PTR>(TimerId::PendingFilter));
    pendingFilter_ = -1;
    filters_.SetLook(FilterLook());
    FilterRow::FilterTextOf textOf;
    if (document_.ShowsOutline()) {
        textOf = [&outline = *document_.outline](int column) {
            return std::wstring(outline.FilterText(column));
        };
    }
    filters_.Rebuild(grid_, FilterAlignOf(settings::Get(settings::kFilterAlign)),
                     settings::Get(settings::kFilterHint), textOf);
    LayoutFilterRow();
}

void Viewer::LayoutFilterRow() {
    filters_.Layout(grid_, layout_.filter);
    // The box of a hidden column would go on filtering unseen; one merely scrolled away may stay.
    const int focused = filters_.ColumnOf(GetFocus());
    if (focused >= 0 && grid_.ColumnWidth(focused) == 0) {
        SetFocus(grid_.Window());
    }
}

Answer Viewer::OnEditColors(HDC dc, HWND control) {
    if (filters_.ColumnOf(control) < 0 || !brushes_.filterBack) {
        return std::nullopt;
    }
    SetTextColor(dc, colors_.filterText);
    SetBkColor(dc, colors_.filterBack);
    return reinterpret_cast<LRESULT>(brushes_.filterBack.Get());
}

/// How many rows a filter looks at; in an outline also those that are not listed.
int Viewer::FilteredRowCount() const {
    if (!document_.ShowsOutline()) {
        return document_.rows->Model().RowCount();
    }
    const size_t attributes = document_.xml != nullptr ? document_.xml->attributes.size() : 0;
    return static_cast<int>(
        std::min<size_t>(static_cast<size_t>(document_.outline->NodeCount()) + attributes,
                         std::numeric_limits<int>::max()));
}

void Viewer::OnFilterTyped(int gridColumn) {
    if (!loaded_ || document_.rows == nullptr) {
        return;
    }
    const FilterStep step = PlanTypedFilter(gridColumn, pendingFilter_, FilteredRowCount());
    pendingFilter_ = step.pending;
    ApplyFilter(step.applyFirst);
    ApplyFilter(step.applyNow);
    if (step.pending >= 0) {
        SetTimer(window_, static_cast<UINT_PTR>(TimerId::PendingFilter), kFilterDelayMs, nullptr);
    } else {
        KillTimer(window_, static_cast<UINT_PTR>(TimerId::PendingFilter));
    }
}

void Viewer::ApplyPendingFilter() {
    KillTimer(window_, static_cast<UINT_PTR>(TimerId::PendingFilter));
    ApplyFilter(std::exchange(pendingFilter_, -1));
}

void Viewer::ApplyFilter(int gridColumn) {
    const int dataColumn = grid_.DataColumn(gridColumn);
    if (dataColumn < 0 || document_.rows == nullptr) {
        return;
    }
    CloseCellEdit();
    {
        const WaitCursor waiting;
        if (document_.ShowsOutline()) {
            FilterOutline(dataColumn, filters_.TextOf(gridColumn));
            return;
        }
        document_.rows->SetCaseSensitive(settings::IsOn(settings::kFilterCaseSensitive));
        document_.rows->SetFilter(dataColumn, filters_.TextOf(gridColumn));
    }
    grid_.ClearTypeAhead();
    grid_.SetCurrent({});
    grid_.SelectOnly(-1);
    grid_.RowsChanged(false);
    LayoutFilterRow();
    UpdateStatusBar();
}

void Viewer::OnHeaderClick(int gridColumn) {
    const int dataColumn = grid_.DataColumn(gridColumn);
    if (!loaded_ || document_.csv == nullptr || dataColumn < 0 || !EndCellEdit(true)) {
        return;
    }
    SortBy(gridColumn, NextSortDirection(dataColumn, document_.rows->SortColumn(),
                                         document_.rows->SortDirection()));
    LayoutFilterRow();
    UpdateStatusBar();
}

// The row that was current stays so, wherever it goes.
void Viewer::SortBy(int gridColumn, int32_t direction) {
    RowView& rows = *document_.rows;
    const GridCell before = grid_.Current();
    const int32_t modelRow = rows.ModelRow(before.viewRow);
    const int top = grid_.TopRow();
    const RedrawScope still(grid_.Window());
    {
        const WaitCursor waiting;
        rows.SetSort(grid_.DataColumn(gridColumn), direction);
    }
    grid_.ClearTypeAhead();
    grid_.SetSortMark(gridColumn, direction);
    grid_.RowsChanged(true);
    const int32_t found = modelRow >= 0 ? rows.ViewRowOf(modelRow) : -1;
    const SortPlace place = PlaceAfterSort(found, top, rows.VisibleRowCount());
    grid_.SetCurrent({place.current, before.gridColumn >= 0 ? before.gridColumn : gridColumn});
    grid_.SelectOnly(place.current);
    grid_.BringIntoView({place.show, -1});
}

// Boxes have no keys of ours but these: what is typed belongs to them.
Answer Viewer::OnFilterBoxMessage(HWND box, const Message& in) {
    if (in.id == WM_MOUSEWHEEL) {
        return OnWheel(in.wparam);
    }
    if (in.id == WM_CHAR && (in.wparam == VK_ESCAPE || in.wparam == VK_TAB)) {
        return 0;  // the box would beep at it
    }
    if (in.id != WM_KEYDOWN) {
        return std::nullopt;
    }
    const bool passed = PassKeyToHost(in.wparam);
    if (in.wparam == VK_ESCAPE && !IsGone()) {
        SetFocus(grid_.Window());
        return 0;
    }
    if (in.wparam == VK_TAB && !IsKeyDown(VK_CONTROL)) {
        MoveFocus(box, IsKeyDown(VK_SHIFT));
        return 0;
    }
    return passed ? Answer(0) : std::nullopt;
}

std::shared_ptr<void> Viewer::KeepAlive() {
    return weak_from_this().lock();
}

// Round through grid, filter boxes and value pane. A box out of sight is brought into view first.
void Viewer::MoveFocus(HWND from, bool backwards) {
    constexpr int kGridStop = -1;
    constexpr int kTreeStop = -2;
    const int paneStop = filters_.SlotCount();
    std::vector<int> stops{kGridStop};
    if (!layout_.tree.IsEmpty()) {
        stops.insert(stops.begin(), kTreeStop);
    }
    if (!layout_.filter.IsEmpty()) {
        for (int column = 0; column < filters_.SlotCount(); ++column) {
            if (grid_.DataColumn(column) >= 0 && grid_.ColumnWidth(column) > 0) {
                stops.push_back(column);
            }
        }
    }
    if (!layout_.pane.IsEmpty()) {
        stops.push_back(paneStop);
    }
    const int column = filters_.ColumnOf(from);
    const int at = from == pane_.Window()                      ? paneStop
                   : from != nullptr && from == tree_.Window() ? kTreeStop
                   : column >= 0                               ? column
                                                               : kGridStop;
    const auto place = std::ranges::find(stops, at) - stops.begin();
    const auto count = static_cast<std::ptrdiff_t>(stops.size());
    const int next = stops[static_cast<size_t>((place + (backwards ? count - 1 : 1)) % count)];
    if (next < 0 || next == paneStop) {
        SetFocus(next == paneStop    ? pane_.Window()
                 : next == kTreeStop ? tree_.Window()
                                     : grid_.Window());
        return;
    }
    grid_.BringIntoView({-1, next});
    if (const HWND box = filters_.BoxOf(next)) {
        SetFocus(box);
        SendMessageW(box, EM_SETSEL, 0, -1);
    }
}

}  // namespace rl
