#include "tools/lister/quick_view.h"

namespace rl::tools {

namespace fs = std::filesystem;

namespace {

constexpr const wchar_t* kPanelClass = L"RowlarkListerPanel";
constexpr int kListShare = 4;  // the list takes one part in so many of the width

LRESULT CALLBACK PanelProc(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_KEYDOWN) {
        return SendMessageW(GetParent(window), message, wparam, lparam);
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

bool RegisterPanelClass() {
    WNDCLASSW record{};
    record.lpfnWndProc = &PanelProc;
    record.hInstance = GetModuleHandleW(nullptr);
    record.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    record.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1);
    record.lpszClassName = kPanelClass;
    return RegisterClassW(&record) != 0;
}

HWND MakeChild(HWND parent, const wchar_t* className, DWORD style) {
    return CreateWindowExW(0, className, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 10, 10, parent,
                           nullptr, GetModuleHandleW(nullptr), nullptr);
}

}  // namespace

bool QuickView::Create(HWND frame) {
    frame_ = frame;
    if (!RegisterPanelClass()) {
        return false;
    }
    list_ = MakeChild(frame, L"LISTBOX",
                      WS_BORDER | WS_VSCROLL | WS_TABSTOP | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT);
    panel_ = MakeChild(frame, kPanelClass, WS_CLIPCHILDREN);
    SendMessageW(list_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), 0);
    return list_ != nullptr && panel_ != nullptr;
}

void QuickView::Show(std::vector<fs::path> files, const fs::path& current) {
    files_ = std::move(files);
    SendMessageW(list_, LB_RESETCONTENT, 0, 0);
    for (const fs::path& file : files_) {
        const std::wstring name = file.filename().wstring();
        const auto index =
            SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
        if (file.filename() == current.filename()) {
            SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
        }
    }
}

void QuickView::Layout() const {
    RECT area{};
    GetClientRect(frame_, &area);
    const int split = area.right / kListShare;
    MoveWindow(list_, 0, 0, split, area.bottom, TRUE);
    MoveWindow(panel_, split, 0, area.right - split, area.bottom, TRUE);
}

fs::path QuickView::Selected() const {
    const LRESULT index = SendMessageW(list_, LB_GETCURSEL, 0, 0);
    return index >= 0 && index < std::ssize(files_) ? files_[static_cast<size_t>(index)]
                                                    : fs::path();
}

}  // namespace rl::tools
