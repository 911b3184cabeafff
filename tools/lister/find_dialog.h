// Asks what to search for.
#pragma once

#include <windows.h>

#include <string>

namespace rl::tools {

/// A search as the user asked for it. Kept by the host, so that the dialog opens with the last one.
struct Search {
    std::wstring text;
    bool matchCase = false;
    bool wholeWords = false;
    bool backwards = false;

    /// The host's flags, without "find first".
    [[nodiscard]] int Flags() const;
};

/// Shows the dialog over `owner`, filled with `search`; true and `search` changed after "Find".
[[nodiscard]] bool AskForSearch(HWND owner, Search& search);

}  // namespace rl::tools
