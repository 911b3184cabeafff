#include "model/node_paths.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "model/name_hash.h"
#include "model/name_units.h"

namespace rl {

namespace {

bool IsIdentifier(std::wstring_view key) {
    return !key.empty() && (IsAlphabetic(key.front()) || key.front() == L'_') &&
           std::ranges::all_of(key.substr(1),
                               [](wchar_t unit) { return IsAlphanumeric(unit) || unit == L'_'; });
}

void AppendKey(std::wstring_view key, std::wstring& out) {
    if (IsIdentifier(key)) {
        out += L'.';
        out += key;
        return;
    }
    out += L"['";
    for (const wchar_t unit : key) {
        if (unit == L'\'' || unit == L'\\') {
            out += L'\\';
        }
        out += unit;
    }
    out += L"']";
}

void AppendIndex(int32_t index, std::wstring& out) {
    out += L'[';
    out += std::to_wstring(index);
    out += L']';
}

template <typename Document>
auto& NodeOf(Document& document, int32_t node) {
    return document.nodes[static_cast<size_t>(node)];
}

/// The node and all above it but the topmost, from the top down.
template <typename Document>
std::vector<int32_t> StepsTo(const Document& document, int32_t node) {
    std::vector<int32_t> steps;
    for (int32_t at = node; at >= 0 && NodeOf(document, at).parent >= 0;
         at = NodeOf(document, at).parent) {
        steps.push_back(at);
    }
    std::ranges::reverse(steps);
    return steps;
}

template <typename PlaceOf>
std::wstring JsonPath(const JsonDocument& document, int32_t node, const PlaceOf& placeOf) {
    std::wstring path = L"$";
    std::wstring key;
    for (const int32_t step : StepsTo(document, node)) {
        if (NodeOf(document, step).hasKey != 0) {
            document.ReadKey(step, key);
            AppendKey(key, path);
        } else {
            AppendIndex(placeOf(step), path);
        }
    }
    return path;
}

/// `indexOf` answers 0 for an element whose name no sibling has.
template <typename IndexOf>
std::wstring XPath(const XmlDocument& document, int32_t node, const IndexOf& indexOf) {
    std::wstring path;
    for (const int32_t step : StepsTo(document, node)) {
        const XmlKind kind = NodeOf(document, step).kind;
        if (kind == XmlKind::Text) {
            path += L"/text()";
        } else if (kind == XmlKind::Element) {
            path += L'/';
            path += document.NodeName(step);
            if (const int32_t index = indexOf(step); index > 0) {
                AppendIndex(index, path);
            }
        }
    }
    return path;
}

std::wstring WithAttribute(std::wstring path, const XmlDocument& document, int32_t attribute) {
    path += L"/@";
    path += document.AttributeName(attribute);
    return path;
}

int32_t CountedPosition(const JsonDocument& document, int32_t node) {
    int32_t position = 0;
    int32_t at = NodeOf(document, NodeOf(document, node).parent).firstChild;
    for (; at >= 0 && at != node; at = NodeOf(document, at).nextSibling) {
        ++position;
    }
    return position;
}

int32_t CountedIndex(const XmlDocument& document, int32_t node) {
    const std::wstring_view name = document.NodeName(node);
    int32_t index = 0;
    int32_t count = 0;
    int32_t at = NodeOf(document, NodeOf(document, node).parent).firstChild;
    for (; at >= 0 && (index == 0 || count < 2); at = NodeOf(document, at).nextSibling) {
        if (NodeOf(document, at).kind == XmlKind::Element && document.NodeName(at) == name) {
            ++count;
            index = at == node ? count : index;
        }
    }
    return count > 1 ? index : 0;
}

}  // namespace

std::wstring JsonPathOf(const JsonDocument& document, int32_t node) {
    return JsonPath(document, node, [&](int32_t step) { return CountedPosition(document, step); });
}

std::wstring XPathOf(const XmlDocument& document, int32_t node) {
    return XPath(document, node, [&](int32_t step) { return CountedIndex(document, step); });
}

std::wstring XPathOfAttribute(const XmlDocument& document, int32_t element, int32_t attribute) {
    return WithAttribute(XPathOf(document, element), document, attribute);
}

std::wstring JsonPaths::Of(int32_t node) {
    return JsonPath(document_, node, [this](int32_t step) { return PlaceOf(step); });
}

int32_t JsonPaths::PlaceOf(int32_t node) {
    if (places_[static_cast<size_t>(node)] == 0) {
        int32_t place = 0;
        int32_t at = NodeOf(document_, NodeOf(document_, node).parent).firstChild;
        for (; at >= 0; at = NodeOf(document_, at).nextSibling) {
            places_[static_cast<size_t>(at)] = ++place;
        }
    }
    return places_[static_cast<size_t>(node)] - 1;
}

std::wstring XmlPaths::Of(int32_t node) {
    return XPath(document_, node, [this](int32_t step) { return PlaceOf(step); });
}

std::wstring XmlPaths::OfAttribute(int32_t element, int32_t attribute) {
    return WithAttribute(Of(element), document_, attribute);
}

int32_t XmlPaths::PlaceOf(int32_t node) {
    if (places_[static_cast<size_t>(node)] == 0) {
        FindPlacesBelow(NodeOf(document_, node).parent);
    }
    return places_[static_cast<size_t>(node)] - 1;
}

void XmlPaths::FindPlacesBelow(int32_t parent) {
    struct Group {
        int32_t first = -1;
        int32_t count = 0;
    };
    std::unordered_map<std::wstring_view, Group, NameHash> groups;
    int32_t at = NodeOf(document_, parent).firstChild;
    for (; at >= 0; at = NodeOf(document_, at).nextSibling) {
        if (NodeOf(document_, at).kind != XmlKind::Element) {
            continue;
        }
        Group& group = groups[document_.NodeName(at)];
        int32_t& place = places_[static_cast<size_t>(at)];
        ++group.count;
        if (group.count == 1) {
            group.first = at;
            place = 1;
        } else {
            places_[static_cast<size_t>(group.first)] = 2;
            place = group.count + 1;
        }
    }
}

}  // namespace rl
