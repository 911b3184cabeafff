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

// Where the loader looks for a module's own: at number 2.
TEST(Module, AsksForVersion6OfTheCommonControls) {
    const UiHost host;
    HMODULE module = host.Module().Handle();
    HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(2), RT_MANIFEST);
    ASSERT_NE(found, nullptr);
    const auto* bytes = static_cast<const char*>(LockResource(LoadResource(module, found)));
    const std::string manifest(bytes, SizeofResource(module, found));
    EXPECT_NE(manifest.find("Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\""),
              std::string::npos);
}

}  // namespace

}  // namespace rl::test
