// Colours of JSON, comments included. Only a block comment reaches from line to line: lines without
// the beginning of one need not be read to know the state behind them.
#include <algorithm>

#include "view/logic/source_lexer.h"
#include "view/logic/unit_block.h"

namespace rl::detail {

namespace {

constexpr LineState kInsideComment = 1;

constexpr bool IsDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

constexpr bool IsNumberPart(wchar_t unit) {
    return IsDigit(unit) || unit == L'.' || unit == L'e' || unit == L'E' || unit == L'+' ||
           unit == L'-';
}

constexpr bool IsPunctuation(wchar_t unit) {
    return unit == L'{' || unit == L'}' || unit == L'[' || unit == L']' || unit == L',' ||
           unit == L':';
}

/// Behind the closing quote of the string that opens at `at`; the line's end when it is open.
size_t StringEnd(std::wstring_view line, size_t at) {
    for (++at; at < line.size(); ++at) {
        if (line[at] == L'"') {
            return at + 1;
        }
        at += line[at] == L'\\' ? 1 : 0;
    }
    return line.size();
}

bool ColonFollows(std::wstring_view line, size_t at) {
    while (at < line.size() && (line[at] == L' ' || line[at] == L'\t')) {
        ++at;
    }
    return at < line.size() && line[at] == L':';
}

size_t NumberEnd(std::wstring_view line, size_t at) {
    while (at < line.size() && IsNumberPart(line[at])) {
        ++at;
    }
    return at;
}

/// How long the keyword at the beginning of `rest` is, whatever follows it; 0 for none.
size_t KeywordLength(std::wstring_view rest) {
    for (const std::wstring_view word : {L"true", L"false", L"null"}) {
        if (rest.starts_with(word)) {
            return word.size();
        }
    }
    return 0;
}

struct Token {
    size_t end;
    SourceClass colour;
};

Token ReadToken(std::wstring_view line, size_t at) {
    const wchar_t unit = line[at];
    if (unit == L'"') {
        const size_t end = StringEnd(line, at);
        return {end, ColonFollows(line, end) ? SourceClass::Attribute : SourceClass::String};
    }
    if (unit == L'-' || IsDigit(unit)) {
        return {NumberEnd(line, at + 1), SourceClass::Number};
    }
    if (IsPunctuation(unit)) {
        return {at + 1, SourceClass::Punctuation};
    }
    if (const size_t length = KeywordLength(line.substr(at)); length > 0) {
        return {at + length, SourceClass::Keyword};
    }
    return {at + 1, SourceClass::Text};
}

}  // namespace

LineState LexJsonLine(std::wstring_view line, LineState state, ClassSink classes) {
    size_t at = 0;
    while (at < line.size()) {
        if (state == kInsideComment) {
            const size_t close = line.find(L"*/", at);
            const size_t end = close == std::wstring_view::npos ? line.size() : close + 2;
            classes.Put(at, end, SourceClass::Comment);
            state = close == std::wstring_view::npos ? state : LineState{0};
            at = end;
            continue;
        }
        const std::wstring_view rest = line.substr(at);
        if (rest.starts_with(L"//")) {
            classes.Put(at, line.size(), SourceClass::Comment);
            break;
        }
        if (rest.starts_with(L"/*")) {
            classes.Put(at, at + 2, SourceClass::Comment);
            state = kInsideComment;
            at += 2;
            continue;
        }
        const Token token = ReadToken(line, at);
        classes.Put(at, token.end, token.colour);
        at = token.end;
    }
    return state;
}

// From a state, only the line where the next comment begins or ends has to be read.
void ScanJsonStates(std::wstring_view text, std::span<const uint32_t> starts,
                    std::span<LineState> states) {
    size_t line = 0;
    LineState state = 0;
    while (line < starts.size()) {
        const bool inside = state == kInsideComment;
        const size_t mark = inside ? FindPair(text, starts[line], '*', '/')
                                   : FindPair(text, starts[line], '/', '*');
        const auto rest = starts.subspan(line);
        const auto behind = std::ranges::upper_bound(rest, mark);
        // The line that holds the mark; without one, the line behind the last.
        const size_t there = mark == text.size()
                                 ? starts.size()
                                 : line + static_cast<size_t>(behind - rest.begin()) - 1;
        std::ranges::fill(states.subspan(line, there - line), state);
        if (there < starts.size()) {
            states[there] = state;
            state = LexJsonLine(LineAt(text, starts, there), state, {});
        }
        line = there + 1;
    }
}

}  // namespace rl::detail
