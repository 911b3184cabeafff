// What of a source text is seen: the gutter, the visible lines, the pieces of a line to draw, how
// far there is to scroll.
//
// All lengths are pixels unless they say columns. Knows nothing of windows; the painter draws what
// is planned here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "view/logic/source_lexer.h"
#include "view/logic/source_selection.h"

namespace rl {

/// Longer lines are cut there for colouring and drawing.
inline constexpr size_t kMostUnitsDrawn = 65'536;

/// The size of one character cell; both at least 1.
struct CellSize {
    int width = 8;
    int height = 16;
};

/// The window on a text.
struct SourcePage {
    CellSize cell = {};
    int clientWidth = 0;
    int clientHeight = 0;
    int32_t lineCount = 1;
    int32_t maxColumns = 0;
    int32_t topLine = 0;
    int32_t scrollX = 0;

    [[nodiscard]] int Digits() const;  // of the line count
    [[nodiscard]] int GutterWidth() const;
    /// Where a line's number is written, right-aligned before a margin of one character.
    [[nodiscard]] int NumberLeft(int32_t line) const;
    /// Lines that are fully seen, at least 1.
    [[nodiscard]] int PageLines() const;
    /// One line behind the last that is drawn.
    [[nodiscard]] int32_t LinesEnd() const;

    [[nodiscard]] int32_t MaxTopLine() const;
    /// The whole width, gutter included, as far as it can be said.
    [[nodiscard]] int32_t Width() const;
    [[nodiscard]] int32_t MaxScrollX() const;

    /// The left edge of a column; far away when it does not fit.
    [[nodiscard]] int ColumnLeft(int64_t column) const;
    /// Where the text's columns are when the mouse is at `x`: pixels from the line's beginning.
    [[nodiscard]] int64_t TextX(int x) const;
    /// The line at `y`, which may be above or below what is seen.
    [[nodiscard]] int32_t LineAtY(int y) const;

    /// The nearest scrolling that shows a line, or a column.
    [[nodiscard]] int32_t TopLineFor(int32_t line) const;
    [[nodiscard]] int32_t ScrollXFor(int64_t column) const;
};

/// Units of one class, all selected or none, with tabs written as blanks.
struct SourceRun {
    int64_t column = 0;  // in the line
    size_t offset = 0;   // in the plan's text
    size_t length = 0;
    SourceClass colour = SourceClass::Text;
    bool selected = false;
};

/// One line as it is to be drawn.
class LinePlan {
public:
    struct Input {
        std::wstring_view line = {};                // without its break, already cut
        std::span<const SourceClass> classes = {};  // one for each unit
        size_t start = 0;                           // position of the line in its text
        SourceSelection selection = {};
        int tabWidth = 4;
        int64_t firstColumn = 0;  // what stands left of it need not be drawn
        int64_t lastColumn = 0;   // the last that is seen
    };

    /// Plans another line; the runs before are gone.
    void Plan(const Input& input);

    [[nodiscard]] std::span<const SourceRun> Runs() const { return runs_; }
    [[nodiscard]] std::wstring_view TextOf(const SourceRun& run) const {
        return std::wstring_view(text_).substr(run.offset, run.length);
    }
    /// The column behind the line; of a line that goes on beyond what is seen, one not seen.
    [[nodiscard]] int64_t EndColumn() const { return column_; }

private:
    void Append(wchar_t unit, int64_t columns, int64_t firstColumn, const SourceRun& look);

    std::wstring text_;  // of all runs
    std::vector<SourceRun> runs_;
    int64_t column_ = 0;
};

}  // namespace rl
