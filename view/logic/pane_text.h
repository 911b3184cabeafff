// A cell's text as a multi-line edit control shows it whole.
//
// Pure; any thread.
#pragma once

#include <string>
#include <string_view>

namespace rl {

/// The text with every line end (CR LF, CR or LF) as CR LF. A NUL, at which the control would stop,
/// becomes U+2400, the picture of one.
[[nodiscard]] std::wstring PaneText(std::wstring_view text);

/// Where to cut so that at most `most` units come first and neither a CR LF nor a surrogate pair is
/// torn; at least 1 for a text that is not empty, and the whole of a short one.
[[nodiscard]] size_t PaneChunk(std::wstring_view text, size_t most);

}  // namespace rl
