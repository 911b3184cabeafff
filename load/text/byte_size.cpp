#include "load/text/byte_size.h"

#include <algorithm>

#include "load/text/messages.h"
#include "load/text/whole_number.h"

namespace rl {
namespace {

constexpr int64_t kKibi = 1024;
constexpr int64_t kMebi = kKibi * kKibi;

/// `value` / `unit` with one decimal, rounded to nearest and halves to even, as "%.1f" does. `unit`
/// is a power of two of at least 1,024, so a quotient is exact in binary and its halves are real.
std::wstring OneDecimal(int64_t value, int64_t unit) {
    const int64_t whole = value / unit;
    const int64_t scaled = value % unit * 10;
    int64_t tenths = scaled / unit;
    const int64_t twice = scaled % unit * 2;
    tenths += twice > unit || (twice == unit && tenths % 2 != 0) ? 1 : 0;
    return std::to_wstring(whole + tenths / 10) + L'.' + std::to_wstring(tenths % 10);
}

}  // namespace

std::wstring FormatByteSize(int64_t bytes) {
    std::wstring count = std::to_wstring(bytes) + L" bytes";
    if (bytes < kKibi) {
        return count;
    }
    const bool large = bytes >= kMebi;
    return count + L" (" + OneDecimal(bytes, large ? kMebi : kKibi) + (large ? L" MB)" : L" KB)");
}

uint64_t DefaultSizeLimit(uint64_t physicalMemory) {
    return std::clamp(physicalMemory / 4, kSmallestDefaultLimit, kLargestDefaultLimit);
}

std::optional<int64_t> SizeLimitFromSetting(std::wstring_view value) {
    const std::optional<int64_t> number = ParseWholeNumber(value);
    return number && *number >= 0 ? number : std::nullopt;
}

std::wstring SizeRefusal(int64_t size, int64_t limit) {
    if (limit > 0 && size > limit) {
        return messages::OverConfiguredLimit(FormatByteSize(size), FormatByteSize(limit));
    }
    if (size >= kHardSizeLimit) {
        return messages::OverHardLimit(FormatByteSize(size));
    }
    return {};
}

}  // namespace rl
