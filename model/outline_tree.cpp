#include "model/outline_tree.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "load/text/ascii_case.h"

namespace rl {

namespace {

constexpr std::wstring_view kMalformed = L"<<malformed>>";

constexpr bool IsLineUnit(wchar_t unit) {
    return unit == L'\r' || unit == L'\n' || unit == L'\t';
}

size_t At(int32_t index) {
    return static_cast<size_t>(index);
}

std::wstring ItemCount(const JsonNode& node) {
    if (node.childCount == 0) {
        return node.kind == JsonKind::Array ? L"[ ]" : L"{ }";
    }
    return std::to_wstring(node.childCount) + (node.childCount == 1 ? L" item" : L" items");
}

void AppendNumber(uint32_t number, std::wstring& out) {
    wchar_t digits[10];
    wchar_t* first = std::end(digits);
    do {
        *--first = static_cast<wchar_t>(L'0' + number % 10);
        number /= 10;
    } while (number != 0);
    out.append(first, std::end(digits));
}

/// The first attribute of one of the names that tell elements apart; -1 when there is none.
int32_t NamingAttribute(const XmlDocument& document, const XmlNode& node) {
    constexpr std::wstring_view kNames[] = {L"name", L"id", L"key"};
    int32_t found[std::size(kNames)] = {-1, -1, -1};
    for (uint32_t i = 0; i < node.attributeCount && found[0] < 0; ++i) {
        const auto attribute = static_cast<int32_t>(node.firstAttribute + i);
        const std::wstring_view name = document.AttributeName(attribute);
        for (size_t k = 0; k < std::size(kNames); ++k) {
            if (found[k] < 0 && EqualAsciiCase(name, kNames[k])) {
                found[k] = attribute;
            }
        }
    }
    const auto* best =
        std::ranges::find_if(found, [](int32_t attribute) { return attribute >= 0; });
    return best == std::end(found) ? -1 : *best;
}

}  // namespace

int32_t OutlineTree::Size() const {
    return static_cast<int32_t>(json_ != nullptr ? json_->nodes.size() : xml_->nodes.size());
}

int32_t OutlineTree::Parent(int32_t node) const {
    return json_ != nullptr ? json_->nodes[At(node)].parent : xml_->nodes[At(node)].parent;
}

int32_t OutlineTree::FirstChild(int32_t node) const {
    return json_ != nullptr ? json_->nodes[At(node)].firstChild : xml_->nodes[At(node)].firstChild;
}

int32_t OutlineTree::NextSibling(int32_t node) const {
    return json_ != nullptr ? json_->nodes[At(node)].nextSibling
                            : xml_->nodes[At(node)].nextSibling;
}

bool OutlineTree::IsRow(int32_t node) const {
    return json_ != nullptr || xml_->nodes[At(node)].kind != XmlKind::Text;
}

bool OutlineTree::HasChildren(int32_t node) const {
    if (json_ != nullptr) {
        return json_->nodes[At(node)].firstChild >= 0;
    }
    return xml_->nodes[At(node)].attributeCount > 0 || xml_->HasNonTextChild(node);
}

int32_t OutlineTree::FirstAttribute(int32_t node) const {
    return json_ != nullptr ? 0 : static_cast<int32_t>(xml_->nodes[At(node)].firstAttribute);
}

int32_t OutlineTree::AttributeCount(int32_t node) const {
    return json_ != nullptr ? 0 : static_cast<int32_t>(xml_->nodes[At(node)].attributeCount);
}

void OutlineTree::ReadName(int32_t node, int32_t position, std::wstring& out) const {
    if (xml_ != nullptr) {
        const bool isDocument = xml_->nodes[At(node)].kind == XmlKind::Document;
        out = !isDocument       ? xml_->NodeName(node)
              : xml_->malformed ? kMalformed
                                : std::wstring_view(L"#document");
    } else if (json_->nodes[At(node)].hasKey != 0) {
        json_->ReadKey(node, out);
    } else if (position >= 0) {
        out.assign(1, L'[');
        AppendNumber(static_cast<uint32_t>(position), out);
        out.push_back(L']');
    } else {
        out = json_->salvaged ? kMalformed : std::wstring_view(L"<<root>>");
    }
}

void OutlineTree::ReadValue(int32_t node, std::wstring& out) const {
    out.clear();
    if (json_ != nullptr) {
        if (!json_->nodes[At(node)].IsContainer()) {
            json_->ReadDisplay(node, out);
        }
        return;
    }
    const XmlKind kind = xml_->nodes[At(node)].kind;
    if (kind != XmlKind::Document && (kind != XmlKind::Element || !xml_->HasNonTextChild(node))) {
        xml_->ReadNodeValue(node, out);
    }
}

void OutlineTree::ReadAttributeName(int32_t attribute, std::wstring& out) const {
    out = xml_->AttributeName(attribute);
}

void OutlineTree::ReadAttributeValue(int32_t attribute, std::wstring& out) const {
    xml_->ReadAttributeValue(attribute, out);
}

std::wstring OutlineTree::SummaryText(int32_t node) const {
    std::wstring text;
    if (json_ != nullptr) {
        const JsonNode& value = json_->nodes[At(node)];
        return value.IsContainer() ? ItemCount(value) : text;
    }
    const XmlNode& element = xml_->nodes[At(node)];
    const int32_t attribute =
        element.kind == XmlKind::Element ? NamingAttribute(*xml_, element) : -1;
    if (attribute >= 0) {
        xml_->ReadAttributeValue(attribute, text);
        FoldOntoOneLine(text);
    }
    return text;
}

bool OutlineTree::IsValueEditable(int32_t node) const {
    if (json_ != nullptr) {
        return !json_->nodes[At(node)].IsContainer();
    }
    const XmlKind kind = xml_->nodes[At(node)].kind;
    return kind == XmlKind::Text || kind == XmlKind::Comment || kind == XmlKind::Cdata ||
           kind == XmlKind::ProcessingInstruction;
}

int32_t ArrayPositions::Next(int32_t node) {
    if (json_ == nullptr) {
        return -1;
    }
    const JsonNode& value = json_->nodes[At(node)];
    while (!open_.empty() && open_.back().node != value.parent) {
        open_.pop_back();
    }
    int32_t position = -1;
    if (!open_.empty() && value.hasKey == 0) {
        position = open_.back().next++;
    }
    if (value.firstChild >= 0) {
        open_.push_back({.node = node, .next = 0});
    }
    return position;
}

void FoldOntoOneLine(std::wstring& text) {
    const auto first = std::ranges::find_if(text, IsLineUnit);
    auto out = first;
    bool inRun = false;
    for (auto in = first; in != text.end(); ++in) {
        const wchar_t unit = *in;
        if (!IsLineUnit(unit)) {
            *out++ = unit;
        } else if (!inRun) {
            *out++ = L' ';
        }
        inRun = IsLineUnit(unit);
    }
    text.erase(out, text.end());
}

}  // namespace rl
