// One window message, as handlers get it.
#pragma once

#include <windows.h>

#include <optional>

namespace rl {

struct Message {
    UINT id = 0;
    WPARAM wparam = 0;
    LPARAM lparam = 0;
};

/// What a handler answers; nothing means "not mine": default handling follows.
using Answer = std::optional<LRESULT>;

}  // namespace rl
