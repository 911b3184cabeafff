// Writes nodes and what is below them as JSON text again, edits included.
//
// The same walk runs twice: once to learn how long the text becomes, once to write it into memory
// taken in one piece. It follows the nodes' links and needs no stack, however deep they are nested.
#pragma once

#include <cstdint>
#include <string>

#include "model/json_document.h"

namespace rl {

enum class JsonLayout { Compact, Pretty };

/// Appends one node; `level` indents what is below it.
void AppendJson(const JsonDocument& document, int32_t node, JsonLayout layout, int32_t level,
                std::wstring& out);

/// How many units `AppendJson` would append.
[[nodiscard]] size_t JsonTextSize(const JsonDocument& document, int32_t node, JsonLayout layout,
                                  int32_t level);

}  // namespace rl
