#include "view/logic/viewer_layout.h"

#include <algorithm>

namespace rl {
namespace {

/// The height to remember for the pane: a height nobody chose yet becomes the default.
int RememberedPaneHeight(const LayoutInput& in) {
    if (in.paneHeight >= 1) {
        return in.paneHeight;
    }
    return in.splitterDragged ? 0 : Scale(kDefaultPaneHeight, in.dpi);
}

}  // namespace

ViewerLayout ComputeLayout(const LayoutInput& in) {
    ViewerLayout out;
    const int width = std::max(0, in.width);
    const int tabs = in.loaded ? Scale(kTabStripHeight, in.dpi) : 0;
    const int available = std::max(0, in.height - tabs - in.statusHeight);
    const bool data = in.loaded && in.dataTab;
    const int filter = data && in.filterRow ? Scale(kFilterRowHeight, in.dpi) : 0;

    out.paneHeight = in.paneHeight;
    int pane = 0;
    if (data && in.valuePane) {
        out.paneHeight = RememberedPaneHeight(in);
        pane = std::min(available / 2, out.paneHeight);
    }
    const int column = pane > 0 ? std::max(0, available - pane - kSplitterHeight) : available;
    const int tree = data && in.hasTree ? std::clamp(Scale(in.treeWidth, in.dpi), 0, width / 2) : 0;

    if (!in.loaded) {
        out.placeholder = {0, 0, width, available};
        return out;
    }
    out.tabs = {0, 0, width, tabs};
    if (!data) {
        out.source = {0, tabs, width, available};
        return out;
    }
    out.tree = {0, tabs, tree, column};
    out.filter = {tree, tabs, width - tree, filter};
    out.grid = {tree, tabs + filter, width - tree, std::max(0, column - filter)};
    if (pane > 0) {
        const int paneTop = tabs + available - pane;
        out.splitter = {0, paneTop - kSplitterHeight, width, kSplitterHeight};
        out.pane = {0, paneTop, width, pane};
    }
    return out;
}

}  // namespace rl
