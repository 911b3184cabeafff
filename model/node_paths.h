// Where a node stands in its document, as a path: JSON path or XPath.
//
// Both walk from the node to the root through parent links, without recursion.
#pragma once

#include <cstdint>
#include <string>

#include "model/json_document.h"
#include "model/xml_document.h"

namespace rl {

/// "$" and then ".key", "['other key']" or "[index]" for each step.
[[nodiscard]] std::wstring JsonPathOf(const JsonDocument& document, int32_t node);
/// "/name" for each element, "[k]" where the name repeats among siblings; "" for the document.
[[nodiscard]] std::wstring XPathOf(const XmlDocument& document, int32_t node);
/// The element's path and "/@name".
[[nodiscard]] std::wstring XPathOfAttribute(const XmlDocument& document, int32_t element,
                                            int32_t attribute);

}  // namespace rl
