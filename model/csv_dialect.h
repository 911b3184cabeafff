// What a delimited text says about itself: its delimiter, its line ending, its comment lines.
//
// Found, not configured. The model, the source colours and the tests ask the same functions, so
// that all of them agree on what a comment is. Knows nothing of records and tables.
//
// The functions come for both 16-bit unit types, because tests and measurements on systems with a
// wide wchar_t use char16_t.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "load/text/abandon_check.h"

namespace rl {

/// Whether the line that starts at `position` is a comment: it begins with '#', with "sep=" in any
/// letter case, or with a ';' that no other ';' follows on the same line. False outside the text.
[[nodiscard]] bool IsCommentLine(std::wstring_view text, size_t position);
[[nodiscard]] bool IsCommentLine(std::u16string_view text, size_t position);

/// The delimiter named by a "sep=" line at the very beginning; else the one of , ; | TAB and : that
/// the first five rows holding any of them agree on best, or a comma. Reads no further than these
/// rows. `abandoned` is asked every few million units; once it answers true the answer is a comma.
[[nodiscard]] wchar_t DetectDelimiter(std::wstring_view text, wchar_t quoteChar,
                                      const AbandonCheck& abandoned = {});

/// The text's first line break: "\r\n", "\n" or "\r"; "\r\n" for a text without any.
[[nodiscard]] std::wstring_view DetectLineEnding(std::wstring_view text);

/// Whether a unit ends a line.
template <typename Unit>
[[nodiscard]] constexpr bool IsLineBreak(Unit unit) noexcept {
    return unit == Unit{'\n'} || unit == Unit{'\r'};
}

}  // namespace rl
