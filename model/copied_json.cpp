#include "model/copied_json.h"

#include <iterator>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "model/json_text_writer.h"
#include "model/name_hash.h"
#include "model/subtree_walk.h"

namespace rl {

namespace {

/// Writes a value of a JSON document and all below it.
class JsonValueWriter {
public:
    JsonValueWriter(const JsonDocument& document, JsonTextWriter& out)
        : document_(document), out_(out) {}

    void Write(int32_t top) {
        WalkSubtree(
            document_.nodes, top, [&](int32_t node) { return Start(node, node == top); },
            [this](int32_t node) { End(NodeAt(node)); }, [this] { return out_.IsOver(); });
    }

private:
    [[nodiscard]] const JsonNode& NodeAt(int32_t node) const {
        return document_.nodes[static_cast<size_t>(node)];
    }

    /// True when the value's children come next.
    bool Start(int32_t node, bool isTop) {
        const JsonNode& value = NodeAt(node);
        if (!isTop) {
            StartItem(node);
        }
        if (!value.IsContainer()) {
            Scalar(node);
            return false;
        }
        out_.Begin(value.kind == JsonKind::Array ? L'[' : L'{');
        if (value.firstChild < 0) {
            End(value);
        }
        return value.firstChild >= 0;
    }

    void StartItem(int32_t node) {
        if (NodeAt(NodeAt(node).parent).kind == JsonKind::Array) {
            out_.Item();
        } else {
            document_.ReadKey(node, text_);
            out_.Key(text_);
        }
    }

    void Scalar(int32_t node) {
        document_.ReadDisplay(node, text_);
        if (NodeAt(node).kind == JsonKind::String) {
            out_.String(text_);
        } else {
            out_.Raw(text_);
        }
    }

    void End(const JsonNode& node) { out_.End(node.kind == JsonKind::Array ? L']' : L'}'); }

    const JsonDocument& document_;
    JsonTextWriter& out_;
    std::wstring text_;
};

/// Writes an XML element as an object: attributes, then children grouped by name, then its text.
class XmlAsJsonWriter {
public:
    XmlAsJsonWriter(const XmlDocument& document, JsonTextWriter& out)
        : document_(document), out_(out) {}

    void Write(int32_t top) {
        Start(top, false);
        while (!open_.empty() && !out_.IsOver()) {
            OpenElement& open = open_.back();
            if (open.next == children_.size()) {
                Finish();
                continue;
            }
            const Child child = children_[open.next++];
            if (child.isFirst) {
                out_.Key(document_.NodeName(child.node));
            }
            if (child.isOfMany) {
                if (child.isFirst) {
                    out_.Begin(L'[');
                }
                out_.Item();
            }
            Start(child.node, child.isOfMany && child.isLast);
        }
    }

private:
    /// An element child; those of one name stand side by side.
    struct Child {
        int32_t node;
        bool isFirst;  // of its name
        bool isLast;
        bool isOfMany;
    };

    struct OpenElement {
        int32_t node;
        size_t first;  // its children in `children_`, from here to the end
        size_t next;
        bool endsArray;
    };

    [[nodiscard]] const XmlNode& NodeAt(int32_t node) const {
        return document_.nodes[static_cast<size_t>(node)];
    }

    void Start(int32_t node, bool endsArray);
    void Finish();
    void EndArray(bool ends) {
        if (ends) {
            out_.End(L']');
        }
    }
    void WriteAttributes(const XmlNode& node);
    void GatherChildren(const XmlNode& node);
    void ReadText(int32_t node);

    const XmlDocument& document_;
    JsonTextWriter& out_;
    std::vector<OpenElement> open_;
    std::vector<Child> children_;
    std::wstring text_;   // of an element
    std::wstring piece_;  // of one text in it
};

void XmlAsJsonWriter::Start(int32_t node, bool endsArray) {
    const XmlNode& started = NodeAt(node);
    const bool isContainer = started.kind == XmlKind::Element || started.kind == XmlKind::Document;
    if (isContainer && (started.attributeCount > 0 || document_.HasElementChild(node))) {
        out_.Begin(L'{');
        WriteAttributes(started);
        const size_t first = children_.size();
        GatherChildren(started);
        open_.push_back({.node = node, .first = first, .next = first, .endsArray = endsArray});
        return;
    }
    if (isContainer) {
        ReadText(node);
    } else {
        document_.ReadNodeValue(node, text_);
    }
    out_.String(text_);
    EndArray(endsArray);
}

void XmlAsJsonWriter::Finish() {
    const OpenElement done = open_.back();
    open_.pop_back();
    children_.resize(done.first);
    ReadText(done.node);
    if (text_.find_first_not_of(L" \t\r\n") != std::wstring::npos) {
        out_.Key(L"#text");
        out_.String(text_);
    }
    out_.End(L'}');
    EndArray(done.endsArray);
}

void XmlAsJsonWriter::WriteAttributes(const XmlNode& node) {
    for (uint32_t i = 0; i < node.attributeCount; ++i) {
        const auto attribute = static_cast<int32_t>(node.firstAttribute + i);
        text_ = L'@';
        text_ += document_.AttributeName(attribute);
        out_.Key(text_);
        document_.ReadAttributeValue(attribute, text_);
        out_.String(text_);
    }
}

/// Appends the element children: names in the order of their first child, children of one name in
/// document order.
void XmlAsJsonWriter::GatherChildren(const XmlNode& node) {
    struct Found {
        int32_t node;
        size_t group;
    };
    std::vector<Found> found;
    std::vector<size_t> starts;  // of each group; at first how many are in it
    std::unordered_map<std::wstring_view, size_t, NameHash> groups;
    for (int32_t at = node.firstChild; at >= 0; at = NodeAt(at).nextSibling) {
        if (NodeAt(at).kind != XmlKind::Element) {
            continue;
        }
        const size_t group =
            groups.try_emplace(document_.NodeName(at), groups.size()).first->second;
        if (group == starts.size()) {
            starts.push_back(0);
        }
        ++starts[group];
        found.push_back({.node = at, .group = group});
    }
    size_t start = children_.size();
    for (size_t& groupStart : starts) {
        start += std::exchange(groupStart, start);
    }
    children_.resize(start);
    std::vector<size_t> next = starts;
    for (const Found& child : found) {
        const size_t end = child.group + 1 < starts.size() ? starts[child.group + 1] : start;
        const size_t place = next[child.group]++;
        children_[place] = {.node = child.node,
                            .isFirst = place == starts[child.group],
                            .isLast = place + 1 == end,
                            .isOfMany = end - starts[child.group] > 1};
    }
}

void XmlAsJsonWriter::ReadText(int32_t node) {
    text_.clear();
    for (int32_t at = NodeAt(node).firstChild; at >= 0; at = NodeAt(at).nextSibling) {
        if (NodeAt(at).kind == XmlKind::Text || NodeAt(at).kind == XmlKind::Cdata) {
            document_.ReadNodeValue(at, piece_);
            text_ += piece_;
        }
    }
}

}  // namespace

void WriteCopiedJson(const JsonDocument& document, int32_t node, LimitedText& out) {
    JsonTextWriter writer(out);
    const bool isMember = document.nodes[static_cast<size_t>(node)].hasKey != 0;
    if (isMember) {
        writer.Begin(L'{');
        writer.Key(document.KeyText(node));
    }
    JsonValueWriter(document, writer).Write(node);
    if (isMember) {
        writer.End(L'}');
    }
}

void WriteCopiedJson(const XmlDocument& document, int32_t node, LimitedText& out) {
    JsonTextWriter writer(out);
    const bool isMember = document.nodes[static_cast<size_t>(node)].kind != XmlKind::Document;
    if (isMember) {
        writer.Begin(L'{');
        writer.Key(document.NodeName(node));
    }
    XmlAsJsonWriter(document, writer).Write(node);
    if (isMember) {
        writer.End(L'}');
    }
}

void WriteCopiedJsonAttribute(const XmlDocument& document, int32_t attribute, LimitedText& out) {
    JsonTextWriter writer(out);
    std::wstring key(1, L'@');
    key += document.AttributeName(attribute);
    writer.Begin(L'{');
    writer.Key(key);
    writer.String(document.AttributeValue(attribute));
    writer.End(L'}');
}

}  // namespace rl
