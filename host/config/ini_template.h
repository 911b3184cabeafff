// The commented settings file that is written where none exists.
//
// Every option stands there with its default, behind a semicolon: the file changes nothing until
// the user edits it.
#pragma once

#include <string>

namespace rl {

/// The whole file: ASCII, lines ended by LF alone.
[[nodiscard]] std::string IniTemplate();

}  // namespace rl
