// The peer that tables are compared with: fast-cpp-csv-parser, reading rows of 12 columns.
#pragma once

#include <cstddef>
#include <string>

namespace rl::bench {

/// Reads all rows, as texts with quotes resolved, and returns how many there were. Throws when the
/// table is not what the peer can read.
size_t CountRowsInMemory(const std::string& bytes);
size_t CountRowsInFile(const std::string& path);

}  // namespace rl::bench
