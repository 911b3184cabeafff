// Colours of the Source tab in all themes, judged by large letters.
#include <gtest/gtest.h>

#include <string>

#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/source_tab.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

struct SourceLook {
    const char* ini;
    COLORREF text, back, selectionBack, numberBack;
    COLORREF tag, attribute, string, number, keyword, comment, punctuation;
};

constexpr SourceLook kSourceLooks[] = {
    {"theme=Light\n", 1973790, 16777215, 10377728, 15987184, 2629270, 10511360, 3616040, 4615700,
     10501240, 5930330, 7893870},
    {"theme=Paper\n", 3161670, 15661309, 1989260, 14478579, 1326240, 9857310, 3161670, 1669215,
     7220640, 8556940, 7570060},
    {"theme=Dark\n", 13948116, 1973790, 7884582, 2499877, 11197660, 16702620, 7901646, 11062965,
     12617413, 5609834, 9868950},
    {"theme=Midnight\n", 15788258, 2758415, 14175773, 3546902, 16569213, 16559088, 7650045,
     11333510, 16627140, 9139300, 12100500},
    {"theme=Solarized Dark\n", 10592659, 3549952, 9858591, 4339207, 35253, 13803558, 10592659,
     39301, 8533715, 8616805, 8616805},
};

class SourceTheme : public testing::TestWithParam<SourceLook> {
protected:
    // A font so large that strokes have a core of exactly their colour.
    SourceTheme() : host_({.ini = std::string(GetParam().ini) + "font-size=40\n", .width = 1400}) {}

    /// How many pixels of one cell have the colour.
    int Drawn(const Viewer& viewer, int line, int column, COLORREF color) {
        const SIZE cell = CellSize(viewer);
        const LONG left = (3 + column) * cell.cx;
        const RECT area{left, line * cell.cy, left + cell.cx, (line + 1) * cell.cy};
        return Viewer::CountColor(viewer.Source(), area, color);
    }

    UiHost host_;
};

TEST_P(SourceTheme, ColoursJson) {
    const Viewer viewer = host_.OpenText("{ \"MM\": [\"MM\", 88, null] } //M", L"data.json");
    ShowSource(viewer);
    Key(VK_DOWN);  // nothing is below: the caret stays out of the way

    EXPECT_GT(Drawn(viewer, 0, 3, GetParam().attribute), 10);
    EXPECT_GT(Drawn(viewer, 0, 6, GetParam().punctuation), 2);
    EXPECT_GT(Drawn(viewer, 0, 10, GetParam().string), 10);
    EXPECT_GT(Drawn(viewer, 0, 15, GetParam().number), 10);
    EXPECT_GT(Drawn(viewer, 0, 19, GetParam().keyword), 10);
    EXPECT_GT(Drawn(viewer, 0, 28, GetParam().comment), 10);
}

TEST_P(SourceTheme, ColoursXml) {
    const Viewer viewer = host_.OpenText("<MM NN=\"MM\">MM<!--MM--></MM>", L"data.xml");
    ShowSource(viewer);

    EXPECT_GT(Drawn(viewer, 0, 2, GetParam().tag), 10);
    EXPECT_GT(Drawn(viewer, 0, 5, GetParam().attribute), 10);
    EXPECT_GT(Drawn(viewer, 0, 6, GetParam().punctuation), 10);
    EXPECT_GT(Drawn(viewer, 0, 8, GetParam().string), 10);
    EXPECT_GT(Drawn(viewer, 0, 12, GetParam().text), 10);
    EXPECT_GT(Drawn(viewer, 0, 18, GetParam().comment), 10);
}

TEST_P(SourceTheme, ColoursDelimitedText) {
    const Viewer viewer = host_.OpenText("MM,8\nMM,8\n\"MM\",8\n");
    ShowSource(viewer);

    EXPECT_GT(Drawn(viewer, 0, 1, GetParam().attribute), 10);
    EXPECT_GT(Drawn(viewer, 0, 3, GetParam().attribute), 10);
    EXPECT_GT(Drawn(viewer, 1, 1, GetParam().text), 10);
    EXPECT_GT(Drawn(viewer, 1, 3, GetParam().number), 10);
    EXPECT_GT(Drawn(viewer, 2, 1, GetParam().string), 10);
}

TEST_P(SourceTheme, ColoursGutterBackgroundAndSelection) {
    const Viewer viewer = host_.OpenText("MM,8\nMM,8\n");
    ShowSource(viewer);
    Key('A', {VK_CONTROL});
    const SIZE cell = CellSize(viewer);

    EXPECT_EQ(Viewer::ColorAt(viewer.Source(), {2, 4 * cell.cy}), GetParam().numberBack);
    EXPECT_EQ(Viewer::ColorAt(viewer.Source(), {10 * cell.cx, 4 * cell.cy}), GetParam().back);
    EXPECT_EQ(Drawn(viewer, 0, 4, GetParam().selectionBack), cell.cx * cell.cy);
    EXPECT_GT(Drawn(viewer, 0, 0, GetParam().selectionBack), cell.cx * cell.cy / 2);
}

INSTANTIATE_TEST_SUITE_P(All, SourceTheme, testing::ValuesIn(kSourceLooks));

TEST(SourceColours, TakeTheDarkKeyInDarkThemesOnly) {
    const auto keyword = [](const char* theme) {
        UiHost host(
            {.ini = std::string(theme) + "font-size=40\nsource-color-keyword-dark=65280\n"});
        const Viewer viewer = host.OpenText("[null]", L"data.json");
        ShowSource(viewer);
        return Viewer::CountColor(viewer.Source(), {0, 0, 500, 100}, RGB(0, 255, 0));
    };
    EXPECT_GT(keyword("theme=Midnight\n"), 10);
    EXPECT_EQ(keyword("theme=Light\n"), 0);
}

TEST(SourceColours, ChangeWithTheTheme) {
    UiHost host({.ini = "theme=Light\n"});
    const Viewer viewer = host.OpenText("a,b\n1,2\n");
    ShowSource(viewer);

    Choose(viewer, 5102);

    EXPECT_EQ(Viewer::ColorAt(viewer.Source(), {600, 300}), 1973790u);
}

}  // namespace

}  // namespace rl::test
