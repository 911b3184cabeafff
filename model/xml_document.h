// One XML document: its text, the nodes and attributes that point into it, the edits beside it.
//
// Read forgivingly in one pass: bad nesting sets a flag and never fails. Nothing is copied out of
// the text; edits are spliced into it when it is saved, so that all else stays byte for byte.
//
// Knows nothing of files or windows. A document belongs to one thread at a time. No walk recurses:
// nothing limits the depth of a file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "load/text/abandon_check.h"
#include "load/text/text_encoding.h"
#include "model/xml_node.h"

namespace rl {

class XmlDocument {
public:
    XmlDocument() = default;
    XmlDocument(const XmlDocument&) = delete;
    XmlDocument& operator=(const XmlDocument&) = delete;

    /// Takes the text over and builds everything anew. False without a single element, or when
    /// `abandoned` said so.
    [[nodiscard]] bool Parse(std::wstring newText, const AbandonCheck& abandoned = {});

    /// The first element below the document node; -1 without one.
    [[nodiscard]] int32_t FirstElement() const;
    // Nodes and attributes given to these must be in the document.
    /// The name of an element or instruction; "#DOCUMENT", "#TEXT", "#COMMENT", "#CDATA"; empty for
    /// a DOCTYPE.
    [[nodiscard]] std::wstring_view NodeName(int32_t node) const;
    /// The edit when there is one; else an element's inner text, a text with entities decoded,
    /// other contents as they stand.
    [[nodiscard]] std::wstring NodeValue(int32_t node) const;
    /// All text and CDATA below an element, in document order.
    [[nodiscard]] std::wstring InnerText(int32_t element) const;
    [[nodiscard]] std::wstring_view AttributeName(int32_t attribute) const;
    [[nodiscard]] std::wstring AttributeValue(int32_t attribute) const;
    /// The same texts put into `out`, whose room is used again.
    void ReadNodeValue(int32_t node, std::wstring& out) const;
    void ReadInnerText(int32_t element, std::wstring& out) const;
    void ReadAttributeValue(int32_t attribute, std::wstring& out) const;

    /// Whether some child is other than text.
    [[nodiscard]] bool HasNonTextChild(int32_t node) const;
    [[nodiscard]] bool HasElementChild(int32_t node) const;

    /// The value to edit behind a node; of kind None where there is none.
    [[nodiscard]] XmlValueRef ValueRefOf(int32_t node) const;
    [[nodiscard]] static XmlValueRef AttributeRef(int32_t element, int32_t attribute);

    /// Stores an edit. False, and the reason in `errorText` when given, when the text cannot stand
    /// there. A text equal to the current one is accepted and changes nothing.
    bool SetValue(const XmlValueRef& target, std::wstring_view newText,
                  std::wstring* errorText = nullptr);

    /// The text with all edits in their places.
    [[nodiscard]] std::wstring Serialize() const;
    /// Serialises, encodes and replaces the file; see load/document_saver.cpp.
    [[nodiscard]] bool Save(const std::wstring& path);

    std::wstring text;           // never changes after the parse
    std::vector<XmlNode> nodes;  // in document order
    std::vector<XmlAttribute> attributes;
    int32_t root = -1;       // the document node, 0; -1 before a successful parse
    bool malformed = false;  // tags did not balance
    bool modified = false;
    TextEncoding encoding{.name = L"UTF-8"};
    std::unordered_map<int32_t, std::wstring> nodeEdits;       // by node
    std::unordered_map<int32_t, std::wstring> attributeEdits;  // by attribute

private:
    [[nodiscard]] const XmlNode& NodeAt(int32_t node) const {
        return nodes[static_cast<size_t>(node)];
    }
    [[nodiscard]] std::wstring_view Span(uint32_t offset, uint32_t length) const {
        return std::wstring_view(text).substr(offset, length);
    }
    void AppendValue(int32_t node, std::wstring& out) const;
};

/// Text with the five named references and character references resolved; unknown ones stay.
[[nodiscard]] std::wstring DecodeEntities(std::wstring_view text);
[[nodiscard]] std::wstring EscapeText(std::wstring_view text);
/// The same for a value that stands between two `quote` characters.
[[nodiscard]] std::wstring EscapeAttribute(std::wstring_view text, wchar_t quote);

}  // namespace rl
