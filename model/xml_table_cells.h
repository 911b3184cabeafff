// The cells of a record table: which attribute or child stands in which row and column.
//
// One array of all cells while most of them are filled; only the filled ones where records have
// little in common, because rows times columns would explode.
#pragma once

#include <cstdint>
#include <vector>

#include "model/xml_columns.h"
#include "model/xml_document.h"

namespace rl::detail {

class XmlRecordCells {
public:
    /// Takes the records in, in their order.
    XmlRecordCells(const XmlDocument& document, const std::vector<int32_t>& records);

    [[nodiscard]] const std::vector<XmlColumn>& Columns() const { return columns_.All(); }

    static constexpr int32_t kEmpty = -1;
    /// The attribute or node in a cell; `kEmpty` without one.
    [[nodiscard]] int32_t At(size_t row, int32_t column) const;

    /// Cells held, filled or not.
    [[nodiscard]] size_t StoredCells() const { return dense_.size() + filled_.size(); }

private:
    struct Filled {
        int32_t column;
        int32_t index;
    };

    void AddRecord(int32_t record);
    int32_t ColumnOf(const XmlColumn& column);
    void Fill(int32_t column, int32_t index);
    void SortRows();
    void Spread();

    const XmlDocument* document_;
    XmlColumns columns_;
    int32_t lastColumn_ = -1;         // the one found last: the next one is often next to it
    std::vector<int32_t> lastRowOf_;  // by column: the last row that filled it
    std::vector<size_t> rowStarts_;   // into `filled_`, and the end
    std::vector<Filled> filled_;      // by row, then by column; empty when dense
    std::vector<int32_t> dense_;      // row by row; empty when sparse
    bool isInOrder_ = true;           // each row of `filled_` as it came
    bool isDense_ = false;
};

}  // namespace rl::detail
