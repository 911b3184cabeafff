// Inputs that are read from files. Nobody but the benchmarks writes there.
#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>

namespace rl::bench {

/// A file of this name in the temporary folder with `bytes`.
inline std::filesystem::path WriteInput(const std::string& name, const std::string& bytes) {
    const std::filesystem::path file = std::filesystem::temp_directory_path() / name;
    std::ofstream(file, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return file;
}

/// One with what `make` makes of at least `size` bytes, written once and read by every process.
/// The name changes with what is made.
template <class Make>
std::filesystem::path FileOf(const std::string& name, size_t size, Make make) {
    const std::filesystem::path file = std::filesystem::temp_directory_path() / name;
    std::error_code missing;
    const size_t found = std::filesystem::file_size(file, missing);
    return missing || found < size ? WriteInput(name, make(size)) : file;
}

}  // namespace rl::bench
