#include "view/logic/help_text.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

TEST(HelpText, HasTwentyFiveEntries) {
    EXPECT_EQ(HelpEntries().size(), 25U);
}

TEST(HelpText, NamesTheProgramAndItsVersionInTheTitle) {
    EXPECT_EQ(kHelpTitle, L"rowlark 1.1.0 - Keyboard Shortcuts");
}

TEST(HelpText, StandsInFixedColumns) {
    EXPECT_EQ(
        HelpText(),
        L"GRID\r\n"
        L"  Arrow keys          Move current cell\r\n"
        L"  Ctrl+Arrow          Jump to first/last row or column\r\n"
        L"  F2                  Edit current cell\r\n"
        L"  Enter               Edit current cell (Edit mode)\r\n"
        L"  C                   Copy cell\r\n"
        L"  Shift+C             Copy row(s)\r\n"
        L"  Ctrl+C              Copy column\r\n"
        L"  Ctrl+Click          Hide column\r\n"
        L"  Ctrl+Space          Show all columns\r\n"
        L"  Ctrl+X              Delete row(s) (Edit mode)\r\n"
        L"  Ctrl+E, Ctrl+R      Toggle Edit mode\r\n"
        L"  Ctrl+S              Save changes\r\n"
        L"\r\n"
        L"OUTLINE (XML / JSON)\r\n"
        L"  Left / Right        Collapse/expand current node, or move to its parent/first\r\n"
        L"                      child\r\n"
        L"  Num + / Num -       Expand / collapse current node\r\n"
        L"  Num *               Expand all\r\n"
        L"  Shift+Num *         Expand current node and its whole subtree\r\n"
        L"  Num /               Collapse all\r\n"
        L"  Type a letter       Jump to next node starting with it\r\n"
        L"\r\n"
        L"VIEW\r\n"
        L"  Ctrl+ + / Ctrl+ -   Change font size (Ctrl+wheel also works; context menu\r\n"
        L"                      Font... sets family and weight)\r\n"
        L"  Ctrl+Tab            Switch Data / Source tab\r\n"
        L"  Ctrl+L              Locate current row/node in the Source tab\r\n"
        L"  Ctrl+D              Show/hide the value pane\r\n"
        L"  Ctrl+T              XML/JSON: outline <-> tree + record table\r\n"
        L"  Ctrl+A              Select all (Source tab)\r\n"
        L"\r\n"
        L"TOTAL COMMANDER\r\n"
        L"  Escape, F3, Ctrl+F  Passed through to Lister's own Close, Find next and Find\r\n");
}

}  // namespace
}  // namespace rl
