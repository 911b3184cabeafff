// A JSON or XML document seen as one tree of named values, whatever it is made of.
//
// Answers by node: its links, its name, its value. Which nodes are open, listed or filtered is not
// known here. The document must outlive the tree.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/json_document.h"
#include "model/outline_rows.h"
#include "model/xml_document.h"

namespace rl {

class OutlineTree {
public:
    explicit OutlineTree(const JsonDocument& document) : json_(&document) {}
    explicit OutlineTree(const XmlDocument& document) : xml_(&document) {}

    [[nodiscard]] const JsonDocument* Json() const { return json_; }  // null for XML
    [[nodiscard]] const XmlDocument* Xml() const { return xml_; }     // null for JSON

    /// Nodes of the document. All that belong to the tree have the root's number or a greater one.
    [[nodiscard]] int32_t Size() const;
    [[nodiscard]] int32_t Root() const { return json_ != nullptr ? json_->root : xml_->root; }
    [[nodiscard]] bool Contains(int32_t node) const { return node >= 0 && node < Size(); }
    // Nodes given to these must be in the document; -1 means none.
    [[nodiscard]] int32_t Parent(int32_t node) const;
    [[nodiscard]] int32_t FirstChild(int32_t node) const;
    [[nodiscard]] int32_t NextSibling(int32_t node) const;

    /// Whether the node is ever a row: an XML text shows as its element's value only.
    [[nodiscard]] bool IsRow(int32_t node) const;
    /// Whether opening the node's row brings rows.
    [[nodiscard]] bool HasChildren(int32_t node) const;
    /// The attributes of a node stand side by side: the first one's number, and how many.
    [[nodiscard]] int32_t FirstAttribute(int32_t node) const;
    [[nodiscard]] int32_t AttributeCount(int32_t node) const;

    /// What the columns show. `position` is the place in the parent array, -1 for none. Values keep
    /// their line breaks.
    void ReadName(int32_t node, int32_t position, std::wstring& out) const;
    void ReadValue(int32_t node, std::wstring& out) const;
    void ReadAttributeName(int32_t attribute, std::wstring& out) const;
    void ReadAttributeValue(int32_t attribute, std::wstring& out) const;
    /// The value column's text where the document holds it just as it is shown, on one line and
    /// unedited; nothing where it must be made.
    [[nodiscard]] std::optional<std::wstring_view> PlainValue(int32_t node) const;
    [[nodiscard]] std::optional<std::wstring_view> PlainAttributeValue(int32_t attribute) const;
    /// What tells one container from another: how many items, or a name among the attributes.
    [[nodiscard]] std::wstring SummaryText(int32_t node) const;
    [[nodiscard]] bool IsValueEditable(int32_t node) const;

private:
    const JsonDocument* json_ = nullptr;
    const XmlDocument* xml_ = nullptr;
};

/// Tells where each element of an array stands, to those who visit all nodes in order.
class ArrayPositions {
public:
    explicit ArrayPositions(const OutlineTree& tree) : json_(tree.Json()) {}

    /// To be asked for every node of the tree, in order; -1 for what is no element of an array.
    [[nodiscard]] int32_t Next(int32_t node);

private:
    struct OpenNode {
        int32_t node;
        int32_t next;  // position of its next child
    };

    const JsonDocument* json_;
    std::vector<OpenNode> open_;  // from the root to the parent of the next node
};

/// The next place of a unit, `from` or behind it; npos when there is none.
[[nodiscard]] size_t FindUnit(std::wstring_view text, size_t from, wchar_t unit);

/// Each run of CR, LF and TAB becomes one blank.
void FoldOntoOneLine(std::wstring& text);

}  // namespace rl
