// The beginning and the end of a viewer.
#include "view/viewer.h"

#include <commctrl.h>
#include <uxtheme.h>

#include "host/lister_api.h"
#include "host/store/settings.h"
#include "load/load_options.h"
#include "view/control.h"
#include "view/paint_scope.h"

namespace rl {

namespace {

constexpr const wchar_t* kClassName = L"RowlarkViewer";
constexpr UINT kLoadDelay = 1;  // milliseconds: the host gets its window back first

// In the quick-view panel the focus stays with the host's file list.
bool MayTakeFocus(HWND host, int showFlags) {
    const bool isTopLevel = GetAncestor(host, GA_ROOT) == host;
    const bool isPopup = (GetWindowLongPtrW(host, GWL_STYLE) & WS_POPUP) != 0;
    return (showFlags & lister::kForceShow) != 0 || isTopLevel || isPopup;
}

bool RegisterViewerClass(WNDPROC procedure) {
    WNDCLASSEXW record{};
    record.cbSize = sizeof record;
    record.lpfnWndProc = procedure;
    record.hInstance = OwnInstance();
    record.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    record.lpszClassName = kClassName;
    return RegisterClassExW(&record) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

void InitControls() {
    INITCOMMONCONTROLSEX classes{};
    classes.dwSize = sizeof classes;
    classes.dwICC = ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_TREEVIEW_CLASSES |
                    ICC_TAB_CLASSES | ICC_BAR_CLASSES;
    InitCommonControlsEx(&classes);
}

}  // namespace

Viewer::Viewer(HWND host, const std::wstring& path, int showFlags)
    : path_(path),
      kind_(DecideDocumentKind(path)),
      mayTakeFocus_(MayTakeFocus(host, showFlags)),
      settings_(CaptureViewSettings()),
      editMode_(settings_.startsInEditMode) {}

HWND Viewer::Open(HWND host, const std::wstring& path, int showFlags) {
    const std::shared_ptr<Viewer> viewer(new Viewer(host, path, showFlags));
    viewer->self_ = viewer;
    bool made = false;
    try {
        made = viewer->CreateWindows(host);
    } catch (const std::exception&) {  // out of memory; what was made goes below
    }
    if (made) {
        return viewer->window_;
    }
    if (viewer->window_ != nullptr) {
        DestroyWindow(viewer->window_);
    }
    viewer->self_.reset();
    return nullptr;
}

std::shared_ptr<Viewer> Viewer::Of(HWND window) {
    constexpr int kLongestName = 32;
    wchar_t name[kLongestName] = {};
    GetClassNameW(window, name, kLongestName);
    const auto owner = reinterpret_cast<HINSTANCE>(GetClassLongPtrW(window, GCLP_HMODULE));
    // Another copy of the module has a class of the same name with records of its own.
    if (std::wstring_view(name) != kClassName || owner != OwnInstance()) {
        return nullptr;
    }
    auto* viewer = reinterpret_cast<Viewer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return viewer != nullptr ? viewer->shared_from_this() : nullptr;
}

void Viewer::UnregisterClasses() noexcept {
    UnregisterClassW(kClassName, OwnInstance());
    SourceView::UnregisterWindowClass();
    HelpWindow::UnregisterWindowClass();
}

bool Viewer::CreateWindows(HWND host) {
    InitControls();
    if (!RegisterViewerClass(&WindowProc)) {
        return false;
    }
    (void)SourceView::RegisterWindowClass();  // without it there is no source view, and no more
    const Rect area = ClientRect(host);
    window_ = CreateWindowExW(WS_EX_CONTROLPARENT | WS_EX_NOPARENTNOTIFY, kClassName, L"rowlark",
                              WS_CHILD | WS_CLIPCHILDREN, 0, 0, area.width, area.height, host,
                              nullptr, OwnInstance(), nullptr);
    if (window_ == nullptr) {
        return false;
    }
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    const int dpi = static_cast<int>(GetDpiForWindow(window_));
    dpi_ = dpi != 0 ? dpi : kBaseDpi;
    if (!CreateControls()) {
        return false;
    }
    UpdateStatusBar();
    Relayout();
    ShowWindow(window_, SW_SHOW);
    createdAt_ = GetTickCount64();
    return SetTimer(window_, static_cast<UINT_PTR>(TimerId::StartLoad), kLoadDelay, nullptr) != 0;
}

bool Viewer::CreateControls() {
    constexpr DWORD kPlaceholderStyle = WS_VISIBLE | SS_CENTER | SS_CENTERIMAGE | SS_NOPREFIX;
    placeholder_ =
        CreateControl(window_, L"STATIC", L"Loading...", kPlaceholderStyle, kPlaceholderId);
    if (placeholder_ == nullptr || !grid_.Create(window_, settings_.gridLines, *this) ||
        !tabs_.Create(window_) || !pane_.Create(window_)) {
        return false;
    }
    if (kind_ != DocumentKind::Csv && !tree_.Create(window_, *this)) {
        return false;
    }
    (void)source_.Create(window_);  // the viewer does without
    filters_.Attach(window_, *this);
    RebuildFonts();
    SetWindowTheme(grid_.Header(), L"", L"");
    LoadTheme(settings::CurrentTheme());
    if (!status_.Create(window_)) {
        return false;
    }
    ApplyTheme();
    BuildMenus();
    WatchChildren();
    return true;
}

// Every child's messages pass here first. That keeps the viewer's object, and with it the child's
// own part of it, alive for as long as any of its messages is being worked on.
void Viewer::WatchChildren() {
    for (HWND child : {grid_.Window(), tree_.Window(), tabs_.Window(), pane_.Window(),
                       source_.Window(), status_.Window()}) {
        if (child == nullptr) {
            continue;
        }
        const auto ask = [this](HWND window, const Message& in) -> Answer {
            const std::shared_ptr<Viewer> alive = weak_from_this().lock();
            if (alive == nullptr) {
                return std::nullopt;
            }
            if (const Answer own = OnChildMessage(window, in)) {
                return own;
            }
            return DefSubclassProc(window, in.id, in.wparam, in.lparam);
        };
        watches_.emplace_back(child, ask);
    }
}

// The controls are gone by now, with the window.
void Viewer::TearDown() noexcept {
    worker_.Abandon();
    worker_.Join();
    pending_.reset();
    help_.Close();
    KillTimer(window_, static_cast<UINT_PTR>(TimerId::StartLoad));
    KillTimer(window_, static_cast<UINT_PTR>(TimerId::PendingFilter));
    window_ = nullptr;
    loaded_ = false;
    self_.reset();  // whoever is calling still holds one
}

void Viewer::Close() {
    if (AskToSave(SaveReason::Closing) && !IsGone()) {
        DestroyWindow(window_);
    }
}

}  // namespace rl
