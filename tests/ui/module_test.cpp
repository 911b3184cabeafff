// The module as a file: what it exports, and that it comes and goes cleanly.
#include <gtest/gtest.h>

#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

TEST(Module, ExportsAllSevenFunctions) {
    const UiHost host;

    EXPECT_TRUE(host.Module().IsLoaded());
}

TEST(Module, GoesWhenTheHostLetsGo) {
    UiHost host;
    const std::wstring file = host.ModuleFile().wstring();
    ASSERT_NE(GetModuleHandleW(file.c_str()), nullptr);

    host.Unload();

    EXPECT_EQ(GetModuleHandleW(file.c_str()), nullptr);
}

}  // namespace

}  // namespace rl::test
