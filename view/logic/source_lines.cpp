// The lines of a source text: one pass that looks for breaks and tabs only, 64 units at a time.
#include "view/logic/source_lines.h"

#include <algorithm>
#include <bit>
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
    LineCollector(std::wstring_view text, int tabWidth) : text_(text), tabWidth_(tabWidth) {
        starts_.resize(std::min(text.size() / 16, kSample) + kSpare);
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
        MakeRoom(next);
        starts_[count_++] = static_cast<uint32_t>(next);
    }

    /// Lines that begin behind the marked units of a block, none of them with a tab; they are
    /// measured later, all together.
    void EndLines(uint64_t marks, size_t base) {
        MakeRoom(base + 1);
        uint32_t* out = starts_.data() + count_;
        count_ += static_cast<size_t>(std::popcount(marks));
        // Some more than there are cost less than asking each time; there is room for them.
        constexpr int kAtOnce = 4;
        do {
            for (int i = 0; i < kAtOnce; ++i) {
                *out++ = static_cast<uint32_t>(base + detail::LowestBit(marks) + 1);
                marks &= marks - 1;
            }
        } while (marks != 0);
    }

    /// Measures the lines that EndLines has brought. Few can be wider than the widest so far.
    void MeasureLines() {
        auto bound = static_cast<uint32_t>(widest_ + 1);  // a line and its break, at least
        for (size_t line = 1; line < count_; ++line) {
            if (starts_[line] - starts_[line - 1] > bound) {
                const size_t behind = starts_[line] - size_t{1};
                const bool pair = text_[behind] == L'\n' && text_[behind - 1] == L'\r';
                const size_t width = behind - (pair ? 1 : 0) - starts_[line - 1];
                widest_ = std::max(widest_, static_cast<int64_t>(width));
                bound = static_cast<uint32_t>(widest_ + 1);
            }
        }
        measured_ = starts_[count_ - 1];
    }

    [[nodiscard]] LineIndex Finish() {
        widest_ = std::max(widest_, column_ + Units(text_.size()));
        constexpr int64_t kMost = std::numeric_limits<int32_t>::max();
        starts_.resize(count_);
        if (starts_.capacity() / 64 * 63 > count_) {
            starts_.shrink_to_fit();
        }
        return {.starts = std::move(starts_),
                .maxColumns = static_cast<int32_t>(std::min(widest_, kMost))};
    }

private:
    [[nodiscard]] int64_t Units(size_t end) const { return static_cast<int64_t>(end - measured_); }

    // Doubling would leave up to half of the memory unused: the rest of the text is taken to have
    // lines as long as those before.
    void MakeRoom(size_t read) {
        if (starts_.size() - count_ >= kSpare) {
            return;
        }
        const auto rest = static_cast<double>(text_.size() - read);
        const double expected =
            static_cast<double>(count_) * rest / static_cast<double>(read) * 1.005;
        const size_t more = std::min(static_cast<size_t>(expected), count_ * 16);
        const size_t room = count_ + std::max(more, count_ / 64) + 2 * kSpare;
        starts_.reserve(room);
        starts_.resize(room);
    }

    static constexpr size_t kSample = 4096;
    static constexpr size_t kSpare = 72;  // the lines of a block, and some more

    std::wstring_view text_;
    std::vector<uint32_t> starts_;  // longer than `count_`
    size_t count_ = 1;
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

/// Finds lines as long as there is no tab; answers where it stopped.
size_t ScanBreaks(std::wstring_view text, LineCollector& lines) {
    constexpr size_t kUnits = detail::UnitBlock::kUnits;
    size_t base = 0;
    for (; base < text.size(); base += kUnits) {
        const detail::UnitBlock block(text, base);
        const uint64_t found = block.WhereFrom('\t', '\r');
        if (found == 0) {
            continue;
        }
        const uint64_t feeds = block.Where('\n');
        uint64_t marks = feeds;
        if (found != feeds) {
            const uint64_t returns = block.Where('\r');
            if (found != (feeds | returns)) {
                break;
            }
            const bool feedFollows = base + kUnits < text.size() && text[base + kUnits] == L'\n';
            // A return before a feed says nothing: the feed ends the line.
            marks |= returns & ~((feeds >> 1) | (feedFollows ? uint64_t{1} << 63 : uint64_t{0}));
        }
        if (marks != 0) {
            lines.EndLines(marks, base);
        }
    }
    lines.MeasureLines();
    return base;
}

/// Only a few kinds of units can be a break or a tab: the others are passed over unseen.
void ScanSse2(std::wstring_view text, LineCollector& lines) {
    for (size_t base = ScanBreaks(text, lines); base < text.size();
         base += detail::UnitBlock::kUnits) {
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
}

}  // namespace

LineIndex IndexLines(std::wstring_view text, int tabWidth, LineScan scan) {
    LineCollector lines(text, tabWidth);
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
