// The wait cursor, while something long runs on the window's own thread.
#pragma once

#include <windows.h>

namespace rl {

class WaitCursor {
public:
    WaitCursor() noexcept : previous_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor() { SetCursor(previous_); }

private:
    HCURSOR previous_;
};

}  // namespace rl
