// Reads XML text into nodes and attributes, forgivingly and in one pass.
//
// Nesting that does not balance sets a flag; nothing fails but a text without an element. Follows
// XML 1.0 where files do, and works with a stack of its own.
#pragma once

#include <string_view>
#include <vector>

#include "load/text/abandon_check.h"
#include "model/xml_node.h"

namespace rl {

struct XmlParseResult {
    bool hasElement = false;  // false also when the work was abandoned
    bool malformed = false;
};

/// Fills both arrays, which must be empty. Node 0 is the document.
[[nodiscard]] XmlParseResult ParseXml(std::wstring_view text, std::vector<XmlNode>& nodes,
                                      std::vector<XmlAttribute>& attributes,
                                      const AbandonCheck& abandoned);

}  // namespace rl
