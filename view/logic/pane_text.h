// A cell's text as a multi-line edit control shows it whole.
//
// Pure; any thread.
#pragma once

#include <string>
#include <string_view>

namespace rl {

/// A line without an end of its own is broken softly after so many units: wrapping takes the system
/// time that grows with the square of a line's length.
inline constexpr size_t kLongestPaneLine = 1024;

/// The text with every line end (CR LF, CR or LF) as CR LF, and soft breaks (CR CR LF) in lines
/// that are longer than the limit. A NUL, at which the control would stop, becomes U+2400, the
/// picture of one.
[[nodiscard]] std::wstring PaneText(std::wstring_view text);

/// What the control holds, without the soft breaks: what is read or copied from it.
[[nodiscard]] std::wstring WithoutSoftBreaks(std::wstring_view text);

/// Where to cut so that at most `most` units come first and neither a line break nor a surrogate
/// pair is torn; the whole of a short text. `most` is at least 4.
[[nodiscard]] size_t PaneChunk(std::wstring_view text, size_t most);

}  // namespace rl
