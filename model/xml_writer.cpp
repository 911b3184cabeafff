// The XML text again: edited values in their places, all else as it stands.
#include <algorithm>
#include <cstddef>
#include <vector>

#include "model/xml_document.h"
#include "model/xml_text.h"

namespace rl {

namespace {

struct Replacement {
    size_t begin;
    size_t end;
    std::wstring text;
};

Replacement ReplaceNode(const XmlDocument& document, int32_t node, const std::wstring& value) {
    const XmlNode& at = document.nodes[static_cast<size_t>(node)];
    Replacement made{at.valueOffset, size_t{at.valueOffset} + at.valueLength, {}};
    if (at.kind == XmlKind::Text) {
        EscapeXmlText(value, made.text);
    } else {
        made.text = value;
    }
    return made;
}

Replacement ReplaceAttribute(const XmlDocument& document, int32_t attribute,
                             const std::wstring& value) {
    const XmlAttribute& at = document.attributes[static_cast<size_t>(attribute)];
    Replacement made{at.valueOffset, size_t{at.valueOffset} + at.valueLength, {}};
    EscapeXmlAttribute(value, static_cast<wchar_t>(at.quote), made.text);
    return made;
}

}  // namespace

std::wstring XmlDocument::Serialize() const {
    std::vector<Replacement> replacements;
    replacements.reserve(nodeEdits.size() + attributeEdits.size());
    for (const auto& [node, value] : nodeEdits) {
        replacements.push_back(ReplaceNode(*this, node, value));
    }
    for (const auto& [attribute, value] : attributeEdits) {
        replacements.push_back(ReplaceAttribute(*this, attribute, value));
    }
    std::ranges::sort(replacements, {}, &Replacement::begin);
    std::wstring out;
    out.reserve(text.size());
    size_t done = 0;
    for (const Replacement& one : replacements) {
        out.append(text, done, one.begin - done);
        out += one.text;
        done = one.end;
    }
    out.append(text, done, text.size() - done);
    return out;
}

}  // namespace rl
