// Keys and clicks as the user makes them, through the system's own input queue.
//
// Modifiers are really held down, so whatever way the program asks for them, it gets one answer.
// Each function returns when all that it set off has happened.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string_view>

namespace rl::test {

using Modifiers = std::initializer_list<WORD>;  // VK_CONTROL, VK_SHIFT, VK_MENU

/// Presses and releases a key.
void Key(WORD key, Modifiers held = {});

/// Tells the window of a key while AltGr is down: the right Alt key, with which the keyboard
/// presses Ctrl. The key itself types nothing.
void PressWithAltGr(HWND window, WORD key);

/// Types letters and digits, one key each.
void Type(std::wstring_view text);

/// Moves the mouse to a point of the window's client area.
void MoveTo(HWND window, POINT at);

void Click(HWND window, POINT at, Modifiers held = {});
void RightClick(HWND window, POINT at);
void DoubleClick(HWND window, POINT at);

/// Presses at one point, moves in steps and releases at the other.
void Drag(HWND window, POINT from, POINT to);

/// Turns the wheel by so many notches: up and away from the user when positive.
void Wheel(HWND window, POINT at, int notches, Modifiers held = {});

}  // namespace rl::test
