#include "tests/ui/support/input.h"

#include <array>

#include "tests/ui/support/pump.h"

namespace rl::test {

namespace {

constexpr int kDragSteps = 5;

bool IsExtended(WORD key) {
    return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE ||
           key == VK_DIVIDE;
}

void SendKey(WORD key, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = (up ? KEYEVENTF_KEYUP : 0U) | (IsExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0U);
    SendInput(1, &input, sizeof input);
}

void SendMouse(DWORD flags, int data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = static_cast<DWORD>(data);
    SendInput(1, &input, sizeof input);
}

/// Holds modifiers down for the length of a block.
class Held {
public:
    explicit Held(Modifiers keys) : keys_(keys) {
        for (const WORD key : keys_) {
            SendKey(key, false);
        }
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() {
        for (const WORD key : keys_) {
            SendKey(key, true);
        }
        PumpIdle();
    }

private:
    Modifiers keys_;
};

/// Clicks at the same place must not join into a double click, except where one is meant.
class DoubleClickTime {
public:
    explicit DoubleClickTime(UINT milliseconds) : previous_(GetDoubleClickTime()) {
        SetDoubleClickTime(milliseconds);
    }
    DoubleClickTime(const DoubleClickTime&) = delete;
    DoubleClickTime& operator=(const DoubleClickTime&) = delete;
    ~DoubleClickTime() { SetDoubleClickTime(previous_); }

private:
    UINT previous_;
};

}  // namespace

void Key(WORD key, Modifiers held) {
    const Held modifiers(held);
    SendKey(key, false);
    SendKey(key, true);
    PumpIdle();
}

void PressWithAltGr(HWND window, WORD key) {
    constexpr BYTE kDown = 0x80;
    std::array<BYTE, 256> before{};
    GetKeyboardState(before.data());
    std::array<BYTE, 256> keys = before;
    keys[VK_CONTROL] = keys[VK_LCONTROL] = keys[VK_MENU] = keys[VK_RMENU] = kDown;
    SetKeyboardState(keys.data());
    SendMessageW(window, WM_KEYDOWN, key, 1);
    SetKeyboardState(before.data());
    PumpIdle();
}

void Type(std::wstring_view text) {
    for (const wchar_t letter : text) {
        const SHORT code = VkKeyScanW(letter);
        const bool shift = (HIBYTE(code) & 1) != 0;
        Key(LOBYTE(code), shift ? Modifiers{VK_SHIFT} : Modifiers{});
    }
}

void MoveTo(HWND window, POINT at) {
    ClientToScreen(window, &at);
    SetCursorPos(at.x, at.y);
    PumpIdle();
}

void Click(HWND window, POINT at, Modifiers held) {
    const DoubleClickTime apart(1);
    MoveTo(window, at);
    const Held modifiers(held);
    SendMouse(MOUSEEVENTF_LEFTDOWN);
    SendMouse(MOUSEEVENTF_LEFTUP);
    PumpIdle();
}

void RightClick(HWND window, POINT at) {
    const DoubleClickTime apart(1);
    MoveTo(window, at);
    SendMouse(MOUSEEVENTF_RIGHTDOWN);
    SendMouse(MOUSEEVENTF_RIGHTUP);
    PumpIdle();
}

void DoubleClick(HWND window, POINT at) {
    const DoubleClickTime together(2000);
    MoveTo(window, at);
    for (int i = 0; i < 2; ++i) {
        SendMouse(MOUSEEVENTF_LEFTDOWN);
        SendMouse(MOUSEEVENTF_LEFTUP);
    }
    PumpIdle();
}

void Drag(HWND window, POINT from, POINT to) {
    const DoubleClickTime apart(1);
    MoveTo(window, from);
    SendMouse(MOUSEEVENTF_LEFTDOWN);
    PumpIdle();
    for (int step = 1; step <= kDragSteps; ++step) {
        MoveTo(window, {from.x + (to.x - from.x) * step / kDragSteps,
                        from.y + (to.y - from.y) * step / kDragSteps});
    }
    SendMouse(MOUSEEVENTF_LEFTUP);
    PumpIdle();
}

void Wheel(HWND window, POINT at, int notches, Modifiers held) {
    MoveTo(window, at);
    const Held modifiers(held);
    SendMouse(MOUSEEVENTF_WHEEL, notches * WHEEL_DELTA);
    PumpIdle();
}

}  // namespace rl::test
