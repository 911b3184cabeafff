// Keys that many cells are sorted by, each made once.
//
// A text's key is compared byte by byte; its first 16 bytes stand as two numbers, because they
// nearly always decide, and the rest of all keys lies in one piece of memory.
//
// Knows nothing of rows. Belongs to one thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace rl {

/// One cell's key. `position` is the number of the cell among those added.
struct SortKey {
    uint64_t high = 0;
    uint64_t low = 0;
    uint64_t restStart = 0;  // of the bytes behind the first 16
    uint32_t length = 0;     // of the whole key, bytes
    uint32_t position = 0;
};
static_assert(sizeof(SortKey) == 32);

class SortKeys {
public:
    void Reserve(size_t count);
    void Add(std::wstring_view cell);

    /// How two cells stand to each other: two numbers as numbers, all else as texts.
    [[nodiscard]] int Compare(uint32_t left, uint32_t right) const;
    /// The same for texts alone.
    [[nodiscard]] int CompareTexts(const SortKey& left, const SortKey& right) const;

    /// Whether the comparison is a plain order of texts: fewer than two cells are numbers.
    [[nodiscard]] bool IsTextOrder() const { return numberCount_ < 2; }
    [[nodiscard]] size_t Count() const { return keys_.size(); }
    [[nodiscard]] std::vector<SortKey>& Keys() { return keys_; }

private:
    std::vector<SortKey> keys_;
    std::string rest_;
    std::vector<double> numbers_;  // not a number: the cell is a text; empty while all are
    size_t numberCount_ = 0;
};

}  // namespace rl
