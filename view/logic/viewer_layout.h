// Where every part of the viewer goes, as numbers.
#pragma once

#include "view/logic/geometry.h"

namespace rl {

inline constexpr int kTabStripHeight = 26;  // all at 96 dpi, pixels
inline constexpr int kFilterRowHeight = 24;
inline constexpr int kDefaultPaneHeight = 76;
inline constexpr int kSplitterHeight = 5;  // never scaled: a quirk kept on purpose

struct LayoutInput {
    int width = 0;  // client area, pixels
    int height = 0;
    int statusHeight = 0;  // as the status bar sized itself, pixels
    int paneHeight = 0;    // remembered value-pane height, pixels; below 1: not yet set
    int treeWidth = 0;     // the `tree-width` setting, at 96 dpi
    int dpi = kBaseDpi;
    bool loaded = false;
    bool dataTab = true;
    bool filterRow = true;
    bool valuePane = true;
    bool splitterDragged = false;  // a pane of height 0 stays 0 while the splitter is held
    bool hasTree = false;          // a JSON or XML document whose outline is not in the grid
};

/// Client rectangles of all parts; an empty one hides its part.
struct ViewerLayout {
    Rect placeholder, tabs, filter, tree, grid, source, splitter, pane;
    int paneHeight = 0;  // what to remember as the pane's height from now on

    bool operator==(const ViewerLayout&) const = default;
};

[[nodiscard]] ViewerLayout ComputeLayout(const LayoutInput& in);

}  // namespace rl
