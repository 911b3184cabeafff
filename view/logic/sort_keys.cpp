#include "view/logic/sort_keys.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "load/text/platform.h"
#include "view/logic/number_text.h"

namespace rl {
namespace {

constexpr size_t kHeadBytes = 16;
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

/// Eight bytes from `start` on as a number that compares as they do; missing ones are 0.
uint64_t BytesAsNumber(std::string_view key, size_t start) {
    uint64_t value = 0;
    for (size_t i = start; i < start + 8; ++i) {
        value = value << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
    }
    return value;
}

template <typename Value>
int CompareValues(Value left, Value right) {
    return (left > right) - (left < right);
}

}  // namespace

void SortKeys::Reserve(size_t count) {
    keys_.reserve(count);
}

void SortKeys::Add(std::wstring_view cell) {
    const std::string key = platform::CollationKey(cell);
    keys_.push_back({.high = BytesAsNumber(key, 0),
                     .low = BytesAsNumber(key, 8),
                     .restStart = rest_.size(),
                     .length = static_cast<uint32_t>(key.size()),
                     .position = static_cast<uint32_t>(keys_.size())});
    if (key.size() > kHeadBytes) {
        rest_.append(key, kHeadBytes);
    }
    const std::optional<double> number = ParseNumber(cell);
    if (number && numbers_.empty()) {
        numbers_.reserve(keys_.capacity());
        numbers_.assign(keys_.size() - 1, kNoNumber);
    }
    if (number || !numbers_.empty()) {
        numbers_.push_back(number.value_or(kNoNumber));
        numberCount_ += number ? 1 : 0;
    }
}

int SortKeys::Compare(uint32_t left, uint32_t right) const {
    if (!numbers_.empty()) {
        const double a = numbers_[left];
        const double b = numbers_[right];
        if (a == a && b == b) {  // what is no number does not equal itself
            return CompareValues(a, b);
        }
    }
    return CompareTexts(keys_[left], keys_[right]);
}

int SortKeys::CompareTexts(const SortKey& left, const SortKey& right) const {
    if (left.high != right.high) {
        return CompareValues(left.high, right.high);
    }
    if (left.low != right.low) {
        return CompareValues(left.low, right.low);
    }
    const auto restOf = [this](const SortKey& key) {
        const size_t length = key.length > kHeadBytes ? key.length - kHeadBytes : 0;
        return std::string_view(rest_).substr(key.restStart, length);
    };
    const int rest = restOf(left).compare(restOf(right));
    return rest != 0 ? CompareValues(rest, 0) : CompareValues(left.length, right.length);
}

}  // namespace rl
