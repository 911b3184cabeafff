// How fast a table is filtered, searched and sorted by numbers.
//
// The peers do what a first version does: copy each cell, have the system lower it, look into it;
// and sort copies of the cells beside their numbers.
#include <emmintrin.h>

#include <algorithm>
#include <cwchar>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "bench/support/task.h"
#include "load/text/platform.h"
#include "model/csv_model.h"
#include "view/logic/find_text.h"
#include "view/logic/row_cells.h"
#include "view/logic/row_view.h"

namespace {

using rl::bench::Outcome;
using rl::bench::Stopwatch;

constexpr int32_t kColumn = 4;
constexpr int32_t kLastColumn = 11;
constexpr std::wstring_view kNowhere = L"nowhere to be found";
constexpr int32_t kTableRows = 1'000'000;
constexpr int32_t kNumberRows = 1'000'000;

/// A million rows: eleven cells of a few units each, and one of about 60. No two cells are alike.
std::wstring TableText() {
    std::wstring text;
    text.reserve(size_t{kTableRows} * 160);
    uint64_t state = 20240817;
    const auto word = [&] {
        state = state * 6364136223846793005 + 1442695040888963407;
        for (uint64_t left = state >> 28; left > 0; left /= 26) {
            text.push_back(static_cast<wchar_t>(L'A' + (left & 32) + left % 26));
        }
    };
    for (int32_t row = 0; row < kTableRows; ++row) {
        for (int32_t column = 0; column < kLastColumn; ++column) {
            word();
            text.push_back(L',');
        }
        for (int part = 0; part < 7; ++part) {
            word();
            text.push_back(part < 6 ? L' ' : L'\n');
        }
    }
    return text;
}

/// The large table, through a view without a header.
rl::RowView& Table() {
    static rl::CsvModel model;
    static rl::RowView* view = [] {
        if (!model.Parse(TableText(), {.delimiter = L','})) {
            std::terminate();
        }
        static rl::RowView whole(model, false);
        return &whole;
    }();
    return *view;
}

/// Some units of a cell in the middle of the column: in few rows, but in some.
std::wstring Wanted(int32_t column) {
    const rl::ITableModel& model = Table().Model();
    return model.CellText(model.RowCount() / 2, column).substr(0, 4);
}

Outcome Filter(int32_t column) {
    rl::RowView& view = Table();
    const std::wstring wanted = Wanted(column);
    view.SetFilter(column, L"");
    const Stopwatch watch;
    view.SetFilter(column, wanted);
    const Outcome outcome = watch.Stop();
    rl::bench::Keep(&view);
    view.SetFilter(column, L"");
    return outcome;
}

Outcome FilterPlainly(int32_t column) {
    const rl::ITableModel& model = Table().Model();
    std::wstring wanted = Wanted(column);
    const Stopwatch watch;
    rl::platform::FoldCase(wanted);
    std::vector<int32_t> rows;
    for (int32_t row = 0; row < model.RowCount(); ++row) {
        std::wstring cell = model.CellText(row, column);
        rl::platform::FoldCase(cell);
        if (cell.find(wanted) != std::wstring::npos) {
            rows.push_back(row);
        }
    }
    rl::bench::Keep(rows.data());
    return watch.Stop();
}

Outcome Find() {
    const rl::RowView& view = Table();
    const Stopwatch watch;
    rl::CellFinder finder;
    const rl::FindAnswer answer = finder.Find(rl::RowCells(view), {.text = kNowhere});
    rl::bench::Keep(&answer);
    return watch.Stop();
}

Outcome FindPlainly() {
    const rl::ITableModel& model = Table().Model();
    const Stopwatch watch;
    std::wstring wanted(kNowhere);
    rl::platform::FoldCase(wanted);
    bool found = false;
    for (int32_t row = 0; row < model.RowCount() && !found; ++row) {
        for (int32_t column = 0; column < model.ColumnCount() && !found; ++column) {
            std::wstring cell = model.CellText(row, column);
            rl::platform::FoldCase(cell);
            found = cell.find(wanted) != std::wstring::npos;
        }
    }
    rl::bench::Keep(&found);
    return watch.Stop();
}

Outcome ReadText() {
    const auto& model = dynamic_cast<const rl::CsvModel&>(Table().Model());
    const Stopwatch watch;
    const auto* from = reinterpret_cast<const __m128i*>(model.Text().data());
    __m128i sum = _mm_setzero_si128();
    for (size_t i = 0; i < model.Text().size() * sizeof(wchar_t) / sizeof(__m128i); ++i) {
        sum = _mm_xor_si128(sum, _mm_loadu_si128(from + i));
    }
    const int kept = _mm_cvtsi128_si32(sum);
    rl::bench::Keep(&kept);
    return watch.Stop();
}

const rl::CsvModel& Numbers() {
    static rl::CsvModel model;
    if (model.RowCount() == 0) {
        std::wstring text;
        uint64_t state = 20240817;
        for (int32_t row = 0; row < kNumberRows; ++row) {
            state = state * 6364136223846793005 + 1442695040888963407;
            text += std::to_wstring(state >> 44) + L"." + std::to_wstring(state >> 32 & 63) + L"\n";
        }
        if (!model.Parse(std::move(text), {.delimiter = L','})) {
            std::terminate();
        }
    }
    return model;
}

Outcome SortNumbers() {
    rl::RowView view(Numbers(), false);
    const Stopwatch watch;
    view.SetSort(0, 1);
    rl::bench::Keep(&view);
    return watch.Stop();
}

Outcome SortNumbersPlainly() {
    const rl::CsvModel& model = Numbers();
    struct Key {
        bool isNumber;
        double number;
        std::wstring text;
        int32_t row;
    };
    const Stopwatch watch;
    std::vector<Key> keys;
    for (int32_t row = 0; row < model.RowCount(); ++row) {
        std::wstring cell = model.CellText(row, 0);
        wchar_t* end = nullptr;
        const double number = std::wcstod(cell.c_str(), &end);
        keys.push_back({end != cell.c_str(), number, std::move(cell), row});
    }
    std::stable_sort(keys.begin(), keys.end(),
                     [](const Key& a, const Key& b) { return a.number < b.number; });
    rl::bench::Keep(keys.data());
    return watch.Stop();
}

constexpr rl::bench::Task kTasks[] = {
    {"filter_4", [] { return Filter(kColumn); }},
    {"filter_4_plain", [] { return FilterPlainly(kColumn); }},
    {"filter_last", [] { return Filter(kLastColumn); }},
    {"filter_last_plain", [] { return FilterPlainly(kLastColumn); }},
    {"find", Find},
    {"find_plain", FindPlainly},
    {"read_text", ReadText},
    {"sort_numbers", SortNumbers},
    {"sort_numbers_plain", SortNumbersPlainly},
};

using rl::bench::Warmth;

constexpr double kTableBytes = 150.0 * kTableRows;  // about, as the file would have
constexpr double kNumberBytes = 10.0 * kNumberRows;

constexpr rl::bench::Row kRows[] = {
    {"filter: contains, column 5 of 12, no case", "filter_4", "filter_4_plain", Warmth::Warm,
     kTableBytes, 3.0},
    {"filter: contains, last column, no case", "filter_last", "filter_last_plain", Warmth::Warm,
     kTableBytes, 7.0},
    {"find: to the end without a hit, no case", "find", "find_plain", Warmth::Warm, kTableBytes,
     25.0},
    {"find: the same against one read pass over the text", "find", "read_text", Warmth::Warm,
     kTableBytes, 1 / 3.5},
    {"sort: a million numbers", "sort_numbers", "sort_numbers_plain", Warmth::Warm, kNumberBytes,
     6.0},
};

}  // namespace

int main(int argc, char** argv) {
    return rl::bench::Main({argv, static_cast<size_t>(argc)}, kTasks, kRows);
}
