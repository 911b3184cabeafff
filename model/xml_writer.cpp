#include "model/xml_writer.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace rl {

namespace {

struct Replacement {
    uint32_t start;
    uint32_t length;
    std::wstring text;
};

/// Blanks alone between two tags are no text node: read again, the value would be gone. One of them
/// as a reference, which means the same, keeps it.
std::wstring TextContent(std::wstring_view value) {
    constexpr std::wstring_view kBlanks = L" \t\r\n";
    if (value.empty() || value.find_first_not_of(kBlanks) != std::wstring_view::npos) {
        return EscapeText(value);
    }
    return L"&#" + std::to_wstring(static_cast<int>(value.front())) + L";" +
           std::wstring(value.substr(1));
}

Replacement ReplaceNode(const XmlNode& node, const std::wstring& value) {
    Replacement change{.start = node.valueOffset, .length = node.valueLength, .text = {}};
    if (node.kind == XmlKind::Text) {
        change.text = TextContent(value);
        return change;
    }
    // Data that had none before it would become part of the target.
    const bool touchesTarget = node.kind == XmlKind::ProcessingInstruction && !value.empty() &&
                               node.valueOffset == node.nameOffset + node.nameLength;
    change.text = touchesTarget ? L" " + value : value;
    return change;
}

std::vector<Replacement> ReplacementsInOrder(const XmlDocument& document) {
    std::vector<Replacement> changes;
    changes.reserve(document.nodeEdits.size() + document.attributeEdits.size());
    for (const auto& [node, value] : document.nodeEdits) {
        changes.push_back(ReplaceNode(document.nodes[static_cast<size_t>(node)], value));
    }
    for (const auto& [index, value] : document.attributeEdits) {
        const XmlAttribute& attribute = document.attributes[static_cast<size_t>(index)];
        changes.push_back({.start = attribute.valueOffset,
                           .length = attribute.valueLength,
                           .text = EscapeAttribute(value, static_cast<wchar_t>(attribute.quote))});
    }
    std::ranges::sort(changes, {}, &Replacement::start);
    return changes;
}

}  // namespace

std::wstring WriteXml(const XmlDocument& document) {
    const std::vector<Replacement> changes = ReplacementsInOrder(document);
    size_t size = document.text.size();
    for (const Replacement& change : changes) {
        size += change.text.size() - change.length;  // the sum stays positive
    }
    std::wstring out;
    out.reserve(size);
    size_t copied = 0;
    for (const Replacement& change : changes) {
        out.append(document.text, copied, change.start - copied);
        out += change.text;
        copied = size_t{change.start} + change.length;
    }
    out.append(document.text, copied);
    return out;
}

std::wstring XmlDocument::Serialize() const {
    return WriteXml(*this);
}

}  // namespace rl
