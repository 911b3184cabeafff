#include "view/logic/row_view.h"

#include <algorithm>

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

bool RowView::Passes(int32_t modelRow, const std::vector<int32_t>& columns) const {
    return std::all_of(columns.begin(), columns.end(), [&](int32_t column) {
        std::wstring cell = model_->CellText(modelRow, column);
        return MatchesFilter(filters_[static_cast<size_t>(column)], cell, caseSensitive_);
    });
}

void RowView::Rebuild() {
    const auto columnCount = static_cast<size_t>(std::max(0, model_->ColumnCount()));
    if (filterTexts_.size() != columnCount || filters_.size() != columnCount) {
        filterTexts_.resize(columnCount);
        Compile();
    }
    std::vector<int32_t> active;
    for (size_t column = 0; column < filters_.size(); ++column) {
        if (filters_[column].IsActive()) {
            active.push_back(static_cast<int32_t>(column));
        }
    }
    const int32_t rowCount = model_->RowCount();
    const int32_t firstRow = hasHeaderRow_ && rowCount > 0 ? 1 : 0;
    visibleRows_.clear();
    if (active.empty()) {
        visibleRows_.reserve(static_cast<size_t>(std::max(0, rowCount - firstRow)));
    }
    for (int32_t row = firstRow; row < rowCount; ++row) {
        if (Passes(row, active)) {
            visibleRows_.push_back(row);
        }
    }
    if (sortColumn_ >= 0) {
        SortRows(
            visibleRows_, [this](int32_t row) { return model_->CellText(row, sortColumn_); },
            sortDirection_);
    }
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
