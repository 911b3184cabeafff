// Which records are shown, in which order, with inserted rows among them.
//
// A row id of 0 or more is the number of a record; a negative one is the complement of the number
// of an inserted row. As long as nothing was edited the order is that of the text and is not
// written down anywhere; hidden rows are written down only where they do not all stand at the top.
//
// Knows nothing of text and cells.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "model/csv_records.h"

namespace rl {

class CsvRowOrder {
public:
    /// Takes the order of the records; those marked hidden are not shown.
    void Reset(const CsvRecordStore& records, bool mayHide);

    /// Rows shown.
    [[nodiscard]] int32_t VisibleCount() const noexcept {
        return hasVisibleList_ ? static_cast<int32_t>(visible_.size()) : Size() - hiddenAtTop_;
    }
    /// The id behind a row that is shown.
    [[nodiscard]] int32_t VisibleId(int32_t row) const noexcept { return Id(PlaceOf(row)); }

    /// All rows of the document, hidden ones included.
    [[nodiscard]] int32_t Size() const noexcept {
        return hasOrderList_ ? static_cast<int32_t>(order_.size()) : recordCount_;
    }
    /// The id at a place among all rows.
    [[nodiscard]] int32_t Id(int32_t place) const noexcept {
        return hasOrderList_ ? order_[static_cast<size_t>(place)] : place;
    }
    /// True while no row was inserted or deleted: each id is its own place.
    [[nodiscard]] bool IsTextOrder() const noexcept { return !hasOrderList_; }

    /// Puts a row directly after one that is shown.
    void InsertBelow(int32_t row, int32_t id, const CsvRecordStore& records);
    /// Takes a shown row out.
    void Erase(int32_t row, const CsvRecordStore& records);
    /// Takes many out in one pass; `rows` are shown and ascend.
    void EraseAll(std::span<const int32_t> rows, const CsvRecordStore& records);

    /// The place among all rows of one that is shown.
    [[nodiscard]] int32_t PlaceOf(int32_t row) const noexcept {
        return hasVisibleList_ ? visible_[static_cast<size_t>(row)] : row + hiddenAtTop_;
    }
    /// The first row shown at a place or below it; `VisibleCount()` when there is none.
    [[nodiscard]] int32_t RowAt(int32_t place) const noexcept;

private:
    void WriteOrderDown();
    void ListVisible(const CsvRecordStore& records);

    std::vector<int32_t> order_;    // ids; in use when hasOrderList_
    std::vector<int32_t> visible_;  // places in the order; in use when hasVisibleList_
    int32_t recordCount_ = 0;
    int32_t hiddenAtTop_ = 0;  // rows hidden, all of them before the first that is shown
    bool hasOrderList_ = false;
    bool hasVisibleList_ = false;
};

}  // namespace rl
