// What the frame needs from the system: memory in use, and running a program to its end.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace rl::bench {

/// Bytes of memory in use now, and the most that ever were, by this process.
[[nodiscard]] size_t MemoryNow();
[[nodiscard]] size_t MemoryPeak();

/// Time the processor has spent on this process, in the system's calls too.
[[nodiscard]] double ProcessorSeconds();

/// Runs a program and returns what it wrote to its standard output; empty when it failed.
[[nodiscard]] std::string RunProgram(const std::vector<std::string>& command);

}  // namespace rl::bench
