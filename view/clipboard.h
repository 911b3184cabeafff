// Text onto the clipboard.
#pragma once

#include <windows.h>

#include <string_view>

namespace rl {

/// Puts Unicode text in place of whatever the clipboard held; an empty text too. False when another
/// program holds the clipboard or there is no memory.
bool SetClipboardText(HWND owner, std::wstring_view text);

}  // namespace rl
