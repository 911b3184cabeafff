#include "view/logic/radix_sort.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace rl {
namespace {

constexpr unsigned kDigitBits = 8;
constexpr size_t kDigitValues = size_t{1} << kDigitBits;
constexpr size_t kDigits = 64 / kDigitBits;

using Counts = std::array<uint32_t, kDigitValues>;

size_t DigitOf(uint64_t key, size_t digit) {
    return static_cast<size_t>(key >> (digit * kDigitBits)) & (kDigitValues - 1);
}

/// How often each value of each digit occurs.
std::array<Counts, kDigits> CountDigits(const std::vector<KeyedRow>& rows) {
    std::array<Counts, kDigits> counts{};
    for (const KeyedRow& row : rows) {
        for (size_t digit = 0; digit < kDigits; ++digit) {
            ++counts[digit][DigitOf(row.key, digit)];
        }
    }
    return counts;
}

}  // namespace

void SortByRadix(std::vector<KeyedRow>& rows) {
    constexpr size_t kWorthIt = 512;
    if (rows.size() < kWorthIt) {
        std::stable_sort(rows.begin(), rows.end(), [](const KeyedRow& left, const KeyedRow& right) {
            return left.key < right.key;
        });
        return;
    }
    std::array<Counts, kDigits> counts = CountDigits(rows);
    std::vector<KeyedRow> target(rows.size());
    for (size_t digit = 0; digit < kDigits; ++digit) {
        Counts& next = counts[digit];
        if (next[DigitOf(rows.front().key, digit)] == rows.size()) {
            continue;  // the same everywhere
        }
        uint32_t start = 0;
        for (uint32_t& place : next) {
            const uint32_t count = place;
            place = start;
            start += count;
        }
        for (const KeyedRow& row : rows) {
            target[next[DigitOf(row.key, digit)]++] = row;
        }
        rows.swap(target);
    }
}

}  // namespace rl
