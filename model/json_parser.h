// Reads JSON texts into nodes: RFC 8259 with comments, trailing commas and unchecked escapes.
//
// Works with a stack of its own; 512 levels below the top value are the limit.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "load/text/abandon_check.h"
#include "model/json_node.h"

namespace rl {

/// The deepest level a value may stand on; the top value stands on 0.
inline constexpr int32_t kMaxJsonDepth = 512;

struct JsonRange {
    size_t begin = 0;
    size_t end = 0;  // exclusive
};

/// Where blanks and comments from `at` on end, `end` at the latest. An unterminated comment runs to
/// the end.
[[nodiscard]] size_t SkipJsonBlanks(std::wstring_view text, size_t at, size_t end);

/// Appends the one value that the range holds, blanks and comments around it, and answers its node;
/// -1 when the range holds anything else. What was appended by then is the caller's to take away.
/// The value gets `parent` but is not linked to it.
[[nodiscard]] int32_t ParseJsonValue(std::wstring_view text, JsonRange range, int32_t parent,
                                     std::vector<JsonNode>& nodes,
                                     const AbandonCheck& abandoned = {});

/// Links a node as the last child of `parent`; `last` is the child before it, or -1.
void LinkJsonChild(std::vector<JsonNode>& nodes, int32_t parent, int32_t last, int32_t child);

}  // namespace rl
