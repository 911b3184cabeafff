// No filter invents a row, no sort loses one, and both say what a naive twin says.
//
// The first line holds flags and the sort, the second the filters, the rest is the table: cells
// between tabs, rows between line feeds. Bytes are units, so that everything up to 0xFF occurs.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "load/text/platform.h"
#include "tests/support/memory_table.h"
#include "view/logic/number_text.h"
#include "view/logic/row_sort.h"
#include "view/logic/row_view.h"

namespace {

using rl::test::MemoryTable;
using Cells = std::vector<std::wstring>;

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

std::vector<std::wstring> Split(std::wstring_view text, wchar_t separator) {
    Cells parts;
    for (;;) {
        const size_t end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end == std::wstring_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

std::wstring Lowered(std::wstring text, bool caseSensitive) {
    if (!caseSensitive) {
        rl::platform::FoldCase(text);
    }
    return text;
}

/// The rule of a filter, told once more and without any preparation.
bool Passes(const std::wstring& filter, const std::wstring& cell, bool caseSensitive) {
    const std::wstring text = Lowered(cell, caseSensitive);
    const std::wstring wanted = Lowered(filter, caseSensitive);
    const std::wstring operand = wanted.substr(wanted.empty() ? 0 : 1);
    const bool plain =
        wanted.size() < 2 || std::wstring(L"=!<>").find(wanted[0]) == std::wstring::npos;
    if (plain) {
        return text.find(wanted) != std::wstring::npos;
    }
    if (wanted[0] == L'=') {
        return text == operand;
    }
    if (wanted[0] == L'!') {
        return text.find(operand) == std::wstring::npos;
    }
    const auto limit = rl::ParseNumber(operand);
    const auto number = limit ? rl::ParseNumber(cell) : std::nullopt;
    if (limit && number) {
        return wanted[0] == L'<' ? *number < *limit : *number > *limit;
    }
    return wanted[0] == L'<' ? text < operand : text > operand;
}

/// Merges neighbouring lists until one is left: the sort, told with lists instead of positions.
std::vector<int32_t> SortedTwin(const std::vector<int32_t>& rows, const MemoryTable& table,
                                int32_t column, int32_t direction) {
    std::vector<std::vector<int32_t>> runs;
    runs.reserve(rows.size());
    for (const int32_t row : rows) {
        runs.push_back({row});
    }
    while (runs.size() > 1) {
        std::vector<std::vector<int32_t>> merged;
        for (size_t i = 0; i < runs.size(); i += 2) {
            if (i + 1 == runs.size()) {
                merged.push_back(runs[i]);
                break;
            }
            std::vector<int32_t> out;
            auto left = runs[i].begin();
            auto right = runs[i + 1].begin();
            while (left != runs[i].end() || right != runs[i + 1].end()) {
                const bool takeRight =
                    left == runs[i].end() ||
                    (right != runs[i + 1].end() && rl::CompareCells(table.CellText(*right, column),
                                                                    table.CellText(*left, column)) *
                                                           direction <
                                                       0);
                out.push_back(takeRight ? *right++ : *left++);
            }
            merged.push_back(out);
        }
        runs = merged;
    }
    return runs.empty() ? std::vector<int32_t>() : runs[0];
}

std::vector<int32_t> RowsOf(const rl::RowView& view) {
    std::vector<int32_t> rows;
    rows.reserve(static_cast<size_t>(view.VisibleRowCount()));
    for (int32_t row = 0; row < view.VisibleRowCount(); ++row) {
        rows.push_back(view.ModelRow(row));
    }
    return rows;
}

/// Whatever a comparison answers, what was there before is there afterwards.
void CheckMergeSort(const uint8_t* data, size_t size) {
    std::vector<uint32_t> positions(std::min<size_t>(size, 300));
    for (size_t i = 0; i < positions.size(); ++i) {
        positions[i] = static_cast<uint32_t>(i);
    }
    const std::vector<uint32_t> all = positions;
    size_t asked = 0;
    rl::MergeSort(positions, [&](uint32_t left, uint32_t right) {
        Require(left < all.size() && right < all.size());
        return (data[asked++ % size] & 1U) != 0;
    });
    std::sort(positions.begin(), positions.end());
    Require(positions == all);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0 || size > 4096) {
        return 0;
    }
    CheckMergeSort(data, size);
    const std::wstring text(data, data + size);
    Cells lines = Split(text, L'\n');
    const std::wstring flags = lines[0];
    const Cells filters = lines.size() > 1 ? Split(lines[1], L'\t') : Cells();
    MemoryTable::Rows content;
    for (size_t i = 2; i < lines.size(); ++i) {
        content.push_back(Split(lines[i], L'\t'));
    }
    const MemoryTable table(content);
    const auto has = [&](wchar_t flag) { return flags.find(flag) != std::wstring::npos; };
    const bool caseSensitive = has(L'c');
    const int32_t direction = has(L'-') ? -1 : has(L'+') ? 1 : 0;
    const int32_t column = flags.empty() ? 0 : flags[0] % 8 - 1;

    rl::RowView view(table, has(L'h'));
    view.SetCaseSensitive(caseSensitive);
    for (size_t i = 0; i < filters.size(); ++i) {
        view.SetFilter(static_cast<int32_t>(i), filters[i]);
    }
    std::vector<int32_t> expected;
    for (int32_t row = has(L'h') ? 1 : 0; row < table.RowCount(); ++row) {
        bool passes = true;
        for (size_t i = 0; i < filters.size(); ++i) {
            const auto at = static_cast<int32_t>(i);
            passes = passes && (at >= table.ColumnCount() ||
                                Passes(filters[i], table.CellText(row, at), caseSensitive));
        }
        if (passes) {
            expected.push_back(row);
        }
    }
    Require(RowsOf(view) == expected);
    view.SetSort(column, direction);
    if (column >= 0 && column < table.ColumnCount() && direction != 0) {
        expected = SortedTwin(expected, table, column, direction);
    }
    Require(RowsOf(view) == expected);
    view.SetSort(column, direction);
    Require(RowsOf(view) == expected);
    return 0;
}
