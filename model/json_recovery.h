// What can be read of a text that is not one JSON value: its lines, or its balanced blocks.
//
// Both gather the values below a synthetic array, node 0.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "load/text/abandon_check.h"
#include "model/json_node.h"

namespace rl {

/// One value a line, blank lines aside. Answers with the root, or with -1 when any line is no value
/// or none is there.
template <typename Unit>
[[nodiscard]] int32_t ParseJsonLines(std::basic_string_view<Unit> text,
                                     std::vector<JsonNode>& nodes, const AbandonCheck& abandoned);

/// Every balanced block that is a value; what lies between and within broken ones is passed over.
/// Answers with the root, the block itself when there is but one, or with -1.
[[nodiscard]] int32_t SalvageJson(std::wstring_view text, std::vector<JsonNode>& nodes,
                                  const AbandonCheck& abandoned);

}  // namespace rl
