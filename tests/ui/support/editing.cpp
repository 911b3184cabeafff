#include "tests/ui/support/editing.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <fstream>
#include <iterator>

#include "tests/ui/support/input.h"
#include "tests/ui/support/pump.h"

namespace rl::test {

HWND Editor(const Viewer& viewer) {
    return GetDlgItem(viewer.Grid(), 4000);
}

void ClickCell(const Viewer& viewer, int row, int column) {
    Click(viewer.Grid(), viewer.CellCenter(row, column));
}

void OpenEditor(const Viewer& viewer, int row, int column) {
    ClickCell(viewer, row, column);
    Key(VK_F2);
    ASSERT_NE(Editor(viewer), nullptr) << "cell " << row << ", " << column;
}

void Fill(const Viewer& viewer, std::wstring_view text) {
    SetWindowTextW(Editor(viewer), std::wstring(text).c_str());
}

void EditCell(const Viewer& viewer, int row, int column, std::wstring_view text) {
    OpenEditor(viewer, row, column);
    Fill(viewer, text);
    Key(VK_RETURN);
}

Balloons::Balloons(const Viewer& viewer) : editor_(Editor(viewer)) {
    SetWindowSubclass(editor_, &Watch, 1, reinterpret_cast<DWORD_PTR>(this));
}

Balloons::~Balloons() {
    RemoveWindowSubclass(editor_, &Watch, 1);
}

LRESULT CALLBACK Balloons::Watch(HWND window, UINT id, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                 DWORD_PTR self) {
    if (id == EM_SHOWBALLOONTIP) {
        reinterpret_cast<Balloons*>(self)->texts_.emplace_back(
            reinterpret_cast<const EDITBALLOONTIP*>(lparam)->pszText);
    }
    return DefSubclassProc(window, id, wparam, lparam);
}

std::string BytesOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

int TemporaryFilesBeside(const std::filesystem::path& file) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(file.parent_path())) {
        count += entry.path().filename().wstring().starts_with(L"rlt") ? 1 : 0;
    }
    return count;
}

}  // namespace rl::test
