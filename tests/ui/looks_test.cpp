// What a demanding eye sees: nothing cut off, nothing left over, everything on one line.
#include <gtest/gtest.h>

#include "tests/ui/support/editing.h"
#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "name,city\nAnn,Rome\nBob,Oslo\nCem,Bern\n";
constexpr const char* kArray = R"([{"a":1},{"a":2}])";
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kLime = RGB(0, 255, 0);

RECT ScreenRectOf(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

/// The window with its frame, as the screen shows it.
tools::Image PictureOf(HWND window) {
    const HWND root = GetAncestor(window, GA_ROOT);
    const RECT frame = ScreenRectOf(root);
    RECT rect = ScreenRectOf(window);
    OffsetRect(&rect, -frame.left, -frame.top);
    return tools::CaptureWindow(root).Part(rect);
}

/// The first and the last line of pixels with the colour.
struct Band {
    int top = -1;
    int bottom = -1;
};

Band BandOf(const tools::Image& picture, COLORREF color) {
    Band band;
    for (int y = 0; y < picture.height; ++y) {
        if (picture.Count({0, y, picture.width, y + 1}, color) > 0) {
            band.top = band.top < 0 ? y : band.top;
            band.bottom = y;
        }
    }
    return band;
}

HWND FilterBox(const Viewer& viewer, int column) {
    return GetDlgItem(viewer.Window(), 2000 + column);
}

/// The height of what is written in red in a filter box of that text.
int InkHeight(const std::string& text, const std::string& ini) {
    UiHost host({.ini = "filter-text-color=255\nfilter-back-color=0\n" + ini});
    const Viewer viewer = host.OpenText(kTable);
    SetWindowTextA(FilterBox(viewer, 0), text.c_str());
    PumpIdle();
    const Band ink = BandOf(PictureOf(FilterBox(viewer, 0)), kRed);
    return ink.bottom - ink.top;
}

TEST(FilterBox, ShowsItsLettersWholeThoughTheFontIsHigherThanTheBox) {
    // Without their lower ends both would be as high.
    EXPECT_GT(InkHeight("np", ""), InkHeight("n", "") + 2);
}

TEST(FilterBox, DrawsNothingOutsideItself) {
    UiHost host({.ini = "filter-back-color=65280\nfont-size=20\n"});
    const Viewer viewer = host.OpenText(kTable);
    const HWND box = FilterBox(viewer, 0);
    Click(box, {20, 10});
    Type(L"m");

    EXPECT_EQ(Viewer::CountColor(viewer.Tabs(), {0, 0, 300, 26}, kLime), 0);
    EXPECT_EQ(Viewer::CountColor(viewer.Header(), {0, 0, 300, 20}, kLime), 0);
}

TEST(FilterBox, HasAFrameInTheAccentColourWhileItIsTypedInto) {
    UiHost host({.ini = "accent-color=255\n"});
    const Viewer viewer = host.OpenText(kTable);
    const HWND box = FilterBox(viewer, 0);
    EXPECT_EQ(PictureOf(box).Count({0, 0, 2000, 100}, kRed), 0);

    SetFocus(box);
    PumpIdle();

    const tools::Image picture = PictureOf(box);
    const int side = picture.width - 2;  // the caret may stand before the frame
    EXPECT_GE(picture.Count({0, 0, picture.width, 1}, kRed), side);
    EXPECT_GE(picture.Count({0, picture.height - 1, picture.width, picture.height}, kRed), side);
    SetFocus(viewer.Grid());
    PumpIdle();
    EXPECT_EQ(PictureOf(box).Count({0, 0, 2000, 100}, kRed), 0);
}

/// Lines of pixels with text, in a cell and then in the editor over it.
void ExpectOneBaseline(const char* text, const wchar_t* name, const std::string& ini) {
    UiHost host({.ini = "start-mode=edit\ntext-color=255\nback-color=0\nback-color2=0\n"
                        "selection-text-color=255\nselection-back-color=0\n"
                        "current-cell-back-color=0\naccent-color=65280\n" +
                        ini});
    const Viewer viewer = host.OpenText(text, name);
    ClickCell(viewer, 1, 1);
    const RECT cell = viewer.CellRect(1, 1);
    const Band before = BandOf(Viewer::Picture(viewer.Grid()).Part(cell), kRed);
    OpenEditor(viewer, 1, 1);
    const HWND editor = GetDlgItem(viewer.Grid(), 4000);
    ASSERT_NE(editor, nullptr);
    SendMessageW(editor, EM_SETSEL, 0, 0);
    PumpIdle();
    const Band after = BandOf(Viewer::Picture(viewer.Grid()).Part(cell), kRed);

    EXPECT_EQ(after.top, before.top);
    EXPECT_EQ(after.bottom, before.bottom);
}

TEST(EditorText, StandsOnTheLineOfItsCell) {
    ExpectOneBaseline("a,b\nx,HH\ny,HH\n", L"data.csv", "");
    ExpectOneBaseline("a,b\nx,HH\ny,HH\n", L"data.csv", "font-size=24\n");
}

TEST(EditorText, StandsOnTheLineOfItsCellInAnOutline) {
    ExpectOneBaseline(R"({"a":"HH","b":"HH"})", L"data.json", "");
    ExpectOneBaseline(R"({"a":"HH","b":"HH"})", L"data.json", "font-size=24\n");
}

TEST(EditorText, StandsOnTheLineOfItsCellWithoutGridLines) {
    ExpectOneBaseline("a,b\nx,HH\ny,HH\n", L"data.csv", "disable-grid-lines=1\n");
    ExpectOneBaseline("a,b\nx,HH\ny,HH\n", L"data.csv", "disable-grid-lines=1\nfont-size=24\n");
}

/// Lines of pixels with a text cell and a number cell of one row.
void ExpectEqualLines(const std::string& ini) {
    UiHost host({.ini = "text-color=255\nback-color=0\nback-color2=0\n" + ini});
    const Viewer viewer = host.OpenText("a,b\n1,1\nx,1.5\n");
    const tools::Image grid = Viewer::Picture(viewer.Grid());
    const Band number = BandOf(grid.Part(viewer.CellRect(0, 1)), kRed);
    UiHost plain({.ini = "decimal-align=0\ntext-color=255\nback-color=0\nback-color2=0\n" + ini});
    const Viewer other = plain.OpenText("a,b\n1,1\nx,1.5\n");
    const Band text = BandOf(Viewer::Picture(other.Grid()).Part(other.CellRect(0, 1)), kRed);

    EXPECT_EQ(number.top, text.top);
    EXPECT_EQ(number.bottom, text.bottom);
}

TEST(NumberCell, StandsOnTheLineOfItsNeighbours) {
    ExpectEqualLines("");
    ExpectEqualLines("font-size=24\n");
    ExpectEqualLines("font-size=24\ndisable-grid-lines=1\n");
}

TEST(SelectedRow, BeginsAtTheLeftEdgeAndLeavesNothingThere) {
    UiHost host({.ini = "selection-back-color=255\nback-color=65280\nback-color2=65280\n"});
    const Viewer viewer = host.OpenText(R"({"a":1,"b":2})", L"data.json");
    const auto edgeOf = [&](int row) {
        return Viewer::ColorAt(viewer.Grid(), {0, viewer.CellCenter(row, 0).y});
    };
    EXPECT_EQ(edgeOf(0), kRed);

    ClickCell(viewer, 2, 1);

    EXPECT_EQ(edgeOf(0), kLime);
    EXPECT_EQ(edgeOf(2), kRed);
}

TEST(RecordTable, LeavesNothingOfTheOutlinesScrollBar) {
    std::string text = "[";
    for (int i = 0; i < 4; ++i) {
        text += R"({"a":1,"b":2,"c":3,"d":4},)";
    }
    text.back() = ']';
    UiHost host({.ini = "header-back-color=255\nback-color=65280\nback-color2=65280\n",
                 .width = 900,
                 .height = 400});
    const Viewer viewer = host.OpenText(text, L"data.json");
    ClickCell(viewer, 1, 0);
    Key('T', {VK_CONTROL});
    PumpIdle();

    RECT header{};
    GetClientRect(viewer.Header(), &header);
    RECT client{};
    GetClientRect(viewer.Grid(), &client);
    const int bottom = viewer.CellRect(0, 0).top;
    const RECT gap{0, header.bottom, client.right, bottom};
    EXPECT_EQ(Viewer::CountColor(viewer.Grid(), gap, kRed),
              (gap.right - gap.left) * (gap.bottom - gap.top));
}

TEST(StatusBarLook, IsTheThemesOwn) {
    for (const char* theme :
         {"theme=Paper\nheader-back-color=255\n", "theme=Dark\nheader-back-color-dark=255\n"}) {
        SCOPED_TRACE(theme);
        UiHost host({.ini = theme});
        const Viewer viewer = host.OpenText(kTable);
        const RECT part = viewer.StatusPart(4);

        EXPECT_EQ(Viewer::ColorAt(viewer.StatusBar(), {part.right - 5, part.bottom - 4}), kRed);
    }
}

TEST(HelpLook, IsTheThemesOwnAndFollowsIt) {
    UiHost host({.ini = "theme=Light\nback-color=255\nback-color-dark=65280\n"});
    const Viewer viewer = host.OpenText(kTable);
    SendMessageW(viewer.Window(), WM_KEYDOWN, VK_F1, 0);
    const HWND help = FindWindowW(L"RowlarkHelpDialog", nullptr);
    ASSERT_NE(help, nullptr);
    PumpIdle();
    const POINT blank{3, 100};
    EXPECT_EQ(Viewer::ColorAt(help, blank), kRed);

    Choose(viewer, 5102);

    EXPECT_EQ(Viewer::ColorAt(help, blank), kLime);
}

/// The lines of pixels that the current tab's text takes.
Band TabInk(const std::string& ini) {
    UiHost host({.ini = "text-color=255\nback-color=0\n" + ini});
    const Viewer viewer = host.OpenText(kTable);
    return BandOf(Viewer::Picture(viewer.Tabs()).Part({0, 0, 96, 40}), kRed);
}

TEST(TabText, StandsWholeAboveTheBarWhateverTheFontSize) {
    const Band usual = TabInk("");
    const Band large = TabInk("font-size=40\n");

    EXPECT_GT(usual.top, 0);
    EXPECT_LT(usual.bottom, 24 - 3);
    EXPECT_EQ(large.top, usual.top);
    EXPECT_EQ(large.bottom, usual.bottom);
}

}  // namespace

}  // namespace rl::test
