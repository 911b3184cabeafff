#include "view/logic/outline_plan.h"

#include <algorithm>

#include "view/logic/cell_plan.h"

namespace rl {
namespace {

constexpr int kIndent = 2;  // at 96 dpi, pixels, as all below
constexpr int kSlot = 16;
constexpr int kBox = 10;
constexpr int kBoxReach = 2;      // around the box a click still counts
constexpr int kStrokeMargin = 2;  // between the box and a stroke inside
constexpr int kMarkRadius = 3;
constexpr int kLeastRadius = 2;  // unscaled
constexpr int kNameGap = 5;
constexpr int kSummaryGap = 8;
constexpr int kRowPadding = 4;
constexpr int kValueMargin = 4;
constexpr int kLeastValue = 120;

constexpr int kGuideWeight = 56;  // of the text's colour in the background's
constexpr int kBoxWeight = 130;
constexpr int kHotBoxWeight = 220;
constexpr int kHotFillWeight = 40;  // of the accent's
constexpr int kSummaryWeight = 150;
constexpr int kMarkWeight = 60;  // of the text's in the type's

/// Where things stand in the cell of one depth.
class Slots {
public:
    Slots(const Rect& cell, int dpi) : cell_(cell), dpi_(dpi) {}

    [[nodiscard]] int Pixels(int value) const { return Scale(value, dpi_); }
    [[nodiscard]] int Line() const { return std::max(1, Pixels(1)); }
    /// Depth stops at 65,535: this stays far inside 32 bits.
    [[nodiscard]] int Left(int depth) const {
        return cell_.left + Pixels(kIndent) + depth * Pixels(kSlot);
    }
    [[nodiscard]] Rect Centred(int left, int size) const {
        return {left, cell_.top + (cell_.height - size) / 2, size, size};
    }
    [[nodiscard]] bool IsInCell(const Rect& rect) const {
        return !rect.IsEmpty() && rect.left < cell_.Right() && rect.Right() > cell_.left;
    }
    /// From `left` to the cell's right edge; empty when there is nothing between.
    [[nodiscard]] Rect RestOfCell(int left) const {
        return left < cell_.Right() ? Rect{left, cell_.top, cell_.Right() - left, cell_.height}
                                    : Rect{};
    }

    [[nodiscard]] Rect Box(int depth) const {
        const int size = Pixels(kBox);
        return Centred(Left(depth) + (Pixels(kSlot) - size) / 2, size);
    }

private:
    const Rect& cell_;
    int dpi_;
};

GuideLines PlanGuides(const Slots& slots, const Rect& cell, int depth) {
    GuideLines guides;
    guides.step = slots.Pixels(kSlot);
    guides.thickness = slots.Line();
    guides.firstLeft = slots.Left(0) + (guides.step - guides.thickness) / 2;
    if (cell.Right() > guides.firstLeft && guides.step > 0) {
        const int room = (cell.Right() - guides.firstLeft - 1) / guides.step + 1;
        guides.count = std::clamp(depth, 0, room);
    }
    return guides;
}

void AddBox(OutlinePlan& plan, const ThemeColors& theme, const OutlineCell& cell,
            const Slots& slots) {
    const Rect box = slots.Box(cell.depth);
    if (!cell.hasChildren || !slots.IsInCell(box)) {
        return;
    }
    // As if the row were not selected: its strokes could hardly be told from some selections.
    const Color back = ColorsFor(theme, {.viewRow = cell.viewRow}).back;
    plan.box = {.rect = box,
                .fill = cell.hot ? MixColors(back, theme.accent, kHotFillWeight) : back,
                .line = MixColors(back, theme.text, cell.hot ? kHotBoxWeight : kBoxWeight),
                .thickness = slots.Line()};
    plan.strokeColor = theme.text;
    const int thickness = slots.Line();
    const int margin = slots.Pixels(kStrokeMargin);
    const int length = box.width - 2 * margin;
    const int centre = (box.width - thickness) / 2;
    plan.horizontalStroke = {box.left + margin, box.top + centre, length, thickness};
    if (!cell.expanded) {
        plan.verticalStroke = {box.left + centre, box.top + margin, thickness, length};
    }
}

}  // namespace

Color OutlineTypeColor(OutlineRowType type, const ThemeColors& theme, const SourceColors& syntax) {
    switch (type) {
        case OutlineRowType::XmlElement:
        case OutlineRowType::JsonObject:
        case OutlineRowType::JsonArray: return syntax.tag;
        case OutlineRowType::XmlAttribute: return syntax.attribute;
        case OutlineRowType::XmlText:
        case OutlineRowType::JsonString: return syntax.string;
        case OutlineRowType::JsonNumber: return syntax.number;
        case OutlineRowType::XmlComment: return syntax.comment;
        case OutlineRowType::XmlCdata:
        case OutlineRowType::XmlInstruction:
        case OutlineRowType::XmlDoctype:
        case OutlineRowType::JsonBoolean:
        case OutlineRowType::JsonNull: return syntax.keyword;
        case OutlineRowType::XmlDocument: break;
    }
    return theme.text;
}

OutlinePlan PlanOutlineCell(const ThemeColors& theme, const SourceColors& syntax,
                            const OutlineCell& cell) {
    const Slots slots(cell.rect, cell.dpi);
    const Color type = OutlineTypeColor(cell.rowType, theme, syntax);
    OutlinePlan plan;
    plan.back = ColorsFor(theme, {.viewRow = cell.viewRow, .selected = cell.selected}).back;
    plan.guides = PlanGuides(slots, cell.rect, cell.depth);
    plan.guideColor = MixColors(plan.back, theme.text, kGuideWeight);
    AddBox(plan, theme, cell, slots);

    const int radius = std::max(kLeastRadius, slots.Pixels(kMarkRadius));
    const Rect mark = slots.Centred(slots.Left(cell.depth + 1), 2 * radius + 1);
    if (slots.IsInCell(mark)) {
        plan.mark = {.rect = mark,
                     .fill = type,
                     .line = MixColors(type, theme.text, kMarkWeight),
                     .thickness = slots.Line()};
    }
    const int nameLeft = mark.Right() + slots.Pixels(kNameGap);
    plan.name = {slots.RestOfCell(nameLeft), cell.selected ? theme.selectionText : type};
    if (!plan.name.rect.IsEmpty() && cell.nameWidth < plan.name.rect.width) {
        const int left = nameLeft + std::max(0, cell.nameWidth) + slots.Pixels(kSummaryGap);
        plan.summary = {
            slots.RestOfCell(left),
            cell.selected ? theme.selectionText : MixColors(plan.back, theme.text, kSummaryWeight)};
    }
    return plan;
}

Rect OutlineBox(const Rect& cell, int depth, int dpi) {
    const Slots slots(cell, dpi);
    const Rect box = slots.Box(depth);
    return slots.IsInCell(box) ? box : Rect{};
}

bool HitsOutlineBox(const Rect& cell, int depth, int dpi, int x, int y) {
    const Rect box = OutlineBox(cell, depth, dpi);
    const int reach = Scale(kBoxReach, dpi);
    const Rect meant{box.left - reach, box.top - reach, box.width + 2 * reach,
                     box.height + 2 * reach};
    return !box.IsEmpty() && cell.Contains(x, y) && meant.Contains(x, y);
}

int OutlineValueWidth(int clientWidth, std::span<const int> widths, int valueColumn, int dpi) {
    int64_t left = int64_t{clientWidth} - Scale(kValueMargin, dpi);
    for (size_t column = 0; column < widths.size(); ++column) {
        left -= static_cast<int>(column) == valueColumn ? 0 : widths[column];
    }
    return static_cast<int>(std::max<int64_t>(left, Scale(kLeastValue, dpi)));
}

int OutlineRowHeight(int lineHeight, int dpi) {
    return lineHeight + Scale(kRowPadding, dpi);
}

}  // namespace rl
