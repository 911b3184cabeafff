// Sorts many rows by a key of 64 bits, digit by digit, without comparing any two.
//
// Knows nothing of cells. Safe on any thread.
#pragma once

#include <bit>
#include <cstdint>
#include <vector>

namespace rl {

struct KeyedRow {
    uint64_t key = 0;
    int32_t row = 0;
};

/// A key that stands to others as the number does to theirs; both zeros have the same. The number
/// must be one.
[[nodiscard]] inline uint64_t KeyOfNumber(double number) {
    constexpr uint64_t kSign = uint64_t{1} << 63;
    const auto bits = std::bit_cast<uint64_t>(number == 0 ? 0.0 : number);
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

/// In ascending order of their keys; those with equal keys stay as they are. Takes as much memory
/// again as the rows have.
void SortByRadix(std::vector<KeyedRow>& rows);

}  // namespace rl
