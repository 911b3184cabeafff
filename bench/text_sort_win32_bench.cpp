// How fast a table is sorted by texts in the order of the user's language.
//
// The peer asks the system at each comparison of a stable sort.
#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "bench/support/task.h"
#include "load/text/platform.h"
#include "model/csv_model.h"
#include "view/logic/row_sort.h"
#include "view/logic/row_view.h"

namespace {

using rl::bench::Outcome;
using rl::bench::Stopwatch;

constexpr int32_t kRowCount = 1'000'000;

enum class Texts { Short, Long, Few, Mixed };

std::wstring MakeCell(Texts texts, uint32_t random) {
    switch (texts) {
        case Texts::Short: return L"item" + std::to_wstring(random % 1000000);
        case Texts::Long:
            return L"a title with a few words that " + std::to_wstring(random) +
                   L" others share but for a number";
        case Texts::Few: return L"City " + std::to_wstring(random % 16);
        case Texts::Mixed: break;
    }
    const std::wstring number = std::to_wstring(random % 49000);
    return random % 2 == 0 ? number : L"no. " + number;
}

template <Texts kTexts>
const rl::CsvModel& Column() {
    static rl::CsvModel model;
    if (model.RowCount() == 0) {
        std::wstring text;
        uint32_t state = 20240817;
        for (int32_t row = 0; row < kRowCount; ++row) {
            state = state * 1664525 + 1013904223;
            text += MakeCell(kTexts, state >> 4) + L"\n";
        }
        if (!model.Parse(std::move(text), {.delimiter = L','})) {
            std::terminate();
        }
    }
    return model;
}

template <Texts kTexts>
Outcome Sort() {
    rl::RowView view(Column<kTexts>(), false);
    const Stopwatch watch;
    view.SetSort(0, 1);
    rl::bench::Keep(&view);
    return watch.Stop();
}

template <Texts kTexts>
Outcome SortPlainly() {
    const rl::CsvModel& model = Column<kTexts>();
    const Stopwatch watch;
    std::vector<std::wstring> cells;
    std::vector<int32_t> rows;
    for (int32_t row = 0; row < model.RowCount(); ++row) {
        cells.push_back(model.CellText(row, 0));
        rows.push_back(row);
    }
    std::stable_sort(rows.begin(), rows.end(), [&](int32_t a, int32_t b) {
        const std::wstring& left = cells[static_cast<size_t>(a)];
        const std::wstring& right = cells[static_cast<size_t>(b)];
        return (kTexts == Texts::Mixed ? rl::CompareCells(left, right)
                                       : rl::platform::Collate(left, right)) < 0;
    });
    rl::bench::Keep(rows.data());
    return watch.Stop();
}

constexpr rl::bench::Task kTasks[] = {
    {"short", Sort<Texts::Short>}, {"short_plain", SortPlainly<Texts::Short>},
    {"long", Sort<Texts::Long>},   {"long_plain", SortPlainly<Texts::Long>},
    {"few", Sort<Texts::Few>},     {"few_plain", SortPlainly<Texts::Few>},
    {"mixed", Sort<Texts::Mixed>}, {"mixed_plain", SortPlainly<Texts::Mixed>},
};

using rl::bench::Warmth;

constexpr rl::bench::Row kRows[] = {
    {"sort: a million short texts", "short", "short_plain", Warmth::Cold, 11.0 * kRowCount, 10.0},
    {"sort: a million long texts", "long", "long_plain", Warmth::Cold, 68.0 * kRowCount, 5.5},
    {"sort: a million of 16 texts", "few", "few_plain", Warmth::Cold, 8.0 * kRowCount, 50.0},
    {"sort: numbers and texts, 49,000 different", "mixed", "mixed_plain", Warmth::Cold,
     8.0 * kRowCount, 5.0},
};

}  // namespace

int main(int argc, char** argv) {
    return rl::bench::Main({argv, static_cast<size_t>(argc)}, kTasks, kRows);
}
