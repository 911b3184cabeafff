// The document read again as the popups of the status bar say, choice by choice; and what stays
// when that, or showing it otherwise, fails.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

std::string Utf16(std::u16string_view text, bool bigEndian) {
    std::string bytes;
    for (const char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

void ClickPart(const Viewer& viewer, int part) {
    const RECT rect = viewer.StatusPart(part);
    Click(viewer.StatusBar(), {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2});
}

TEST(ReloadAs, ReadsUtf16OfEitherOrder) {
    UiHost host({.ini = "header-row=0\n"});
    const Viewer little = host.OpenText(Utf16(u"\u00E4;\u017E\r\n", false), L"little.csv");
    const Viewer big = host.OpenText(Utf16(u"\u00E4;\u017E\r\n", true), L"big.csv");

    Choose(little, 5012);
    EXPECT_EQ(little.Row(0), (Texts{L"\u00E4", L"\u017E"}));
    EXPECT_EQ(little.Status(0), L" UTF-16LE");

    Choose(big, 5013);
    EXPECT_EQ(big.Row(0), (Texts{L"\u00E4", L"\u017E"}));
    EXPECT_EQ(big.Status(0), L" UTF-16BE");
}

TEST(ReloadAs, ComesBackToUtf8) {
    UiHost host;
    const Viewer viewer = host.OpenText("a;b\n\xC3\xA4;2\n");
    Choose(viewer, 5010);
    ASSERT_EQ(viewer.Status(0), L" ANSI");

    Choose(viewer, 5011);

    EXPECT_EQ(viewer.Cell(0, 0), L"\u00E4");
    EXPECT_EQ(viewer.Status(0), L" UTF-8");
}

struct DelimiterCase {
    int command;
    Texts headers;
    const wchar_t* status;
    const wchar_t* setting;
};

class Delimiters : public testing::TestWithParam<DelimiterCase> {};

TEST_P(Delimiters, SplitTheTextAndAreRemembered) {
    UiHost host;
    const Viewer viewer = host.OpenText("a;b|c:d,e\n1;2|3:4,5\n");

    Choose(viewer, GetParam().command);

    EXPECT_EQ(viewer.Headers(), GetParam().headers);
    EXPECT_EQ(viewer.Status(1), GetParam().status);
    EXPECT_EQ(host.IniValue(L"default-column-delimiter"), GetParam().setting);
    WatchMenus(host);
    ClickPart(viewer, 1);
    for (const UINT command : {5025u, 5020u, 5021u, 5022u, 5023u, 5024u}) {
        EXPECT_EQ(SeenCommand(command).checked, command == static_cast<UINT>(GetParam().command));
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, Delimiters,
    testing::Values(DelimiterCase{5020, {L"a;b|c:d", L"e"}, L" Delimiter: ,", L","},
                    DelimiterCase{5021, {L"a", L"b|c:d,e"}, L" Delimiter: ;", L";"},
                    DelimiterCase{5022, {L"a;b", L"c:d,e"}, L" Delimiter: |", L"|"},
                    DelimiterCase{5024, {L"a;b|c", L"d,e"}, L" Delimiter: :", L":"}));

struct CommentCase {
    int command;
    int rows;
    Texts first;
    const wchar_t* status;
};

class Comments : public testing::TestWithParam<CommentCase> {};

TEST_P(Comments, AreTreatedAsChosen) {
    UiHost host({.ini = "header-row=0\n"});
    const Viewer viewer = host.OpenText("#one,remark\n1,2\n#two,remark\n3,4\n");
    Choose(viewer, 5032);
    ASSERT_EQ(viewer.RowCount(), 2);

    Choose(viewer, GetParam().command);

    EXPECT_EQ(viewer.RowCount(), GetParam().rows);
    EXPECT_EQ(viewer.Row(0), GetParam().first);
    EXPECT_EQ(viewer.Status(2), GetParam().status);
    WatchMenus(host);
    ClickPart(viewer, 2);
    for (const UINT command : {5033u, 5030u, 5031u, 5032u}) {
        EXPECT_EQ(SeenCommand(command).checked, command == static_cast<UINT>(GetParam().command));
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, Comments,
    testing::Values(CommentCase{5030, 4, {L"#one", L"remark"}, L" Comments: parse (0)"},
                    CommentCase{5031, 4, {L"#one,remark", L""}, L" Comments: no parse (0)"},
                    CommentCase{5032, 2, {L"1", L"2"}, L" Comments: hidden (2)"},
                    CommentCase{5033, 3, {L"1", L"2"}, L" Comments: auto (1)"}));

class FailedReload : public testing::TestWithParam<int> {};

TEST_P(FailedReload, SaysSoAndKeepsTheChoiceOfBefore) {
    UiHost host;
    const auto file = host.Write(L"data.csv", "a;b\n#remark\n1;2\n");
    const Viewer viewer = host.Open(file);
    const Texts status = viewer.StatusTexts();
    std::filesystem::remove(file);

    Choose(viewer, GetParam());

    ASSERT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(TheFakes().boxes[0].text, L"The file could not be reloaded.");
    EXPECT_EQ(TheFakes().boxes[0].caption, L"rowlark");
    EXPECT_EQ(TheFakes().boxes[0].type, UINT{MB_OK | MB_ICONERROR});
    EXPECT_EQ(TheFakes().boxes[0].owner, viewer.Window());
    EXPECT_EQ(viewer.StatusTexts(), status);
    EXPECT_EQ(viewer.RowCount(), 2);
}

INSTANTIATE_TEST_SUITE_P(EncodingDelimiterComments, FailedReload,
                         testing::Values(5012, 5022, 5032));

TEST(ReloadAs, KeepsHiddenColumnsThoughTheirNumberChanges) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b,c;d\n1,2,3;4\n");
    Choose(viewer, 5020);
    ASSERT_EQ(viewer.ColumnCount(), 3);
    Click(viewer.Header(), viewer.HeaderCenter(0), {VK_CONTROL});
    ASSERT_EQ(viewer.Width(0), 0);

    Choose(viewer, 5021);

    EXPECT_EQ(viewer.ColumnCount(), 2);
    EXPECT_EQ(viewer.Width(0), 0);
    EXPECT_GT(viewer.Width(1), 0);
}

TEST(ReloadAs, KeepsTheCurrentCellInTheColumnOfTheLineNumbers) {
    UiHost host({.ini = "show-line-numbers=1\n"});
    const Viewer viewer = host.OpenText("a,b\n1,2\n3,4\n");
    Click(viewer.Grid(), viewer.CellCenter(1, 0));
    ASSERT_EQ(viewer.Status(4), L" 2:1");

    Choose(viewer, 5010);

    EXPECT_EQ(viewer.Status(4), L" 2:1");
}

/// A table with a hidden column, a filter, a sort and a current cell: all of it must outlast a
/// failure.
class OutOfMemory : public testing::TestWithParam<int> {
protected:
    static constexpr const char* kTable =
        "a rather long column name;b;c\na value of some length;1;x\nanother such value;2;y\n"
        "a third one of them all;2;z\n";

    OutOfMemory() : viewer_(host_.OpenText(kTable)) {
        Click(viewer_.Header(), viewer_.HeaderCenter(0));
        Click(viewer_.Header(), viewer_.HeaderCenter(0));
        SendMessageW(Box(1), WM_CHAR, L'2', 1);
        Click(viewer_.Header(), viewer_.HeaderCenter(2), {VK_CONTROL});
        Click(viewer_.Grid(), viewer_.CellCenter(1, 1));
    }

    [[nodiscard]] HWND Box(int column) const { return GetDlgItem(viewer_.Window(), 2000 + column); }

    UiHost host_;
    Viewer viewer_;
};

TEST_P(OutOfMemory, LeavesEverythingAsItWas) {
    const Texts status = viewer_.StatusTexts();
    ASSERT_EQ(viewer_.Status(4), L" 2:2");
    ASSERT_EQ(viewer_.Status(3), L" Rows: 2/3");
    TheFakes().memoryFailsAfterMeasuring = true;

    Choose(viewer_, GetParam());

    EXPECT_FALSE(TheFakes().memoryFailsAfterMeasuring);
    EXPECT_EQ(viewer_.StatusTexts(), status);
    EXPECT_EQ(viewer_.Headers(), (Texts{L"a rather long column name", L"b", L"c"}));
    EXPECT_EQ(viewer_.Row(0), (Texts{L"another such value", L"2", L"y"}));
    EXPECT_EQ(viewer_.Width(2), 0);
    EXPECT_EQ(TextOf(Box(1)), L"2");
    EXPECT_EQ(host_.IniValue(L"header-row"), L"?");
    EXPECT_EQ(host_.IniValue(L"show-line-numbers"), L"?");
    EXPECT_EQ(host_.IniValue(L"default-column-delimiter"), L"?");
    WatchMenus(host_);
    SendMessageW(viewer_.Window(), WM_CONTEXTMENU, 0, -1);
    EXPECT_TRUE(SeenCommand(5004).checked);
    EXPECT_FALSE(SeenCommand(5006).checked);
}

INSTANTIATE_TEST_SUITE_P(ReloadHeaderRowLineNumbers, OutOfMemory,
                         testing::Values(5020, 5004, 5006));

}  // namespace

}  // namespace rl::test
