// The editor over a cell as its user meets it, and the file under the viewer.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/ui/support/ui_host.h"

namespace rl::test {

/// The editor; null while none is open.
[[nodiscard]] HWND Editor(const Viewer& viewer);

/// Clicks a cell and presses F2; the test fails where no editor opens.
void OpenEditor(const Viewer& viewer, int row, int column);

/// Puts a text in place of the editor's, as pasting it would: it may hold what no key types.
void Fill(const Viewer& viewer, std::wstring_view text);

/// The three together and Enter.
void EditCell(const Viewer& viewer, int row, int column, std::wstring_view text);

/// Makes a cell current by a click.
void ClickCell(const Viewer& viewer, int row, int column);

/// The balloons that the open editor is asked to show, by their texts.
class Balloons {
public:
    explicit Balloons(const Viewer& viewer);
    Balloons(const Balloons&) = delete;
    Balloons& operator=(const Balloons&) = delete;
    ~Balloons();

    [[nodiscard]] const std::vector<std::wstring>& Texts() const { return texts_; }

private:
    static LRESULT CALLBACK Watch(HWND window, UINT id, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                  DWORD_PTR self);
    HWND editor_;
    std::vector<std::wstring> texts_;
};

/// The bytes of a file.
[[nodiscard]] std::string BytesOf(const std::filesystem::path& file);

/// How many temporary files of a save stand beside a file.
[[nodiscard]] int TemporaryFilesBeside(const std::filesystem::path& file);

}  // namespace rl::test
