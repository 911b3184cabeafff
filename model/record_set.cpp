#include "model/record_set.h"
#include "model/name_hash.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace rl {

namespace {

int64_t CountObjects(const JsonDocument& document, const JsonNode& array) {
    int64_t count = 0;
    for (int32_t at = array.firstChild; at >= 0;) {
        const JsonNode& element = document.nodes[static_cast<size_t>(at)];
        count += element.kind == JsonKind::Object ? 1 : 0;
        at = element.nextSibling;
    }
    return count;
}

/// How many element children share the most frequent name.
int64_t CountLikeChildren(const XmlDocument& document, const XmlNode& parent) {
    std::unordered_map<std::wstring_view, int64_t, NameHash> counts;
    int64_t best = 0;
    int64_t* last = nullptr;  // the count of the name seen last: records mostly follow one another
    std::wstring_view lastName;
    for (int32_t at = parent.firstChild; at >= 0;) {
        const XmlNode& child = document.nodes[static_cast<size_t>(at)];
        if (child.kind == XmlKind::Element) {
            const std::wstring_view name = document.NodeName(at);
            if (last == nullptr || name != lastName) {
                last = &counts[name];
                lastName = name;
            }
            best = std::max(best, ++*last);
        }
        at = child.nextSibling;
    }
    return best;
}

}  // namespace

// Two records at least: whatever has fewer children is not looked into.
RecordSet FindRecordSet(const JsonDocument& document) {
    RecordSet best;
    for (size_t i = 0; i < document.nodes.size(); ++i) {
        const JsonNode& node = document.nodes[i];
        if (node.kind != JsonKind::Array || node.childCount <= std::max<int64_t>(best.size, 1)) {
            continue;
        }
        const int64_t objects = CountObjects(document, node);
        if (objects >= 2 && objects * 2 >= int64_t{node.childCount}) {
            best = {.node = static_cast<int32_t>(i), .size = objects};
        }
    }
    return best;
}

RecordSet FindRecordSet(const XmlDocument& document) {
    RecordSet best;
    for (size_t i = 0; i < document.nodes.size(); ++i) {
        const XmlNode& node = document.nodes[i];
        if (node.kind != XmlKind::Element || node.childCount <= std::max<int64_t>(best.size, 1)) {
            continue;
        }
        const int64_t like = CountLikeChildren(document, node);
        if (like >= 2 && like > best.size) {
            best = {.node = static_cast<int32_t>(i), .size = like};
        }
    }
    return best;
}

}  // namespace rl
