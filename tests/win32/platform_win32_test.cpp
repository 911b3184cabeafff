#include <gtest/gtest.h>
#include <windows.h>

TEST(PlatformWin32, RunsOnAMachineWithCodePage1252) {
    EXPECT_EQ(GetACP(), 1252u);
}
