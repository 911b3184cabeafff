#include "view/logic/keys.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

constexpr CommandState kTable{};

KeyPress Plain(VirtualKey key) {
    return {.key = key};
}
KeyPress Ctrl(VirtualKey key) {
    return {.key = key, .ctrl = true};
}
KeyPress Shift(VirtualKey key) {
    return {.key = key, .shift = true};
}

/// The command a key runs; 0 when it does something else, -1 when it is none of ours.
int CommandOf(const KeyPress& press, KeyFocus focus, const CommandState& state = kTable) {
    const KeyBinding* binding = FindKey(press, focus, state);
    return binding == nullptr ? -1 : static_cast<int>(binding->command);
}

KeyAction ActionOf(const KeyPress& press, KeyFocus focus, const CommandState& state = kTable) {
    const KeyBinding* binding = FindKey(press, focus, state);
    EXPECT_NE(binding, nullptr);
    return binding == nullptr ? KeyAction::RunCommand : binding->action;
}

TEST(Keys, RunCommandsWithCtrlWhereverTheFocusIs) {
    for (const KeyFocus focus : {KeyFocus::Grid, KeyFocus::Viewer, KeyFocus::Source}) {
        EXPECT_EQ(CommandOf(Ctrl(key::kSpace), focus), 5009);
        EXPECT_EQ(CommandOf(Ctrl(key::Of('S')), focus), 5041);
        EXPECT_EQ(CommandOf(Ctrl(key::Of('L')), focus), 5043);
        EXPECT_EQ(CommandOf(Ctrl(key::Of('D')), focus), 5070);
        EXPECT_EQ(CommandOf(Ctrl(key::Of('E')), focus), 5040);
        EXPECT_EQ(CommandOf(Ctrl(key::Of('R')), focus), 5040);
        EXPECT_EQ(ActionOf(Ctrl(key::kTab), focus), KeyAction::SwitchTab);
        EXPECT_EQ(ActionOf(Plain(key::kF1), focus), KeyAction::ShowHelp);
        EXPECT_EQ(ActionOf(Ctrl(key::kNumAdd), focus), KeyAction::LargerFont);
        EXPECT_EQ(ActionOf(Ctrl(key::kPlus), focus), KeyAction::LargerFont);
        EXPECT_EQ(ActionOf(Ctrl(key::kNumSubtract), focus), KeyAction::SmallerFont);
        EXPECT_EQ(ActionOf(Ctrl(key::kMinus), focus), KeyAction::SmallerFont);
    }
}

TEST(Keys, LeaveLettersWithoutCtrlToTypeAhead) {
    for (const char letter : {'S', 'L', 'D', 'E', 'R', 'T', 'X'}) {
        EXPECT_EQ(CommandOf(Plain(key::Of(letter)), KeyFocus::Grid, {.editMode = true}), -1)
            << letter;
    }
    EXPECT_EQ(CommandOf(Plain(key::kSpace), KeyFocus::Grid), -1);
}

TEST(Keys, SwitchTheOutlineOnlyInTrees) {
    EXPECT_EQ(CommandOf(Ctrl(key::Of('T')), KeyFocus::Grid), -1);
    EXPECT_EQ(CommandOf(Ctrl(key::Of('T')), KeyFocus::Grid, {.kind = DocumentKind::Json}), 5050);
    EXPECT_EQ(CommandOf(Ctrl(key::Of('T')), KeyFocus::Source, {.kind = DocumentKind::Xml}), 5050);
}

TEST(Keys, CopyOnlyInTheGrid) {
    for (const KeyPress& press : {Plain(key::Of('C')), Ctrl(key::Of('C')), Shift(key::Of('C'))}) {
        EXPECT_EQ(ActionOf(press, KeyFocus::Grid), KeyAction::CopyAsPressed);
        EXPECT_EQ(FindKey(press, KeyFocus::Source, kTable), nullptr);
        EXPECT_EQ(FindKey(press, KeyFocus::Viewer, kTable), nullptr);
    }
}

TEST(Keys, DeleteRowsOnlyInTheGridInEditMode) {
    EXPECT_EQ(CommandOf(Ctrl(key::Of('X')), KeyFocus::Grid), -1);
    EXPECT_EQ(CommandOf(Ctrl(key::Of('X')), KeyFocus::Grid, {.editMode = true}), 5007);
    EXPECT_EQ(CommandOf(Ctrl(key::Of('X')), KeyFocus::Source, {.editMode = true}), -1);
}

TEST(Keys, MoveAndEditCellsInTheTableOnly) {
    for (const VirtualKey arrow : {key::kLeft, key::kUp, key::kRight, key::kDown}) {
        EXPECT_EQ(ActionOf(Plain(arrow), KeyFocus::Grid), KeyAction::MoveCell);
        EXPECT_EQ(ActionOf(Ctrl(arrow), KeyFocus::Grid), KeyAction::MoveCell);
        EXPECT_EQ(FindKey(Plain(arrow), KeyFocus::Source, kTable), nullptr);
    }
    EXPECT_EQ(ActionOf(Plain(key::kF2), KeyFocus::Grid), KeyAction::BeginEdit);
    EXPECT_EQ(FindKey(Plain(key::kF2), KeyFocus::Viewer, kTable), nullptr);
    EXPECT_EQ(FindKey(Plain(key::kF2), KeyFocus::Source, kTable), nullptr);
}

TEST(Keys, EditOnEnterOnlyInEditModeOnACell) {
    const CommandState good{.editMode = true,
                            .visibleRows = 5,
                            .columnCount = 3,
                            .currentRow = 4,
                            .currentDataColumn = 2};
    EXPECT_EQ(ActionOf(Plain(key::kEnter), KeyFocus::Grid, good), KeyAction::BeginEdit);
    EXPECT_EQ(FindKey(Plain(key::kEnter), KeyFocus::Source, good), nullptr);
    CommandState state = good;
    state.editMode = false;
    EXPECT_EQ(FindKey(Plain(key::kEnter), KeyFocus::Grid, state), nullptr);
    state = good;
    state.currentRow = 5;
    EXPECT_EQ(FindKey(Plain(key::kEnter), KeyFocus::Grid, state), nullptr);
    state = good;
    state.currentDataColumn = 3;
    EXPECT_EQ(FindKey(Plain(key::kEnter), KeyFocus::Grid, state), nullptr);
    state.currentDataColumn = -1;
    EXPECT_EQ(FindKey(Plain(key::kEnter), KeyFocus::Grid, state), nullptr);
}

TEST(Keys, AreBoundToDeclaredCommands) {
    for (const KeyBinding& binding : AllKeys()) {
        if (binding.action == KeyAction::RunCommand) {
            EXPECT_NE(FindCommand(static_cast<uint32_t>(binding.command)), nullptr);
        }
    }
}

}  // namespace
}  // namespace rl
