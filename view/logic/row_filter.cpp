#include "view/logic/row_filter.h"

#include "view/logic/case_fold.h"
#include "view/logic/number_text.h"

namespace rl {

ColumnFilter CompileFilter(std::wstring_view text, bool caseSensitive) {
    ColumnFilter filter;
    filter.operand = text;
    if (!caseSensitive) {
        FoldText(filter.operand);
    }
    constexpr std::wstring_view kOperators = L"=!<>";
    if (text.size() > 1 && kOperators.find(filter.operand.front()) != std::wstring_view::npos) {
        filter.op = filter.operand.front();
        filter.operand.erase(0, 1);
    }
    if (filter.op == L'<' || filter.op == L'>') {
        const std::optional<double> number = ParseNumber(filter.operand);
        filter.hasNumber = number.has_value();
        filter.number = number.value_or(0);
    }
    return filter;
}

bool MatchesFilter(const ColumnFilter& filter, std::wstring& cell, bool caseSensitive) {
    if (!filter.IsActive()) {
        return true;
    }
    if (filter.hasNumber) {
        if (const std::optional<double> number = ParseNumber(cell)) {
            return filter.op == L'<' ? *number < filter.number : *number > filter.number;
        }
    }
    if (!caseSensitive) {
        FoldText(cell);
    }
    switch (filter.op) {
        case L'=': return cell == filter.operand;
        case L'!': return cell.find(filter.operand) == std::wstring::npos;
        case L'<': return cell < filter.operand;
        case L'>': return cell > filter.operand;
        default: return cell.find(filter.operand) != std::wstring::npos;
    }
}

}  // namespace rl
