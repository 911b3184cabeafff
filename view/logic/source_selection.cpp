// Selection in a source text.
#include "view/logic/source_selection.h"

#include <algorithm>
#include <iterator>

namespace rl {

namespace {

struct SourceKey {
    VirtualKey key;
    bool ctrl;
    SourceAction action;
};

constexpr SourceKey kSourceKeys[] = {
    {key::kLeft, false, SourceAction::Left},
    {key::kLeft, true, SourceAction::Left},
    {key::kRight, false, SourceAction::Right},
    {key::kRight, true, SourceAction::Right},
    {key::kUp, false, SourceAction::Up},
    {key::kUp, true, SourceAction::ScrollUp},
    {key::kDown, false, SourceAction::Down},
    {key::kDown, true, SourceAction::ScrollDown},
    {key::kPageUp, false, SourceAction::PageUp},
    {key::kPageUp, true, SourceAction::PageUp},
    {key::kPageDown, false, SourceAction::PageDown},
    {key::kPageDown, true, SourceAction::PageDown},
    {key::kHome, false, SourceAction::LineStart},
    {key::kHome, true, SourceAction::TextStart},
    {key::kEnd, false, SourceAction::LineEnd},
    {key::kEnd, true, SourceAction::TextEnd},
    {key::Of('A'), true, SourceAction::SelectAll},
    {key::Of('C'), true, SourceAction::Copy},
};

bool IsPair(std::wstring_view text, size_t first) {
    if (first + 1 >= text.size()) {
        return false;
    }
    const wchar_t one = text[first];
    const wchar_t two = text[first + 1];
    const bool surrogates = one >= 0xD800 && one <= 0xDBFF && two >= 0xDC00 && two <= 0xDFFF;
    return surrogates || (one == L'\r' && two == L'\n');
}

size_t StepLeft(std::wstring_view text, size_t caret) {
    if (caret < 2) {
        return 0;
    }
    return caret - (IsPair(text, caret - 2) ? 2 : 1);
}

size_t StepRight(std::wstring_view text, size_t caret) {
    if (caret >= text.size()) {
        return text.size();
    }
    return caret + (IsPair(text, caret) ? 2 : 1);
}

/// `lines` further down, in the column where the caret is seen.
size_t StepLines(const SourceText& text, size_t caret, int64_t lines) {
    const int64_t last = text.LineCount() - 1;
    const int32_t from = text.LineOf(caret);
    const auto to = static_cast<int32_t>(std::clamp<int64_t>(from + lines, 0, last));
    if (to == from) {
        return caret;
    }
    const std::wstring_view line = text.Line(to).substr(0, kMostUnitsScanned);
    // As if pixels were columns.
    return text.LineStart(to) + OffsetNear(line, text.ColumnOf(caret), 1, text.TabWidth());
}

constexpr bool IsWordUnit(wchar_t unit) {
    return (unit >= L'0' && unit <= L'9') || (unit >= L'A' && unit <= L'Z') ||
           (unit >= L'a' && unit <= L'z') || unit == L'_' || unit >= 128;
}

}  // namespace

std::optional<SourceAction> FindSourceAction(VirtualKey key, bool ctrl) {
    const auto* found = std::ranges::find_if(
        kSourceKeys, [&](const SourceKey& row) { return row.key == key && row.ctrl == ctrl; });
    return found == std::end(kSourceKeys) ? std::nullopt : std::optional(found->action);
}

size_t MoveCaret(const SourceText& text, size_t caret, SourceAction move, int pageLines) {
    switch (move) {
        case SourceAction::Left: return StepLeft(text.All(), caret);
        case SourceAction::Right: return StepRight(text.All(), caret);
        case SourceAction::Up: return StepLines(text, caret, -1);
        case SourceAction::Down: return StepLines(text, caret, 1);
        case SourceAction::PageUp: return StepLines(text, caret, -int64_t{pageLines});
        case SourceAction::PageDown: return StepLines(text, caret, pageLines);
        case SourceAction::LineStart: return text.LineStart(text.LineOf(caret));
        case SourceAction::LineEnd: return text.LineEnd(text.LineOf(caret));
        case SourceAction::TextStart: return 0;
        case SourceAction::TextEnd: return text.Size();
        default: return caret;
    }
}

std::optional<SourceSelection> WordAt(const SourceText& text, size_t position) {
    const std::wstring_view all = text.All();
    if (position >= all.size() || !IsWordUnit(all[position])) {
        return std::nullopt;
    }
    size_t first = position;
    while (first > 0 && IsWordUnit(all[first - 1])) {
        --first;
    }
    size_t last = position;
    while (last < all.size() && IsWordUnit(all[last])) {
        ++last;
    }
    return SourceSelection{.anchor = first, .caret = last};
}

namespace {

/// Calls for each stretch without a line break, and tells whether a break follows it.
template <typename Take>
void ForEachLine(std::wstring_view text, Take take) {
    size_t start = 0;
    for (size_t at = 0; at < text.size(); ++at) {
        const bool isReturn = text[at] == L'\r';
        if (!isReturn && text[at] != L'\n') {
            continue;
        }
        take(text.substr(start, at - start), true);
        at += isReturn && at + 1 < text.size() && text[at + 1] == L'\n' ? 1 : 0;
        start = at + 1;
    }
    take(text.substr(start), false);
}

}  // namespace

size_t CopySize(std::wstring_view text) {
    size_t size = 0;
    ForEachLine(
        text, [&](std::wstring_view line, bool breaks) { size += line.size() + (breaks ? 2 : 0); });
    return size;
}

void WriteCopy(std::wstring_view text, wchar_t* out) {
    ForEachLine(text, [&](std::wstring_view line, bool breaks) {
        out = std::ranges::copy(line, out).out;
        if (breaks) {
            *out++ = L'\r';
            *out++ = L'\n';
        }
    });
}

}  // namespace rl
