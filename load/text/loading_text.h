// The sentence a viewer shows while its file loads, and how sentences call a file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rl {

/// The text after the last backslash or slash; the whole path when it has neither.
[[nodiscard]] std::wstring_view FileNameOf(std::wstring_view path);

/// "Loading data.csv (1.5 MB)…": the file's name, and its size in mebibytes, cut and not rounded,
/// where one is known. `bytes` is not negative.
[[nodiscard]] std::wstring LoadingText(std::wstring_view path, std::optional<uint64_t> bytes);

}  // namespace rl
