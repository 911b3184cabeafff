// The keys of the table and of the source tab: chord, where it counts, what it does.
//
// Keys that belong to the host are decided first, elsewhere; so are those of an outline.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "view/logic/command_state.h"
#include "view/logic/commands.h"
#include "view/logic/key_codes.h"

namespace rl {

/// Where the focus is when a key is pressed. A filter box keeps its keys.
enum class KeyFocus : uint8_t { Grid = 1, Viewer = 2, Source = 4 };

enum class KeyAction : uint8_t {
    RunCommand,  // a command of the menus
    ShowHelp,
    LargerFont,
    SmallerFont,
    SwitchTab,
    MoveCell,       // an arrow key
    BeginEdit,      // of the current cell
    CopyAsPressed,  // what "C" copies depends on the selection: see PlanCopyKey
};

enum class Modifier : uint8_t { Either, Down, Up };

struct KeyChord {
    VirtualKey key = 0;
    Modifier ctrl = Modifier::Either;
    Modifier shift = Modifier::Either;
};

struct KeyBinding {
    KeyChord chord;
    uint8_t where;  // of KeyFocus, combined
    KeyAction action;
    Command command;  // for RunCommand
    CommandPredicate when;
};

struct KeyPress {
    VirtualKey key = 0;
    bool ctrl = false;
    bool shift = false;
};

[[nodiscard]] std::span<const KeyBinding> AllKeys();

/// The first row that fits; null when the key is none of ours.
[[nodiscard]] const KeyBinding* FindKey(const KeyPress& press, KeyFocus focus,
                                        const CommandState& state);

}  // namespace rl
