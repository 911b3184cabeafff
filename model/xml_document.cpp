#include "model/xml_document.h"

#include <limits>
#include <utility>

#include "model/xml_parser.h"
#include "model/xml_text.h"

namespace rl {

namespace {

/// Why a text cannot stand there; empty when it can.
std::wstring_view RefusalOf(XmlKind kind, std::wstring_view text) {
    const auto holds = [text](std::wstring_view part) {
        return text.find(part) != std::wstring_view::npos;
    };
    switch (kind) {
        case XmlKind::Text: return {};
        case XmlKind::Comment:
            return holds(L"--") || text.ends_with(L'-') ? L"COMMENT CANNOT CONTAIN --" : L"";
        case XmlKind::Cdata: return holds(L"]]>") ? L"CDATA CANNOT CONTAIN ]]>" : L"";
        case XmlKind::ProcessingInstruction: return holds(L"?>") ? L"PI CANNOT CONTAIN ?>" : L"";
        default: return L"READ ONLY";
    }
}

XmlValueRef::Kind RefKindOf(XmlKind kind) {
    switch (kind) {
        case XmlKind::Text: return XmlValueRef::Kind::Text;
        case XmlKind::Comment: return XmlValueRef::Kind::Comment;
        case XmlKind::Cdata: return XmlValueRef::Kind::Cdata;
        case XmlKind::ProcessingInstruction: return XmlValueRef::Kind::ProcessingInstruction;
        default: return XmlValueRef::Kind::None;
    }
}

}  // namespace

bool XmlDocument::Parse(std::wstring newText, const AbandonCheck& abandoned) {
    text = std::move(newText);
    nodes.clear();
    attributes.clear();
    nodeEdits.clear();
    attributeEdits.clear();
    root = -1;
    malformed = false;
    modified = false;
    if (text.size() > std::numeric_limits<uint32_t>::max()) {
        return false;
    }
    const XmlParseResult result = ParseXml(text, nodes, attributes, abandoned);
    if (!result.hasElement) {
        std::vector<XmlNode>().swap(nodes);
        std::vector<XmlAttribute>().swap(attributes);
        return false;
    }
    malformed = result.malformed;
    root = 0;
    return true;
}

int32_t XmlDocument::FirstElement() const {
    int32_t child = nodes.empty() ? -1 : nodes[0].firstChild;
    while (child >= 0 && nodes[static_cast<size_t>(child)].kind != XmlKind::Element) {
        child = nodes[static_cast<size_t>(child)].nextSibling;
    }
    return child;
}

std::wstring_view XmlDocument::NodeName(int32_t node) const {
    const XmlNode& at = nodes[static_cast<size_t>(node)];
    switch (at.kind) {
        case XmlKind::Document: return L"#DOCUMENT";
        case XmlKind::Text: return L"#TEXT";
        case XmlKind::Comment: return L"#COMMENT";
        case XmlKind::Cdata: return L"#CDATA";
        case XmlKind::Doctype: return {};
        default: return std::wstring_view(text).substr(at.nameOffset, at.nameLength);
    }
}

std::wstring XmlDocument::NodeValue(int32_t node) const {
    std::wstring value;
    ReadNodeValue(node, value);
    return value;
}

void XmlDocument::ReadNodeValue(int32_t node, std::wstring& out) const {
    const XmlNode& at = nodes[static_cast<size_t>(node)];
    if (at.kind == XmlKind::Element) {
        ReadInnerText(node, out);
        return;
    }
    out.clear();
    AppendContent(node, out);
}

void XmlDocument::AppendContent(int32_t node, std::wstring& out) const {
    if (!nodeEdits.empty()) {
        const auto edit = nodeEdits.find(node);
        if (edit != nodeEdits.end()) {
            out += edit->second;
            return;
        }
    }
    const XmlNode& at = nodes[static_cast<size_t>(node)];
    const std::wstring_view raw = std::wstring_view(text).substr(at.valueOffset, at.valueLength);
    if (at.kind == XmlKind::Text) {
        DecodeXmlText(raw, out);
    } else {
        out += raw;
    }
}

std::wstring XmlDocument::InnerText(int32_t element) const {
    std::wstring inner;
    ReadInnerText(element, inner);
    return inner;
}

// Down and up along the links of the nodes themselves: nothing limits the depth of a file.
void XmlDocument::ReadInnerText(int32_t element, std::wstring& out) const {
    out.clear();
    int32_t node = nodes[static_cast<size_t>(element)].firstChild;
    while (node >= 0) {
        const XmlNode& at = nodes[static_cast<size_t>(node)];
        if (at.kind == XmlKind::Text || at.kind == XmlKind::Cdata) {
            AppendContent(node, out);
        }
        if (at.firstChild >= 0) {
            node = at.firstChild;
            continue;
        }
        while (node != element && nodes[static_cast<size_t>(node)].nextSibling < 0) {
            node = nodes[static_cast<size_t>(node)].parent;
        }
        if (node == element) {
            return;
        }
        node = nodes[static_cast<size_t>(node)].nextSibling;
    }
}

std::wstring_view XmlDocument::AttributeName(int32_t attribute) const {
    const XmlAttribute& at = attributes[static_cast<size_t>(attribute)];
    return std::wstring_view(text).substr(at.nameOffset, at.nameLength);
}

std::wstring XmlDocument::AttributeValue(int32_t attribute) const {
    std::wstring value;
    ReadAttributeValue(attribute, value);
    return value;
}

void XmlDocument::ReadAttributeValue(int32_t attribute, std::wstring& out) const {
    if (!attributeEdits.empty()) {
        const auto edit = attributeEdits.find(attribute);
        if (edit != attributeEdits.end()) {
            out = edit->second;
            return;
        }
    }
    const XmlAttribute& at = attributes[static_cast<size_t>(attribute)];
    out.clear();
    DecodeXmlText(std::wstring_view(text).substr(at.valueOffset, at.valueLength), out);
}

bool XmlDocument::HasNonTextChild(int32_t node) const {
    int32_t child = nodes[static_cast<size_t>(node)].firstChild;
    while (child >= 0 && nodes[static_cast<size_t>(child)].kind == XmlKind::Text) {
        child = nodes[static_cast<size_t>(child)].nextSibling;
    }
    return child >= 0;
}

bool XmlDocument::HasElementChild(int32_t node) const {
    int32_t child = nodes[static_cast<size_t>(node)].firstChild;
    while (child >= 0 && nodes[static_cast<size_t>(child)].kind != XmlKind::Element) {
        child = nodes[static_cast<size_t>(child)].nextSibling;
    }
    return child >= 0;
}

XmlValueRef XmlDocument::ValueRefOf(int32_t node) const {
    const XmlNode& at = nodes[static_cast<size_t>(node)];
    if (at.kind != XmlKind::Element) {
        const XmlValueRef::Kind kind = RefKindOf(at.kind);
        return kind == XmlValueRef::Kind::None ? XmlValueRef() : XmlValueRef{kind, node, -1};
    }
    if (at.childCount != 1) {
        return {};
    }
    const XmlKind only = nodes[static_cast<size_t>(at.firstChild)].kind;
    return only == XmlKind::Text || only == XmlKind::Cdata
               ? XmlValueRef{XmlValueRef::Kind::OnlyChild, at.firstChild, -1}
               : XmlValueRef();
}

XmlValueRef XmlDocument::AttributeRef(int32_t element, int32_t attribute) {
    return {XmlValueRef::Kind::Attribute, element, attribute};
}

bool XmlDocument::SetValue(const XmlValueRef& target, std::wstring_view newText,
                           std::wstring* errorText) {
    const bool isAttribute = target.kind == XmlValueRef::Kind::Attribute;
    std::wstring_view refusal;
    if (target.kind == XmlValueRef::Kind::None) {
        refusal = L"READ ONLY";
    } else if (!isAttribute) {
        refusal = RefusalOf(nodes[static_cast<size_t>(target.node)].kind, newText);
    }
    if (!refusal.empty()) {
        if (errorText != nullptr) {
            *errorText = refusal;
        }
        return false;
    }
    std::wstring value(newText);
    if (value == (isAttribute ? AttributeValue(target.attribute) : NodeValue(target.node))) {
        return true;
    }
    if (isAttribute) {
        attributeEdits[target.attribute] = std::move(value);
    } else {
        nodeEdits[target.node] = std::move(value);
    }
    modified = true;
    return true;
}

}  // namespace rl
