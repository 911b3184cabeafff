// Hands a link to the shell.
#include "view/open_link.h"

// Needs the types of windows.h.
#include <shellapi.h>

#include "view/logic/link_target.h"

namespace rl {

void OpenLinkIn(HWND owner, std::wstring_view cell) {
    const std::wstring target = LinkTarget(cell);
    if (!target.empty()) {
        ShellExecuteW(owner, L"open", target.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    }
}

}  // namespace rl
