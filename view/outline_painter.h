// The strokes of an outline's name cell, from its plan.
//
// Makes no fonts or brushes, reads no setting, fetches no text.
#pragma once

#include <windows.h>

#include <string_view>

#include "view/logic/outline_plan.h"

namespace rl {

struct OutlineTexts {
    std::wstring_view name;
    std::wstring_view summary;  // empty: none
};

/// Measures the name and paints the cell; `cell.nameWidth` is not looked at. `font` is the grid's
/// normal one.
void PaintOutlineCell(HDC dc, HFONT font, const ThemeColors& theme, const SourceColors& syntax,
                      OutlineCell cell, const OutlineTexts& texts);

}  // namespace rl
