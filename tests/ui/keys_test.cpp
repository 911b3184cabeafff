// The keys of the table that run commands, from the grid and from the value pane.
#include <gtest/gtest.h>

#include "tests/ui/support/input.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "name,city\nAnn,Rome\nBob,Oslo\n";

class Keys : public testing::Test {
protected:
    Keys() : host_({.ini = "font-size=16\n"}), viewer_(host_.OpenText(kTable)) {
        Click(viewer_.Grid(), viewer_.CellCenter(0, 0));
    }

    void FocusPane() const {
        Click(viewer_.Pane(), {20, 20});
        ASSERT_EQ(GetFocus(), viewer_.Pane());
    }

    [[nodiscard]] std::wstring FontSize() const { return host_.IniValue(L"font-size"); }

    UiHost host_;
    Viewer viewer_;
};

TEST_F(Keys, ShowAllColumnsWithCtrlAndSpace) {
    Click(viewer_.Header(), viewer_.HeaderCenter(1), {VK_CONTROL});
    ASSERT_EQ(viewer_.Width(1), 0);

    Key(VK_SPACE, {VK_CONTROL});

    EXPECT_GT(viewer_.Width(1), 0);
}

TEST_F(Keys, SwitchTheValuePaneWithCtrlAndD) {
    Key('D', {VK_CONTROL});
    EXPECT_FALSE(IsWindowVisible(viewer_.Pane()));
    EXPECT_EQ(host_.IniValue(L"value-pane"), L"0");

    Key('D', {VK_CONTROL});
    EXPECT_TRUE(IsWindowVisible(viewer_.Pane()));
    EXPECT_EQ(viewer_.PaneText(), L"Ann");
}

TEST_F(Keys, ChangeTheFontSizeWithCtrlAndTheMainKeys) {
    const int before = viewer_.Width(0);

    Key(VK_OEM_PLUS, {VK_CONTROL});
    EXPECT_EQ(FontSize(), L"17");
    EXPECT_GT(viewer_.Width(0), before);

    Key(VK_OEM_MINUS, {VK_CONTROL});
    Key(VK_OEM_MINUS, {VK_CONTROL});
    EXPECT_EQ(FontSize(), L"15");
    EXPECT_LT(viewer_.Width(0), before);
}

TEST_F(Keys, ChangeTheFontSizeWithCtrlAndTheNumericPad) {
    Key(VK_ADD, {VK_CONTROL});
    EXPECT_EQ(FontSize(), L"17");

    Key(VK_SUBTRACT, {VK_CONTROL});
    Key(VK_SUBTRACT, {VK_CONTROL});
    EXPECT_EQ(FontSize(), L"15");
}

TEST_F(Keys, LeaveTheFontSizeAloneWithoutCtrl) {
    for (const WORD key :
         {WORD{VK_ADD}, WORD{VK_SUBTRACT}, WORD{VK_OEM_PLUS}, WORD{VK_OEM_MINUS}}) {
        Key(key);
    }

    EXPECT_EQ(FontSize(), L"16");
}

TEST_F(Keys, HaveNoUseForCtrlAndTInATable) {
    const Texts status = viewer_.StatusTexts();

    Key('T', {VK_CONTROL});

    EXPECT_EQ(viewer_.StatusTexts(), status);
    EXPECT_EQ(viewer_.Headers(), (Texts{L"name", L"city"}));
    EXPECT_EQ(viewer_.Row(1), (Texts{L"Bob", L"Oslo"}));
    EXPECT_EQ(viewer_.Place(viewer_.Grid()).left, 0);
    EXPECT_EQ(GetFocus(), viewer_.Grid());
}

TEST_F(Keys, OpenTheHelpFromTheValuePane) {
    FocusPane();

    Key(VK_F1);

    EXPECT_NE(FindWindowW(L"RowlarkHelpDialog", nullptr), nullptr);
}

TEST_F(Keys, RunCommandsFromTheValuePane) {
    FocusPane();
    Key(VK_OEM_PLUS, {VK_CONTROL});
    EXPECT_EQ(FontSize(), L"17");

    Key('E', {VK_CONTROL});
    EXPECT_EQ(viewer_.Status(4), L" 1:1 EDIT");

    Key('D', {VK_CONTROL});
    EXPECT_FALSE(IsWindowVisible(viewer_.Pane()));
    EXPECT_EQ(GetFocus(), viewer_.Grid());
}

TEST_F(Keys, SwitchTheTabFromTheValuePane) {
    FocusPane();

    Key(VK_TAB, {VK_CONTROL});

    EXPECT_EQ(viewer_.CurrentTab(), 1);
    EXPECT_EQ(GetFocus(), viewer_.Source());
}

TEST_F(Keys, LeaveTheArrowsToTheValuePane) {
    FocusPane();

    Key(VK_DOWN);
    Key('C');

    EXPECT_EQ(viewer_.Status(4), L" 1:1");
    EXPECT_EQ(viewer_.PaneText(), L"Ann");
}

}  // namespace

}  // namespace rl::test
