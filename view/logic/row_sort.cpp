#include "view/logic/row_sort.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <unordered_map>

#include "load/text/platform.h"
#include "view/logic/number_text.h"
#include "view/logic/radix_sort.h"
#include "view/logic/sort_keys.h"

namespace rl {
namespace {

int CompareNumbers(double left, double right) {
    return (left > right) - (left < right);
}

/// Sorts a column in which every cell is a number; false, and nothing done, when one is not.
bool SortAsNumbers(std::vector<int32_t>& rows, const CellOfRow& cellOf, int32_t direction) {
    std::vector<KeyedRow> entries;
    std::wstring cell;
    for (const int32_t row : rows) {
        cellOf(row, cell);
        const std::optional<double> number = ParseNumber(cell);
        if (!number) {
            return false;
        }
        if (entries.empty()) {
            entries.reserve(rows.size());
        }
        const uint64_t key = KeyOfNumber(*number);
        entries.push_back({direction > 0 ? key : ~key, row});
    }
    SortByRadix(entries);
    std::transform(entries.begin(), entries.end(), rows.begin(),
                   [](const KeyedRow& entry) { return entry.row; });
    return true;
}

/// Lets a map of texts be asked with a view.
struct TextHash {
    using is_transparent = void;
    size_t operator()(std::wstring_view text) const { return std::hash<std::wstring_view>()(text); }
};

/// The distinct cells of a column, and which of them each row holds.
struct DistinctCells {
    SortKeys keys;
    std::vector<uint32_t> valueOf;  // by position of the row
};

/// Nothing when the column has too many different cells for this to pay.
std::optional<DistinctCells> FindDistinct(const std::vector<int32_t>& rows,
                                          const CellOfRow& cellOf) {
    constexpr size_t kAlwaysWorth = 1024;
    const size_t most = std::max(kAlwaysWorth, rows.size() / 16);
    std::unordered_map<std::wstring, uint32_t, TextHash, std::equal_to<>> seen;
    DistinctCells found;
    found.valueOf.reserve(rows.size());
    std::wstring cell;
    for (const int32_t row : rows) {
        cellOf(row, cell);
        auto entry = seen.find(std::wstring_view(cell));
        if (entry == seen.end()) {
            if (seen.size() == most) {
                return std::nullopt;
            }
            found.keys.Add(cell);
            entry = seen.emplace(cell, static_cast<uint32_t>(seen.size())).first;
        }
        found.valueOf.push_back(entry->second);
    }
    return found;
}

/// Sorts the keys themselves; equal ones stay as they were added.
void SortTexts(SortKeys& keys, int32_t direction) {
    const int wanted = direction > 0 ? -1 : 1;
    std::sort(keys.Keys().begin(), keys.Keys().end(), [&](const SortKey& a, const SortKey& b) {
        const int order = keys.CompareTexts(a, b);
        return order == 0 ? a.position < b.position : order == wanted;
    });
}

/// The place of each distinct value in the order; equal ones share theirs. Sorts the keys.
std::vector<uint32_t> RankTexts(SortKeys& keys, int32_t direction) {
    SortTexts(keys, direction);
    std::vector<uint32_t> ranks(keys.Count());
    uint32_t rank = 0;
    const std::vector<SortKey>& sorted = keys.Keys();
    for (size_t i = 0; i < sorted.size(); ++i) {
        rank += i > 0 && keys.CompareTexts(sorted[i - 1], sorted[i]) != 0 ? 1 : 0;
        ranks[sorted[i].position] = rank;
    }
    return ranks;
}

void ApplyPositions(std::vector<int32_t>& rows, const std::vector<uint32_t>& positions) {
    std::vector<int32_t> sorted(rows.size());
    std::transform(positions.begin(), positions.end(), sorted.begin(),
                   [&](uint32_t position) { return rows[position]; });
    rows.swap(sorted);
}

/// The order that one stable merge gives, whatever the comparison is like.
template <typename Compare>
void SortByMerging(std::vector<int32_t>& rows, int32_t direction, const Compare& compare) {
    std::vector<uint32_t> positions(rows.size());
    std::iota(positions.begin(), positions.end(), 0U);
    const int wanted = direction > 0 ? -1 : 1;
    MergeSort(positions,
              [&](uint32_t left, uint32_t right) { return compare(left, right) == wanted; });
    ApplyPositions(rows, positions);
}

void SortByDistinct(std::vector<int32_t>& rows, DistinctCells& cells, int32_t direction) {
    if (!cells.keys.IsTextOrder()) {
        SortByMerging(rows, direction, [&](uint32_t left, uint32_t right) {
            const uint32_t a = cells.valueOf[left];
            const uint32_t b = cells.valueOf[right];
            return a == b ? 0 : cells.keys.Compare(a, b);
        });
        return;
    }
    // Few values: count how many rows each has, and put every row in its place at once.
    const std::vector<uint32_t> ranks = RankTexts(cells.keys, direction);
    std::vector<uint32_t> next(ranks.size() + 1, 0);
    for (const uint32_t value : cells.valueOf) {
        ++next[ranks[value] + 1];
    }
    std::partial_sum(next.begin(), next.end(), next.begin());
    std::vector<int32_t> sorted(rows.size());
    for (size_t i = 0; i < rows.size(); ++i) {
        sorted[next[ranks[cells.valueOf[i]]]++] = rows[i];
    }
    rows.swap(sorted);
}

void SortByKeys(std::vector<int32_t>& rows, const CellOfRow& cellOf, int32_t direction) {
    SortKeys keys;
    keys.Reserve(rows.size());
    std::wstring cell;
    for (const int32_t row : rows) {
        cellOf(row, cell);
        keys.Add(cell);
    }
    if (!keys.IsTextOrder()) {
        SortByMerging(rows, direction,
                      [&](uint32_t left, uint32_t right) { return keys.Compare(left, right); });
        return;
    }
    SortTexts(keys, direction);
    std::vector<uint32_t> positions(rows.size());
    std::transform(keys.Keys().begin(), keys.Keys().end(), positions.begin(),
                   [](const SortKey& key) { return key.position; });
    ApplyPositions(rows, positions);
}

}  // namespace

int CompareCells(std::wstring_view left, std::wstring_view right) {
    const std::optional<double> a = ParseNumber(left);
    const std::optional<double> b = a ? ParseNumber(right) : std::nullopt;
    if (a && b) {
        return CompareNumbers(*a, *b);
    }
    return CompareNumbers(platform::Collate(left, right), 0);
}

void SortRows(std::vector<int32_t>& rows, const CellOfRow& cellOf, int32_t direction) {
    if (direction == 0 || rows.size() < 2 || SortAsNumbers(rows, cellOf, direction)) {
        return;
    }
    if (std::optional<DistinctCells> cells = FindDistinct(rows, cellOf)) {
        SortByDistinct(rows, *cells, direction);
    } else {
        SortByKeys(rows, cellOf, direction);
    }
}

}  // namespace rl
