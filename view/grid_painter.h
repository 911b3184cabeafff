// The strokes of a grid cell, from its plan.
//
// Makes no fonts or brushes, reads no setting, fetches no text.
#pragma once

#include <windows.h>

#include "view/logic/cell_plan.h"

namespace rl {

/// Paints a cell that is not left to the list view; `font` is the grid's normal one.
void PaintCell(HDC dc, const CellPlan& plan, HFONT font);

}  // namespace rl
