// Where a node stands in its document, as a path: JSON path or XPath.
//
// Both walk from the node to the root through parent links, without recursion.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

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

/// The same paths for many nodes of one document: the places of siblings are found once for each
/// parent and remembered, so that all children of one parent together cost what one of them would.
class JsonPaths {
public:
    explicit JsonPaths(const JsonDocument& document)
        : document_(document), places_(document.nodes.size()) {}

    [[nodiscard]] std::wstring Of(int32_t node);

private:
    [[nodiscard]] int32_t PlaceOf(int32_t node);

    const JsonDocument& document_;
    std::vector<int32_t> places_;  // by node: its position + 1; 0: not known yet
};

class XmlPaths {
public:
    explicit XmlPaths(const XmlDocument& document)
        : document_(document), places_(document.nodes.size()) {}

    [[nodiscard]] std::wstring Of(int32_t node);
    [[nodiscard]] std::wstring OfAttribute(int32_t element, int32_t attribute);

private:
    [[nodiscard]] int32_t PlaceOf(int32_t node);
    void FindPlacesBelow(int32_t parent);

    const XmlDocument& document_;
    std::vector<int32_t> places_;  // by node: its index or 0, + 1; 0: not known yet
};

}  // namespace rl
