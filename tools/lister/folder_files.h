// The files of a folder that the plugin asks for, in the order in which people walk them.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace rl::tools {

/// Whether the plugin's detect string names the file's extension, in any letter case.
[[nodiscard]] bool IsWanted(const std::string& detectString, const std::filesystem::path& file);

/// Wanted files beside `file`, sorted by name without regard to case.
[[nodiscard]] std::vector<std::filesystem::path> WantedFilesBeside(
    const std::string& detectString, const std::filesystem::path& file);

/// The file `step` places after (before, when negative) the given one; empty at either end.
[[nodiscard]] std::filesystem::path NeighbourOf(const std::string& detectString,
                                                const std::filesystem::path& file, int step);

}  // namespace rl::tools
