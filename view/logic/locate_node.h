// From a row of a table or an outline to the units of the text that it stands for.
//
// Holds for documents as they were loaded: an edit moves the text, and then nothing is located.
#pragma once

#include <cstdint>
#include <optional>

#include "model/csv_model.h"
#include "model/json_table.h"
#include "model/outline_model.h"
#include "model/xml_table.h"

namespace rl {

/// Units of a document's text.
struct LocatedRange {
    uint64_t start = 0;
    uint64_t length = 0;

    bool operator==(const LocatedRange&) const = default;
};

/// The record behind a row, without its line break; it may be empty.
[[nodiscard]] std::optional<LocatedRange> LocateRow(const CsvModel& model, int32_t modelRow);
[[nodiscard]] std::optional<LocatedRange> LocateRow(const TreeTableView& outline, int32_t modelRow);
/// Without a data row, the node that the table shows.
[[nodiscard]] std::optional<LocatedRange> LocateRow(const JsonTableView& table,
                                                    const JsonDocument& document, int32_t modelRow,
                                                    int32_t tableNode);
[[nodiscard]] std::optional<LocatedRange> LocateRow(const XmlTableView& table,
                                                    const XmlDocument& document, int32_t modelRow,
                                                    int32_t tableNode);

}  // namespace rl
