// Where the line of a single-line edit control stands in its box.
#pragma once

#include "view/logic/geometry.h"

namespace rl {

inline constexpr int kEditFrame = 1;  // pixels, whatever the dpi, as the control's own

/// The client area that puts a line of text in the middle of its box: as wide as that. Higher than
/// the box where the line is: what the line has above and below its letters is then cut off
/// equally. `inset` is the room the control itself leaves above the line.
[[nodiscard]] Rect PlanEditClient(const Rect& box, int lineHeight, int inset);

/// The left margin to set for a text that begins `wanted` pixels inside the box. `margin` is the
/// margin now, `left` where the text begins with it, in the client area.
[[nodiscard]] int PlanEditMargin(int wanted, int margin, int left);

}  // namespace rl
