#include "view/logic/viewer_layout.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

TEST(ComputeLayout, ShowsOnlyThePlaceholderUntilTheDocumentIsLoaded) {
    const ViewerLayout layout =
        ComputeLayout({.width = 800, .height = 600, .statusHeight = 20, .loaded = false});

    EXPECT_EQ(layout.placeholder, (Rect{0, 0, 800, 580}));
    EXPECT_TRUE(layout.tabs.IsEmpty());
    EXPECT_TRUE(layout.grid.IsEmpty());
    EXPECT_TRUE(layout.filter.IsEmpty());
    EXPECT_TRUE(layout.source.IsEmpty());
    EXPECT_TRUE(layout.pane.IsEmpty());
    EXPECT_TRUE(layout.splitter.IsEmpty());
}

TEST(ComputeLayout, StacksTabsFilterGridSplitterAndPane) {
    const ViewerLayout layout =
        ComputeLayout({.width = 800, .height = 600, .statusHeight = 20, .loaded = true});

    EXPECT_TRUE(layout.placeholder.IsEmpty());
    EXPECT_EQ(layout.tabs, (Rect{0, 0, 800, 26}));
    EXPECT_EQ(layout.filter, (Rect{0, 26, 800, 24}));
    EXPECT_EQ(layout.grid, (Rect{0, 50, 800, 449}));  // 554 - 76 - 5 - 24
    EXPECT_EQ(layout.splitter, (Rect{0, 499, 800, 5}));
    EXPECT_EQ(layout.pane, (Rect{0, 504, 800, 76}));
    EXPECT_EQ(layout.paneHeight, 76);
}

TEST(ComputeLayout, GivesTheValuePaneAtMostHalfOfTheHeight) {
    const ViewerLayout layout =
        ComputeLayout({.width = 800, .height = 226, .paneHeight = 150, .loaded = true});

    EXPECT_EQ(layout.pane, (Rect{0, 126, 800, 100}));
    EXPECT_EQ(layout.paneHeight, 150) << "what was chosen is not forgotten";
}

TEST(ComputeLayout, ScalesEverythingButTheSplitter) {
    const ViewerLayout layout = ComputeLayout(
        {.width = 1200, .height = 900, .statusHeight = 30, .dpi = 144, .loaded = true});

    EXPECT_EQ(layout.tabs.height, 39);
    EXPECT_EQ(layout.filter.height, 36);
    EXPECT_EQ(layout.pane.height, 114);
    EXPECT_EQ(layout.splitter.height, 5);
    EXPECT_EQ(layout.grid.height, 900 - 39 - 30 - 114 - 5 - 36);
}

TEST(ComputeLayout, HidesTheGridOnTheSourceTab) {
    const ViewerLayout layout = ComputeLayout({.width = 800,
                                               .height = 600,
                                               .statusHeight = 20,
                                               .loaded = true,
                                               .dataTab = false,
                                               .hasTree = true});

    EXPECT_EQ(layout.source, (Rect{0, 26, 800, 554}));
    EXPECT_TRUE(layout.grid.IsEmpty());
    EXPECT_TRUE(layout.filter.IsEmpty());
    EXPECT_TRUE(layout.tree.IsEmpty());
    EXPECT_TRUE(layout.pane.IsEmpty());
}

TEST(ComputeLayout, KeepsAnUnsetPaneHeightUnsetWhileThePaneIsNotShown) {
    EXPECT_EQ(
        ComputeLayout({.width = 800, .height = 600, .loaded = true, .dataTab = false}).paneHeight,
        0);
    EXPECT_EQ(
        ComputeLayout({.width = 800, .height = 600, .loaded = true, .valuePane = false}).paneHeight,
        0);
}

TEST(ComputeLayout, GivesTheGridAllWithoutFilterRowAndPane) {
    const ViewerLayout layout = ComputeLayout({.width = 800,
                                               .height = 600,
                                               .statusHeight = 20,
                                               .loaded = true,
                                               .filterRow = false,
                                               .valuePane = false});

    EXPECT_EQ(layout.grid, (Rect{0, 26, 800, 554}));
    EXPECT_TRUE(layout.splitter.IsEmpty());
}

TEST(ComputeLayout, PutsTheTreeBesideTheGridAndItsFilterRow) {
    const ViewerLayout layout = ComputeLayout({.width = 800,
                                               .height = 600,
                                               .statusHeight = 20,
                                               .treeWidth = 250,
                                               .loaded = true,
                                               .hasTree = true});

    EXPECT_EQ(layout.tree, (Rect{0, 26, 250, 473}));
    EXPECT_EQ(layout.filter, (Rect{250, 26, 550, 24}));
    EXPECT_EQ(layout.grid, (Rect{250, 50, 550, 449}));
}

TEST(ComputeLayout, GivesTheTreeAtMostHalfOfTheWidth) {
    const LayoutInput narrow{
        .width = 400, .height = 600, .treeWidth = 250, .loaded = true, .hasTree = true};

    EXPECT_EQ(ComputeLayout(narrow).tree.width, 200);
}

TEST(ComputeLayout, IgnoresATreeWidthBelowNothing) {
    const LayoutInput odd{
        .width = 400, .height = 600, .treeWidth = -5, .loaded = true, .hasTree = true};

    EXPECT_TRUE(ComputeLayout(odd).tree.IsEmpty());
    EXPECT_EQ(ComputeLayout(odd).grid.left, 0);
}

TEST(ComputeLayout, LeavesAPaneDraggedShutAtNothingUntilTheSplitterIsLetGo) {
    const LayoutInput dragged{.width = 800,
                              .height = 600,
                              .statusHeight = 20,
                              .paneHeight = 0,
                              .loaded = true,
                              .splitterDragged = true};

    EXPECT_TRUE(ComputeLayout(dragged).pane.IsEmpty());
    EXPECT_EQ(ComputeLayout(dragged).paneHeight, 0);
    EXPECT_EQ(ComputeLayout(dragged).grid, (Rect{0, 50, 800, 530}));
}

TEST(ComputeLayout, NeverAnswersNegativeSizesHoweverSmallTheWindow) {
    for (int height = 0; height < 120; ++height) {
        const ViewerLayout layout = ComputeLayout({.width = 0,
                                                   .height = height,
                                                   .statusHeight = 20,
                                                   .treeWidth = 9,
                                                   .loaded = true,
                                                   .hasTree = true});
        for (const Rect& rect : {layout.tabs, layout.filter, layout.tree, layout.grid,
                                 layout.splitter, layout.pane, layout.source}) {
            EXPECT_GE(rect.width, 0) << height;
            EXPECT_GE(rect.height, 0) << height;
        }
    }
}

}  // namespace
}  // namespace rl
