// Nodes and attributes of an XML document as fixed-size records: kinds, spans, links.
//
// Spans count UTF-16 units of the document's text. Nodes refer to one another by their index, -1
// meaning none; an element stands before its descendants, its attributes stand side by side.
#pragma once

#include <cstdint>

namespace rl {

enum class XmlKind : uint8_t {
    Document = 0,
    Element,
    Text,
    Comment,
    Cdata,
    ProcessingInstruction,
    Doctype,
};

struct XmlNode {
    XmlKind kind = XmlKind::Document;
    uint32_t nameOffset = 0;  // of elements and instructions
    uint32_t nameLength = 0;
    uint32_t valueOffset = 0;  // the content, without the marks around it
    uint32_t valueLength = 0;
    uint32_t sourceStart = 0;  // the whole extent
    uint32_t sourceEnd = 0;    // exclusive
    int32_t parent = -1;
    int32_t firstChild = -1;
    int32_t nextSibling = -1;
    uint32_t childCount = 0;
    uint32_t firstAttribute = 0;
    uint32_t attributeCount = 0;

    bool operator==(const XmlNode&) const = default;
};
static_assert(sizeof(XmlNode) == 52, "millions of these must fit into memory");

struct XmlAttribute {
    uint32_t nameOffset = 0;
    uint32_t nameLength = 0;
    uint32_t valueOffset = 0;  // without the quotes
    uint32_t valueLength = 0;
    uint16_t quote = 0;  // the quote it stands in: " or '

    bool operator==(const XmlAttribute&) const = default;
};
static_assert(sizeof(XmlAttribute) == 20);

/// The value behind a cell or a row that can be edited.
struct XmlValueRef {
    enum class Kind : uint32_t {
        None = 0,
        Attribute,
        Text,
        Comment,
        Cdata,
        ProcessingInstruction,
        OnlyChild,  // the single text or CDATA child of an element
    };
    Kind kind = Kind::None;
    int32_t node = -1;       // for an attribute its element; for OnlyChild that child
    int32_t attribute = -1;  // its index; -1 for all else

    bool operator==(const XmlValueRef&) const = default;
};

}  // namespace rl
