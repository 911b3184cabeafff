// The lines of a source text: one pass that looks for breaks and tabs only, 64 units at a time.
#include "view/logic/source_lines.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "view/logic/unit_block.h"

namespace rl {

namespace {

constexpr int kNarrowestTab = 1;
constexpr int kWidestTab = 32;

constexpr int64_t NextTabStop(int64_t column, int tabWidth) {
    return (column / tabWidth + 1) * tabWidth;
}

constexpr bool IsHighSurrogate(wchar_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool IsLowSurrogate(wchar_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Collects line starts and measures the line that is being read.
class LineCollector {
public:
    LineCollector(size_t textSize, int tabWidth) : textSize_(textSize), tabWidth_(tabWidth) {
        index_.starts.reserve(std::min(textSize / 16, kSample) + kSpare);
    }

    /// A tab at `position`.
    void Tab(size_t position) {
        column_ = NextTabStop(column_ + Units(position), tabWidth_);
        measured_ = position + 1;
    }

    /// A line that ends at `end`; the next one begins at `next`.
    void EndLine(size_t end, size_t next) {
        widest_ = std::max(widest_, column_ + Units(end));
        column_ = 0;
        measured_ = next;
        if (index_.starts.size() == index_.starts.capacity()) {
            Grow(next);
        }
        index_.starts.push_back(static_cast<uint32_t>(next));
    }

    [[nodiscard]] LineIndex Finish() {
        widest_ = std::max(widest_, column_ + Units(textSize_));
        constexpr int64_t kMost = std::numeric_limits<int32_t>::max();
        index_.maxColumns = static_cast<int32_t>(std::min(widest_, kMost));
        if (index_.starts.capacity() / 8 * 7 > index_.starts.size()) {
            index_.starts.shrink_to_fit();
        }
        return std::move(index_);
    }

private:
    [[nodiscard]] int64_t Units(size_t end) const { return static_cast<int64_t>(end - measured_); }

    // Doubling would leave up to half of the memory unused: the rest of the text is taken to have
    // lines as long as those before.
    void Grow(size_t read) {
        const size_t lines = index_.starts.size();
        const double expected = static_cast<double>(lines) * static_cast<double>(textSize_ - read) /
                                static_cast<double>(read);
        const size_t more = std::min(static_cast<size_t>(expected * 1.03), lines * 16);
        index_.starts.reserve(lines + std::max<size_t>(more, lines / 8) + kSpare);
    }

    static constexpr size_t kSample = 4096;
    static constexpr size_t kSpare = 64;

    LineIndex index_;
    size_t textSize_;
    size_t measured_ = 0;  // where the units begin that `column_` does not count yet
    int64_t column_ = 0;
    int64_t widest_ = 0;
    int tabWidth_;
};

void ScanPlain(std::wstring_view text, LineCollector& lines) {
    for (size_t at = 0; at < text.size(); ++at) {
        if (text[at] == L'\t') {
            lines.Tab(at);
        } else if (text[at] == L'\n') {
            lines.EndLine(at, at + 1);
        } else if (text[at] == L'\r') {
            const bool pair = at + 1 < text.size() && text[at + 1] == L'\n';
            lines.EndLine(at, at + (pair ? 2 : 1));
            at += pair ? 1 : 0;
        }
    }
}

/// Only a few kinds of units can be a break or a tab: the others are passed over unseen.
void ScanSse2(std::wstring_view text, LineCollector& result) {
    LineCollector lines = result;  // its members then stay in registers
    for (size_t base = 0; base < text.size(); base += detail::UnitBlock::kUnits) {
        for (uint64_t marks = detail::UnitBlock(text, base).WhereFrom('\t', '\r'); marks != 0;
             marks &= marks - 1) {
            const size_t at = base + detail::LowestBit(marks);
            const wchar_t unit = text[at];
            if (unit == L'\n') {
                const bool pair = at > 0 && text[at - 1] == L'\r';
                lines.EndLine(at - (pair ? 1 : 0), at + 1);
            } else if (unit == L'\t') {
                lines.Tab(at);
            } else if (unit == L'\r' && (at + 1 == text.size() || text[at + 1] != L'\n')) {
                lines.EndLine(at, at + 1);
            }
        }
    }
    result = std::move(lines);
}

}  // namespace

LineIndex IndexLines(std::wstring_view text, int tabWidth, LineScan scan) {
    LineCollector lines(text.size(), tabWidth);
    if (scan == LineScan::Plain) {
        ScanPlain(text, lines);
    } else {
        ScanSse2(text, lines);
    }
    return lines.Finish();
}

int64_t ColumnsOf(std::wstring_view text, int tabWidth) {
    int64_t column = 0;
    size_t at = 0;
    while (true) {
        const size_t tab = detail::FindUnit(text, at, text.size(), '\t');
        column += static_cast<int64_t>(tab - at);
        if (tab == text.size()) {
            return column;
        }
        column = NextTabStop(column, tabWidth);
        at = tab + 1;
    }
}

namespace {

/// OffsetNear for a line without pairs.
size_t NearestEdge(std::wstring_view line, int64_t x, int charWidth, int tabWidth) {
    int64_t column = 0;
    size_t at = 0;
    while (at < line.size()) {
        // Tabs further right do not matter.
        const int64_t reach = std::max<int64_t>(x / charWidth - column, 0) + 2;
        const size_t end = line.size() - at > static_cast<size_t>(reach)
                               ? at + static_cast<size_t>(reach)
                               : line.size();
        const size_t tab = detail::FindUnit(line, at, end, '\t');
        const auto plain = static_cast<int64_t>(tab - at);
        const int64_t offset =
            std::max<int64_t>(x - column * charWidth + charWidth / 2, 0) / charWidth;
        if (offset < plain) {
            return at + static_cast<size_t>(offset);
        }
        column += plain;
        at = tab;
        if (at < line.size()) {
            const int64_t next = NextTabStop(column, tabWidth);
            if (2 * x < (column + next) * charWidth) {
                return at;
            }
            column = next;
            ++at;
        }
    }
    return line.size();
}

}  // namespace

size_t OffsetNear(std::wstring_view line, int64_t x, int charWidth, int tabWidth) {
    const size_t offset = NearestEdge(line, x, charWidth, tabWidth);
    const bool splitsPair = offset > 0 && offset < line.size() && IsLowSurrogate(line[offset]) &&
                            IsHighSurrogate(line[offset - 1]);
    return splitsPair ? offset - 1 : offset;
}

void SourceText::Assign(std::wstring text) {
    if (text.size() > kMostSourceUnits) {
        text.resize(kMostSourceUnits);
    }
    index_ = IndexLines(text, tabWidth_);  // throws before anything has changed
    text_ = std::move(text);
}

void SourceText::SetTabWidth(int width) {
    const int fitting = std::clamp(width, kNarrowestTab, kWidestTab);
    if (fitting != tabWidth_) {
        index_ = IndexLines(text_, fitting);
        tabWidth_ = fitting;
    }
}

int32_t SourceText::LineCount() const {
    return static_cast<int32_t>(index_.starts.size());
}

size_t SourceText::LineStart(int32_t line) const {
    return index_.starts[static_cast<size_t>(line)];
}

size_t SourceText::LineEnd(int32_t line) const {
    if (line + 1 >= LineCount()) {
        return text_.size();
    }
    const size_t next = LineStart(line + 1);
    const bool pair =
        next - LineStart(line) >= 2 && text_[next - 1] == L'\n' && text_[next - 2] == L'\r';
    return next - (pair ? 2 : 1);
}

std::wstring_view SourceText::Line(int32_t line) const {
    const size_t start = LineStart(line);
    return std::wstring_view(text_).substr(start, LineEnd(line) - start);
}

int32_t SourceText::LineOf(size_t position) const {
    const auto& starts = index_.starts;
    return static_cast<int32_t>(
               std::ranges::upper_bound(starts, position, {},
                                        [](uint32_t start) -> size_t { return start; }) -
               starts.begin()) -
           1;
}

int64_t SourceText::ColumnOf(size_t position) const {
    const std::wstring_view line = Line(LineOf(position));
    const size_t offset = position - LineStart(LineOf(position));
    return ColumnsOf(line.substr(0, offset), tabWidth_);
}

}  // namespace rl
