// The fast split of a record, for the dialects that allow it. Private to the model.
#pragma once

#include <cstdint>
#include <vector>

#include "model/csv_records.h"

namespace rl::detail {

/// Delimiter and quote must lie in 1 .. 254 and differ from each other.
template <typename Unit>
void SplitFieldsSse2(const Unit* record, uint32_t size, uint8_t delimiter, uint8_t quoteChar,
                     std::vector<CsvFieldSpan>& fields);

}  // namespace rl::detail
