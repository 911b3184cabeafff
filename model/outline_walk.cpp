#include "model/outline_walk.h"

#include <algorithm>
#include <limits>

namespace rl {

namespace {

constexpr uint16_t DepthOf(int32_t depth) {
    constexpr int32_t kDeepest = std::numeric_limits<uint16_t>::max();
    return static_cast<uint16_t>(std::min(depth, kDeepest));
}

constexpr OutlineRowType kJsonTypes[] = {
    OutlineRowType::JsonNull,   OutlineRowType::JsonBoolean, OutlineRowType::JsonNumber,
    OutlineRowType::JsonString, OutlineRowType::JsonArray,   OutlineRowType::JsonObject,
};

constexpr OutlineRowType kXmlTypes[] = {
    OutlineRowType::XmlDocument, OutlineRowType::XmlElement, OutlineRowType::XmlText,
    OutlineRowType::XmlComment,  OutlineRowType::XmlCdata,   OutlineRowType::XmlInstruction,
    OutlineRowType::XmlDoctype,
};

/// Where a walk stands: the node comes next, or -1 when the nodes below `parent` have ended.
struct Place {
    int32_t node = -1;
    int32_t parent = -1;
    int32_t position = -1;  // in the parent array
    int32_t depth = 0;      // 0: only the root stands there

    void ToSibling(int32_t sibling) {
        node = sibling;
        position += position >= 0 ? 1 : 0;
    }
};

template <bool Filtered>
class JsonLister {
public:
    JsonLister(const JsonDocument& document, const OutlineState& state, OutlineRowList& rows)
        : nodes_(document.nodes.data()), flags_(state.flags.data()), rows_(rows) {}

    [[nodiscard]] bool IsListed(int32_t node) const {
        return !Filtered || (flags_[node] & kOutlineListed) != 0;
    }

    [[nodiscard]] int32_t SiblingOf(int32_t node) const { return nodes_[node].nextSibling; }

    bool Append(Place& at) {
        if (!rows_.HasRoom()) {
            return false;
        }
        const int32_t index = at.node;
        const JsonNode& node = nodes_[index];
        const bool hasChildren = node.firstChild >= 0;
        const bool open = hasChildren && (flags_[index] & kOutlineOpen) != 0;
        rows_.Append({.node = index,
                      .aux = at.position,
                      .depth = DepthOf(at.depth),
                      .rowType = kJsonTypes[static_cast<size_t>(node.kind)],
                      .hasChildren = hasChildren,
                      .expanded = open});
        if (open) {
            positions_.push_back(at.position);
            at = {.node = node.firstChild,
                  .parent = index,
                  .position = node.kind == JsonKind::Array ? 0 : -1,
                  .depth = at.depth + 1};
        } else {
            at.ToSibling(node.nextSibling);
        }
        return true;
    }

    void Leave(Place& at) {
        const JsonNode& parent = nodes_[at.parent];
        at.position = positions_.back();
        positions_.pop_back();
        at.parent = parent.parent;
        --at.depth;
        at.ToSibling(parent.nextSibling);
    }

private:
    const JsonNode* nodes_;
    const uint8_t* flags_;
    OutlineRowList& rows_;
    std::vector<int32_t> positions_;  // of the open nodes above, the root first
};

template <bool Filtered>
class XmlLister {
public:
    XmlLister(const XmlDocument& document, const OutlineState& state, OutlineRowList& rows)
        : document_(document),
          nodes_(document.nodes.data()),
          flags_(state.flags.data()),
          attributes_(state.listedAttributes.data()),
          rows_(rows) {}

    [[nodiscard]] bool IsListed(int32_t node) const {
        return Filtered ? (flags_[node] & kOutlineListed) != 0 : nodes_[node].kind != XmlKind::Text;
    }

    [[nodiscard]] int32_t SiblingOf(int32_t node) const { return nodes_[node].nextSibling; }

    bool Append(Place& at) {
        if (!rows_.HasRoom()) {
            return false;
        }
        const int32_t index = at.node;
        const XmlNode& node = nodes_[index];
        const bool hasChildren = node.attributeCount > 0 || HasNonTextChild(node, index);
        const bool open = hasChildren && (flags_[index] & kOutlineOpen) != 0;
        rows_.Append({.node = index,
                      .depth = DepthOf(at.depth),
                      .rowType = kXmlTypes[static_cast<size_t>(node.kind)],
                      .hasChildren = hasChildren,
                      .expanded = open});
        if (!open) {
            at.ToSibling(node.nextSibling);
            return true;
        }
        at = {.node = node.firstChild, .parent = index, .depth = at.depth + 1};
        return AppendAttributes(node, at);
    }

    void Leave(Place& at) {
        const XmlNode& parent = nodes_[at.parent];
        at.node = parent.nextSibling;
        at.parent = parent.parent;
        --at.depth;
    }

private:
    [[nodiscard]] bool HasNonTextChild(const XmlNode& node, int32_t index) const {
        return node.firstChild >= 0 &&
               (nodes_[node.firstChild].kind != XmlKind::Text || document_.HasNonTextChild(index));
    }

    bool AppendAttributes(const XmlNode& node, const Place& below) {
        for (uint32_t i = 0; i < node.attributeCount; ++i) {
            const uint32_t attribute = node.firstAttribute + i;
            if (Filtered && attributes_[attribute] == 0) {
                continue;
            }
            if (!rows_.HasRoom()) {
                return false;
            }
            rows_.Append({.node = below.parent,
                          .aux = static_cast<int32_t>(attribute),
                          .depth = DepthOf(below.depth),
                          .rowType = OutlineRowType::XmlAttribute});
        }
        return true;
    }

    const XmlDocument& document_;
    const XmlNode* nodes_;
    const uint8_t* flags_;
    const uint8_t* attributes_;
    OutlineRowList& rows_;
};

/// False when a row had no room.
template <typename Lister>
bool List(Lister lister, int32_t root) {
    Place at{.node = root};
    if (root < 0 || !lister.IsListed(root)) {
        return true;
    }
    for (;;) {
        if (!lister.Append(at)) {
            return false;
        }
        for (;;) {
            if (at.depth == 0) {
                return true;
            }
            if (at.node < 0) {
                lister.Leave(at);
            } else if (!lister.IsListed(at.node)) {
                at.ToSibling(lister.SiblingOf(at.node));
            } else {
                break;
            }
        }
    }
}

}  // namespace

bool ListOutlineRows(const OutlineTree& tree, const OutlineState& state, OutlineRowList& rows) {
    if (const JsonDocument* json = tree.Json()) {
        rows.Restart(json->nodes.size());
        return state.filtered ? List(JsonLister<true>(*json, state, rows), json->root)
                              : List(JsonLister<false>(*json, state, rows), json->root);
    }
    const XmlDocument& xml = *tree.Xml();
    rows.Restart(xml.nodes.size() + xml.attributes.size());
    return state.filtered ? List(XmlLister<true>(xml, state, rows), xml.root)
                          : List(XmlLister<false>(xml, state, rows), xml.root);
}

}  // namespace rl
