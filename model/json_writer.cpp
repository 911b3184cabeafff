#include "model/json_writer.h"

#include <algorithm>
#include <string_view>

#include "model/json_text.h"

namespace rl {

namespace {

class SizeSink {
public:
    void Put(wchar_t) { ++size_; }
    void Put(std::wstring_view text) { size_ += text.size(); }
    void PutBlanks(size_t count) { size_ += count; }
    [[nodiscard]] size_t Size() const { return size_; }

private:
    size_t size_ = 0;
};

class MemorySink {
public:
    explicit MemorySink(wchar_t* at) : at_(at) {}
    void Put(wchar_t unit) { *at_++ = unit; }
    void Put(std::wstring_view text) { at_ = std::copy(text.begin(), text.end(), at_); }
    void PutBlanks(size_t count) { at_ = std::fill_n(at_, count, L' '); }

private:
    wchar_t* at_;
};

template <typename Sink>
class JsonWriter {
public:
    JsonWriter(const JsonDocument& document, JsonLayout layout, Sink& sink)
        : document_(document), isPretty_(layout == JsonLayout::Pretty), sink_(sink) {}

    void Write(int32_t top, int32_t level) {
        level_ = static_cast<size_t>(std::max(level, 0));
        for (int32_t node = top;;) {
            const JsonNode& entry = Node(node);
            if (entry.firstChild >= 0) {
                sink_.Put(entry.kind == JsonKind::Array ? L'[' : L'{');
                ++level_;
                node = entry.firstChild;
            } else {
                PutLeaf(node, entry);
                node = Climb(node, top);
                if (node < 0) {
                    return;
                }
                sink_.Put(L',');
            }
            PutBreak();
            PutKey(Node(node));
        }
    }

    /// The children alone, a line each.
    void WriteLines(int32_t parent) {
        for (int32_t child = Node(parent).firstChild; child >= 0;) {
            Write(child, 0);
            child = Node(child).nextSibling;
            if (child >= 0) {
                sink_.Put(std::wstring_view(L"\r\n"));
            }
        }
    }

private:
    const JsonNode& Node(int32_t node) const { return document_.nodes[static_cast<size_t>(node)]; }

    /// Closes what ends with `node` and answers with what comes next; -1 when `top` itself ended.
    int32_t Climb(int32_t node, int32_t top) {
        while (node != top) {
            const JsonNode& entry = Node(node);
            if (entry.nextSibling >= 0) {
                return entry.nextSibling;
            }
            node = entry.parent;
            --level_;
            PutBreak();
            sink_.Put(Node(node).kind == JsonKind::Array ? L']' : L'}');
        }
        return -1;
    }

    void PutBreak() {
        if (isPretty_) {
            sink_.Put(L'\r');
            sink_.Put(L'\n');
            sink_.PutBlanks(2 * level_);
        }
    }

    void PutKey(const JsonNode& entry) {
        if (entry.hasKey != 0) {
            PutToken(entry.keyOffset, entry.keyLength);
            sink_.Put(L':');
            if (isPretty_) {
                sink_.Put(L' ');
            }
        }
    }

    void PutToken(uint32_t offset, uint32_t length) {
        const auto token = std::wstring_view(document_.text).substr(offset, length);
        if (IsCanonicalToken(token)) {
            sink_.Put(token);
            return;
        }
        decoded_.clear();
        AppendDecoded(token, decoded_);
        PutEscaped(decoded_);
    }

    void PutEscaped(std::wstring_view text) {
        escaped_.clear();
        AppendEscaped(text, escaped_);
        sink_.Put(std::wstring_view(escaped_));
    }

    void PutLeaf(int32_t node, const JsonNode& entry) {
        if (entry.IsContainer()) {
            sink_.Put(std::wstring_view(entry.kind == JsonKind::Array ? L"[]" : L"{}"));
            return;
        }
        const bool isString = entry.kind == JsonKind::String;
        if (!document_.edits.empty()) {
            if (const auto edit = document_.edits.find(node); edit != document_.edits.end()) {
                isString ? PutEscaped(edit->second) : sink_.Put(std::wstring_view(edit->second));
                return;
            }
        }
        if (isString) {
            PutToken(entry.valueOffset, entry.valueLength);
        } else {
            const std::wstring_view all = document_.text;
            sink_.Put(all.substr(entry.valueOffset, entry.valueLength));
        }
    }

    const JsonDocument& document_;
    const bool isPretty_;
    Sink& sink_;
    size_t level_ = 0;
    std::wstring decoded_;
    std::wstring escaped_;
};

template <typename Sink>
void Run(const JsonDocument& document, int32_t node, JsonLayout layout, int32_t level, Sink& sink) {
    JsonWriter<Sink>(document, layout, sink).Write(node, level);
}

/// Appends what `write` writes to whatever sink it is given.
template <typename Write>
void AppendMeasured(Write write, std::wstring& out) {
    SizeSink measured;
    write(measured);
    const size_t before = out.size();
    const size_t size = before + measured.Size();
    out.resize_and_overwrite(size, [&](wchar_t* data, size_t) {
        MemorySink sink(data + before);
        write(sink);
        return size;
    });
}

}  // namespace

void AppendJson(const JsonDocument& document, int32_t node, JsonLayout layout, int32_t level,
                std::wstring& out) {
    AppendMeasured([&](auto& sink) { Run(document, node, layout, level, sink); }, out);
}

size_t JsonTextSize(const JsonDocument& document, int32_t node, JsonLayout layout, int32_t level) {
    SizeSink measured;
    Run(document, node, layout, level, measured);
    return measured.Size();
}

void JsonDocument::WriteCompact(int32_t node, std::wstring& out) const {
    AppendJson(*this, node, JsonLayout::Compact, 0, out);
}

void JsonDocument::WritePretty(int32_t node, std::wstring& out, int32_t level) const {
    AppendJson(*this, node, JsonLayout::Pretty, level, out);
}

std::wstring JsonDocument::PrettyText(int32_t node) const {
    std::wstring out;
    if (node >= 0) {
        WritePretty(node, out, 0);
    }
    return out;
}

std::wstring JsonDocument::Serialize() const {
    if (!lines || root < 0 || nodes[static_cast<size_t>(root)].kind != JsonKind::Array) {
        return PrettyText(root);
    }
    std::wstring out;
    AppendMeasured(
        [this](auto& sink) {
            using Sink = std::remove_reference_t<decltype(sink)>;
            JsonWriter<Sink>(*this, JsonLayout::Compact, sink).WriteLines(root);
        },
        out);
    return out;
}

}  // namespace rl
