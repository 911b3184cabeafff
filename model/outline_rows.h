// One row of an outline: which node it shows, how deep it stands, whether it opens.
#pragma once

#include <cstddef>
#include <cstdint>

namespace rl {

/// What a row is, and so how it is coloured.
enum class OutlineRowType : uint8_t {
    XmlDocument = 0,
    XmlElement,
    XmlAttribute,
    XmlText,
    XmlComment,
    XmlCdata,
    XmlInstruction,
    XmlDoctype,
    JsonObject,
    JsonArray,
    JsonString,
    JsonNumber,
    JsonBoolean,
    JsonNull,
};

struct OutlineRow {
    int32_t node = -1;
    int32_t aux = -1;  // XML: the attribute's index; JSON: the position in the parent array; or -1
    uint16_t depth = 0;  // 0 for the root; stops at 65,535
    OutlineRowType rowType = OutlineRowType::XmlDocument;
    bool hasChildren = false;
    bool expanded = false;

    [[nodiscard]] bool IsAttribute() const { return rowType == OutlineRowType::XmlAttribute; }
};
static_assert(sizeof(OutlineRow) == 16);

/// No walk lists or opens more than this.
inline constexpr int32_t kMaxOutlineRows = 2'000'000;

}  // namespace rl
