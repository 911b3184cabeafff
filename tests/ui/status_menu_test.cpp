// The popups of the status bar, and the document read again as they say.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

POINT CenterOf(const RECT& part) {
    return {(part.left + part.right) / 2, (part.top + part.bottom) / 2};
}

void ClickPart(const Viewer& viewer, int part) {
    Click(viewer.StatusBar(), CenterOf(viewer.StatusPart(part)));
}

TEST(StatusMenu, OffersEncodingsAndTicksTheOneInUse) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\n1,2\n");
    WatchMenus(host);

    ClickPart(viewer, 0);

    ASSERT_EQ(SeenMenus().size(), 1u);
    EXPECT_FALSE(SeenCommand(5010).checked);
    EXPECT_TRUE(SeenCommand(5011).checked);
    EXPECT_EQ(SeenCommand(5012).label, L"UTF-16LE");
    EXPECT_EQ(SeenCommand(5013).label, L"UTF-16BE");
}

TEST(StatusMenu, StandsOnTheUpperLeftCornerOfItsPart) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\n1,2\n");
    WatchMenus(host);

    ClickPart(viewer, 2);

    ASSERT_EQ(SeenMenus().size(), 1u);
    const RECT part = viewer.StatusPart(2);
    POINT corner{part.left, part.top};
    ClientToScreen(viewer.StatusBar(), &corner);
    EXPECT_EQ(SeenMenus()[0].at.x, corner.x);
    EXPECT_EQ(SeenMenus()[0].at.y, corner.y);
    EXPECT_NE(SeenMenus()[0].flags & TPM_BOTTOMALIGN, 0u);
}

TEST(StatusMenu, OpensWithTheRightButtonToo) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\n1,2\n");
    WatchMenus(host);

    RightClick(viewer.StatusBar(), CenterOf(viewer.StatusPart(1)));

    ASSERT_FALSE(SeenMenus().empty());
    EXPECT_TRUE(SeenCommand(5025).checked);
}

TEST(StatusMenu, DoesNothingOnTheOtherParts) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\n1,2\n");
    WatchMenus(host);

    ClickPart(viewer, 3);
    ClickPart(viewer, 4);
    RightClick(viewer.StatusBar(), CenterOf(viewer.StatusPart(3)));
    RightClick(viewer.StatusBar(), CenterOf(viewer.StatusPart(4)));

    EXPECT_TRUE(SeenMenus().empty());
}

TEST(StatusMenu, MayBeOpenWhenTheViewerGoes) {
    for (const int answer : {0, 5020}) {
        UiHost host;
        const Viewer viewer = host.OpenText("a,b\n1,2\n");
        TheFakes().menuAnswer = answer;
        TheFakes().whileMenuIsOpen = [&] { host.Close(viewer); };

        ClickPart(viewer, 1);

        EXPECT_EQ(TheFakes().menus.size(), 1u);
        EXPECT_FALSE(IsWindow(viewer.Window()));
    }
}

TEST(Reload, SplitsAtTheChosenDelimiterAndRemembersIt) {
    UiHost host;
    const Viewer viewer = host.OpenText("a;b,c;d\n1;2,3;4\n5;6,7;8\n");
    WatchMenus(host, 5020);

    ClickPart(viewer, 1);

    EXPECT_EQ(viewer.Headers(), (Texts{L"a;b", L"c;d"}));
    EXPECT_EQ(viewer.Row(1), (Texts{L"5;6", L"7;8"}));
    EXPECT_EQ(viewer.Status(1), L" Delimiter: ,");
    EXPECT_EQ(host.IniValue(L"default-column-delimiter"), L",");

    WatchMenus(host, 5025);
    ClickPart(viewer, 1);
    EXPECT_EQ(viewer.Headers(), (Texts{L"a", L"b,c", L"d"}));
    EXPECT_EQ(viewer.Status(1), L" Delimiter: Auto (;)");
    EXPECT_EQ(host.IniValue(L"default-column-delimiter"), L"");
}

TEST(Reload, WritesTabAsAWord) {
    UiHost host;
    const Viewer viewer = host.OpenText("a\tb,c\n1\t2,3\n");

    Choose(viewer, 5023);

    EXPECT_EQ(viewer.Headers(), (Texts{L"a", L"b,c"}));
    EXPECT_EQ(viewer.Status(1), L" Delimiter: TAB");
    EXPECT_EQ(host.IniValue(L"default-column-delimiter"), L"TAB");
}

TEST(Reload, ReadsInTheChosenEncodingAndKeepsItAtTheNextOne) {
    UiHost host;
    const Viewer viewer = host.OpenText("a;b\n\xC3\xA4;2\n");
    EXPECT_EQ(viewer.Cell(0, 0), L"\x00E4");

    Choose(viewer, 5010);
    EXPECT_EQ(viewer.Cell(0, 0), L"\x00C3\x00A4");
    EXPECT_EQ(viewer.Status(0), L" ANSI");

    Choose(viewer, 5020);
    EXPECT_EQ(viewer.Cell(0, 0), L"\x00C3\x00A4;2");
    EXPECT_EQ(viewer.Status(0), L" ANSI");
}

TEST(Reload, HidesCommentLinesInThisViewerOnly) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\n#remark\n1,2\n");
    EXPECT_EQ(viewer.RowCount(), 2);

    Choose(viewer, 5032);

    EXPECT_EQ(viewer.RowCount(), 1);
    EXPECT_EQ(viewer.Status(2), L" Comments: hidden (1)");
    EXPECT_EQ(host.IniValue(L"skip-comments"), L"?");
}

TEST(Reload, ReturnsToTheSameRow) {
    UiHost host;
    std::string text = "a,b\n";
    for (int i = 0; i < 500; ++i) {
        text += std::to_string(i) + ",x\n";
    }
    const Viewer viewer = host.OpenText(text);
    Click(viewer.Grid(), viewer.CellCenter(2, 1));
    Key(VK_DOWN, {VK_CONTROL});
    ASSERT_EQ(viewer.Status(4), L" 500:2");

    Choose(viewer, 5010);

    EXPECT_EQ(viewer.Status(4), L" 500:2");
    EXPECT_EQ(viewer.SelectedRows(), (std::vector<int>{499}));
}

TEST(Reload, FindsTheRowAgainWhenLinesAboveItAreHidden) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\n#one\n#two\n1,2\n3,4\n");
    Click(viewer.Grid(), viewer.CellCenter(3, 1));
    ASSERT_EQ(viewer.PaneText(), L"4");

    Choose(viewer, 5032);

    EXPECT_EQ(viewer.Status(4), L" 2:2");
    EXPECT_EQ(viewer.PaneText(), L"4");
}

TEST(Reload, KeepsTheDocumentAndSaysSoWhenItFails) {
    UiHost host;
    const auto file = host.Write(L"data.csv", "a;b\n1;2\n");
    const Viewer viewer = host.Open(file);
    std::filesystem::remove(file);

    Choose(viewer, 5020);

    ASSERT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(TheFakes().boxes[0].text, L"The file could not be reloaded.");
    EXPECT_EQ(TheFakes().boxes[0].caption, L"rowlark");
    EXPECT_EQ(viewer.Row(0), (Texts{L"1", L"2"}));
    EXPECT_EQ(viewer.Status(1), L" Delimiter: Auto (;)");
    EXPECT_EQ(host.IniValue(L"default-column-delimiter"), L"?");
}

TEST(Reload, SurvivesAHostThatClosesTheViewerFromItsMenu) {
    UiHost host;
    const auto file = host.Write(L"data.csv", "a;b\n1;2\n");
    const Viewer viewer = host.Open(file);
    std::filesystem::remove(file);
    TheFakes().whileBoxIsOpen = [&] { host.Close(viewer); };

    Choose(viewer, 5020);

    EXPECT_FALSE(IsWindow(viewer.Window()));
}

}  // namespace

}  // namespace rl::test
