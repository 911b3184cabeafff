// Keys that belong to the host: which are handed back to it, and when.
//
// The host's window shows many kinds of file and has keys of its own (close, find, next file). A
// plugin that has the focus would swallow them, so they are posted back. The table is all there is.
#pragma once

#include <cstdint>

#include "view/logic/key_codes.h"

namespace rl {

/// For this long after creation nothing is handed over: the key that opened the file may still be
/// on its way. Milliseconds.
inline constexpr uint64_t kHostKeyGuardMs = 500;

/// What the decision looks at; filled by the viewer at each key.
struct HostKeyState {
    uint64_t msSinceCreation = 0;
    bool focusInside = false;  // the focus is the viewer or one of its children
    bool focusInFilterBox = false;
    bool ctrl = false;            // held down, be it as half of AltGr
    bool ctrlCommand = false;     // held down without Alt
    bool disableNumKeys = false;  // the settings of the same names
    bool disableNpKeys = false;
    bool exitByQ = false;
};

/// Whether the key goes to the host instead of the viewer.
[[nodiscard]] bool IsHostKey(VirtualKey key, const HostKeyState& state);

/// The key data to post with it: the scan code, and a repeat count of one.
[[nodiscard]] constexpr uint32_t HostKeyData(uint32_t scanCode) {
    return scanCode << 16 | 1U;
}

}  // namespace rl
