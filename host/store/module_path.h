// Where our own module lies, and the settings file beside it.
//
// Knows nothing of the store; used from the user-interface thread, safe on any.
#pragma once

#include <string>
#include <string_view>

namespace rl {

/// The full path of the module this code is linked into, not of the process's executable. Empty
/// when the system does not tell.
[[nodiscard]] std::wstring ModulePath();

/// `modulePath` with everything from its last "." replaced by ".ini"; appended when there is none.
[[nodiscard]] std::wstring PluginIniPath(std::wstring_view modulePath);

}  // namespace rl
