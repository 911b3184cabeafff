#include "tools/lister/screenshot.h"

#include "tools/lister/console.h"
#include "tools/lister/module_setup.h"
#include "tools/lister/save_png.h"

namespace rl::tools {

namespace {

constexpr ULONGLONG kLoadDeadline = 120'000;  // milliseconds
constexpr ULONGLONG kSettleTime = 300;        // without a message the window counts as painted
constexpr ULONGLONG kSettleDeadline = 5'000;
constexpr DWORD kPollInterval = 10;

bool DispatchWaiting() {
    bool any = false;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
        any = true;
    }
    return any;
}

void WaitForMessage() {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, kPollInterval, QS_ALLINPUT);
}

bool WaitUntilLoaded(ListerWindow& lister) {
    const ULONGLONG end = GetTickCount64() + kLoadDeadline;
    while (!lister.Viewer().IsLoaded()) {
        if (!lister.Viewer().IsOpen() || GetTickCount64() > end) {
            return false;
        }
        DispatchWaiting();
        WaitForMessage();
    }
    return true;
}

void WaitUntilPainted(HWND window) {
    const ULONGLONG end = GetTickCount64() + kSettleDeadline;
    ULONGLONG quietSince = GetTickCount64();
    while (GetTickCount64() - quietSince < kSettleTime && GetTickCount64() < end) {
        if (DispatchWaiting()) {
            quietSince = GetTickCount64();
        }
        WaitForMessage();
    }
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

int Fail(const std::wstring& reason) {
    PrintError(L"lister: " + reason);
    return 1;
}

}  // namespace

int TakeScreenshot(ListerWindow& lister, const std::wstring& png) {
    if (!WaitUntilLoaded(lister)) {
        return Fail(L"the file was not shown");
    }
    lister.NoticeViewer();
    WaitUntilPainted(lister.Window());
    if (ModuleSetup::MessageBoxCount() > 0) {
        return Fail(L"the plugin showed a message");
    }
    return SavePng(CaptureWindow(lister.Window()), png) ? 0 : Fail(L"cannot write " + png);
}

}  // namespace rl::tools
