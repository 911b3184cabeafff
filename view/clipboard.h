// Text onto the clipboard.
#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>
#include <string_view>

namespace rl {

/// Puts Unicode text in place of whatever the clipboard held; an empty text too. False when another
/// program holds the clipboard or there is no memory.
bool SetClipboardText(HWND owner, std::wstring_view text);
/// The same for a text of `units` that `write` puts into the memory it is given: no second copy.
bool SetClipboardText(HWND owner, size_t units, const std::function<void(wchar_t*)>& write);

}  // namespace rl
