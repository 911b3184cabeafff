#include "model/xml_document.h"

#include <utility>

#include "model/xml_parser.h"
#include "model/xml_text.h"

namespace rl {

namespace {

constexpr std::wstring_view kReadOnly = L"READ ONLY";
constexpr std::wstring_view kBadComment = L"COMMENT CANNOT CONTAIN --";
constexpr std::wstring_view kBadCdata = L"CDATA CANNOT CONTAIN ]]>";
constexpr std::wstring_view kBadInstruction = L"PI CANNOT CONTAIN ?>";

/// Why `text` cannot be the value of a node; empty when it can.
std::wstring_view WhyRefused(XmlKind kind, std::wstring_view text) {
    switch (kind) {
        case XmlKind::Text: return {};
        case XmlKind::Comment:
            return text.contains(L"--") || text.ends_with(L'-') ? kBadComment : L"";
        case XmlKind::Cdata: return text.contains(L"]]>") ? kBadCdata : L"";
        case XmlKind::ProcessingInstruction: return text.contains(L"?>") ? kBadInstruction : L"";
        default: return kReadOnly;
    }
}

/// Whether a reference of this kind may name a node of that kind.
bool IsRefTo(XmlValueRef::Kind ref, XmlKind kind) {
    switch (ref) {
        case XmlValueRef::Kind::Text: return kind == XmlKind::Text;
        case XmlValueRef::Kind::Comment: return kind == XmlKind::Comment;
        case XmlValueRef::Kind::Cdata: return kind == XmlKind::Cdata;
        case XmlValueRef::Kind::ProcessingInstruction:
            return kind == XmlKind::ProcessingInstruction;
        case XmlValueRef::Kind::OnlyChild: return kind == XmlKind::Text || kind == XmlKind::Cdata;
        default: return false;
    }
}

template <typename Item>
bool Holds(const std::vector<Item>& items, int32_t index) {
    return index >= 0 && static_cast<size_t>(index) < items.size();
}

bool Refuse(std::wstring_view reason, std::wstring* errorText) {
    if (errorText != nullptr) {
        *errorText = reason;
    }
    return false;
}

}  // namespace

bool XmlDocument::Parse(std::wstring newText, const AbandonCheck& abandoned) {
    text = std::move(newText);
    nodes = {};
    attributes = {};
    root = -1;
    malformed = false;
    modified = false;
    nodeEdits.clear();
    attributeEdits.clear();
    std::optional<XmlTree> tree = ParseXml(text, abandoned);
    if (!tree) {
        return false;
    }
    nodes = std::move(tree->nodes);
    attributes = std::move(tree->attributes);
    malformed = tree->malformed;
    root = 0;
    if (FirstElement() < 0) {
        root = -1;
        return false;
    }
    return true;
}

int32_t XmlDocument::FirstElement() const {
    int32_t child = root < 0 ? -1 : NodeAt(root).firstChild;
    while (child >= 0 && NodeAt(child).kind != XmlKind::Element) {
        child = NodeAt(child).nextSibling;
    }
    return child;
}

std::wstring_view XmlDocument::NodeName(int32_t node) const {
    const XmlNode& named = NodeAt(node);
    switch (named.kind) {
        case XmlKind::Document: return L"#DOCUMENT";
        case XmlKind::Text: return L"#TEXT";
        case XmlKind::Comment: return L"#COMMENT";
        case XmlKind::Cdata: return L"#CDATA";
        case XmlKind::Doctype: return {};
        default: return Span(named.nameOffset, named.nameLength);
    }
}

std::wstring XmlDocument::NodeValue(int32_t node) const {
    std::wstring value;
    ReadNodeValue(node, value);
    return value;
}

std::wstring XmlDocument::InnerText(int32_t element) const {
    std::wstring value;
    ReadInnerText(element, value);
    return value;
}

std::wstring_view XmlDocument::AttributeName(int32_t attribute) const {
    const XmlAttribute& named = attributes[static_cast<size_t>(attribute)];
    return Span(named.nameOffset, named.nameLength);
}

std::wstring XmlDocument::AttributeValue(int32_t attribute) const {
    std::wstring value;
    ReadAttributeValue(attribute, value);
    return value;
}

void XmlDocument::ReadNodeValue(int32_t node, std::wstring& out) const {
    if (NodeAt(node).kind == XmlKind::Element) {
        ReadInnerText(node, out);
    } else {
        out.clear();
        AppendValue(node, out);
    }
}

void XmlDocument::ReadInnerText(int32_t element, std::wstring& out) const {
    out.clear();
    // Descendants stand right behind the element, and their parents not before it.
    const auto first = static_cast<size_t>(element) + 1;
    for (size_t i = first; i < nodes.size() && nodes[i].parent >= element; ++i) {
        if (nodes[i].kind == XmlKind::Text || nodes[i].kind == XmlKind::Cdata) {
            AppendValue(static_cast<int32_t>(i), out);
        }
    }
}

void XmlDocument::ReadAttributeValue(int32_t attribute, std::wstring& out) const {
    out.clear();
    if (!attributeEdits.empty()) {
        if (const auto edit = attributeEdits.find(attribute); edit != attributeEdits.end()) {
            out = edit->second;
            return;
        }
    }
    const XmlAttribute& read = attributes[static_cast<size_t>(attribute)];
    AppendDecodedEntities(Span(read.valueOffset, read.valueLength), out);
}

void XmlDocument::AppendValue(int32_t node, std::wstring& out) const {
    if (!nodeEdits.empty()) {
        if (const auto edit = nodeEdits.find(node); edit != nodeEdits.end()) {
            out += edit->second;
            return;
        }
    }
    const XmlNode& read = NodeAt(node);
    const std::wstring_view raw = Span(read.valueOffset, read.valueLength);
    if (read.kind == XmlKind::Text) {
        AppendDecodedEntities(raw, out);
    } else {
        out += raw;
    }
}

bool XmlDocument::HasNonTextChild(int32_t node) const {
    int32_t child = NodeAt(node).firstChild;
    while (child >= 0 && NodeAt(child).kind == XmlKind::Text) {
        child = NodeAt(child).nextSibling;
    }
    return child >= 0;
}

bool XmlDocument::HasElementChild(int32_t node) const {
    int32_t child = NodeAt(node).firstChild;
    while (child >= 0 && NodeAt(child).kind != XmlKind::Element) {
        child = NodeAt(child).nextSibling;
    }
    return child >= 0;
}

XmlValueRef XmlDocument::ValueRefOf(int32_t node) const {
    using Kind = XmlValueRef::Kind;
    const XmlNode& referred = NodeAt(node);
    switch (referred.kind) {
        case XmlKind::Element:
            if (referred.childCount == 1 &&
                IsRefTo(Kind::OnlyChild, NodeAt(referred.firstChild).kind)) {
                return {.kind = Kind::OnlyChild, .node = referred.firstChild};
            }
            return {};
        case XmlKind::Text: return {.kind = Kind::Text, .node = node};
        case XmlKind::Comment: return {.kind = Kind::Comment, .node = node};
        case XmlKind::Cdata: return {.kind = Kind::Cdata, .node = node};
        case XmlKind::ProcessingInstruction:
            return {.kind = Kind::ProcessingInstruction, .node = node};
        default: return {};
    }
}

XmlValueRef XmlDocument::AttributeRef(int32_t element, int32_t attribute) {
    return {.kind = XmlValueRef::Kind::Attribute, .node = element, .attribute = attribute};
}

bool XmlDocument::SetValue(const XmlValueRef& target, std::wstring_view newText,
                           std::wstring* errorText) {
    if (target.kind == XmlValueRef::Kind::Attribute) {
        if (!Holds(attributes, target.attribute)) {
            return Refuse(kReadOnly, errorText);
        }
        if (newText != AttributeValue(target.attribute)) {
            attributeEdits.insert_or_assign(target.attribute, std::wstring(newText));
            modified = true;
        }
        return true;
    }
    if (!Holds(nodes, target.node) || !IsRefTo(target.kind, NodeAt(target.node).kind)) {
        return Refuse(kReadOnly, errorText);
    }
    const std::wstring_view reason = WhyRefused(NodeAt(target.node).kind, newText);
    if (!reason.empty()) {
        return Refuse(reason, errorText);
    }
    if (newText != NodeValue(target.node)) {
        nodeEdits.insert_or_assign(target.node, std::wstring(newText));
        modified = true;
    }
    return true;
}

}  // namespace rl
