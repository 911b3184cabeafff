#include "view/logic/record_probe.h"

namespace rl {

RecordProbe::RecordProbe(const ITableModel& model, std::wstring_view wanted, bool caseSensitive)
    : needle_(wanted, caseSensitive) {
    const auto* csv = dynamic_cast<const CsvModel*>(&model);
    if (csv != nullptr && !csv->HasEditedCells() && needle_.IsUsable() &&
        !needle_.Holds(csv->Options().quoteChar)) {
        model_ = csv;
    }
}

}  // namespace rl
