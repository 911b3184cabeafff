// The Source tab as its user sees it: text, selection and where characters stand.
#pragma once

#include <windows.h>

#include <string>
#include <utility>

#include "tests/ui/support/viewer.h"

namespace rl::test {

void ShowSource(const Viewer& viewer);

using Ends = std::pair<DWORD, DWORD>;

/// The ends of the selection, as positions of the text.
[[nodiscard]] Ends Selection(const Viewer& viewer);
[[nodiscard]] std::wstring SelectedText(const Viewer& viewer);

/// One character cell of the source view.
[[nodiscard]] SIZE CellSize(const Viewer& viewer);

/// The left part of a cell, in a text of fewer than ten lines.
[[nodiscard]] POINT PointAt(const Viewer& viewer, int line, int column);

/// The upper end of a scroll bar's range.
[[nodiscard]] int ScrollRange(const Viewer& viewer, int bar);

}  // namespace rl::test
