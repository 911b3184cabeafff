// The plugin interface of the file manager's Lister window, as far as we use it.
//
// Declared here from the interface's published names and numbers; no header of the host is needed.
#pragma once

#include <windows.h>

namespace rl::lister {

// Show flags of ListLoad.
inline constexpr int kForceShow = 16;  // the user asked for this plugin: it may take the focus

// Search flags of ListSearchText.
inline constexpr int kFindFirst = 1;
inline constexpr int kMatchCase = 2;
inline constexpr int kWholeWords = 4;
inline constexpr int kBackwards = 8;

// Answers of ListSearchText.
inline constexpr int kOk = 0;
inline constexpr int kError = 1;

/// What ListSetDefaultParams is given.
struct DefaultParams {
    int size;
    DWORD interfaceVersionLow;
    DWORD interfaceVersionHigh;
    char defaultIniName[MAX_PATH];  // system ANSI code page, ended by a zero
};

}  // namespace rl::lister
