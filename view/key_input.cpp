// Key messages: those of the host first, then ours.
#include "view/viewer.h"

#include <algorithm>

#include "host/store/settings.h"
#include "view/control.h"
#include "view/logic/host_keys.h"

namespace rl {

bool Viewer::HasFocusInside() const {
    const HWND focus = GetFocus();
    return focus != nullptr && (focus == window_ || IsChild(window_, focus));
}

namespace {

/// AltGr arrives as Ctrl and Alt together and types a character.
bool IsAltGrDown() {
    return IsKeyDown(VK_CONTROL) && IsKeyDown(VK_MENU);
}

/// Ctrl as a command key.
bool IsCommandKeyDown() {
    return IsKeyDown(VK_CONTROL) && !IsAltGrDown();
}

}  // namespace

bool Viewer::PassKeyToHost(WPARAM key) {
    const uint64_t now = GetTickCount64();
    const HostKeyState state{
        .msSinceCreation = now - std::min(now, createdAt_),
        .focusInside = HasFocusInside(),
        .focusInFilterBox = filters_.ColumnOf(GetFocus()) >= 0,
        .ctrl = IsKeyDown(VK_CONTROL),
        .ctrlCommand = IsCommandKeyDown(),
        // Each look-up asks for the stamps of two files: only where it counts.
        .disableNumKeys = key >= '1' && key <= '8' && settings::IsOn(settings::kDisableNumKeys),
        .disableNpKeys = (key == 'N' || key == 'P') && settings::IsOn(settings::kDisableNpKeys),
        .exitByQ = key == 'Q' && settings::IsOn(settings::kExitByQ)};
    if (!IsHostKey(static_cast<VirtualKey>(key), state)) {
        return false;
    }
    const UINT scanCode = MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC);
    PostMessageW(GetParent(window_), WM_KEYDOWN, key, static_cast<LPARAM>(HostKeyData(scanCode)));
    return true;
}

// Used keys answer true; whatever they did, the viewer may be gone by then.
bool Viewer::HandleKey(WPARAM key, KeyFocus focus) {
    if (PassKeyToHost(key)) {
        return true;
    }
    if (IsAltGrDown()) {
        return false;
    }
    const KeyPress press{.key = static_cast<VirtualKey>(key),
                         .ctrl = IsCommandKeyDown(),
                         .shift = IsKeyDown(VK_SHIFT)};
    if (const KeyBinding* binding = FindKey(press, focus, DescribeCommands())) {
        return RunKey(*binding, press);
    }
    if (key == VK_TAB && tab_ == ViewerTab::Data) {
        MoveFocus(GetFocus(), press.shift);
        return true;
    }
    return false;
}

bool Viewer::RunKey(const KeyBinding& binding, const KeyPress& press) {
    switch (binding.action) {
        case KeyAction::RunCommand: return RunCommand(static_cast<UINT>(binding.command));
        case KeyAction::ShowHelp:
            help_.Show(window_, settings_.font.sourceFace, dpi_, colors_);
            return true;
        case KeyAction::LargerFont: OnFontStep(1); return true;
        case KeyAction::SmallerFont: OnFontStep(-1); return true;
        case KeyAction::SwitchTab:
            SwitchTab(tab_ == ViewerTab::Data ? ViewerTab::Source : ViewerTab::Data);
            return true;
        case KeyAction::MoveCell:
            // With Shift the list view extends the selection itself; the current row follows.
            return GetFocus() == grid_.Window() && !press.shift &&
                   grid_.Navigate(press.key, press.ctrl);
        case KeyAction::CopyAsPressed: CopyByKey(press.ctrl, press.shift); return true;
        case KeyAction::BeginEdit: BeginCellEdit(grid_.Current()); return true;
    }
    return false;
}

Answer Viewer::OnKeyDown(WPARAM key) {
    return loaded_ && HandleKey(key, KeyFocus::Viewer) ? Answer(0) : std::nullopt;
}

Answer Viewer::OnGridMessage(const Message& in) {
    if (editor_.IsOpen()) {
        if (KeepsGridFrom(in)) {
            return 0;
        }
        if (in.id == WM_CTLCOLOREDIT) {
            return OnEditorColors(in);
        }
    }
    if (in.id == WM_KEYDOWN && OnOutlineKey(in.wparam)) {
        swallowCharacters_ = true;
        return 0;
    }
    return OnPartKey(in, KeyFocus::Grid);
}

// Keys of a part that has arrows or editing keys of its own: what we do not use stays with it.
Answer Viewer::OnPartKey(const Message& in, KeyFocus focus) {
    if (in.id == WM_CHAR && swallowCharacters_) {
        return 0;  // of a key that was used: it must not start a search in the list
    }
    if (in.id == WM_SYSKEYDOWN) {
        swallowCharacters_ = false;  // Alt and digits of the numeric pad type a character too
    }
    if (in.id != WM_KEYDOWN) {
        return std::nullopt;
    }
    swallowCharacters_ = loaded_ && HandleKey(in.wparam, focus);
    return swallowCharacters_ ? Answer(0) : std::nullopt;
}

}  // namespace rl
