// What the tree pane lists of a document: which nodes stand below one another, and their labels.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/json_document.h"
#include "model/xml_document.h"

namespace rl {

/// The document must outlive it.
class TreeItems {
public:
    TreeItems() = default;
    explicit TreeItems(const JsonDocument& document) : json_(&document) {}
    explicit TreeItems(const XmlDocument& document) : xml_(&document) {}

    /// JSON: the root. XML: the elements below the document node.
    [[nodiscard]] std::vector<int32_t> TopNodes() const;
    /// In document order; of XML the elements alone.
    [[nodiscard]] std::vector<int32_t> Children(int32_t node) const;
    [[nodiscard]] bool HasChildren(int32_t node) const;
    /// The nodes from a top node down to this one; empty when the tree never lists it.
    [[nodiscard]] std::vector<int32_t> PathTo(int32_t node) const;
    /// `position` counts from 0 among the children of its parent. Cut where a tree item's text
    /// ends.
    [[nodiscard]] std::wstring Label(int32_t node, int32_t position) const;

private:
    [[nodiscard]] std::wstring FullLabel(int32_t node, int32_t position) const;
    [[nodiscard]] bool IsListed(int32_t node) const;
    [[nodiscard]] int32_t ParentOf(int32_t node) const;

    const JsonDocument* json_ = nullptr;
    const XmlDocument* xml_ = nullptr;
};

}  // namespace rl
