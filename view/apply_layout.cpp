// Rectangles to windows.
#include "view/viewer.h"

#include <commctrl.h>
#include <span>

#include "host/store/settings.h"
#include "view/paint_scope.h"

namespace rl {

namespace {

struct Placement {
    HWND window;
    Rect rect;  // empty: hidden
};

void ApplyPlacements(std::span<const Placement> placements) {
    HDWP batch = BeginDeferWindowPos(static_cast<int>(placements.size()));
    for (const auto& [window, rect] : placements) {
        if (batch == nullptr) {
            return;
        }
        if (window == nullptr) {
            continue;  // a part that this viewer does without
        }
        // What is hidden keeps its size: coming back at the same one costs it nothing.
        const UINT change =
            rect.IsEmpty() ? SWP_HIDEWINDOW | SWP_NOMOVE | SWP_NOSIZE : SWP_SHOWWINDOW;
        batch = DeferWindowPos(batch, window, nullptr, rect.left, rect.top, rect.width, rect.height,
                               SWP_NOZORDER | SWP_NOACTIVATE | change);
    }
    if (batch != nullptr) {
        EndDeferWindowPos(batch);
    }
}

}  // namespace

void Viewer::Relayout() {
    if (grid_.Window() == nullptr || status_.Window() == nullptr) {
        return;
    }
    const ViewerLayout layout = ComputeLayout(MeasureLayout());
    paneHeight_ = layout.paneHeight;
    ApplyLayout(layout);
}

LayoutInput Viewer::MeasureLayout() {
    const int statusHeight = status_.FitToParent();
    const Rect client = ClientRect(window_);
    return {.width = client.width,
            .height = client.height,
            .statusHeight = statusHeight,
            .paneHeight = paneHeight_,
            .treeWidth = settings::Get(settings::kTreeWidth),
            .dpi = dpi_,
            .loaded = loaded_,
            .dataTab = tab_ == ViewerTab::Data,
            .filterRow = settings_.filterRow,
            .valuePane = settings_.valuePane,
            .splitterDragged = draggingSplitter_,
            .hasTree = tree_.Window() != nullptr && document_.outline == nullptr};
}

void Viewer::ApplyLayout(const ViewerLayout& layout) {
    const Rect oldSplitter = layout_.splitter;
    layout_ = layout;
    const Placement placements[] = {
        {placeholder_, layout.placeholder}, {tabs_.Window(), layout.tabs},
        {grid_.Window(), layout.grid},      {source_.Window(), layout.source},
        {pane_.Window(), layout.pane},      {tree_.Window(), layout.tree},
    };
    ApplyPlacements(placements);
    LayoutFilterRow();
    if (oldSplitter != layout.splitter) {
        const RECT band = ToRECT(layout.splitter);
        InvalidateRect(window_, &band, TRUE);
    }
    RescueFocus();
}

// A part that is hidden keeps the focus otherwise, and keys would go nowhere.
void Viewer::RescueFocus() {
    const HWND focus = GetFocus();
    if (loaded_ && focus != nullptr && focus != window_ && IsChild(window_, focus) &&
        !IsWindowVisible(focus) && IsWindowVisible(window_)) {
        FocusContent();
    }
}

}  // namespace rl
