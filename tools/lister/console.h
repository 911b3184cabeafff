// Words to whoever started the program from a command line.
#pragma once

#include <string_view>

namespace rl::tools {

/// Writes UTF-8 and a line break to the error stream; lost when there is none.
void PrintError(std::wstring_view text);

/// The same to the output stream.
void PrintLine(std::wstring_view text);

/// Whether nobody can answer a message box: ROWLARK_HEADLESS is set to anything but 0.
[[nodiscard]] bool IsHeadless();

}  // namespace rl::tools
