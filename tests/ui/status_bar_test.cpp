// What the status bar says about a CSV table.
#include <gtest/gtest.h>

#include "tests/ui/support/input.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

std::string Lines(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += std::to_string(i) + ",x\n";
    }
    return text;
}

TEST(StatusBar, TellsEncodingDelimiterCommentsAndRows) {
    UiHost host;

    const Viewer viewer = host.OpenText("a;b\n1;2\n3;4\n");

    EXPECT_EQ(viewer.StatusTexts(), (Texts{L" UTF-8", L" Delimiter: Auto (;)",
                                           L" Comments: parse (0)", L" Rows: 2/2", L""}));
}

TEST(StatusBar, CountsTenLinesWithAHeaderAsNineRows) {
    UiHost host;

    EXPECT_EQ(host.OpenText(Lines(10)).Status(3), L" Rows: 9/9");
}

TEST(StatusBar, CountsEveryLineWithoutAHeader) {
    UiHost host({.ini = "header-row=0\n"});

    EXPECT_EQ(host.OpenText(Lines(10)).Status(3), L" Rows: 10/10");
}

TEST(StatusBar, NeverCountsBelowNone) {
    UiHost host;

    EXPECT_EQ(host.OpenText("", L"empty.csv").Status(3), L" Rows: 0/0");
    EXPECT_EQ(host.OpenText("a,b\n", L"header.csv").Status(3), L" Rows: 0/0");
}

TEST(StatusBar, NamesTheTabDelimiter) {
    UiHost host;

    EXPECT_EQ(host.OpenText("a\tb\n1\t2\n", L"data.tsv").Status(1), L" Delimiter: Auto (TAB)");
}

TEST(StatusBar, NamesADelimiterThatWasChosen) {
    UiHost host({.ini = "default-column-delimiter=|\n"});

    EXPECT_EQ(host.OpenText("a,b\n1,2\n").Status(1), L" Delimiter: |");
}

TEST(StatusBar, TakesTheWordTabAsTheChosenDelimiter) {
    UiHost host({.ini = "default-column-delimiter=tab\n"});

    const Viewer viewer = host.OpenText("a\tb,c\n1\t2,3\n");

    EXPECT_EQ(viewer.Status(1), L" Delimiter: TAB");
    EXPECT_EQ(viewer.ColumnCount(), 2);
}

TEST(StatusBar, NamesTheEncodings) {
    UiHost host;

    EXPECT_EQ(host.OpenText("a,b\n1,\xC3\xA9\n", L"1.csv").Status(0), L" UTF-8");
    EXPECT_EQ(host.OpenText("a,b\n1,\xE9\n", L"2.csv").Status(0), L" ANSI");
    EXPECT_EQ(host.OpenText(std::string("\xFF\xFE\x61\0,\0\x62\0\n\0", 10), L"3.csv").Status(0),
              L" UTF-16LE");
    EXPECT_EQ(host.OpenText(std::string("\xFE\xFF\0\x61\0,\0\x62\0\n", 10), L"4.csv").Status(0),
              L" UTF-16BE");
}

TEST(StatusBar, TellsWhatBecomesOfComments) {
    constexpr const char* kCommented = "# one\na,b\n# two\n1,2\n";
    UiHost parsed({.ini = "skip-comments=0\n"});
    EXPECT_EQ(parsed.OpenText(kCommented).Status(2), L" Comments: parse (0)");
    UiHost raw({.ini = "skip-comments=1\n"});
    EXPECT_EQ(raw.OpenText(kCommented).Status(2), L" Comments: no parse (0)");
    UiHost hidden({.ini = "skip-comments=2\n"});
    EXPECT_EQ(hidden.OpenText(kCommented).Status(2), L" Comments: hidden (2)");
    UiHost automatic({.ini = "skip-comments=3\n"});
    EXPECT_EQ(automatic.OpenText(kCommented).Status(2), L" Comments: auto (1)");
}

TEST(StatusBar, TellsTheCurrentCell) {
    UiHost host;
    const Viewer viewer = host.OpenText(Lines(5));

    Click(viewer.Grid(), viewer.CellCenter(2, 1));

    EXPECT_EQ(viewer.Status(4), L" 3:2");
}

TEST(StatusBar, MarksEditMode) {
    UiHost host({.ini = "start-mode=edit\n"});
    const Viewer viewer = host.OpenText(Lines(5));
    EXPECT_EQ(viewer.Status(4), L" EDIT");

    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    EXPECT_EQ(viewer.Status(4), L" 1:1 EDIT");
}

TEST(StatusBar, TakesOnlyTheExactOneOrALowerCaseEditForEditMode) {
    UiHost one({.ini = "start-mode=1\n"});
    EXPECT_EQ(one.OpenText(Lines(5)).Status(4), L" EDIT");
    UiHost inside({.ini = "start-mode=noedit!\n"});
    EXPECT_EQ(inside.OpenText(Lines(5)).Status(4), L" EDIT");
    UiHost upper({.ini = "start-mode=EDIT\n"});
    EXPECT_EQ(upper.OpenText(Lines(5)).Status(4), L"");
    UiHost eleven({.ini = "start-mode=11\n"});
    EXPECT_EQ(eleven.OpenText(Lines(5)).Status(4), L"");
}

}  // namespace

}  // namespace rl::test
