// Sizes as people read them, and the limit on the size of a file we load.
//
// Arithmetic and texts only: who asks the system for its memory or a file for its size passes the
// numbers in.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rl {

/// No file of this many bytes or more is loaded, whatever the settings say: offsets into its text
/// are 32 bits wide.
inline constexpr int64_t kHardSizeLimit = int64_t{1} << 31;

/// The limit where the machine's memory is not known: 1 GiB.
inline constexpr uint64_t kLargestDefaultLimit = 1'073'741'824;
/// The lowest default, decimal on purpose.
inline constexpr uint64_t kSmallestDefaultLimit = 500'000'000;

/// "512 bytes", "1536 bytes (1.5 KB)", "3000000 bytes (2.9 MB)".
[[nodiscard]] std::wstring FormatByteSize(int64_t bytes);

/// The limit for a machine with that much physical memory: a quarter of it, between the two above.
[[nodiscard]] uint64_t DefaultSizeLimit(uint64_t physicalMemory);

/// The value of `max-file-size` in bytes, 0 for no limit; nothing when the default applies: an
/// empty value, a negative number, or anything but a whole number.
[[nodiscard]] std::optional<int64_t> SizeLimitFromSetting(std::wstring_view value);

/// Why a file of `size` bytes may not be loaded, empty when it may. `limit` is the configured one,
/// 0 or less for none; a size equal to it passes.
[[nodiscard]] std::wstring SizeRefusal(int64_t size, int64_t limit);

}  // namespace rl
