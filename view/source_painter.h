// Draws a page of source text: gutter, line numbers, coloured runs, selection.
//
// All of it goes into a bitmap of the client area's size that is copied to the screen in one piece.
// Only visible lines are coloured, each from the state at its start.
#pragma once

#include <windows.h>

#include <span>
#include <vector>

#include "host/config/themes.h"
#include "view/logic/source_lexer.h"
#include "view/logic/source_page.h"

namespace rl {

/// What is drawn.
struct SourcePicture {
    const SourceText& text;
    const SourceSyntax& syntax;
    std::span<const LineState> states;
    SourceSelection selection;
    SourcePage page;
    const SourceColors& colors;
    HFONT font = nullptr;
};

class SourcePainter {
public:
    /// Draws the client area onto `dc`, whose origin is the area's corner.
    void Paint(HDC dc, const SourcePicture& picture);

private:
    void Draw(HDC dc, const SourcePicture& picture);
    void DrawNumber(HDC dc, const SourcePicture& picture, int32_t line) const;
    void DrawLine(HDC dc, const SourcePicture& picture, int32_t line);
    void DrawRun(HDC dc, const SourcePicture& picture, const SourceRun& run, int top);

    std::vector<SourceClass> classes_;  // of the line being drawn
    LinePlan plan_;
    std::vector<int> advances_;  // one character cell for each unit of a run
};

}  // namespace rl
