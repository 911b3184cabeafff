// Hands a link to the shell.
#pragma once

#include <windows.h>

#include <string_view>

namespace rl {

/// Opens the link that a cell's text holds; does nothing when it holds none.
void OpenLinkIn(HWND owner, std::wstring_view cell);

}  // namespace rl
