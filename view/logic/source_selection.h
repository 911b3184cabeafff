// Selection in a source text: where keys and clicks put its two ends, and its text for the
// clipboard.
//
// Knows nothing of windows. Safe on any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "view/logic/key_codes.h"
#include "view/logic/source_lines.h"

namespace rl {

/// The ends of a selection as positions of the text; the caret is the one that moves.
struct SourceSelection {
    uint64_t anchor = 0;
    uint64_t caret = 0;

    [[nodiscard]] constexpr uint64_t First() const { return anchor < caret ? anchor : caret; }
    [[nodiscard]] constexpr uint64_t Last() const { return anchor < caret ? caret : anchor; }
    [[nodiscard]] constexpr bool IsEmpty() const { return anchor == caret; }
    bool operator==(const SourceSelection&) const = default;
};

enum class SourceAction : uint8_t {
    Left,
    Right,
    Up,
    Down,
    PageUp,
    PageDown,
    LineStart,
    LineEnd,
    TextStart,
    TextEnd,
    ScrollUp,
    ScrollDown,
    SelectAll,
    Copy
};

/// What a key does in the source view; nothing for a key of others.
[[nodiscard]] std::optional<SourceAction> FindSourceAction(VirtualKey key, bool ctrl);

/// Whether the action moves the caret, and so extends the selection with Shift.
[[nodiscard]] constexpr bool IsCaretMove(SourceAction action) {
    return action <= SourceAction::TextEnd;
}

/// Up and Down look no further into the line they come to: a line may be millions of units long.
inline constexpr size_t kMostUnitsScanned = 1'000'000;

/// Where a caret move leads. `pageLines` is how many lines are fully seen.
[[nodiscard]] size_t MoveCaret(const SourceText& text, size_t caret, SourceAction move,
                               int pageLines);

/// The run of word characters around a position: ASCII letters and digits, "_" and everything from
/// code 128 up. Nothing when the position stands before another character.
[[nodiscard]] std::optional<SourceSelection> WordAt(const SourceText& text, size_t position);

/// The units that a text takes with every line break written as CR LF.
[[nodiscard]] size_t CopySize(std::wstring_view text);
/// Writes them; `out` has room for CopySize(text).
void WriteCopy(std::wstring_view text, wchar_t* out);

}  // namespace rl
