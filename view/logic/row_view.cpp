#include "view/logic/row_view.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "view/logic/row_sort.h"

namespace rl {

RowView::RowView(const ITableModel& model, bool hasHeaderRow)
    : model_(&model), hasHeaderRow_(hasHeaderRow) {
    Rebuild();
}

void RowView::SetFilter(int32_t column, std::wstring_view text) {
    if (column < 0 || column >= model_->ColumnCount()) {
        return;
    }
    filterTexts_.resize(static_cast<size_t>(model_->ColumnCount()));
    filterTexts_[static_cast<size_t>(column)] = text;
    Compile();
    Rebuild();
}

void RowView::SetSort(int32_t column, int32_t direction) {
    const bool valid = column >= 0 && column < model_->ColumnCount() && direction != 0;
    sortColumn_ = valid ? column : -1;
    sortDirection_ = !valid ? 0 : direction > 0 ? 1 : -1;
    Rebuild();
}

void RowView::SetCaseSensitive(bool caseSensitive) {
    if (caseSensitive == caseSensitive_) {
        return;  // asked before each filter: the rows are as they should be
    }
    caseSensitive_ = caseSensitive;
    Compile();
    Rebuild();
}

void RowView::Compile() {
    filters_.clear();
    filters_.reserve(filterTexts_.size());
    for (const std::wstring& text : filterTexts_) {
        filters_.push_back(CompileFilter(text, caseSensitive_));
    }
}

bool RowView::ActiveFilter::Passes(const ITableModel& model, int32_t modelRow, bool caseSensitive,
                                   std::wstring& scratch) const {
    model.ReadCell(modelRow, column, scratch);
    if (filter->op == 0 && probe.Needle().IsUsable()) {
        return probe.Needle().IsIn(scratch);  // without lowering it first
    }
    return MatchesFilter(*filter, scratch, caseSensitive);
}

std::vector<RowView::ActiveFilter> RowView::ActiveFilters() const {
    std::vector<ActiveFilter> active;
    for (size_t column = 0; column < filters_.size(); ++column) {
        const ColumnFilter& filter = filters_[column];
        if (filter.IsActive()) {
            // What passes these two holds the operand; of the others nothing is known beforehand.
            const bool holds = filter.op == 0 || filter.op == L'=';
            active.push_back(
                {static_cast<int32_t>(column), &filter,
                 RecordProbe(*model_, holds ? filter.operand : std::wstring(), caseSensitive_)});
        }
    }
    return active;
}

void RowView::Rebuild() {
    const auto columnCount = static_cast<size_t>(std::max(0, model_->ColumnCount()));
    if (filterTexts_.size() != columnCount || filters_.size() != columnCount) {
        filterTexts_.resize(columnCount);
        Compile();
    }
    CollectRows(ActiveFilters());
    if (sortColumn_ >= 0) {
        SortRows(
            visibleRows_,
            [this](int32_t row, std::wstring& cell) { model_->ReadCell(row, sortColumn_, cell); },
            sortDirection_);
    }
}

void RowView::CollectRows(std::span<const ActiveFilter> active) {
    const int32_t rowCount = model_->RowCount();
    const int32_t firstRow = hasHeaderRow_ && rowCount > 0 ? 1 : 0;
    visibleRows_.clear();
    if (active.empty()) {
        visibleRows_.resize(static_cast<size_t>(std::max(0, rowCount - firstRow)));
        std::iota(visibleRows_.begin(), visibleRows_.end(), firstRow);
        return;
    }
    std::wstring scratch;
    for (int32_t row = firstRow; row < rowCount; ++row) {
        const bool passes =
            std::ranges::all_of(active, [&](const auto& one) { return one.probe.MayHold(row); }) &&
            std::ranges::all_of(active, [&](const auto& one) {
                return one.Passes(*model_, row, caseSensitive_, scratch);
            });
        if (passes) {
            visibleRows_.push_back(row);
        }
    }
}

void RowView::MakeRoom() {
    const size_t needed = visibleRows_.size() + 1;
    if (visibleRows_.capacity() < needed) {
        visibleRows_.reserve(needed + needed / 2);  // many are inserted one by one
    }
}

void RowView::RowInserted(int32_t viewRow) noexcept {
    const int32_t above = ModelRow(viewRow);
    if (above < 0) {
        return;
    }
    for (int32_t& row : visibleRows_) {
        row += row > above ? 1 : 0;
    }
    visibleRows_.insert(visibleRows_.begin() + viewRow + 1, above + 1);
}

void RowView::RowsDeleted(std::span<const int32_t> modelRows) noexcept {
    auto kept = visibleRows_.begin();
    for (const int32_t row : visibleRows_) {
        const auto found = std::ranges::lower_bound(modelRows, row);
        if (found == modelRows.end() || *found != row) {
            *kept++ = row - static_cast<int32_t>(found - modelRows.begin());
        }
    }
    visibleRows_.erase(kept, visibleRows_.end());
}

int32_t RowView::VisibleRowCount() const {
    return static_cast<int32_t>(visibleRows_.size());
}

int32_t RowView::ModelRow(int32_t viewRow) const {
    const bool inside = viewRow >= 0 && viewRow < VisibleRowCount();
    return inside ? visibleRows_[static_cast<size_t>(viewRow)] : -1;
}

int32_t RowView::ViewRowOf(int32_t modelRow) const {
    const auto found = std::find(visibleRows_.begin(), visibleRows_.end(), modelRow);
    return found == visibleRows_.end() ? -1 : static_cast<int32_t>(found - visibleRows_.begin());
}

std::wstring RowView::CellText(int32_t viewRow, int32_t column) const {
    const int32_t modelRow = ModelRow(viewRow);
    return modelRow < 0 ? std::wstring() : model_->CellText(modelRow, column);
}

const ITableModel& RowView::Model() const {
    return *model_;
}

bool RowView::HasHeaderRow() const {
    return hasHeaderRow_;
}

int32_t RowView::SortColumn() const {
    return sortColumn_;
}

int32_t RowView::SortDirection() const {
    return sortDirection_;
}

std::wstring_view RowView::FilterText(int32_t column) const {
    const bool inside = column >= 0 && static_cast<size_t>(column) < filterTexts_.size();
    return inside ? std::wstring_view(filterTexts_[static_cast<size_t>(column)])
                  : std::wstring_view();
}

}  // namespace rl
