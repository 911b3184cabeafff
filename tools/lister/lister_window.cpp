#include "tools/lister/lister_window.h"

#include <commdlg.h>
#include <shellapi.h>

#include "tools/lister/folder_files.h"
#include "tools/lister/resource.h"

namespace rl::tools {

namespace fs = std::filesystem;

namespace {

constexpr const wchar_t* kClass = L"RowlarkLister";

bool RegisterFrameClass(WNDPROC procedure) {
    WNDCLASSW record{};
    record.lpfnWndProc = procedure;
    record.hInstance = GetModuleHandleW(nullptr);
    record.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    record.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    record.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1);
    record.lpszMenuName = MAKEINTRESOURCEW(IDM_LISTER);
    record.lpszClassName = kClass;
    return RegisterClassW(&record) != 0;
}

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

/// Keys of the file manager's own viewer and the commands they stand for.
struct KeyCommand {
    WPARAM key;
    bool withCtrl;
    int command;
};

constexpr KeyCommand kKeys[] = {
    {VK_ESCAPE, false, IDC_CLOSE},   {'Q', false, IDC_CLOSE},       {'N', false, IDC_NEXT_FILE},
    {'P', false, IDC_PREVIOUS_FILE}, {VK_F3, false, IDC_FIND_NEXT}, {'F', true, IDC_FIND},
};

}  // namespace

ListerWindow::ListerWindow(const PluginModule& module, const Options& options)
    : module_(module),
      options_(options),
      viewer_(module),
      search_{.text = options.find},
      searchWaits_(!options.find.empty()) {}

ListerWindow::~ListerWindow() {
    if (window_ != nullptr && IsWindow(window_)) {
        DestroyWindow(window_);
    }
}

bool ListerWindow::Create() {
    if (!RegisterFrameClass(&WindowProc)) {
        return false;
    }
    window_ = CreateWindowExW(
        WS_EX_ACCEPTFILES, kClass, L"Lister", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
        0, options_.width, options_.height, nullptr, nullptr, GetModuleHandleW(nullptr), this);
    if (window_ == nullptr || (options_.quickView && !quickView_.Create(window_))) {
        return false;
    }
    ShowWindow(window_, SW_SHOWNORMAL);
    SetForegroundWindow(window_);
    Layout();
    return true;
}

LRESULT CALLBACK ListerWindow::WindowProc(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lparam);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* lister = reinterpret_cast<ListerWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (lister == nullptr || lister->window_ == nullptr) {
        return DefWindowProcW(window, message, wparam, lparam);
    }
    return lister->Handle(message, wparam, lparam);
}

LRESULT ListerWindow::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_SIZE: Layout(); return 0;
        case WM_KEYDOWN: OnKey(wparam); return 0;
        case WM_COMMAND: OnCommand(LOWORD(wparam), HIWORD(wparam)); return 0;
        case WM_DROPFILES: OnDrop(wparam); return 0;
        case WM_ACTIVATE: OnActivate(LOWORD(wparam) != WA_INACTIVE); return 0;
        case WM_CLOSE: TryToClose(); return 0;
        case WM_DESTROY: PostQuitMessage(0); return 0;
        case WM_DPICHANGED: {
            const auto& to = *reinterpret_cast<const RECT*>(lparam);
            MoveWindow(window_, to.left, to.top, to.right - to.left, to.bottom - to.top, TRUE);
            return 0;
        }
        default: return DefWindowProcW(window_, message, wparam, lparam);
    }
}

HWND ListerWindow::ViewerParent() const {
    return options_.quickView ? quickView_.Panel() : window_;
}

void ListerWindow::Layout() const {
    if (options_.quickView) {
        quickView_.Layout();
    }
    viewer_.FillParent();
}

bool ListerWindow::Open(const fs::path& file) {
    const fs::path full = fs::absolute(file).make_preferred();
    const bool isOpen = viewer_.Open(ViewerParent(), full.wstring());
    if (!isOpen && viewer_.IsOpen()) {
        return false;  // the present one has changes that could not be saved
    }
    file_ = full;
    if (options_.quickView && quickView_.Selected() != file_) {
        quickView_.Show(WantedFilesBeside(module_.DetectString(), file_), file_);
        quickView_.FocusList();
    } else if (isOpen && !options_.quickView) {
        SetFocus(viewer_.Window());
    }
    ShowTitle(isOpen ? L"" : L"not shown by the plugin");
    return isOpen;
}

void ListerWindow::NoticeViewer() {
    if (searchWaits_ && viewer_.IsLoaded()) {
        searchWaits_ = false;
        Find(search_.Flags() | kFindFirst);
    }
    if (viewer_.TakeVanished()) {
        ShowTitle(L"could not be loaded");
        InvalidateRect(window_, nullptr, TRUE);
        SetFocus(options_.quickView ? quickView_.List() : window_);
    }
}

void ListerWindow::OnKey(WPARAM key) {
    for (const KeyCommand& row : kKeys) {
        if (row.key == key && row.withCtrl == IsDown(VK_CONTROL)) {
            OnCommand(row.command, 0);
            return;
        }
    }
    if (key >= '1' && key <= '8') {
        // In the file manager these choose among its own views of the file.
        ShowTitle(std::wstring(L"view mode ") + static_cast<wchar_t>(key) +
                  L" belongs to the file manager");
    }
}

void ListerWindow::OnCommand(int command, int notification) {
    switch (command) {
        case IDC_OPEN: AskForFile(); break;
        case IDC_NEXT_FILE: OpenNeighbour(1); break;
        case IDC_PREVIOUS_FILE: OpenNeighbour(-1); break;
        case IDC_CLOSE: TryToClose(); break;
        case IDC_FIND: AskAndFind(); break;
        case IDC_FIND_NEXT: FindNext(IsDown(VK_SHIFT)); break;
        case IDC_FIND_PREVIOUS: FindNext(true); break;
        default:
            if (options_.quickView && notification == LBN_SELCHANGE) {
                Open(quickView_.Selected());
            }
    }
}

void ListerWindow::OnDrop(WPARAM drop) {
    const auto handle = reinterpret_cast<HDROP>(drop);
    std::wstring path(DragQueryFileW(handle, 0, nullptr, 0), L'\0');
    DragQueryFileW(handle, 0, path.data(), static_cast<UINT>(path.size() + 1));
    DragFinish(handle);
    SetForegroundWindow(window_);
    Open(path);
}

void ListerWindow::OnActivate(bool active) {
    if (!active) {
        const HWND focus = GetFocus();
        lastFocus_ = IsChild(window_, focus) ? focus : nullptr;
    } else if (lastFocus_ != nullptr && IsWindow(lastFocus_)) {
        SetFocus(lastFocus_);
    } else if (viewer_.IsOpen() && !options_.quickView) {
        SetFocus(viewer_.Window());
    }
}

void ListerWindow::AskForFile() {
    wchar_t path[32768] = L"";
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = window_;
    dialog.lpstrFilter = L"All files\0*.*\0";
    dialog.lpstrFile = path;
    dialog.nMaxFile = ARRAYSIZE(path);
    dialog.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (GetOpenFileNameW(&dialog)) {
        Open(path);
    }
}

void ListerWindow::OpenNeighbour(int step) {
    const fs::path file = NeighbourOf(module_.DetectString(), file_, step);
    if (file.empty()) {
        ShowTitle(step > 0 ? L"this is the last file" : L"this is the first file");
    } else {
        Open(file);
    }
}

void ListerWindow::AskAndFind() {
    if (AskForSearch(window_, search_)) {
        Find(search_.Flags() | kFindFirst);
    }
}

void ListerWindow::FindNext(bool backwards) {
    if (search_.text.empty()) {
        AskAndFind();
    } else {
        Find(search_.Flags() | (backwards ? kBackwards : 0));
    }
}

void ListerWindow::Find(int flags) {
    const bool found = viewer_.Search(search_.text, flags);
    ShowTitle(found ? L"" : L"\"" + search_.text + L"\" not found");
}

void ListerWindow::TryToClose() {
    if (viewer_.Close()) {
        DestroyWindow(window_);
    }
}

void ListerWindow::ShowTitle(const std::wstring& note) {
    const std::wstring title = L"Lister - [" + file_.wstring() + L"]";
    SetWindowTextW(window_, (note.empty() ? title : title + L" - " + note).c_str());
}

}  // namespace rl::tools
