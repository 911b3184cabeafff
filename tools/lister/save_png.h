// Writes a picture to a file.
#pragma once

#include <string>

#include "tools/common/capture.h"

namespace rl::tools {

/// Writes a PNG, replacing an existing file. False on failure.
[[nodiscard]] bool SavePng(const Image& image, const std::wstring& file);

}  // namespace rl::tools
