// A host may let go of the module while a file is still being read: the code that reads must stay.
#include <gtest/gtest.h>
#include <windows.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

bool IsLoaded(const UiHost& host) {
    return GetModuleHandleW(host.ModuleFile().c_str()) != nullptr;
}

TEST(ModulePin, HoldsTheModuleWhileAWorkerRuns) {
    UiHost host;
    const Viewer viewer = host.Start(host.Write(L"data.csv", "a,b\n1,2\n"));
    TheFakes().readDelay = 500;
    const int readsBefore = TheFakes().reads;
    ASSERT_TRUE(PumpUntil([&] { return TheFakes().reads > readsBefore; }));

    ASSERT_TRUE(FreeLibrary(host.Module().Handle()));
    const bool stayed = IsLoaded(host);
    ASSERT_NE(LoadLibraryW(host.ModuleFile().c_str()), nullptr);  // the host's own reference again

    EXPECT_TRUE(stayed);
    host.Close(viewer);
}

TEST(ModulePin, LetsTheModuleGoOnceTheWorkerHasEnded) {
    UiHost host;
    const std::filesystem::path file = host.ModuleFile();
    host.Close(host.OpenText("a,b\n1,2\n"));
    ASSERT_TRUE(IsLoaded(host));

    host.Unload();

    EXPECT_EQ(GetModuleHandleW(file.c_str()), nullptr);
}

}  // namespace

}  // namespace rl::test
