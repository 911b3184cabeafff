// The shared collection of real documents and the expected answers beside them.
//
// Each folder has one `expected.jsonl`; texts in it are hashed, and these are the hashes' inputs.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/json_value.h"
#include "tests/support/sha256.h"
#include "tests/support/test_paths.h"

namespace rl::test {

/// A whole file. Throws std::runtime_error when it cannot be read.
[[nodiscard]] std::string ReadBytes(const std::filesystem::path& path);

/// One value for each line of a JSON Lines file. Throws std::runtime_error.
[[nodiscard]] std::vector<JsonValue> ReadJsonLines(const std::filesystem::path& path);

/// The answers of one folder ("csv", "encodings", ...).
[[nodiscard]] std::vector<JsonValue> ExpectedAnswers(std::string_view folder);

/// UTF-8 of UTF-16 units; an unpaired surrogate becomes the three bytes of its number.
[[nodiscard]] std::string Utf8(std::wstring_view text);

/// The units, low byte first, without a mark.
[[nodiscard]] std::string Utf16LeBytes(std::wstring_view text);

/// What a failing test prints: ASCII, everything else as escapes of four digits, cut after 200
/// units.
[[nodiscard]] std::string Readable(std::wstring_view text);

}  // namespace rl::test
