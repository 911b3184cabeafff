#include "view/logic/row_sort.h"

#include <algorithm>
#include <numeric>
#include <optional>

#include "load/text/platform.h"
#include "view/logic/number_text.h"

namespace rl {
namespace {

/// What each row is sorted by, made once. Text keys are made only where some cell is no number.
struct SortKeys {
    std::vector<double> numbers;
    std::vector<uint8_t> isNumber;
    std::vector<std::string> texts;
};

int Sign(int value) {
    return (value > 0) - (value < 0);
}

int CompareKeys(const SortKeys& keys, uint32_t left, uint32_t right) {
    if (keys.isNumber[left] != 0 && keys.isNumber[right] != 0) {
        const double a = keys.numbers[left];
        const double b = keys.numbers[right];
        return (a > b) - (a < b);
    }
    return Sign(keys.texts[left].compare(keys.texts[right]));
}

SortKeys MakeKeys(const std::vector<int32_t>& rows, const CellOfRow& cellOf) {
    SortKeys keys;
    keys.numbers.reserve(rows.size());
    keys.isNumber.reserve(rows.size());
    for (size_t i = 0; i < rows.size(); ++i) {
        const std::wstring cell = cellOf(rows[i]);
        const std::optional<double> number = ParseNumber(cell);
        keys.numbers.push_back(number.value_or(0));
        keys.isNumber.push_back(number ? 1 : 0);
        keys.texts.push_back(platform::CollationKey(cell));
    }
    return keys;
}

}  // namespace

int CompareCells(std::wstring_view left, std::wstring_view right) {
    const std::optional<double> a = ParseNumber(left);
    const std::optional<double> b = a ? ParseNumber(right) : std::nullopt;
    if (a && b) {
        return (*a > *b) - (*a < *b);
    }
    return Sign(platform::Collate(left, right));
}

void SortRows(std::vector<int32_t>& rows, const CellOfRow& cellOf, int32_t direction) {
    if (direction == 0 || rows.size() < 2) {
        return;
    }
    const SortKeys keys = MakeKeys(rows, cellOf);
    std::vector<uint32_t> positions(rows.size());
    std::iota(positions.begin(), positions.end(), 0U);
    const int wanted = direction > 0 ? -1 : 1;
    MergeSort(positions, [&](uint32_t left, uint32_t right) {
        return CompareKeys(keys, left, right) == wanted;
    });
    std::vector<int32_t> sorted(rows.size());
    std::transform(positions.begin(), positions.end(), sorted.begin(),
                   [&](uint32_t position) { return rows[position]; });
    rows.swap(sorted);
}

}  // namespace rl
