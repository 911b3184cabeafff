// What of a source text is seen.
#include "view/logic/source_page.h"

#include <algorithm>
#include <limits>

namespace rl {

namespace {

constexpr int64_t kMostPixels = std::numeric_limits<int32_t>::max();

int CountDigits(int32_t number) {
    int digits = 1;
    for (; number >= 10; number /= 10) {
        ++digits;
    }
    return digits;
}

constexpr int64_t FloorDivide(int64_t value, int64_t by) {
    return value >= 0 ? value / by : -((-value + by - 1) / by);
}

}  // namespace

int SourcePage::Digits() const {
    return CountDigits(lineCount);
}

int SourcePage::GutterWidth() const {
    return (Digits() + 2) * cell.width;
}

int SourcePage::NumberLeft(int32_t line) const {
    return cell.width / 2 + std::max(0, GutterWidth() - cell.width * (CountDigits(line + 1) + 1));
}

int SourcePage::PageLines() const {
    return std::max(1, clientHeight / cell.height);
}

int32_t SourcePage::LinesEnd() const {
    const int64_t end = int64_t{topLine} + PageLines() + 1;
    return static_cast<int32_t>(std::min<int64_t>(end, lineCount));
}

int32_t SourcePage::MaxTopLine() const {
    return std::max(0, lineCount - PageLines());
}

int32_t SourcePage::Width() const {
    const int64_t width = (int64_t{maxColumns} + 1) * cell.width + GutterWidth();
    return static_cast<int32_t>(std::min(width, kMostPixels));
}

int32_t SourcePage::MaxScrollX() const {
    return std::max(0, Width() - clientWidth);
}

int SourcePage::ColumnLeft(int64_t column) const {
    constexpr int64_t kFar = 1 << 28;  // no coordinate of the system's is larger
    return static_cast<int>(std::clamp(GutterWidth() + column * cell.width - scrollX, -kFar, kFar));
}

int64_t SourcePage::TextX(int x) const {
    return int64_t{x} - GutterWidth() + scrollX;
}

int32_t SourcePage::LineAtY(int y) const {
    const int64_t line = topLine + FloorDivide(y, cell.height);
    return static_cast<int32_t>(std::clamp<int64_t>(line, 0, lineCount - 1));
}

int32_t SourcePage::TopLineFor(int32_t line) const {
    if (line < topLine) {
        return line;
    }
    return std::max(topLine, line - PageLines() + 1);
}

int32_t SourcePage::ScrollXFor(int64_t column) const {
    const int64_t left = column * cell.width;
    const int64_t room = std::max(clientWidth - GutterWidth(), cell.width);
    int64_t wanted = scrollX;
    if (left < wanted) {
        wanted = left;
    } else if (left + cell.width > wanted + room) {
        wanted = left + cell.width - room;
    }
    return static_cast<int32_t>(std::clamp<int64_t>(wanted, 0, MaxScrollX()));
}

void LinePlan::Plan(const Input& input) {
    text_.clear();
    runs_.clear();
    column_ = 0;
    const uint64_t first = input.selection.First();
    const uint64_t last = input.selection.Last();
    const size_t units = std::min(input.line.size(), input.classes.size());
    for (size_t i = 0; i < units && column_ <= input.lastColumn + 2; ++i) {
        const wchar_t unit = input.line[i];
        const uint64_t position = input.start + i;
        const SourceRun look{.colour = input.classes[i],
                             .selected = position >= first && position < last};
        const bool isTab = unit == L'\t';
        const int64_t columns = isTab ? input.tabWidth - column_ % input.tabWidth : 1;
        Append(isTab ? L' ' : unit, columns, input.firstColumn, look);
    }
}

void LinePlan::Append(wchar_t unit, int64_t columns, int64_t firstColumn, const SourceRun& look) {
    const int64_t from = std::max(column_, firstColumn);
    column_ += columns;
    if (from >= column_) {
        return;
    }
    if (runs_.empty() || runs_.back().colour != look.colour ||
        runs_.back().selected != look.selected) {
        runs_.push_back(look);
        runs_.back().column = from;
        runs_.back().offset = text_.size();
    }
    const auto added = static_cast<size_t>(column_ - from);
    text_.append(added, unit);
    runs_.back().length += added;
}

}  // namespace rl
