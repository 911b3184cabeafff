#include "view/outline_painter.h"

#include <algorithm>
#include <string>

#include "view/paint_scope.h"

namespace rl {
namespace {

constexpr size_t kMostMeasured = 4096;  // units: beyond this a name is wider than any screen
constexpr UINT kTextFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;

int WidthOf(HDC dc, std::wstring_view text) {
    SIZE size{};
    GetTextExtentPoint32W(dc, text.data(), static_cast<int>(std::min(text.size(), kMostMeasured)),
                          &size);
    return size.cx;
}

Rect Inside(const Rect& rect, int by) {
    return {rect.left + by, rect.top + by, rect.width - 2 * by, rect.height - 2 * by};
}

void PaintSquare(HDC dc, const OutlineShape& shape) {
    FillSolid(dc, shape.rect, shape.line);
    if (const Rect inner = Inside(shape.rect, shape.thickness); !inner.IsEmpty()) {
        FillSolid(dc, inner, shape.fill);
    }
}

/// With the system's stock pen and brush, which take on any colour.
void PaintDisc(HDC dc, const Rect& rect, Color color) {
    const SelectScope pen(dc, GetStockObject(DC_PEN));
    const SelectScope brush(dc, GetStockObject(DC_BRUSH));
    SetDCPenColor(dc, color);
    SetDCBrushColor(dc, color);
    Ellipse(dc, rect.left, rect.top, rect.Right(), rect.Bottom());
}

void PaintMark(HDC dc, const OutlineShape& mark, bool square) {
    if (mark.rect.IsEmpty()) {
        return;
    }
    if (square) {
        PaintSquare(dc, mark);
        return;
    }
    PaintDisc(dc, mark.rect, mark.line);
    if (const Rect inner = Inside(mark.rect, mark.thickness); !inner.IsEmpty()) {
        PaintDisc(dc, inner, mark.fill);
    }
}

void PaintBox(HDC dc, const OutlinePlan& plan) {
    if (plan.box.rect.IsEmpty()) {
        return;
    }
    PaintSquare(dc, plan.box);
    for (const Rect& stroke : {plan.horizontalStroke, plan.verticalStroke}) {
        if (!stroke.IsEmpty()) {
            FillSolid(dc, stroke, plan.strokeColor);
        }
    }
}

void PaintText(HDC dc, const OutlineText& text, std::wstring_view shown) {
    if (!text.rect.IsEmpty()) {
        SetTextColor(dc, text.color);
        DrawIn(dc, text.rect, shown, kTextFormat);
    }
}

}  // namespace

void PaintOutlineCell(HDC dc, HFONT font, const ThemeColors& theme, const SourceColors& syntax,
                      OutlineCell cell, const OutlineTexts& texts) {
    const ClipScope clip(dc, cell.rect);
    const SelectScope selected(dc, font);
    cell.nameWidth = WidthOf(dc, texts.name);
    const OutlinePlan plan = PlanOutlineCell(theme, syntax, cell);

    FillSolid(dc, cell.rect, plan.back);
    for (int i = 0; i < plan.guides.count; ++i) {
        FillSolid(dc, plan.guides.At(i, cell.rect), plan.guideColor);
    }
    PaintBox(dc, plan);
    PaintMark(dc, plan.mark, cell.hasChildren);
    SetBkMode(dc, TRANSPARENT);
    PaintText(dc, plan.name, texts.name);
    if (!texts.summary.empty()) {
        std::wstring summary = L": ";
        PaintText(dc, plan.summary, summary.append(texts.summary));
    }
}

}  // namespace rl
