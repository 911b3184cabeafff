#include "view/logic/cell_plan.h"

#include <algorithm>

#include "view/logic/number_text.h"

namespace rl {
namespace {

constexpr int kPadding = 6;    // at 96 dpi, pixels
constexpr int kMarkWidth = 9;  // likewise
constexpr int kMarkHeight = 5;

Rect Span(const Rect& cell, int left, int right) {
    return {left, cell.top, std::max(0, right - left), cell.height};
}

void AddLines(CellPlan& plan, const Rect& cell) {
    plan.lines[0] = {cell.Right() - kGridLine, cell.top, kGridLine, cell.height};
    plan.lines[1] = {cell.left, cell.Bottom() - kGridLine, cell.width, kGridLine};
}

CellPlan PlanLineNumber(const ThemeColors& theme, const CellInput& cell) {
    const int padding = Scale(kPadding, cell.dpi);
    CellPlan plan;
    plan.custom = true;
    plan.colors = {theme.lineNumberText, theme.lineNumberBack};
    plan.fill = cell.rect;
    plan.clip = cell.rect;
    plan.pieces[0] = {cell.text,
                      Span(cell.rect, cell.rect.left + padding, cell.rect.Right() - padding),
                      TextAlign::Right, false};
    plan.pieceCount = 1;
    return plan;
}

void AddNumber(CellPlan& plan, const CellInput& cell, const NumberText& number) {
    const Rect& rect = cell.rect;
    const int padding = Scale(kPadding, cell.dpi);
    const int left = rect.left + padding;
    const int separator = left + cell.integerWidth;
    plan.custom = true;
    plan.fill = rect;
    plan.clip = {rect.left + 1, rect.top + 1, std::max(0, rect.width - 2),
                 std::max(0, rect.height - 2)};
    plan.pieces[0] = {number.integer, Span(rect, left, separator), TextAlign::Right, false};
    plan.pieceCount = 1;
    if (number.shape == NumberShape::Decimal) {
        plan.pieces[1] = {number.fraction, Span(rect, separator, rect.Right() - padding),
                          TextAlign::Left, true};
        plan.pieceCount = 2;
    }
}

}  // namespace

CellColors ColorsFor(const ThemeColors& theme, const CellState& cell) {
    if (cell.selected) {
        return {theme.selectionText, cell.current ? theme.currentCellBack : theme.selectionBack};
    }
    return {theme.text, cell.viewRow % 2 == 0 ? theme.back : theme.back2};
}

CellPlan PlanCell(const ThemeColors& theme, const CellInput& cell) {
    CellPlan plan;
    if (cell.lineNumber) {
        plan = PlanLineNumber(theme, cell);
    } else {
        plan.colors = ColorsFor(theme, cell.state);
        if (cell.decimalAlign && cell.numericColumn) {
            const NumberText number = ClassifyNumber(cell.text);
            if (number.shape != NumberShape::Text) {
                AddNumber(plan, cell, number);
            }
        }
    }
    if (plan.custom && cell.gridLines) {
        AddLines(plan, cell.rect);
        for (TextPiece& piece : plan.pieces) {  // above its line, as the list view's own texts are
            piece.rect.height = std::max(0, piece.rect.height - kGridLine);
        }
    }
    return plan;
}

bool NeedsSubitemPainting(bool lineNumbers, bool decimalAlign, bool outlineInGrid,
                          bool rowIsCurrent) {
    // The current cell has a colour of its own, which the row as a whole cannot have.
    return lineNumbers || decimalAlign || outlineInGrid || rowIsCurrent;
}

HeaderPlan PlanHeader(const Rect& item, bool sorted, int dpi) {
    const int padding = Scale(kPadding, dpi);
    int right = item.Right() - padding;
    HeaderPlan plan;
    if (sorted) {
        const int width = Scale(kMarkWidth, dpi);
        const int height = Scale(kMarkHeight, dpi);
        plan.mark = {right - width, item.top + (item.height - height) / 2, width, height};
        right -= width + padding;
    }
    plan.text = Span(item, item.left + padding, right);
    return plan;
}

}  // namespace rl
