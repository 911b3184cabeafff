#include <gtest/gtest.h>
#include <windows.h>

TEST(Module, LoadsFromTheBuildFolder) {
    HMODULE module = LoadLibraryW(L"" ROWLARK_BINARY_DIR "/host/rowlark.wlx64");
    ASSERT_NE(module, nullptr);
    FreeLibrary(module);
}
