// The order of rows, written down only once it differs from that of the text.
#include "model/csv_row_order.h"

#include <algorithm>
#include <numeric>

namespace rl {

void CsvRowOrder::Reset(const CsvRecordStore& records, bool mayHide) {
    order_ = {};
    visible_ = {};
    hasOrderList_ = false;
    hasVisibleList_ = false;
    hiddenAtTop_ = 0;
    recordCount_ = static_cast<int32_t>(records.Size());
    if (!mayHide) {
        return;
    }
    const size_t count = records.Size();
    size_t top = 0;
    while (top < count && records[top].isHidden) {
        ++top;
    }
    size_t next = top;
    while (next < count && !records[next].isHidden) {
        ++next;
    }
    if (next < count) {
        hasVisibleList_ = true;
        ListVisible(records);
    } else {
        hiddenAtTop_ = static_cast<int32_t>(top);
    }
}

void CsvRowOrder::InsertBelow(int32_t row, int32_t id, const CsvRecordStore& records) {
    const int32_t place = PlaceOf(row);
    WriteOrderDown();
    if (hasVisibleList_ && visible_.size() == visible_.capacity()) {
        visible_.reserve(visible_.size() + visible_.size() / 2 + 1);
    }
    order_.insert(order_.begin() + place + 1, id);
    ListVisible(records);  // in the room made above: once the row is in, nothing may fail
}

void CsvRowOrder::Erase(int32_t row, const CsvRecordStore& records) {
    const int32_t place = PlaceOf(row);
    WriteOrderDown();
    order_.erase(order_.begin() + place);
    ListVisible(records);
}

void CsvRowOrder::EraseAll(std::span<const int32_t> rows, const CsvRecordStore& records) {
    WriteOrderDown();
    auto next = rows.begin();
    int32_t kept = 0;
    for (int32_t place = 0; place < Size(); ++place) {
        if (next != rows.end() && PlaceOf(*next) == place) {
            ++next;
        } else {
            order_[static_cast<size_t>(kept++)] = order_[static_cast<size_t>(place)];
        }
    }
    order_.resize(static_cast<size_t>(kept));
    ListVisible(records);
}

int32_t CsvRowOrder::RowAt(int32_t place) const noexcept {
    if (hasVisibleList_) {
        return static_cast<int32_t>(std::ranges::lower_bound(visible_, place) - visible_.begin());
    }
    return std::clamp(place - hiddenAtTop_, 0, VisibleCount());
}

void CsvRowOrder::WriteOrderDown() {
    if (hasOrderList_) {
        return;
    }
    order_.reserve(static_cast<size_t>(recordCount_) + 1);
    order_.resize(static_cast<size_t>(recordCount_));
    std::iota(order_.begin(), order_.end(), 0);
    hasOrderList_ = true;
}

void CsvRowOrder::ListVisible(const CsvRecordStore& records) {
    if (!hasVisibleList_) {
        return;  // what is hidden stays at the top, whatever happens below it
    }
    visible_.clear();
    for (int32_t place = 0; place < Size(); ++place) {
        const int32_t id = Id(place);
        if (id < 0 || !records[static_cast<size_t>(id)].isHidden) {
            visible_.push_back(place);
        }
    }
}

}  // namespace rl
