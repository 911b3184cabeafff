#include "view/logic/find_text.h"

#include <algorithm>
#include <limits>

#include "view/logic/case_fold.h"

namespace rl {
namespace {

constexpr size_t kBehindLastUnit = std::numeric_limits<size_t>::max();

bool IsWhole(std::wstring_view cell, size_t start, size_t length) {
    const size_t end = start + length;
    return (start == 0 || !IsWordUnit(cell[start - 1])) &&
           (end == cell.size() || !IsWordUnit(cell[end]));
}

std::optional<size_t> FindForward(std::wstring_view cell, std::wstring_view wanted, size_t position,
                                  bool wholeWords) {
    for (size_t at = cell.find(wanted, position); at != std::wstring_view::npos;
         at = cell.find(wanted, at + 1)) {
        if (!wholeWords || IsWhole(cell, at, wanted.size())) {
            return at;
        }
    }
    return std::nullopt;
}

std::optional<size_t> FindBackwards(std::wstring_view cell, std::wstring_view wanted,
                                    size_t position, bool wholeWords) {
    while (position > 0) {
        const size_t at = cell.rfind(wanted, position - 1);
        if (at == std::wstring_view::npos) {
            break;
        }
        if (!wholeWords || IsWhole(cell, at, wanted.size())) {
            return at;
        }
        position = at;
    }
    return std::nullopt;
}

}  // namespace

bool IsWordUnit(wchar_t unit) {
    return (unit >= L'0' && unit <= L'9') || (unit >= L'A' && unit <= L'Z') ||
           (unit >= L'a' && unit <= L'z') || unit == L'_' || unit >= 128;
}

std::optional<size_t> FindInCell(std::wstring_view cell, std::wstring_view wanted, size_t position,
                                 bool backwards, bool wholeWords) {
    if (wanted.empty()) {
        return std::nullopt;
    }
    return backwards ? FindBackwards(cell, wanted, position, wholeWords)
                     : FindForward(cell, wanted, position, wholeWords);
}

bool CellFinder::IsFresh(const FindRequest& request) const {
    return !searched_ || request.text != text_ || request.matchCase != matchCase_ ||
           request.wholeWords != wholeWords_ || (request.first && request.backwards == backwards_);
}

CellFinder::Place CellFinder::Start(const ICellSource& cells, const FindRequest& request) const {
    const Place first{};
    const Place last{cells.RowCount() - 1, cells.ColumnCount() - 1, kBehindLastUnit};
    if (IsFresh(request) || !hit_) {
        return request.backwards ? last : first;
    }
    // The table may have shrunk since the last hit: go on from where it ends now.
    if (hit_->row >= cells.RowCount()) {
        return last;
    }
    return hit_->column < cells.ColumnCount() ? *hit_
                                              : Place{hit_->row, last.column, kBehindLastUnit};
}

FindAnswer CellFinder::Find(const ICellSource& cells, const FindRequest& request) {
    const int32_t rows = cells.RowCount();
    const int32_t columns = cells.ColumnCount();
    if (request.text.empty() || rows < 1 || columns < 1) {
        return {};
    }
    Place place = Start(cells, request);
    searched_ = true;
    text_ = request.text;
    matchCase_ = request.matchCase;
    wholeWords_ = request.wholeWords;
    backwards_ = request.backwards;

    if (!Walk(cells, request, place)) {
        return {FindOutcome::AtEnd, -1, -1};
    }
    hit_ = place;
    return {FindOutcome::Hit, place.row, place.column};
}

// Leaves `place` at the hit.
bool CellFinder::Walk(const ICellSource& cells, const FindRequest& request, Place& place) {
    const int32_t rows = cells.RowCount();
    const int32_t columns = cells.ColumnCount();
    const int32_t step = request.backwards ? -1 : 1;
    const int32_t firstColumn = request.backwards ? columns - 1 : 0;
    const size_t firstPosition = request.backwards ? kBehindLastUnit : 0;
    std::wstring wanted(request.text);
    if (!request.matchCase) {
        FoldText(wanted);
    }
    const auto mayHold = cells.MakeProbe(wanted, request.matchCase);
    std::wstring cell;
    for (; place.row >= 0 && place.row < rows; place.row += step) {
        const bool possible = !mayHold || mayHold(place.row);
        for (; possible && place.column >= 0 && place.column < columns; place.column += step) {
            cells.ReadCell(place.row, place.column, cell);
            if (!request.matchCase) {
                FoldText(cell);
            }
            const std::optional<size_t> at =
                FindInCell(cell, wanted, place.position, request.backwards, request.wholeWords);
            if (at) {
                place.position = request.backwards ? *at : *at + wanted.size();
                return true;
            }
            place.position = firstPosition;
        }
        place.column = firstColumn;
        place.position = firstPosition;
    }
    return false;
}

}  // namespace rl
