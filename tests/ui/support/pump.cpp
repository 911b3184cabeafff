#include "tests/ui/support/pump.h"

#include <windows.h>

namespace rl::test {

namespace {

constexpr int kQuietTime = 30;  // milliseconds
constexpr int kIdleDeadline = 3'000;

void Wait(int milliseconds) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(milliseconds), QS_ALLINPUT);
}

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

}  // namespace

bool PumpUntil(const std::function<bool()>& done, int deadline) {
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(deadline);
    while (true) {
        DispatchWaiting();
        if (done()) {
            return true;
        }
        if (GetTickCount64() > end) {
            return false;
        }
        Wait(5);
    }
}

void PumpIdle() {
    const ULONGLONG end = GetTickCount64() + kIdleDeadline;
    ULONGLONG quietSince = GetTickCount64();
    while (GetTickCount64() - quietSince < kQuietTime && GetTickCount64() < end) {
        if (DispatchWaiting()) {
            quietSince = GetTickCount64();
        }
        Wait(5);
    }
}

void PumpFor(int milliseconds) {
    PumpUntil([] { return false; }, milliseconds);
}

}  // namespace rl::test
