#include "view/logic/keys.h"

#include <algorithm>
#include <iterator>

namespace rl {
namespace {

constexpr uint8_t kGrid = static_cast<uint8_t>(KeyFocus::Grid);
constexpr uint8_t kTable = kGrid | static_cast<uint8_t>(KeyFocus::Viewer);
constexpr uint8_t kAnywhere = kTable | static_cast<uint8_t>(KeyFocus::Source);

constexpr KeyChord Any(VirtualKey key) {
    return {key, Modifier::Either, Modifier::Either};
}
constexpr KeyChord Ctrl(VirtualKey key) {
    return {key, Modifier::Down, Modifier::Either};
}

constexpr CommandPredicate kAlways = [](const CommandState&) { return true; };
constexpr CommandPredicate kTreeDocument = [](const CommandState& s) {
    return s.kind != DocumentKind::Csv;
};
constexpr CommandPredicate kEditMode = [](const CommandState& s) { return s.editMode; };
// Enter edits only where there is something to edit; F2 asks the editor, which may refuse aloud.
constexpr CommandPredicate kEditModeOnCell = [](const CommandState& s) {
    return s.editMode && s.currentRow >= 0 && s.currentRow < s.visibleRows &&
           s.currentDataColumn >= 0 && s.currentDataColumn < s.columnCount;
};

constexpr KeyBinding Run(KeyChord chord, uint8_t where, Command command,
                         CommandPredicate when = kAlways) {
    return {chord, where, KeyAction::RunCommand, command, when};
}

constexpr KeyBinding Do(KeyChord chord, uint8_t where, KeyAction action,
                        CommandPredicate when = kAlways) {
    return {chord, where, action, Command{}, when};
}

constexpr KeyBinding kKeys[] = {
    Do(Any(key::Of('C')), kGrid, KeyAction::CopyAsPressed),
    Run(Ctrl(key::Of('X')), kGrid, Command::DeleteRows, kEditMode),

    Do(Any(key::kF1), kAnywhere, KeyAction::ShowHelp),
    Do(Ctrl(key::kNumAdd), kAnywhere, KeyAction::LargerFont),
    Do(Ctrl(key::kPlus), kAnywhere, KeyAction::LargerFont),
    Do(Ctrl(key::kNumSubtract), kAnywhere, KeyAction::SmallerFont),
    Do(Ctrl(key::kMinus), kAnywhere, KeyAction::SmallerFont),
    Run(Ctrl(key::kSpace), kAnywhere, Command::ShowAllColumns),
    Run(Ctrl(key::Of('S')), kAnywhere, Command::Save),
    Do(Ctrl(key::kTab), kAnywhere, KeyAction::SwitchTab),
    Run(Ctrl(key::Of('L')), kAnywhere, Command::LocateInSource),
    Run(Ctrl(key::Of('T')), kAnywhere, Command::ToggleOutline, kTreeDocument),
    Run(Ctrl(key::Of('D')), kAnywhere, Command::ToggleValuePane),
    Run(Ctrl(key::Of('E')), kAnywhere, Command::ToggleEdit),
    Run(Ctrl(key::Of('R')), kAnywhere, Command::ToggleEdit),

    Do(Any(key::kLeft), kTable, KeyAction::MoveCell),
    Do(Any(key::kUp), kTable, KeyAction::MoveCell),
    Do(Any(key::kRight), kTable, KeyAction::MoveCell),
    Do(Any(key::kDown), kTable, KeyAction::MoveCell),
    Do(Any(key::kF2), kGrid, KeyAction::BeginEdit),
    Do(Any(key::kEnter), kGrid, KeyAction::BeginEdit, kEditModeOnCell),
};

constexpr bool IsHeld(Modifier wanted, bool down) {
    return wanted == Modifier::Either || (wanted == Modifier::Down) == down;
}

constexpr bool Overlap(Modifier a, Modifier b) {
    return a == b || a == Modifier::Either || b == Modifier::Either;
}

/// A second row for the same chord and place would never be reached.
constexpr bool NoKeyIsBoundTwice(std::span<const KeyBinding> keys) {
    for (size_t i = 0; i < keys.size(); ++i) {
        for (size_t j = i + 1; j < keys.size(); ++j) {
            if (keys[i].chord.key == keys[j].chord.key && (keys[i].where & keys[j].where) != 0 &&
                Overlap(keys[i].chord.ctrl, keys[j].chord.ctrl) &&
                Overlap(keys[i].chord.shift, keys[j].chord.shift)) {
                return false;
            }
        }
    }
    return true;
}

static_assert(NoKeyIsBoundTwice(kKeys), "a key is bound twice in one place");
static_assert(std::all_of(std::begin(kKeys), std::end(kKeys),
                          [](const KeyBinding& row) {
                              return (row.action == KeyAction::RunCommand) ==
                                     (row.command != Command{});
                          }),
              "a key runs a command, or does something else");

}  // namespace

std::span<const KeyBinding> AllKeys() {
    return kKeys;
}

const KeyBinding* FindKey(const KeyPress& press, KeyFocus focus, const CommandState& state) {
    const auto* found =
        std::find_if(std::begin(kKeys), std::end(kKeys), [&](const KeyBinding& row) {
            return row.chord.key == press.key && IsHeld(row.chord.ctrl, press.ctrl) &&
                   IsHeld(row.chord.shift, press.shift) &&
                   (row.where & static_cast<uint8_t>(focus)) != 0 && row.when(state);
        });
    return found == std::end(kKeys) ? nullptr : found;
}

}  // namespace rl
