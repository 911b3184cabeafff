// Whether a cell holds a link, and to what.
//
// Only addresses of four beginnings ever reach the shell: a cell is text from a stranger's file.
#pragma once

#include <string>
#include <string_view>

namespace rl {

/// The address to open; empty when the cell holds none. The first of "https://", "http://",
/// "ftp://" and "www." that occurs anywhere starts it, in this order and not from the left; letter
/// case counts. An address that begins with "www." gets "http://" in front.
[[nodiscard]] std::wstring LinkTarget(std::wstring_view cell);

}  // namespace rl
