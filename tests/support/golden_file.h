// Compares a text with a file of the source tree.
//
// A difference fails the test and leaves the new text in the build folder; who agrees with it
// copies it over by the command the failure prints. Tests never write into the source tree
// themselves.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "tests/support/test_paths.h"

namespace rl::test {

/// The bytes of a file; empty when it is missing.
[[nodiscard]] inline std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// Expects `actual` to be, byte for byte, the file at `relative` below the source root.
inline void ExpectGolden(std::string_view actual, const std::filesystem::path& relative) {
    const std::filesystem::path golden = SourceRoot() / relative;
    if (BytesOf(golden) == actual) {
        return;
    }
    const std::filesystem::path fresh = BuildRoot() / "golden" / relative.filename();
    std::filesystem::create_directories(fresh.parent_path());
    std::ofstream(fresh, std::ios::binary)
        .write(actual.data(), static_cast<std::streamsize>(actual.size()));
    ADD_FAILURE() << relative.string() << " differs. To accept the new text:\n  cp "
                  << fresh.string() << ' ' << golden.string();
}

}  // namespace rl::test
