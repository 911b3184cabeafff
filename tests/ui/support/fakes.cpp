#include "tests/ui/support/fakes.h"

#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <cstdlib>
#include <memory>
#include <utility>

#include "tools/common/import_patch.h"

namespace rl::test {

namespace {

constexpr ULONGLONG kStoppedAt = 1'000'000;  // milliseconds

std::unique_ptr<Fakes> current = std::make_unique<Fakes>();

BOOL WINAPI FakeBeep(UINT sound) {
    current->beeps.push_back(sound);
    return TRUE;
}

int WINAPI FakeMessageBox(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type) {
    current->boxes.push_back({text, caption, type, owner});
    if (current->whileBoxIsOpen) {
        current->whileBoxIsOpen();
    }
    return current->boxAnswer;
}

std::vector<std::wstring> LabelsOf(HMENU menu) {
    std::vector<std::wstring> labels;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t label[256] = L"";
        GetMenuStringW(menu, static_cast<UINT>(i), label, ARRAYSIZE(label), MF_BYPOSITION);
        labels.emplace_back(label);
    }
    return labels;
}

BOOL WINAPI FakeMenu(HMENU menu, UINT, int x, int y, int, HWND, const RECT*) {
    current->menus.push_back({LabelsOf(menu), {x, y}});
    if (current->whileMenuIsOpen) {
        current->whileMenuIsOpen();
    }
    return current->menuAnswer;
}

HINSTANCE WINAPI FakeShell(HWND, LPCWSTR, LPCWSTR file, LPCWSTR, LPCWSTR, INT) {
    current->links.emplace_back(file);
    return reinterpret_cast<HINSTANCE>(static_cast<INT_PTR>(33));  // above 32 means success
}

HCURSOR WINAPI FakeSetCursor(HCURSOR cursor) {
    current->cursors.push_back(cursor);
    return SetCursor(cursor);
}

UINT WINAPI FakeDpi(HWND window) {
    return current->dpi != 0 ? current->dpi : GetDpiForWindow(window);
}

ULONGLONG WINAPI FakeClock() {
    return (current->clockStopped ? kStoppedAt : GetTickCount64()) + current->clockOffset;
}

BOOL WINAPI FakeRead(HANDLE file, LPVOID buffer, DWORD length, LPDWORD read, LPOVERLAPPED over) {
    ++current->reads;
    if (const int delay = current->readDelay; delay > 0) {
        Sleep(static_cast<DWORD>(delay));
    }
    if (current->readFails) {
        SetLastError(ERROR_READ_FAULT);
        return FALSE;
    }
    if (current->readsUntilEnd >= 0 && current->readsUntilEnd-- == 0) {
        *read = 0;
        return TRUE;
    }
    return ReadFile(file, buffer, length, read, over);
}

BOOL WINAPI FakeSize(HANDLE file, PLARGE_INTEGER size) {
    return current->sizeFails ? FALSE : GetFileSizeEx(file, size);
}

BOOL WINAPI FakeInformation(HANDLE file, LPBY_HANDLE_FILE_INFORMATION found) {
    return current->stampFails ? FALSE : GetFileInformationByHandle(file, found);
}

BOOL WINAPI FakeWriteSetting(LPCWSTR section, LPCWSTR key, LPCWSTR value, LPCWSTR file) {
    return current->settingsFail ? FALSE : WritePrivateProfileStringW(section, key, value, file);
}

UINT_PTR WINAPI FakeSetTimer(HWND window, UINT_PTR id, UINT elapse, TIMERPROC procedure) {
    current->timers.push_back({id, elapse});
    return current->timersStandStill ? id : SetTimer(window, id, elapse, procedure);
}

HDWP WINAPI FakeDefer(HDWP batch, HWND window, HWND after, int x, int y, int width, int height,
                      UINT flags) {
    const bool isFilterBox = GetDlgCtrlID(window) >= 2000;
    return isFilterBox && current->filterBatchFails
               ? nullptr
               : DeferWindowPos(batch, window, after, x, y, width, height, flags);
}

// Memory that runs out at one moment: texts are measured in the middle of showing a table.
bool nextAllocationFails = false;

BOOL WINAPI FakeMeasure(HDC dc, LPCWSTR text, int length, LPSIZE size) {
    nextAllocationFails |= std::exchange(current->memoryFailsAfterMeasuring, false);
    return GetTextExtentPoint32W(dc, text, length, size);
}

void* FakeMalloc(size_t size) {
    const bool counted = current->mallocsUntilFailure >= 0 && current->mallocsUntilFailure-- == 0;
    const bool fails = std::exchange(nextAllocationFails, false) |
                       std::exchange(current->memoryFailsOnce, false) | counted;
    return fails ? nullptr : std::malloc(size);
}

BOOL WINAPI FakeSubclass(HWND window, SUBCLASSPROC procedure, UINT_PTR id, DWORD_PTR data) {
    return !current->failing.contains("SetWindowSubclass") &&
           SetWindowSubclass(window, procedure, id, data);
}

/// Notes the call; true when it is to fail.
bool Fails(const char* function) {
    current->writes.emplace_back(function);
    SetLastError(ERROR_ACCESS_DENIED);
    return current->failing.contains(function);
}

UINT WINAPI FakeTemporary(LPCWSTR folder, LPCWSTR prefix, UINT unique, LPWSTR name) {
    return Fails("GetTempFileNameW") ? 0 : GetTempFileNameW(folder, prefix, unique, name);
}

BOOL WINAPI FakeWrite(HANDLE file, LPCVOID bytes, DWORD size, LPDWORD done, LPOVERLAPPED over) {
    return Fails("WriteFile") ? FALSE : WriteFile(file, bytes, size, done, over);
}

BOOL WINAPI FakeFlush(HANDLE file) {
    return Fails("FlushFileBuffers") ? FALSE : FlushFileBuffers(file);
}

BOOL WINAPI FakeReplace(LPCWSTR to, LPCWSTR from, LPCWSTR backup, DWORD flags, LPVOID a, LPVOID b) {
    return Fails("ReplaceFileW") ? FALSE : ReplaceFileW(to, from, backup, flags, a, b);
}

BOOL WINAPI FakeMove(LPCWSTR from, LPCWSTR to, DWORD flags) {
    return Fails("MoveFileExW") ? FALSE : MoveFileExW(from, to, flags);
}

HRESULT WINAPI FakeStyle(HWND window, LPCWSTR style, LPCWSTR) {
    current->styles.push_back({GetDlgCtrlID(window), style});
    return S_OK;
}

}  // namespace

Fakes& TheFakes() {
    return *current;
}

void InstallFakes(HMODULE module) {
    current = std::make_unique<Fakes>();
    tools::PatchImport(module, "MessageBeep", &FakeBeep);
    tools::PatchImport(module, "MessageBoxW", &FakeMessageBox);
    tools::PatchImport(module, "TrackPopupMenu", &FakeMenu);
    tools::PatchImport(module, "ShellExecuteW", &FakeShell);
    tools::PatchImport(module, "SetCursor", &FakeSetCursor);
    tools::PatchImport(module, "GetDpiForWindow", &FakeDpi);
    tools::PatchImport(module, "GetTickCount64", &FakeClock);
    tools::PatchImport(module, "ReadFile", &FakeRead);
    tools::PatchImport(module, "GetFileSizeEx", &FakeSize);
    tools::PatchImport(module, "GetFileInformationByHandle", &FakeInformation);
    tools::PatchImport(module, "SetWindowTheme", &FakeStyle);
    tools::PatchImport(module, "WritePrivateProfileStringW", &FakeWriteSetting);
    tools::PatchImport(module, "SetTimer", &FakeSetTimer);
    tools::PatchImport(module, "DeferWindowPos", &FakeDefer);
    tools::PatchImport(module, "GetTextExtentPoint32W", &FakeMeasure);
    tools::PatchImport(module, "malloc", &FakeMalloc);
    tools::PatchImport(module, "GetTempFileNameW", &FakeTemporary);
    tools::PatchImport(module, "WriteFile", &FakeWrite);
    tools::PatchImport(module, "FlushFileBuffers", &FakeFlush);
    tools::PatchImport(module, "ReplaceFileW", &FakeReplace);
    tools::PatchImport(module, "MoveFileExW", &FakeMove);
    tools::PatchImport(module, "SetWindowSubclass", &FakeSubclass);
}

}  // namespace rl::test
