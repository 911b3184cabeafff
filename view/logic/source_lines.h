// The lines of a source text: where they begin, how wide they are, and where in them a position is.
//
// Positions count units of the text. Columns count what is seen: one for a unit, and for a tab as
// many as lead to the next multiple of the tab width.
//
// Knows nothing of windows, fonts or colours. Safe on any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace rl {

/// Longer texts are not taken: positions and line numbers have 31 bits.
inline constexpr size_t kMostSourceUnits = 0x7FFFFFF0;

struct LineIndex {
    std::vector<uint32_t> starts = {0};  // position of every line's first unit
    int32_t maxColumns = 0;              // of the widest line

    bool operator==(const LineIndex&) const = default;
};

enum class LineScan { Plain, Sse2 };  // the plain one is the law for the fast one

/// A line ends with CR LF, CR or LF. The text has at most kMostSourceUnits.
[[nodiscard]] LineIndex IndexLines(std::wstring_view text, int tabWidth,
                                   LineScan scan = LineScan::Sse2);

/// The columns that the whole of `text`, a line or its beginning, takes.
[[nodiscard]] int64_t ColumnsOf(std::wstring_view text, int tabWidth);

/// The offset in the line whose left edge is nearest to `x`, counted in pixels from the line's
/// beginning. Never between the halves of a surrogate pair.
[[nodiscard]] size_t OffsetNear(std::wstring_view line, int64_t x, int charWidth, int tabWidth);

/// A text together with its lines.
class SourceText {
public:
    /// Takes the text over; what is beyond kMostSourceUnits goes.
    void Assign(std::wstring text);
    /// 1 to 32, other widths become the nearest of these. Measures all lines when it changes.
    void SetTabWidth(int width);

    [[nodiscard]] std::wstring_view All() const { return text_; }
    [[nodiscard]] size_t Size() const { return text_.size(); }
    [[nodiscard]] int TabWidth() const { return tabWidth_; }
    [[nodiscard]] int32_t MaxColumns() const { return index_.maxColumns; }
    [[nodiscard]] const std::vector<uint32_t>& LineStarts() const { return index_.starts; }

    /// At least 1.
    [[nodiscard]] int32_t LineCount() const;
    // Lines given to these must be there.
    [[nodiscard]] size_t LineStart(int32_t line) const;
    /// Behind the line's last unit, before its break.
    [[nodiscard]] size_t LineEnd(int32_t line) const;
    [[nodiscard]] std::wstring_view Line(int32_t line) const;

    /// The line of a position, which may be the end of the text. A line break belongs to the line
    /// that it ends.
    [[nodiscard]] int32_t LineOf(size_t position) const;
    /// The column of a position in its line.
    [[nodiscard]] int64_t ColumnOf(size_t position) const;

private:
    std::wstring text_;
    LineIndex index_;
    int tabWidth_ = 4;
};

}  // namespace rl
