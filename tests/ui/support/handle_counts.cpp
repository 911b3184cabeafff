// The call meant for this, GetGuiResources, answers 0 under Wine, so the system's table of GDI
// handles is walked, windows are enumerated, and every possible menu handle is asked for.
#include "tests/ui/support/handle_counts.h"

#include <windows.h>

#include <cstdint>
#include <cstring>

namespace rl::test {

namespace {

/// One entry of the table that the process block points to; the same layout on Windows and Wine.
struct GdiEntry {
    std::uint64_t object;
    std::uint32_t owner;  // the process in the lower half
    std::uint16_t unique;
    std::uint8_t type;  // 0 for a free entry
    std::uint8_t flags;
    std::uint64_t user;
};
static_assert(sizeof(GdiEntry) == 24);

constexpr int kGdiEntries = 0x4000;
constexpr std::size_t kGdiTableInProcessBlock = 0xF8;
constexpr UINT_PTR kFirstMenu = 0x20;
constexpr UINT_PTR kLastMenu = 0xFFEF;

const std::uint8_t* ReadPointer(const std::uint8_t* from) {
    const std::uint8_t* pointer = nullptr;
    std::memcpy(&pointer, from, sizeof pointer);
    return pointer;
}

const std::uint8_t* ProcessBlock() {
    using Function = const std::uint8_t*(__stdcall*)();
    const HMODULE system = GetModuleHandleW(L"ntdll.dll");
    void* const function = reinterpret_cast<void*>(GetProcAddress(system, "RtlGetCurrentPeb"));
    return reinterpret_cast<Function>(function)();
}

int CountGdi() {
    const auto* table =
        reinterpret_cast<const GdiEntry*>(ReadPointer(ProcessBlock() + kGdiTableInProcessBlock));
    int count = 0;
    for (int i = 0; i < kGdiEntries; ++i) {
        count += table[i].type != 0;
    }
    return count;
}

BOOL CALLBACK CountOne(HWND window, LPARAM counter) {
    int& count = *reinterpret_cast<int*>(counter);
    ++count;
    EnumChildWindows(
        window,
        [](HWND, LPARAM inner) -> BOOL {
            ++*reinterpret_cast<int*>(inner);
            return TRUE;
        },
        counter);
    return TRUE;
}

int CountWindows() {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), &CountOne, reinterpret_cast<LPARAM>(&count));
    return count;
}

int CountMenus() {
    int count = 0;
    for (UINT_PTR handle = kFirstMenu; handle < kLastMenu; handle += 2) {
        count += IsMenu(reinterpret_cast<HMENU>(handle)) != 0;
    }
    return count;
}

}  // namespace

HandleCounts CountHandles() {
    return {.gdi = CountGdi(), .windows = CountWindows(), .menus = CountMenus()};
}

}  // namespace rl::test
