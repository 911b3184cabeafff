// Bytes to text: marks, UTF-16 without a mark, UTF-8, and the ANSI code page when nothing else
// fits.
//
// Safe on any thread; keeps no state.
#pragma once

#include <string>
#include <string_view>

#include "load/text/abandon_check.h"
#include "load/text/text_encoding.h"

namespace rl {

/// Decodes a whole file. Never fails: every byte sequence yields some text and a label in `found`.
/// UTF-8 that is well formed is converted here; anything else about code pages is the system's.
/// Throws std::bad_alloc when the text does not fit into memory. Work that nobody waits for any
/// more ends early with some beginning of the text.
[[nodiscard]] std::wstring DecodeText(std::string_view bytes, const EncodingRequest& request,
                                      TextEncoding& found, const AbandonCheck& abandoned = {});

}  // namespace rl
