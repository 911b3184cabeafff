// A JSON document as text again: compact, indented, and whole for saving. Walks without recursion.
#include <cstddef>

#include "model/json_document.h"
#include "model/json_text.h"

namespace rl {

namespace {

constexpr std::wstring_view kLineBreak = L"\r\n";

/// Writes one value and all below it, going down and up along the nodes' own links.
class Writer {
public:
    Writer(const JsonDocument& document, std::wstring& out, bool pretty, int32_t level)
        : document_(document), out_(out), pretty_(pretty), level_(level) {}

    void Write(int32_t top) {
        int32_t node = top;
        while (true) {
            Begin(node);
            const JsonNode& at = NodeAt(node);
            if (at.firstChild >= 0) {
                node = at.firstChild;
                BeginMember(node);
                continue;
            }
            while (node != top && NodeAt(node).nextSibling < 0) {
                node = NodeAt(node).parent;
                End(node);
            }
            if (node == top) {
                return;
            }
            node = NodeAt(node).nextSibling;
            out_ += L',';
            BeginMember(node);
        }
    }

private:
    [[nodiscard]] const JsonNode& NodeAt(int32_t node) const {
        return document_.nodes[static_cast<size_t>(node)];
    }

    void BreakLine() {
        if (pretty_) {
            out_ += kLineBreak;
            out_.append(2 * static_cast<size_t>(level_), L' ');
        }
    }

    void BeginMember(int32_t node) {
        BreakLine();
        if (NodeAt(NodeAt(node).parent).kind == JsonKind::Object) {
            document_.ReadKey(node, scratch_);
            EscapeJsonString(scratch_, out_);
            out_ += pretty_ ? L": " : L":";
        }
    }

    void Begin(int32_t node) {
        const JsonNode& at = NodeAt(node);
        if (at.IsContainer()) {
            const bool isArray = at.kind == JsonKind::Array;
            out_ += isArray ? L'[' : L'{';
            if (at.firstChild >= 0) {
                ++level_;
            } else {
                out_ += isArray ? L']' : L'}';
            }
            return;
        }
        document_.ReadDisplay(node, scratch_);
        if (at.kind == JsonKind::String) {
            EscapeJsonString(scratch_, out_);
        } else {
            out_ += scratch_;
        }
    }

    void End(int32_t node) {
        --level_;
        BreakLine();
        out_ += NodeAt(node).kind == JsonKind::Array ? L']' : L'}';
    }

    const JsonDocument& document_;
    std::wstring& out_;
    bool pretty_;
    int32_t level_;
    std::wstring scratch_;
};

}  // namespace

void JsonDocument::WriteCompact(int32_t node, std::wstring& out) const {
    Writer(*this, out, false, 0).Write(node);
}

void JsonDocument::WritePretty(int32_t node, std::wstring& out, int32_t level) const {
    Writer(*this, out, true, level).Write(node);
}

std::wstring JsonDocument::PrettyText(int32_t node) const {
    std::wstring out;
    if (node >= 0) {
        WritePretty(node, out, 0);
    }
    return out;
}

std::wstring JsonDocument::Serialize() const {
    std::wstring out;
    if (root < 0) {
        return out;
    }
    out.reserve(text.size());
    if (!lines || nodes[static_cast<size_t>(root)].kind != JsonKind::Array) {
        WritePretty(root, out, 0);
        return out;
    }
    for (int32_t line = nodes[static_cast<size_t>(root)].firstChild; line >= 0;
         line = nodes[static_cast<size_t>(line)].nextSibling) {
        if (!out.empty()) {
            out += kLineBreak;
        }
        WriteCompact(line, out);
    }
    return out;
}

}  // namespace rl
