// Rules rows of delimited text out without splitting them: a cell can hold a text only where its
// record does.
//
// This is so because a cell is a piece of its record, with blanks cut off at its ends and doubled
// quotes made single: a text that has no quote in it stands in the record as it stands in the cell.
// Where that does not hold, for edited cells and other documents, every row stays possible.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/csv_model.h"
#include "view/logic/text_needle.h"

namespace rl {

class RecordProbe {
public:
    /// The model must outlive the probe and stay as it is.
    RecordProbe(const ITableModel& model, std::wstring_view wanted, bool caseSensitive);

    /// Whether asking can rule anything out.
    [[nodiscard]] bool IsUseful() const { return model_ != nullptr; }

    /// False only when no cell of the model's row holds the text.
    [[nodiscard]] bool MayHold(int32_t modelRow) const {
        if (model_ == nullptr) {
            return true;
        }
        const std::wstring_view record = model_->RawRow(modelRow);
        return record.empty() || needle_.IsIn(record);  // empty: also an inserted row
    }

    /// The text itself, for a look into a single cell; may be of no use.
    [[nodiscard]] const TextNeedle& Needle() const { return needle_; }

private:
    TextNeedle needle_;
    const CsvModel* model_ = nullptr;  // null: nothing is known
};

}  // namespace rl
