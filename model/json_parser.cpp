#include "model/json_parser.h"

#include <algorithm>
#include <limits>
#include <new>

namespace rl {

namespace {

constexpr size_t kUncountedNodes = 4096;

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

}  // namespace

template <typename Unit, typename Scan>
JsonParser<Unit, Scan>::JsonParser(std::basic_string_view<Unit> text, bool lines,
                                   std::vector<JsonNode>& nodes, const AbandonCheck& abandoned)
    : base_(text.data()),
      end_(base_ + text.size()),
      textEnd_(end_),
      askAt_(base_),
      nodes_(nodes),
      room_(nodes),
      abandoned_(abandoned),
      lines_(lines),
      tokens_(base_, lines) {}

template <typename Unit, typename Scan>
int32_t JsonParser<Unit, Scan>::Parse(size_t from, size_t to, int32_t parent) {
    const size_t top = nodes_.size();
    Place place = Start(base_ + from, base_ + to, parent);
    if (isAbandoned_ || !ReadValue(place) || *place.next != place.end || isAbandoned_) {
        nodes_.resize(top);
        return -1;
    }
    return static_cast<int32_t>(top);
}

template <typename Unit, typename Scan>
bool JsonParser<Unit, Scan>::ParseLines() {
    Place place = Start(base_, textEnd_, 0);
    for (const Unit* line = base_; !isAbandoned_;) {
        if (tokens_.IsLow(place.next)) {
            place.next = Refill(place.next);
        }
        const Unit* past = base_ + *place.next;
        if (past == end_ || *past == '\n') {
            if (Scan::PastBlanks(line, past) != past) {
                return false;  // nothing but a comment
            }
        } else {
            const int32_t before = place.last;
            const int32_t node = place.size;
            if (!ReadValue(place)) {
                return false;
            }
            JsonNode& root = nodes_.front();
            ++root.childCount;
            (before < 0 ? root.firstChild : nodes_[static_cast<size_t>(before)].nextSibling) = node;
            past = base_ + *place.next;
        }
        if (past == end_) {
            return !isAbandoned_;
        }
        if (*past != '\n') {
            return false;
        }
        line = past + 1;
        ++place.next;
    }
    return false;
}

template <typename Unit, typename Scan>
auto JsonParser<Unit, Scan>::Start(const Unit* at, const Unit* end, int32_t parent) -> Place {
    end_ = end;
    AskWhetherAbandoned(at);
    return {.base = base_,
            .next = tokens_.Start(at, end),
            .end = static_cast<uint32_t>(end - base_),
            .parent = parent,
            .size = static_cast<int32_t>(nodes_.size())};
}

/// Up to the token behind it.
template <typename Unit, typename Scan>
bool JsonParser<Unit, Scan>::ReadValue(Place& outer) {
    Place place = outer;  // nobody else looks at this one
    do {
        if (tokens_.IsLow(place.next)) [[unlikely]] {
            place.next = Refill(place.next);
        }
        place.token = *place.next++;
        place.keyOffset = place.keyLength = 0;
        if (place.closer == '}' && !ReadKey(place)) {
            return false;
        }
        if (place.token == place.end) {
            return false;
        }
        const Unit first = place.base[place.token];
        bool isRead = false;
        if (first == '"') {
            isRead = ReadString(place);
        } else if (first == '{' || first == '[') {
            const uint32_t before = place.depth;
            isRead = Open(place);
            if (place.depth != before) {
                continue;
            }
        } else {
            isRead = ReadWord(place);
        }
        if (!isRead || !LeaveValue(place)) {
            return false;
        }
    } while (place.depth != 0);
    outer = place;
    return true;
}

// Each of the following answers with false when the text is no value.

/// Of the member whose key is the token; the next token is then its value.
template <typename Unit, typename Scan>
inline bool JsonParser<Unit, Scan>::ReadKey(Place& place) {
    const uint32_t key = place.token;
    if (key == place.end || place.base[key] != '"') {
        return false;
    }
    place.token = *place.next++;
    uint32_t past = place.token - 1;
    if (place.base[past] == ' ') {
        --past;
    }
    if (place.base[past] != ':' || place.base[past - 1] != '"') [[unlikely]] {
        const Unit* const end = detail::PastJsonString<Scan>(place.base + key, end_, lines_);
        if (end == nullptr) {
            return false;
        }
        past = static_cast<uint32_t>(end - place.base);
        if (past == place.end || *end != ':') {
            if (place.token == place.end || place.base[place.token] != ':') {
                return false;
            }
            place.token = *place.next++;
        }
    }
    place.keyOffset = key;
    place.keyLength = past - key;
    return true;
}

template <typename Unit, typename Scan>
inline bool JsonParser<Unit, Scan>::ReadString(Place& place) {
    uint32_t past = *place.next;
    // Directly before a token that is no line feed, a quote cannot belong to a comment.
    if (place.base[past - 1] != '"' || past == place.end || place.base[past] == '\n') {
        const Unit* const end =
            detail::PastJsonString<Scan>(place.base + place.token, end_, lines_);
        if (end == nullptr || (end != end_ && *end == ':')) {
            return false;
        }
        past = static_cast<uint32_t>(end - place.base);
    }
    Append(place, JsonKind::String, past - place.token, -1);
    return true;
}

/// A number or a literal.
template <typename Unit, typename Scan>
inline bool JsonParser<Unit, Scan>::ReadWord(Place& place) {
    const Unit* const at = place.base + place.token;
    JsonKind kind = JsonKind::Null;
    const Unit* past = nullptr;
    switch (*at) {
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
            past = detail::PastAnyNumber<Scan>(at, end_);
            break;
    }
    // Tokens tell where a word begins, not where it ends.
    if (past == nullptr ||
        (past != place.base + *place.next && !detail::IsJsonBlank(*past) && *past != '/')) {
        return false;
    }
    Append(place, kind, static_cast<uint32_t>(past - at), -1);
    return true;
}

/// Reads an empty container, or enters another.
template <typename Unit, typename Scan>
inline bool JsonParser<Unit, Scan>::Open(Place& place) {
    const auto closer = static_cast<Unit>(place.base[place.token] + 2);
    const JsonKind kind = closer == ']' ? JsonKind::Array : JsonKind::Object;
    const uint32_t first = *place.next;
    if (first != place.end && place.base[first] == closer) {
        ++place.next;
        Append(place, kind, first + 1 - place.token, -1);
        return true;
    }
    if (place.depth == kMaxJsonDepth) {
        return false;  // whatever stands in there is too deep
    }
    Append(place, kind, 0, place.size + 1);
    if (place.depth++ != 0) {
        nodes_[static_cast<size_t>(place.parent)].childCount = place.count;
    }
    place.parent = place.last;
    place.count = 0;
    place.closer = closer;
    return true;
}

/// Over to the next member, closing what ends before it.
template <typename Unit, typename Scan>
inline bool JsonParser<Unit, Scan>::LeaveValue(Place& place) {
    while (place.depth > 0) {
        const uint32_t token = *place.next++;
        if (token == place.end) {
            return false;
        }
        if (place.base[token] == ',') {
            const uint32_t after = *place.next;
            if (after == place.end) {
                return false;
            }
            if (place.base[after] != place.closer) [[likely]] {
                nodes_[static_cast<size_t>(place.last)].nextSibling = place.size;
                return true;
            }
            ++place.next;
            Close(place, after);
        } else if (place.base[token] == place.closer) {
            Close(place, token);
        } else {
            return false;
        }
    }
    return true;
}

template <typename Unit, typename Scan>
inline void JsonParser<Unit, Scan>::Close(Place& place, uint32_t token) {
    JsonNode& node = nodes_[static_cast<size_t>(place.parent)];
    node.valueLength = token + 1 - node.valueOffset;
    node.childCount = place.count;
    place.last = place.parent;
    place.parent = node.parent;
    place.closer = 0;
    if (--place.depth != 0) {
        const JsonNode& outer = nodes_[static_cast<size_t>(place.parent)];
        place.count = outer.childCount;
        place.closer = outer.kind == JsonKind::Array ? ']' : '}';
    }
    if (tokens_.IsLow(place.next)) [[unlikely]] {
        place.next = Refill(place.next);
    }
}

template <typename Unit, typename Scan>
inline void JsonParser<Unit, Scan>::Append(Place& place, JsonKind kind, uint32_t length,
                                           int32_t child) {
    if (!room_.HasRoom()) [[unlikely]] {
        Grow(place.base + place.token);
    }
    place.last = place.size++;
    ++place.count;
    // Built in place: copying a record just written in small parts would wait for each of them.
    nodes_.emplace_back(kind, static_cast<uint8_t>(place.keyLength != 0), place.keyOffset,
                        place.keyLength, place.token, length, place.parent, child, -1, 0U);
}

template <typename Unit, typename Scan>
const uint32_t* JsonParser<Unit, Scan>::Refill(const uint32_t* next) {
    AskWhetherAbandoned(base_ + *next);
    return isAbandoned_ ? tokens_.End() : tokens_.Refill(next);
}

/// Makes room: some at first, then for the whole text, then, in a text that turns out to be none or
/// is read in pieces, more and more. Nothing before `at` is counted.
template <typename Unit, typename Scan>
void JsonParser<Unit, Scan>::Grow(const Unit* at) {
    if (room_.Extend()) {
        return;
    }
    const size_t size = nodes_.size();
    if (size >= size_t{std::numeric_limits<int32_t>::max()}) {
        throw std::bad_alloc();
    }
    if (size < kUncountedNodes) {
        room_.Reserve(std::max<size_t>(16, size * 4));
        return;
    }
    size_t wanted = 0;
    if (!isCounted_) {
        isCounted_ = true;
        const AbandonCheck check = [this] {
            isAbandoned_ = isAbandoned_ || IsAbandoned(abandoned_);
            return isAbandoned_;
        };
        const Unit* const end = lines_ ? textEnd_ : end_;
        wanted = CountJsonNodes<Unit, Scan>(at, end, lines_, check);
    }
    room_.Reserve(size + (wanted > 0 ? wanted : LikelyRest(at)));
}

/// How many more nodes there may be if the text goes on as before, within bounds: it need not.
template <typename Unit, typename Scan>
size_t JsonParser<Unit, Scan>::LikelyRest(const Unit* at) const {
    const auto size = static_cast<double>(nodes_.size());
    const auto read = static_cast<double>(at - base_ + 1);
    const auto rest = static_cast<double>(textEnd_ - at);
    return static_cast<size_t>(std::clamp(size / read * rest, size / 2, size * 3));
}

template <typename Unit, typename Scan>
inline void JsonParser<Unit, Scan>::AskWhetherAbandoned(const Unit* at) {
    if (at >= askAt_) [[unlikely]] {
        isAbandoned_ = isAbandoned_ || IsAbandoned(abandoned_);
        askAt_ = textEnd_ - at > kJsonAskEvery ? at + kJsonAskEvery : textEnd_;
    }
}

template class JsonParser<char16_t, detail::JsonScanPlain>;
template class JsonParser<char16_t, detail::JsonScanSse2>;
template class JsonParser<char16_t>;
template class JsonParser<wchar_t>;

}  // namespace rl
