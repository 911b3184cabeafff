#include "tests/ui/support/ui_host.h"
#include "tests/support/test_paths.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/pump.h"

namespace rl::test {

namespace fs = std::filesystem;

namespace {

constexpr const wchar_t* kHostClass = L"RowlarkTestHost";
constexpr ULONGLONG kKeyGuard = 600;  // milliseconds; the viewer's own is 500

std::vector<WPARAM> handedKeys;
LPARAM lastKeyData = 0;

LRESULT CALLBACK HostProc(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_KEYDOWN) {
        handedKeys.push_back(wparam);
        lastKeyData = lparam;
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

void RegisterHostClass() {
    WNDCLASSW record{};
    record.lpfnWndProc = &HostProc;
    record.hInstance = GetModuleHandleW(nullptr);
    record.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    record.hbrBackground = static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH));
    record.lpszClassName = kHostClass;
    RegisterClassW(&record);  // fails from the second time on, which is fine
}

HWND MakeWindow(DWORD style, HWND parent, int width, int height) {
    RECT area{0, 0, width, height};
    AdjustWindowRect(&area, style, FALSE);
    return CreateWindowExW(0, kHostClass, L"test host", style | WS_VISIBLE | WS_CLIPCHILDREN,
                           parent == nullptr ? 20 : 0, parent == nullptr ? 20 : 0,
                           area.right - area.left, area.bottom - area.top, parent, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

fs::path BuiltModule() {
    return test::BuildRoot() / L"host" / L"rowlark.wlx64";
}

}  // namespace

UiHost::UiHost(const HostSetup& setup) {
    RegisterHostClass();
    handedKeys.clear();
    tools::WriteBytes(IniFile(), "[rowlark]\n" + setup.ini);
    module_ =
        std::make_unique<tools::PluginModule>(tools::CopyModule(BuiltModule(), folder_.Path()));
    if (!module_->IsLoaded()) {
        ADD_FAILURE() << "the module cannot be loaded; is it built?";
        std::exit(EXIT_FAILURE);
    }
    InstallFakes(module_->Handle());
    frame_ = MakeWindow(WS_OVERLAPPEDWINDOW, nullptr, setup.width, setup.height);
    if (setup.quickView) {
        panel_ = MakeWindow(WS_CHILD, frame_, setup.width, setup.height);
    } else if (setup.popup) {
        panel_ = MakeWindow(WS_POPUP, frame_, setup.width, setup.height);
    }
    SetForegroundWindow(frame_);
    SetFocus(frame_);
    PumpIdle();
}

UiHost::~UiHost() {
    Unload();
    DestroyWindow(frame_);
    PumpIdle();
}

void UiHost::Unload() {
    TheFakes().boxAnswer = IDNO;
    for (const HWND viewer : viewers_) {
        if (IsWindow(viewer)) {
            module_->Close(viewer);
        }
    }
    viewers_.clear();
    module_->Unload();
}

fs::path UiHost::Write(const std::wstring& name, const std::string& bytes) const {
    const fs::path file = folder_.Path() / name;
    EXPECT_TRUE(tools::WriteBytes(file, bytes)) << file.string();
    return file;
}

Viewer UiHost::Start(const fs::path& file, int showFlags) {
    const HWND window = module_->Open(Parent(), file.wstring(), showFlags);
    EXPECT_NE(window, nullptr) << "no viewer for " << file.string();
    viewers_.push_back(window);
    return Viewer(window);
}

Viewer UiHost::Open(const fs::path& file, int showFlags) {
    const Viewer viewer = Start(file, showFlags);
    EXPECT_TRUE(WaitUntilLoaded(viewer)) << "not shown: " << file.string();
    PumpIdle();
    return viewer;
}

Viewer UiHost::OpenText(const std::string& bytes, const std::wstring& name, int showFlags) {
    return Open(Write(name, bytes), showFlags);
}

bool UiHost::WaitUntilLoaded(const Viewer& viewer) {
    PumpUntil([&] { return viewer.IsLoaded() || !IsWindow(viewer.Window()); });
    return viewer.IsLoaded();
}

bool UiHost::WaitUntilGone(const Viewer& viewer) {
    return PumpUntil([&] { return !IsWindow(viewer.Window()); });
}

void UiHost::PassKeyGuard() {
    TheFakes().clockOffset += kKeyGuard;
}

LPARAM UiHost::LastKeyData() {
    return lastKeyData;
}

std::vector<WPARAM> UiHost::TakeKeys() {
    return std::exchange(handedKeys, {});
}

fs::path UiHost::IniFile() const {
    return folder_.Path() / L"rowlark.ini";
}

fs::path UiHost::ModuleFile() const {
    return folder_.Path() / L"rowlark.wlx64";
}

std::wstring UiHost::IniValue(const wchar_t* key) const {
    wchar_t value[256] = L"";
    GetPrivateProfileStringW(L"rowlark", key, L"?", value, ARRAYSIZE(value), IniFile().c_str());
    return value;
}

void UiHost::Resize(int width, int height) {
    RECT area{0, 0, width, height};
    AdjustWindowRect(&area, WS_OVERLAPPEDWINDOW, FALSE);
    SetWindowPos(frame_, nullptr, 0, 0, area.right - area.left, area.bottom - area.top,
                 SWP_NOMOVE | SWP_NOZORDER);
    if (panel_ != nullptr) {
        SetWindowPos(panel_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    }
    for (const HWND viewer : viewers_) {
        MoveWindow(viewer, 0, 0, width, height, TRUE);
    }
    PumpIdle();
}

}  // namespace rl::test
