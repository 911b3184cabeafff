#include "model/json_parser.h"

#include <algorithm>
#include <limits>
#include <new>

namespace rl {

namespace {

constexpr size_t kUncountedNodes = 4096;
constexpr ptrdiff_t kAskEvery = ptrdiff_t{2} << 20;  // units

template <typename Unit>
bool StartsWith(const Unit* at, const Unit* end, std::string_view word) {
    if (end - at < static_cast<ptrdiff_t>(word.size())) {
        return false;
    }
    for (const char letter : word) {
        if (*at++ != static_cast<Unit>(letter)) {
            return false;
        }
    }
    return true;
}

template <typename Unit>
bool IsHexDigit(Unit unit) {
    return detail::IsJsonDigit(unit) || ((unit | 0x20) >= 'a' && (unit | 0x20) <= 'f');
}

/// Past the comment that begins at `at`: a line's end is left, an open block takes all.
template <typename Scan, typename Unit>
const Unit* PastJsonComment(const Unit* at, const Unit* end) {
    if (at[1] == '/') {
        return Scan::PastLine(at + 2, end);
    }
    for (at += 2; end - at >= 2; ++at) {
        if (at[0] == '*' && at[1] == '/') {
            return at + 2;
        }
    }
    return end;
}

template <typename Unit>
bool IsCommentStart(const Unit* at, const Unit* end) {
    return end - at >= 2 && at[0] == '/' && (at[1] == '/' || at[1] == '*');
}

}  // namespace

template <typename Unit, typename Scan>
JsonParser<Unit, Scan>::JsonParser(std::basic_string_view<Unit> text, bool lines,
                                   std::vector<JsonNode>& nodes, const AbandonCheck& abandoned)
    : base_(text.data()),
      end_(base_ + text.size()),
      textEnd_(end_),
      askAt_(base_),
      nodes_(nodes),
      abandoned_(abandoned),
      lines_(lines) {}

template <typename Unit, typename Scan>
int32_t JsonParser<Unit, Scan>::Parse(size_t from, size_t to, int32_t parent) {
    const auto top = static_cast<int32_t>(nodes_.size());
    end_ = base_ + to;
    parent_ = parent;
    depth_ = 0;
    key_ = {};
    for (const Unit* at = PastGap(base_ + from); at != end_;) {
        if (at >= askAt_) [[unlikely]] {
            AskWhetherAbandoned(at);
            if (isAbandoned_) {
                return -1;
            }
        }
        const uint32_t before = depth_;
        at = *at == '{' || *at == '[' ? Open(at) : Scalar(at);
        if (at != nullptr && depth_ == before) {
            at = AfterValue(at);
        }
        if (at == nullptr) {
            return -1;
        }
        if (depth_ == 0) {
            return PastGap(at) == end_ ? top : -1;
        }
    }
    return -1;
}

template <typename Unit, typename Scan>
inline const Unit* JsonParser<Unit, Scan>::PastGap(const Unit* at) const {
    if (at != end_ && *at > ' ' && *at != '/') [[likely]] {
        return at;
    }
    for (at = Scan::PastBlanks(at, end_); IsCommentStart(at, end_);) {
        at = Scan::PastBlanks(PastJsonComment<Scan>(at, end_), end_);
    }
    return at;
}

/// Past the string that must begin at `at`; null when it does not, or does not end.
template <typename Unit, typename Scan>
inline const Unit* JsonParser<Unit, Scan>::PastString(const Unit* at) const {
    if (at == end_ || *at != '"') {
        return nullptr;
    }
    for (++at;;) {
        at = Scan::PastStringText(at, end_);
        if (at == end_) {
            return nullptr;
        }
        if (*at == '"') {
            return at + 1;
        }
        if (end_ - at < 2) {
            return nullptr;
        }
        if (at[1] == 'u') {
            if (end_ - at < 6 || !std::all_of(at + 2, at + 6, IsHexDigit<Unit>)) {
                return nullptr;
            }
            at += 4;
        }
        at += 2;
    }
}

/// To the value of the next member of the innermost container, its key read when it has one.
template <typename Unit, typename Scan>
inline const Unit* JsonParser<Unit, Scan>::Member(const Unit* at) {
    if (frames_[depth_ - 1].closer == ']') {
        return at;
    }
    const Unit* const past = PastString(at);
    if (past == nullptr) {
        return nullptr;
    }
    key_ = {static_cast<uint32_t>(at - base_), static_cast<uint32_t>(past - at)};
    at = PastGap(past);
    return at != end_ && *at == ':' ? PastGap(at + 1) : nullptr;
}

/// Past a value without members; null when there is none.
template <typename Unit, typename Scan>
inline const Unit* JsonParser<Unit, Scan>::Scalar(const Unit* at) {
    JsonKind kind = JsonKind::Null;
    const Unit* past = nullptr;
    switch (*at) {
        case '"':
            kind = JsonKind::String;
            past = PastString(at);
            break;
        case 't':
        case 'f':
            kind = JsonKind::Boolean;
            past = StartsWith(at, end_, "true")    ? at + 4
                   : StartsWith(at, end_, "false") ? at + 5
                                                   : nullptr;
            break;
        case 'n': past = StartsWith(at, end_, "null") ? at + 4 : nullptr; break;
        default:
            kind = JsonKind::Number;
            past = detail::PastNumber<Scan>(at, end_);
            break;
    }
    if (past != nullptr) {
        Append(kind, at, past);
    }
    return past;
}

/// Past an empty container, or to the first value inside another, which is then open.
template <typename Unit, typename Scan>
inline const Unit* JsonParser<Unit, Scan>::Open(const Unit* at) {
    const auto closer = static_cast<Unit>(*at + 2);
    const auto node = static_cast<int32_t>(nodes_.size());
    Append(closer == ']' ? JsonKind::Array : JsonKind::Object, at, at);
    at = PastGap(at + 1);
    if (at != end_ && *at == closer) {
        JsonNode& empty = nodes_.back();
        empty.valueLength = static_cast<uint32_t>(at + 1 - base_) - empty.valueOffset;
        return at + 1;
    }
    if (depth_ == kMaxJsonDepth) {
        return nullptr;  // whatever stands in there is too deep
    }
    frames_[depth_++] = {node, -1, 0, closer};
    key_ = {};
    return Member(at);
}

/// From the end of a value to the start of the next one, closing what ends between them; null on
/// anything else, and the end of the top value when nothing is open any more.
template <typename Unit, typename Scan>
inline const Unit* JsonParser<Unit, Scan>::AfterValue(const Unit* at) {
    while (depth_ > 0) {
        const Unit closer = frames_[depth_ - 1].closer;
        at = PastGap(at);
        if (at == end_) {
            return nullptr;
        }
        if (*at == ',') {
            at = PastGap(at + 1);
            if (at == end_ || *at != closer) {
                return Member(at);
            }
        }
        if (*at != closer) {
            return nullptr;
        }
        Close(++at);
    }
    return at;
}

template <typename Unit, typename Scan>
inline void JsonParser<Unit, Scan>::Close(const Unit* past) {
    const Frame& frame = frames_[--depth_];
    JsonNode& node = nodes_[static_cast<size_t>(frame.node)];
    node.valueLength = static_cast<uint32_t>(past - base_) - node.valueOffset;
    node.childCount = frame.count;
    if (depth_ > 0 && frames_[depth_ - 1].closer == ']') {
        key_ = {};
    }
}

template <typename Unit, typename Scan>
inline void JsonParser<Unit, Scan>::Append(JsonKind kind, const Unit* at, const Unit* past) {
    if (nodes_.size() == nodes_.capacity()) [[unlikely]] {
        Grow(at);
    }
    int32_t parent = parent_;
    if (depth_ > 0) {
        const auto index = static_cast<int32_t>(nodes_.size());
        Frame& frame = frames_[depth_ - 1];
        parent = frame.node;
        if (frame.last < 0) {
            nodes_[static_cast<size_t>(parent)].firstChild = index;
        } else {
            nodes_[static_cast<size_t>(frame.last)].nextSibling = index;
        }
        frame.last = index;
        ++frame.count;
    }
    // Built in place: copying a record just written in small parts would wait for each of them.
    nodes_.emplace_back(kind, static_cast<uint8_t>(key_.length != 0), key_.offset, key_.length,
                        static_cast<uint32_t>(at - base_), static_cast<uint32_t>(past - at), parent,
                        -1, -1, 0U);
}

/// Makes room: some at first, then for the whole text, then, in a text that turns out to be none or
/// is read in pieces, more and more. Nothing before `at` is counted.
template <typename Unit, typename Scan>
void JsonParser<Unit, Scan>::Grow(const Unit* at) {
    const size_t size = nodes_.size();
    if (size >= size_t{std::numeric_limits<int32_t>::max()}) {
        throw std::bad_alloc();
    }
    if (size < kUncountedNodes) {
        nodes_.reserve(std::max<size_t>(16, size * 4));
    } else if (!isCounted_) {
        isCounted_ = true;
        nodes_.reserve(size + CountJsonNodes<Unit, Scan>(at, lines_ ? textEnd_ : end_, lines_));
    }
    if (nodes_.size() == nodes_.capacity()) {
        nodes_.reserve(size + size / 2);
    }
}

template <typename Unit, typename Scan>
void JsonParser<Unit, Scan>::AskWhetherAbandoned(const Unit* at) {
    isAbandoned_ = IsAbandoned(abandoned_);
    askAt_ = textEnd_ - at > kAskEvery ? at + kAskEvery : textEnd_;
}

namespace {

/// Counts what begins outside strings and comments: every token that is a value, and strings less
/// those that a colon makes keys of.
template <typename Unit, typename Scan>
class JsonNodeCounter {
public:
    JsonNodeCounter(const Unit* end, bool lines) : end_(end), lines_(lines) {}

    size_t Count(const Unit* at) {
        while (at != end_) {
            at = Token(at);
        }
        return starts_ > colons_ ? starts_ - colons_ : 0;
    }

private:
    const Unit* Token(const Unit* at) {
        switch (*at) {
            case ' ':
            case '\t':
            case '\r':
            case '\n': return Scan::PastBlanks(at + 1, end_);
            case '"': ++starts_; return PastString(at + 1);
            case ':': ++colons_; return at + 1;
            case '/': return PastComment(at);
            case '{':
            case '[': ++starts_; return at + 1;
            case ',':
            case '}':
            case ']': return at + 1;
            default: ++starts_; return PastWord(at + 1);
        }
    }

    const Unit* PastString(const Unit* at) const {
        for (;;) {
            at = Scan::PastStringText(at, end_);
            if (at == end_ || *at == '"') {
                return at == end_ ? at : at + 1;
            }
            at += end_ - at < 2 ? 1 : 2;
        }
    }

    const Unit* PastWord(const Unit* at) const {
        while (at != end_ && *at > ' ' && *at != ',' && *at != ']' && *at != '}' && *at != '/') {
            ++at;
        }
        return at;
    }

    const Unit* PastComment(const Unit* at) const {
        if (!IsCommentStart(at, end_)) {
            return at + 1;
        }
        return PastJsonComment<Scan>(at, lines_ ? Scan::PastLine(at, end_) : end_);
    }

    const Unit* const end_;
    const bool lines_;
    size_t starts_ = 0;
    size_t colons_ = 0;
};

}  // namespace

template <typename Unit, typename Scan>
size_t CountJsonNodes(const Unit* at, const Unit* end, bool lines) {
    return JsonNodeCounter<Unit, Scan>(end, lines).Count(at);
}

template class JsonParser<char16_t, detail::JsonScanPlain>;
template class JsonParser<char16_t, detail::JsonScanSse2>;
template class JsonParser<wchar_t>;
template size_t CountJsonNodes<char16_t, detail::JsonScanPlain>(const char16_t*, const char16_t*,
                                                                bool);
template size_t CountJsonNodes<char16_t, detail::JsonScanSse2>(const char16_t*, const char16_t*,
                                                               bool);
template size_t CountJsonNodes<wchar_t>(const wchar_t*, const wchar_t*, bool);

}  // namespace rl
