// A module in a folder of its own, with settings of its own beside it.
//
// The plugin reads the INI file that lies beside it; who wants other settings for one run gives it
// another folder.
#pragma once

#include <filesystem>
#include <string>

#include "tools/common/temp_folder.h"

namespace rl::tools {

/// Writes the bytes as they are; false when the file cannot be written.
bool WriteBytes(const std::filesystem::path& file, const std::string& bytes);

/// The bytes of a file; empty when it cannot be read.
[[nodiscard]] std::string ReadBytes(const std::filesystem::path& file);

/// Copies the module into the folder and returns the copy's path; empty on failure.
[[nodiscard]] std::filesystem::path CopyModule(const std::filesystem::path& module,
                                               const std::filesystem::path& folder);

}  // namespace rl::tools
