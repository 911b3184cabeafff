// SHA-256, for comparing long texts with answers that are given as a hash.
#pragma once

#include <string>
#include <string_view>

namespace rl::test {

/// The hash of the bytes, in lower-case hexadecimal.
[[nodiscard]] std::string Sha256Hex(std::string_view bytes);

}  // namespace rl::test
