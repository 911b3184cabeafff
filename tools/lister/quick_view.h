// The quick-view panel: a list of files at the left, and beside it a child window for the viewer.
//
// People walk the list with the arrow keys and see each file at once; the keyboard stays in the
// list.
#pragma once

#include <windows.h>

#include <filesystem>
#include <vector>

namespace rl::tools {

class QuickView {
public:
    /// Makes both windows inside `frame`; keys that reach the panel are sent on to the frame.
    bool Create(HWND frame);

    /// Shows the files and selects `current`.
    void Show(std::vector<std::filesystem::path> files, const std::filesystem::path& current);

    /// Divides the frame's client area.
    void Layout() const;

    void FocusList() const { SetFocus(list_); }

    /// The selected file; empty when none is.
    [[nodiscard]] std::filesystem::path Selected() const;

    [[nodiscard]] HWND Panel() const { return panel_; }
    [[nodiscard]] HWND List() const { return list_; }

private:
    HWND frame_ = nullptr;
    HWND list_ = nullptr;
    HWND panel_ = nullptr;
    std::vector<std::filesystem::path> files_;
};

}  // namespace rl::tools
