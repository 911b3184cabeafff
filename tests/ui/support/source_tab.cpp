#include "tests/ui/support/source_tab.h"

#include "tests/ui/support/input.h"

namespace rl::test {

void ShowSource(const Viewer& viewer) {
    Click(viewer.Tabs(), viewer.TabCenter(1));
}

Ends Selection(const Viewer& viewer) {
    Ends ends{};
    SendMessageW(viewer.Source(), EM_GETSEL, reinterpret_cast<WPARAM>(&ends.first),
                 reinterpret_cast<LPARAM>(&ends.second));
    return ends;
}

std::wstring SelectedText(const Viewer& viewer) {
    const Ends ends = Selection(viewer);
    return TextOf(viewer.Source()).substr(ends.first, ends.second - ends.first);
}

SIZE CellSize(const Viewer& viewer) {
    const HDC dc = GetDC(viewer.Source());
    const auto font = reinterpret_cast<HFONT>(SendMessageW(viewer.Source(), WM_GETFONT, 0, 0));
    const HGDIOBJ before = SelectObject(dc, font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    SelectObject(dc, before);
    ReleaseDC(viewer.Source(), dc);
    return {metrics.tmAveCharWidth, metrics.tmHeight + metrics.tmExternalLeading};
}

POINT PointAt(const Viewer& viewer, int line, int column) {
    const SIZE cell = CellSize(viewer);
    return {(3 + column) * cell.cx + 1, line * cell.cy + cell.cy / 2};
}

int ScrollRange(const Viewer& viewer, int bar) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(viewer.Source(), bar, &info);
    return info.nMax;
}

}  // namespace rl::test
