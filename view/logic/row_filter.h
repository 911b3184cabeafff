// One column's filter: its text compiled once, then matched against many cells.
#pragma once

#include <string>
#include <string_view>

namespace rl {

struct ColumnFilter {
    wchar_t op = 0;          // 0: contains; else one of = ! < >
    bool hasNumber = false;  // for < and >: the operand is a number
    double number = 0;
    std::wstring operand;  // lowered unless matching is case-sensitive

    [[nodiscard]] bool IsActive() const { return op != 0 || !operand.empty(); }
};

/// Reads a filter as typed; nothing is trimmed. An operator alone is looked for like any text.
[[nodiscard]] ColumnFilter CompileFilter(std::wstring_view text, bool caseSensitive);

/// Whether a cell passes. `cell` is lowered in place unless `caseSensitive`.
[[nodiscard]] bool MatchesFilter(const ColumnFilter& filter, std::wstring& cell,
                                 bool caseSensitive);

}  // namespace rl
