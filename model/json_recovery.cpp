#include "model/json_recovery.h"

#include <cstddef>

#include "model/json_parser.h"

namespace rl {

namespace {

constexpr std::wstring_view kLineBlanks = L" \t\r\n";

void StartWithArray(std::vector<JsonNode>& nodes) {
    nodes.clear();
    nodes.push_back({.kind = JsonKind::Array});
}

/// The line without blanks at both ends.
JsonRange Trim(std::wstring_view text, size_t begin, size_t end) {
    const std::wstring_view line = text.substr(begin, end - begin);
    const size_t first = line.find_first_not_of(kLineBlanks);
    if (first == std::wstring_view::npos) {
        return {begin, begin};
    }
    return {begin + first, begin + line.find_last_not_of(kLineBlanks) + 1};
}

/// The end of the block that opens at `begin`, whatever the kinds of its brackets; npos when the
/// text ends first.
size_t BlockEnd(std::wstring_view text, size_t begin) {
    size_t depth = 0;
    bool inString = false;
    for (size_t at = begin; at < text.size(); ++at) {
        const wchar_t unit = text[at];
        if (inString) {
            if (unit == L'\\') {
                ++at;
            } else if (unit == L'"') {
                inString = false;
            }
        } else if (unit == L'"') {
            inString = true;
        } else if (unit == L'{' || unit == L'[') {
            ++depth;
        } else if ((unit == L'}' || unit == L']') && --depth == 0) {
            return at + 1;
        }
    }
    return std::wstring_view::npos;
}

}  // namespace

bool ParseJsonLines(std::wstring_view text, std::vector<JsonNode>& nodes,
                    const AbandonCheck& abandoned) {
    StartWithArray(nodes);
    int32_t last = -1;
    for (size_t begin = 0; begin < text.size();) {
        size_t end = text.find(L'\n', begin);
        end = end == std::wstring_view::npos ? text.size() : end;
        const JsonRange line = Trim(text, begin, end);
        begin = end + 1;
        if (line.begin == line.end) {
            continue;
        }
        const int32_t value = ParseJsonValue(text, line, 0, nodes, abandoned);
        if (value < 0) {
            return false;
        }
        LinkJsonChild(nodes, 0, last, value);
        last = value;
    }
    return last >= 0;
}

int32_t RecoverJsonBlocks(std::wstring_view text, std::vector<JsonNode>& nodes,
                          const AbandonCheck& abandoned) {
    StartWithArray(nodes);
    int32_t last = -1;
    for (size_t at = text.find_first_of(L"{["); at != std::wstring_view::npos;
         at = text.find_first_of(L"{[", at)) {
        const size_t end = BlockEnd(text, at);
        if (end == std::wstring_view::npos || IsAbandoned(abandoned)) {
            break;
        }
        const size_t before = nodes.size();
        const int32_t block = ParseJsonValue(text, {at, end}, 0, nodes, abandoned);
        at = end;
        if (block < 0) {
            nodes.resize(before);
            continue;
        }
        LinkJsonChild(nodes, 0, last, block);
        last = block;
    }
    if (nodes[0].childCount != 1) {
        return last < 0 ? -1 : 0;
    }
    nodes[static_cast<size_t>(last)].parent = -1;
    return last;
}

}  // namespace rl
