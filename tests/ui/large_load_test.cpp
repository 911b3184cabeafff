// Files so large that their memory is prepared by threads of its own, which must go with the load.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

/// A node for each two bytes: 36 MB of them.
std::string ManyNodes() {
    std::string json = "[0";
    while (json.size() < 2'000'000) {
        json += ",0";
    }
    return json + "]";
}

DWORD KernelHandles() {
    DWORD count = 0;
    return GetProcessHandleCount(GetCurrentProcess(), &count) ? count : 0;
}

TEST(LargeLoad, GivesItsThreadsBackWhetherItIsWaitedForOrNot) {
    UiHost host;
    const std::wstring file = host.Write(L"many.json", ManyNodes());
    const auto openAndClose = [&](bool waits) {
        const Viewer viewer = host.Start(file);
        if (waits) {
            ASSERT_TRUE(PumpUntil([&] { return viewer.RowCount() > 1; }));
        } else {
            PumpIdle();
        }
        host.Close(viewer);
    };
    openAndClose(true);  // what is made once for the process is made here
    const DWORD before = KernelHandles();

    constexpr DWORD kRounds = 12;
    for (DWORD round = 0; round < kRounds; ++round) {
        openAndClose(round % 2 == 0);
    }

    EXPECT_LT(KernelHandles(), before + kRounds);
}

TEST(LargeLoad, LetsTheModuleGoAndComeAgain) {
    for (int round = 0; round < 3; ++round) {
        UiHost host;
        const std::filesystem::path module = host.ModuleFile();
        const Viewer viewer = host.Start(host.Write(L"many.json", ManyNodes()));
        if (round > 0) {
            ASSERT_TRUE(PumpUntil([&] { return viewer.RowCount() > 1; }));
        }
        host.Close(viewer);
        host.Unload();
        EXPECT_EQ(GetModuleHandleW(module.c_str()), nullptr) << round;
    }
}

}  // namespace

}  // namespace rl::test
