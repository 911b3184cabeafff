// What the command line asks of the Lister.
#pragma once

#include <optional>
#include <string>

namespace rl::tools {

struct Options {
    std::wstring file;
    std::wstring screenshot;  // PNG to write before ending; empty: an ordinary window
    std::wstring ini;         // settings for this run; empty: those beside the module
    std::wstring find;        // searched for as soon as the file is shown
    std::wstring theme;       // empty: as the settings say
    std::wstring module;      // empty: look beside the program and in the build folder
    int width = 1000;         // the window with its frame, pixels
    int height = 700;
    int dpi = 0;  // what the module is told; 0: the truth
    bool quickView = false;
    bool help = false;
};

/// Reads the arguments after the program's name. Nothing when they make no sense; `error` then says
/// in one sentence why.
[[nodiscard]] std::optional<Options> ParseOptions(int count, const wchar_t* const* arguments,
                                                  std::wstring& error);

/// The help text, lines ended by LF.
[[nodiscard]] const wchar_t* UsageText();

}  // namespace rl::tools
