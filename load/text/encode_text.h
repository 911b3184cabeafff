// Text to bytes, for saving in the encoding a document was read in.
//
// Safe on any thread; keeps no state.
#pragma once

#include <string>
#include <string_view>

#include "load/text/text_encoding.h"

namespace rl {

/// Encodes a whole document, its byte-order mark included when it had one. `bytes` is emptied
/// first. False when the code page cannot hold the text exactly, or for a label other than the four
/// known ones; `bytes` is empty then. Labels are compared without regard to case.
[[nodiscard]] bool EncodeText(std::wstring_view text, const TextEncoding& encoding,
                              std::string& bytes);

}  // namespace rl
