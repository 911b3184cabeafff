#include "model/json_parser.h"

#include <array>
#include <limits>

#include "model/json_text.h"

namespace rl {

namespace {

constexpr size_t kMaxNodes = static_cast<size_t>(std::numeric_limits<int32_t>::max());
constexpr size_t kNodesBetweenQuestions = size_t{1} << 17;

bool IsBlank(wchar_t unit) {
    return unit == L' ' || unit == L'\n' || unit == L'\r' || unit == L'\t';
}

class Parser {
public:
    Parser(std::wstring_view text, JsonRange range, std::vector<JsonNode>& nodes,
           const AbandonCheck& abandoned)
        : text_(text.substr(0, range.end)),
          at_(range.begin),
          nodes_(nodes),
          abandoned_(abandoned) {}

    /// -1 on failure.
    int32_t ParseOnly(int32_t parent) {
        const auto top = static_cast<int32_t>(nodes_.size());
        SkipBlanks();
        if (!ParseTree(parent)) {
            return -1;
        }
        SkipBlanks();
        return at_ == text_.size() ? top : -1;
    }

private:
    /// An open container.
    struct Level {
        int32_t node;
        int32_t lastChild;
    };

    struct Key {
        size_t offset = 0;
        size_t length = 0;
    };

    void SkipBlanks() { at_ = SkipJsonBlanks(text_, at_, text_.size()); }
    [[nodiscard]] bool AtEnd() const { return at_ >= text_.size(); }

    /// The top value and all below it. After each value the innermost container goes on or closes.
    bool ParseTree(int32_t parent) {
        if (!ParseValue(parent, {}, false)) {
            return false;
        }
        while (depth_ > 0) {
            if (!ParseMember()) {
                return false;
            }
            while (depth_ > 0 && !memberFollows_) {
                if (!FinishMember()) {
                    return false;
                }
            }
        }
        return true;
    }

    /// A value at the cursor; a container that is not empty is left open, with a member to follow.
    bool ParseValue(int32_t parent, Key key, bool hasKey) {
        if (depth_ > kMaxJsonDepth || AtEnd() || nodes_.size() >= kMaxNodes) {
            return false;
        }
        memberFollows_ = false;
        const size_t start = at_;
        JsonNode node;
        if (!ParseToken(node.kind)) {
            return false;
        }
        node.hasKey = hasKey ? 1 : 0;
        node.keyOffset = static_cast<uint32_t>(key.offset);
        node.keyLength = static_cast<uint32_t>(key.length);
        node.valueOffset = static_cast<uint32_t>(start);
        node.valueLength = static_cast<uint32_t>(at_ - start);
        node.parent = parent;
        if (nodes_.size() % kNodesBetweenQuestions == 0 && IsAbandoned(abandoned_)) {
            return false;
        }
        nodes_.push_back(node);
        return !node.IsContainer() || OpenContainer();
    }

    /// Moves behind a scalar or an opening bracket.
    bool ParseToken(JsonKind& kind) {
        size_t end = at_;
        switch (text_[at_]) {
            case L'{':
                kind = JsonKind::Object;
                end = at_ + 1;
                break;
            case L'[':
                kind = JsonKind::Array;
                end = at_ + 1;
                break;
            case L'"':
                kind = JsonKind::String;
                end = StringEnd(text_, at_);
                break;
            case L't':
            case L'f':
                kind = JsonKind::Boolean;
                end = WordEnd(L"true", L"false");
                break;
            case L'n':
                kind = JsonKind::Null;
                end = WordEnd(L"null", L"null");
                break;
            default:
                kind = JsonKind::Number;
                end = NumberEnd(text_, at_);
                break;
        }
        const bool found = end != at_;
        at_ = end;
        return found;
    }

    [[nodiscard]] size_t WordEnd(std::wstring_view word, std::wstring_view other) const {
        const std::wstring_view rest = text_.substr(at_);
        return rest.starts_with(word)    ? at_ + word.size()
               : rest.starts_with(other) ? at_ + other.size()
                                         : at_;
    }

    /// Behind an opening bracket: an empty container ends at once.
    bool OpenContainer() {
        const auto node = static_cast<int32_t>(nodes_.size()) - 1;
        SkipBlanks();
        if (!AtEnd() && text_[at_] == ClosingOf(node)) {
            Close(node);
            return true;
        }
        levels_[static_cast<size_t>(depth_)] = {node, -1};
        ++depth_;
        memberFollows_ = true;
        return true;
    }

    /// A key where there must be one, and the value.
    bool ParseMember() {
        Level& level = levels_[static_cast<size_t>(depth_ - 1)];
        Key key;
        const bool keyed = nodes_[static_cast<size_t>(level.node)].kind == JsonKind::Object;
        SkipBlanks();
        if (keyed && !ParseKey(key)) {
            return false;
        }
        const auto child = static_cast<int32_t>(nodes_.size());
        if (!ParseValue(level.node, key, keyed)) {
            return false;
        }
        LinkJsonChild(nodes_, level.node, level.lastChild, child);
        level.lastChild = child;
        return true;
    }

    bool ParseKey(Key& key) {
        const size_t end = StringEnd(text_, at_);
        if (end == at_) {
            return false;
        }
        key = {at_, end - at_};
        at_ = end;
        SkipBlanks();
        if (AtEnd() || text_[at_] != L':') {
            return false;
        }
        ++at_;
        SkipBlanks();
        return true;
    }

    /// Behind a value of the innermost container: another one follows, or the container ends.
    bool FinishMember() {
        const int32_t node = levels_[static_cast<size_t>(depth_ - 1)].node;
        SkipBlanks();
        if (AtEnd()) {
            return false;
        }
        if (text_[at_] == L',') {
            ++at_;
            SkipBlanks();
            if (AtEnd() || text_[at_] != ClosingOf(node)) {
                memberFollows_ = true;
                return true;
            }
        }
        if (text_[at_] != ClosingOf(node)) {
            return false;
        }
        Close(node);
        --depth_;
        return true;
    }

    [[nodiscard]] wchar_t ClosingOf(int32_t node) const {
        return nodes_[static_cast<size_t>(node)].kind == JsonKind::Object ? L'}' : L']';
    }

    void Close(int32_t node) {
        ++at_;
        JsonNode& closed = nodes_[static_cast<size_t>(node)];
        closed.valueLength = static_cast<uint32_t>(at_ - closed.valueOffset);
    }

    std::wstring_view text_;
    size_t at_;
    std::vector<JsonNode>& nodes_;
    const AbandonCheck& abandoned_;
    std::array<Level, kMaxJsonDepth + 1> levels_{};
    int32_t depth_ = 0;           // open containers
    bool memberFollows_ = false;  // the innermost container waits for a member
};

}  // namespace

size_t SkipJsonBlanks(std::wstring_view text, size_t at, size_t end) {
    while (at < end) {
        if (IsBlank(text[at])) {
            ++at;
            continue;
        }
        if (text[at] != L'/' || end - at < 2) {
            return at;
        }
        if (text[at + 1] == L'/') {
            at = text.substr(0, end).find(L'\n', at);
        } else if (text[at + 1] == L'*') {
            at = text.substr(0, end).find(L"*/", at + 2);
            at = at == std::wstring_view::npos ? at : at + 2;
        } else {
            return at;
        }
        at = at == std::wstring_view::npos ? end : at;
    }
    return at;
}

int32_t ParseJsonValue(std::wstring_view text, JsonRange range, int32_t parent,
                       std::vector<JsonNode>& nodes, const AbandonCheck& abandoned) {
    return Parser(text, range, nodes, abandoned).ParseOnly(parent);
}

void LinkJsonChild(std::vector<JsonNode>& nodes, int32_t parent, int32_t last, int32_t child) {
    JsonNode& above = nodes[static_cast<size_t>(parent)];
    (last < 0 ? above.firstChild : nodes[static_cast<size_t>(last)].nextSibling) = child;
    ++above.childCount;
}

}  // namespace rl
