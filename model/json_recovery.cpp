#include "model/json_recovery.h"

#include "model/json_parser.h"
#include "model/json_scan.h"

namespace rl {

namespace {

/// Links values as the children of node 0, which it appends.
class JsonGathering {
public:
    explicit JsonGathering(std::vector<JsonNode>& nodes) : nodes_(nodes) {
        nodes_.assign(1, JsonNode{.kind = JsonKind::Array});
    }

    void Add(int32_t node) {
        if (last_ < 0) {
            nodes_.front().firstChild = node;
        } else {
            nodes_[static_cast<size_t>(last_)].nextSibling = node;
        }
        last_ = node;
        ++nodes_.front().childCount;
    }

private:
    std::vector<JsonNode>& nodes_;
    int32_t last_ = -1;
};

/// Where the string ends whose opening quote is at `at`: its closing quote, or the end of the text.
size_t StringEnd(std::wstring_view text, size_t at) {
    const wchar_t* const end = text.data() + text.size();
    const wchar_t* unit = text.data() + at + 1;
    while ((unit = detail::JsonScan<wchar_t>::PastStringText(unit, end)) != end && *unit != L'"') {
        unit += end - unit < 2 ? 1 : 2;  // what follows a backslash means nothing
    }
    return static_cast<size_t>(unit - text.data());
}

/// Past the block that opens at `from`, whatever kinds its brackets are of; npos when it is open or
/// nobody waits.
size_t BlockEnd(std::wstring_view text, size_t from, const AbandonCheck& abandoned) {
    size_t depth = 0;
    size_t askAt = from + static_cast<size_t>(kJsonAskEvery);
    for (size_t at = from; at < text.size(); ++at) {
        if (at >= askAt) [[unlikely]] {
            askAt = at + static_cast<size_t>(kJsonAskEvery);
            if (abandoned()) {
                break;
            }
        }
        switch (text[at]) {
            case L'"': at = StringEnd(text, at); break;
            case L'{':
            case L'[': ++depth; break;
            case L'}':
            case L']':
                if (--depth == 0) {
                    return at + 1;
                }
                break;
            default: break;
        }
    }
    return std::wstring_view::npos;
}

}  // namespace

template <typename Unit>
int32_t ParseJsonLines(std::basic_string_view<Unit> text, std::vector<JsonNode>& nodes,
                       const AbandonCheck& abandoned) {
    nodes.assign(1, JsonNode{.kind = JsonKind::Array});
    JsonParser<Unit> parser(text, true, nodes, abandoned);
    return parser.ParseLines() && nodes.size() > 1 ? 0 : -1;
}

int32_t SalvageJson(std::wstring_view text, std::vector<JsonNode>& nodes,
                    const AbandonCheck& abandoned) {
    bool isAbandoned = false;
    const AbandonCheck check = [&abandoned, &isAbandoned] {
        isAbandoned = isAbandoned || IsAbandoned(abandoned);
        return isAbandoned;
    };
    JsonGathering gathering(nodes);
    JsonParser<wchar_t> parser(text, false, nodes, check);
    for (size_t at = text.find_first_of(L"{["); at != std::wstring_view::npos;) {
        const size_t past = BlockEnd(text, at, check);
        if (past == std::wstring_view::npos) {
            break;
        }
        // A bracket and the one that closes it are two apart, for both kinds.
        const bool isPair = text[past - 1] == text[at] + 2;
        if (const int32_t node = isPair ? parser.Parse(at, past, 0) : -1; node >= 0) {
            gathering.Add(node);
        }
        if (isAbandoned) {
            break;
        }
        at = text.find_first_of(L"{[", past);
    }
    if (isAbandoned) {
        return -1;
    }
    if (nodes.front().childCount != 1) {
        return nodes.front().childCount > 0 ? 0 : -1;
    }
    const int32_t only = nodes.front().firstChild;
    nodes[static_cast<size_t>(only)].parent = -1;
    return only;
}

template int32_t ParseJsonLines(std::wstring_view, std::vector<JsonNode>&, const AbandonCheck&);
template int32_t ParseJsonLines(std::u16string_view, std::vector<JsonNode>&, const AbandonCheck&);

}  // namespace rl
