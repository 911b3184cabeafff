// Two ways to read a text that is not one JSON document: line by line, and by its balanced blocks.
//
// Both gather what they read below a synthetic array, node 0.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "load/text/abandon_check.h"
#include "model/json_node.h"

namespace rl {

/// One value a line, blank lines skipped. False when some line holds none or there is no value.
[[nodiscard]] bool ParseJsonLines(std::wstring_view text, std::vector<JsonNode>& nodes,
                                  const AbandonCheck& abandoned);

/// Every `{...}` and `[...]` that parses by itself. The root: the only block, else the synthetic
/// array; -1 when there is none.
[[nodiscard]] int32_t RecoverJsonBlocks(std::wstring_view text, std::vector<JsonNode>& nodes,
                                        const AbandonCheck& abandoned);

}  // namespace rl
