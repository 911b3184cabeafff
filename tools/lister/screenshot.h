// A picture of the window as soon as there is something to see in it.
#pragma once

#include <string>

#include "tools/lister/lister_window.h"

namespace rl::tools {

/// Runs messages until the file is shown and painted, then writes the window to a PNG. Returns the
/// program's exit code: 0, or 1 with the reason on the error stream.
[[nodiscard]] int TakeScreenshot(ListerWindow& lister, const std::wstring& png);

}  // namespace rl::tools
