// One value of a JSON document as a fixed-size record: kind, spans, links.
//
// Spans count UTF-16 units of the document's text. Nodes refer to one another by their index in the
// document's array, -1 meaning none; a container stands before its descendants.
#pragma once

#include <cstdint>
#include <string_view>

namespace rl {

enum class JsonKind : uint8_t { Null = 0, Boolean, Number, String, Array, Object };

struct JsonNode {
    JsonKind kind = JsonKind::Null;
    uint8_t hasKey = 0;        // 1: a member of an object
    uint32_t keyOffset = 0;    // of the opening quote
    uint32_t keyLength = 0;    // both quotes included
    uint32_t valueOffset = 0;  // of the value's first character
    uint32_t valueLength = 0;  // quotes and brackets included
    int32_t parent = -1;
    int32_t firstChild = -1;
    int32_t nextSibling = -1;
    uint32_t childCount = 0;  // direct children

    [[nodiscard]] bool IsContainer() const {
        return kind == JsonKind::Array || kind == JsonKind::Object;
    }
    bool operator==(const JsonNode&) const = default;
};
static_assert(sizeof(JsonNode) == 36, "tens of millions of these must fit into memory");

/// "NULL", "BOOLEAN", "NUMBER", "STRING", "ARRAY" or "OBJECT".
[[nodiscard]] std::wstring_view TypeName(JsonKind kind);

}  // namespace rl
