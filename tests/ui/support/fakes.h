// Stand-ins for what would block a test or leave the process: message boxes, menus, sounds, links,
// dialogs, the clock and the dots per inch.
//
// They replace the module's imports, so the module itself needs no test code. One set for the
// process; every host begins with a fresh one.
#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace rl::test {

struct ShownBox {
    std::wstring text;
    std::wstring caption;
    UINT type = 0;
    HWND owner = nullptr;
};

struct ShownMenu {
    std::vector<std::wstring> items;  // labels in order; empty for a separator
    POINT at{};
};

struct StyledWindow {
    int id = 0;  // of the control; 0 for the grid's header
    std::wstring style;
};

struct StartedTimer {
    UINT_PTR id = 0;
    UINT elapse = 0;  // milliseconds
};

struct Fakes {
    std::vector<UINT> beeps;
    std::vector<ShownBox> boxes;
    int boxAnswer = IDOK;
    std::function<void()> whileBoxIsOpen;  // runs inside the box, as the user might act elsewhere
    std::vector<ShownMenu> menus;
    int menuAnswer = 0;  // the command chosen; 0 for none
    std::function<void()> whileMenuIsOpen;
    std::vector<std::wstring> links;
    std::vector<HCURSOR> cursors;            // every SetCursor
    std::vector<StyledWindow> styles;        // every SetWindowTheme
    bool settingsFail = false;               // every WritePrivateProfileStringW
    bool timersStandStill = false;           // SetTimer only notes
    std::vector<StartedTimer> timers;        // every SetTimer
    bool filterBatchFails = false;           // DeferWindowPos of a filter box
    bool memoryFailsAfterMeasuring = false;  // the first malloc after a text was measured
    bool memoryFailsOnce = false;            // the next malloc
    int mallocsUntilFailure = -1;            // so many come through, the next one fails
    UINT dpi = 0;                            // 0: the system's own answer
    ULONGLONG clockOffset = 0;               // added to GetTickCount64, milliseconds
    bool clockStopped = false;               // it stands at 1,000,000 then, plus the offset
    std::atomic<int> readDelay{0};           // before each ReadFile, milliseconds
    std::atomic<bool> readFails{false};      // every ReadFile
    std::atomic<bool> sizeFails{false};      // every GetFileSizeEx
    std::atomic<bool> stampFails{false};     // every GetFileInformationByHandle
    std::atomic<int> readsUntilEnd{-1};  // ReadFile answers the end of the file when 0 is reached
    std::atomic<int> reads{0};           // how often ReadFile was called
    std::set<std::string> failing;       // functions that are to fail, by name
    std::vector<std::string> writes;     // the functions that write files, as they were called
};

/// The set in use.
[[nodiscard]] Fakes& TheFakes();

/// Starts a fresh set and puts the stand-ins into the module's imports. A function the module does
/// not import is passed over.
void InstallFakes(HMODULE module);

}  // namespace rl::test
