// Where tests find the project's own files and the shared collection of real documents.
//
// The collection is not part of the project: a test that needs it skips itself where the folder is
// missing. Under Wine the Linux paths work as they are, on drive Z.
#pragma once

#include <filesystem>

namespace rl::test {

/// The root of the source tree.
[[nodiscard]] std::filesystem::path SourceRoot();

/// The root of the build tree that the running program belongs to.
[[nodiscard]] std::filesystem::path BuildRoot();

/// The folder of real documents beside the project; may not exist.
[[nodiscard]] inline std::filesystem::path CorpusRoot() {
    return SourceRoot().parent_path() / "shared" / "corpus";
}

/// Whether the folder of real documents is on this machine.
[[nodiscard]] inline bool HasCorpus() {
    return std::filesystem::is_directory(CorpusRoot());
}

}  // namespace rl::test
