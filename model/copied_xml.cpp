#include "model/copied_xml.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "model/name_hash.h"
#include "model/name_units.h"
#include "model/subtree_walk.h"
#include "model/xml_text_writer.h"

namespace rl {

namespace {

std::wstring XmlNameOf(std::wstring_view name) {
    return IsXmlName(name) ? std::wstring(name) : XmlSafeName(name);
}

class XmlNodeWriter {
public:
    XmlNodeWriter(const XmlDocument& document, XmlTextWriter& out)
        : document_(document), out_(out) {}

    void Write(int32_t top) {
        WalkSubtree(
            document_.nodes, top, [&](int32_t node) { return Start(node, node == top); },
            [this](int32_t node) { out_.EndElement(ElementName(node)); },
            [this] { return out_.IsOver(); });
    }

private:
    [[nodiscard]] const XmlNode& NodeAt(int32_t node) const {
        return document_.nodes[static_cast<size_t>(node)];
    }

    [[nodiscard]] std::wstring ElementName(int32_t node) const {
        return NodeAt(node).kind == XmlKind::Document ? L"root"
                                                      : XmlNameOf(document_.NodeName(node));
    }

    /// True when the node's children come next.
    bool Start(int32_t node, bool isTop);
    bool StartElement(int32_t node);
    void WriteAttributes(const XmlNode& node);
    [[nodiscard]] bool HasTextOrCdata(int32_t node) const;

    const XmlDocument& document_;
    XmlTextWriter& out_;
    std::wstring text_;
};

bool XmlNodeWriter::Start(int32_t node, bool isTop) {
    const XmlNode& started = NodeAt(node);
    if (started.kind == XmlKind::Element || started.kind == XmlKind::Document) {
        return StartElement(node);
    }
    if (started.kind == XmlKind::Doctype) {
        if (isTop) {  // nowhere else is it allowed
            out_.Doctype(std::wstring_view(document_.text)
                             .substr(started.sourceStart, started.sourceEnd - started.sourceStart));
        }
        return false;
    }
    document_.ReadNodeValue(node, text_);
    switch (started.kind) {
        case XmlKind::Comment: out_.Comment(text_); break;
        case XmlKind::Cdata: out_.Cdata(text_); break;
        case XmlKind::ProcessingInstruction:
            out_.Instruction(XmlNameOf(document_.NodeName(node)), text_);
            break;
        default: out_.Text(text_); break;
    }
    return false;
}

bool XmlNodeWriter::StartElement(int32_t node) {
    const XmlNode& element = NodeAt(node);
    out_.BeginElement(ElementName(node));
    WriteAttributes(element);
    if (element.firstChild < 0) {
        out_.EndEmptyElement();
        return false;
    }
    out_.BeginContent(!HasTextOrCdata(node));
    return true;
}

// Of attributes with one name only the first is written: XML has no place for the others.
void XmlNodeWriter::WriteAttributes(const XmlNode& node) {
    std::unordered_set<std::wstring, NameHash> names;
    for (uint32_t i = 0; i < node.attributeCount; ++i) {
        const auto attribute = static_cast<int32_t>(node.firstAttribute + i);
        std::wstring name = XmlNameOf(document_.AttributeName(attribute));
        if (node.attributeCount > 1 && !names.insert(name).second) {
            continue;
        }
        document_.ReadAttributeValue(attribute, text_);
        const auto quote =
            static_cast<wchar_t>(document_.attributes[static_cast<size_t>(attribute)].quote);
        out_.Attribute(name, text_, quote);
    }
}

bool XmlNodeWriter::HasTextOrCdata(int32_t node) const {
    for (int32_t at = NodeAt(node).firstChild; at >= 0; at = NodeAt(at).nextSibling) {
        if (NodeAt(at).kind == XmlKind::Text || NodeAt(at).kind == XmlKind::Cdata) {
            return true;
        }
    }
    return false;
}

/// Whether the children of the document node make a document as they stand.
bool HasOneRoot(const XmlDocument& document, int32_t node) {
    int32_t elements = 0;
    for (int32_t at = document.nodes[static_cast<size_t>(node)].firstChild; at >= 0;) {
        const XmlNode& child = document.nodes[static_cast<size_t>(at)];
        elements += child.kind == XmlKind::Element ? 1 : 0;
        if (child.kind == XmlKind::Text || child.kind == XmlKind::Cdata || elements > 1) {
            return false;
        }
        at = child.nextSibling;
    }
    return elements == 1;
}

/// One DOCTYPE, and before the element, is all that a document may have.
void WriteTopNodes(const XmlDocument& document, int32_t node, XmlTextWriter& out) {
    bool mayDeclare = true;
    for (int32_t at = document.nodes[static_cast<size_t>(node)].firstChild; at >= 0;) {
        const XmlNode& child = document.nodes[static_cast<size_t>(at)];
        const bool isDoctype = child.kind == XmlKind::Doctype;
        if (!isDoctype || mayDeclare) {
            XmlNodeWriter(document, out).Write(at);
        }
        mayDeclare = mayDeclare && !isDoctype && child.kind != XmlKind::Element;
        at = child.nextSibling;
    }
}

class JsonAsXmlWriter {
public:
    JsonAsXmlWriter(const JsonDocument& document, XmlTextWriter& out)
        : document_(document), out_(out) {}

    void Write(int32_t top) {
        WalkSubtree(
            document_.nodes, top, [this](int32_t node) { return Start(node); },
            [this](int32_t node) { out_.EndElement(ElementName(node)); },
            [this] { return out_.IsOver(); });
    }

private:
    [[nodiscard]] const JsonNode& NodeAt(int32_t node) const {
        return document_.nodes[static_cast<size_t>(node)];
    }

    [[nodiscard]] std::wstring ElementName(int32_t node) const {
        if (NodeAt(node).hasKey != 0) {
            return XmlSafeName(document_.KeyText(node));
        }
        return node == document_.root ? L"root" : L"item";
    }

    /// True when the value's children come next.
    bool Start(int32_t node) {
        const JsonNode& value = NodeAt(node);
        const std::wstring name = ElementName(node);
        out_.BeginElement(name);
        text_.clear();
        if (!value.IsContainer()) {
            document_.ReadDisplay(node, text_);
        }
        if (value.firstChild < 0 && text_.empty()) {
            out_.EndEmptyElement();
            return false;
        }
        out_.BeginContent(value.IsContainer());
        if (value.IsContainer()) {
            return true;
        }
        out_.Text(text_);
        out_.EndElement(name);
        return false;
    }

    const JsonDocument& document_;
    XmlTextWriter& out_;
    std::wstring text_;
};

}  // namespace

void WriteCopiedXml(const XmlDocument& document, int32_t node, LimitedText& out) {
    XmlTextWriter writer(out);
    const bool isDocument = document.nodes[static_cast<size_t>(node)].kind == XmlKind::Document;
    if (isDocument && HasOneRoot(document, node)) {
        WriteTopNodes(document, node, writer);
    } else {
        XmlNodeWriter(document, writer).Write(node);
    }
}

void WriteCopiedXmlAttribute(const XmlDocument& document, int32_t attribute, LimitedText& out) {
    const auto quote =
        static_cast<wchar_t>(document.attributes[static_cast<size_t>(attribute)].quote);
    out.Append(XmlNameOf(document.AttributeName(attribute)));
    out.Append(L"=");
    out.Append({&quote, 1});
    out.Append(EscapeAttribute(XmlCharacters(document.AttributeValue(attribute)), quote));
    out.Append({&quote, 1});
}

void WriteCopiedXml(const JsonDocument& document, int32_t node, LimitedText& out) {
    XmlTextWriter writer(out);
    JsonAsXmlWriter(document, writer).Write(node);
}

// A unit that XML allows in no name goes too, however much of a letter it is elsewhere.
std::wstring XmlSafeName(std::wstring_view key) {
    std::wstring name(key);
    for (wchar_t& unit : name) {
        const bool isKept = (IsAlphanumeric(unit) && IsXmlNameUnit(unit)) || unit == L'_' ||
                            unit == L'-' || unit == L'.';
        unit = isKept ? unit : L'_';
    }
    const auto canBegin = [](wchar_t unit) {
        return unit == L'_' || (IsAlphabetic(unit) && IsXmlNameStart(unit));
    };
    if (name.empty() || !canBegin(name.front())) {
        name.insert(name.begin(), L'_');
    }
    return name;
}

}  // namespace rl
