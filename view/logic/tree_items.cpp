#include "view/logic/tree_items.h"

#include <algorithm>

namespace rl {

namespace {

constexpr size_t kLongestLabel = 1024;

}  // namespace

std::vector<int32_t> TreeItems::TopNodes() const {
    if (json_ != nullptr && json_->root >= 0) {
        return {json_->root};
    }
    return xml_ != nullptr && xml_->root >= 0 ? Children(xml_->root) : std::vector<int32_t>();
}

std::vector<int32_t> TreeItems::Children(int32_t node) const {
    if (json_ != nullptr) {
        return json_->ChildIndices(node);
    }
    std::vector<int32_t> elements;
    for (int32_t child = xml_->nodes[static_cast<size_t>(node)].firstChild; child >= 0;
         child = xml_->nodes[static_cast<size_t>(child)].nextSibling) {
        if (IsListed(child)) {
            elements.push_back(child);
        }
    }
    return elements;
}

bool TreeItems::HasChildren(int32_t node) const {
    return json_ != nullptr ? json_->nodes[static_cast<size_t>(node)].childCount > 0
                            : xml_->HasElementChild(node);
}

bool TreeItems::IsListed(int32_t node) const {
    return json_ != nullptr || xml_->nodes[static_cast<size_t>(node)].kind == XmlKind::Element;
}

int32_t TreeItems::ParentOf(int32_t node) const {
    return json_ != nullptr ? json_->nodes[static_cast<size_t>(node)].parent
                            : xml_->nodes[static_cast<size_t>(node)].parent;
}

std::vector<int32_t> TreeItems::PathTo(int32_t node) const {
    std::vector<int32_t> path;
    const int32_t above = json_ != nullptr ? -1 : 0;  // XML's document node is not an item
    for (; node > above && IsListed(node); node = ParentOf(node)) {
        path.push_back(node);
        if (json_ != nullptr && node == json_->root) {
            break;
        }
    }
    std::ranges::reverse(path);
    return path;
}

std::wstring TreeItems::FullLabel(int32_t node, int32_t position) const {
    if (xml_ != nullptr) {
        return std::wstring(xml_->NodeName(node));
    }
    if (node == json_->root) {
        return json_->salvaged ? L"<<malformed>>" : L"<<root>>";
    }
    return json_->nodes[static_cast<size_t>(node)].hasKey != 0
               ? json_->KeyText(node)
               : L"[" + std::to_wstring(position) + L"]";
}

std::wstring TreeItems::Label(int32_t node, int32_t position) const {
    std::wstring label = FullLabel(node, position);
    label.resize(std::min({label.size(), label.find(L'\0'), kLongestLabel}));
    return label;
}

}  // namespace rl
