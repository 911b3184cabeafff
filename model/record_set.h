// The largest group of like records in a document: what is worth seeing as a table.
#pragma once

#include <cstdint>

#include "model/json_document.h"
#include "model/xml_document.h"

namespace rl {

struct RecordSet {
    int32_t node = -1;  // the array or element that holds the records; -1: there is none
    int64_t size = 0;   // how many records

    bool operator==(const RecordSet&) const = default;
};

/// The array with the most elements of which at least two and at least half are objects.
[[nodiscard]] RecordSet FindRecordSet(const JsonDocument& document);
/// The element with the most children of one name, at least two.
[[nodiscard]] RecordSet FindRecordSet(const XmlDocument& document);

}  // namespace rl
