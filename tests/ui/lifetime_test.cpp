// Viewers come and go, several at once, at the worst moments, and leave nothing behind.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/handle_counts.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "a,b\n1,2\n3,4\n";

bool IsClassKnown(HMODULE module, const wchar_t* name) {
    WNDCLASSW record{};
    return GetClassInfoW(module, name, &record) != 0;
}

TEST(Lifetime, ShowsTwoFilesAtOnceAndKeepsThemApart) {
    UiHost host;
    const Viewer first = host.OpenText(kTable, L"first.csv");
    const Viewer second = host.OpenText("x;y;z\n1;2;3\n", L"second.csv");

    EXPECT_EQ(first.RowCount(), 2);
    EXPECT_EQ(second.RowCount(), 1);
    EXPECT_EQ(first.Status(1), L" Delimiter: Auto (,)");
    EXPECT_EQ(second.Status(1), L" Delimiter: Auto (;)");

    host.Close(first);
    EXPECT_FALSE(IsWindow(first.Window()));
    EXPECT_EQ(second.Row(0), (Texts{L"1", L"2", L"3"}));
}

TEST(Lifetime, TakesItsWindowClassesBackWhenTheModuleGoes) {
    UiHost host;
    const HMODULE module = host.Module().Handle();
    const Viewer viewer = host.OpenText(kTable);
    EXPECT_TRUE(IsClassKnown(module, L"RowlarkViewer"));
    host.Close(viewer);

    host.Unload();

    EXPECT_FALSE(IsClassKnown(module, L"RowlarkViewer"));
    EXPECT_FALSE(IsClassKnown(module, L"RowlarkSourceView"));
}

TEST(Lifetime, WorksAgainAfterBeingUnloaded) {
    for (int round = 0; round < 2; ++round) {
        UiHost host;
        const Viewer viewer = host.OpenText(kTable);
        EXPECT_EQ(viewer.RowCount(), 2);
    }
}

TEST(Lifetime, ClosesWhileTheFileIsBeingRead) {
    UiHost host;
    const Viewer viewer = host.Start(host.Write(L"data.csv", kTable));
    TheFakes().readDelay = 400;
    const int readsBefore = TheFakes().reads;
    ASSERT_TRUE(PumpUntil([&] { return TheFakes().reads > readsBefore; }));

    host.Close(viewer);

    EXPECT_FALSE(IsWindow(viewer.Window()));
    PumpIdle();
    EXPECT_TRUE(TheFakes().boxes.empty());
}

TEST(Lifetime, ClosesBeforeTheLoadHasEvenStarted) {
    UiHost host;
    const Viewer viewer = host.Start(host.Write(L"data.csv", kTable));

    host.Close(viewer);

    EXPECT_FALSE(IsWindow(viewer.Window()));
}

TEST(Lifetime, GoesWithAHostWindowThatIsDestroyedWhileLoading) {
    UiHost host({.quickView = true});
    const Viewer viewer = host.Start(host.Write(L"data.csv", kTable));
    TheFakes().readDelay = 300;
    const int readsBefore = TheFakes().reads;
    ASSERT_TRUE(PumpUntil([&] { return TheFakes().reads > readsBefore; }));

    DestroyWindow(host.Parent());

    EXPECT_FALSE(IsWindow(viewer.Window()));
}

TEST(Lifetime, DestroysAWindowThatIsNoViewerWhenAskedToCloseIt) {
    UiHost host;
    const HWND stranger = CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 10, 10, host.Frame(),
                                          nullptr, nullptr, nullptr);

    host.Module().Close(stranger);

    EXPECT_FALSE(IsWindow(stranger));
}

TEST(Lifetime, IgnoresACloseOfSomethingThatIsNoWindow) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    host.Close(viewer);

    host.Close(viewer);

    EXPECT_FALSE(IsWindow(viewer.Window()));
}

TEST(Soak, GivesEveryHandleBack) {
    UiHost host;
    const auto openAndClose = [&] { host.Close(host.OpenText(kTable)); };
    openAndClose();  // what is made once for the process is made here
    const HandleCounts before = CountHandles();

    for (int round = 0; round < 20; ++round) {
        openAndClose();
    }

    const HandleCounts after = CountHandles();
    EXPECT_EQ(after.gdi, before.gdi);
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_EQ(after.menus, before.menus);
}

TEST(Soak, GivesEveryHandleBackAfterAFailedLoad) {
    UiHost host;
    const auto fail = [&] {
        EXPECT_TRUE(UiHost::WaitUntilGone(host.Start(L"C:\\no such folder\\data.csv")));
    };
    fail();
    const HandleCounts before = CountHandles();

    for (int round = 0; round < 10; ++round) {
        fail();
    }

    EXPECT_EQ(CountHandles(), before);
}

TEST(Soak, CountsWhatIsHeld) {
    const UiHost host;  // the first window of a thread brings a hidden one of the system along
    const HandleCounts before = CountHandles();
    const HFONT font = CreateFontW(20, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Arial");
    const HMENU menu = CreateMenu();
    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                        nullptr, nullptr);

    const HandleCounts during = CountHandles();

    EXPECT_EQ(during.gdi, before.gdi + 1);
    EXPECT_EQ(during.menus, before.menus + 1);
    EXPECT_EQ(during.windows, before.windows + 1);
    DeleteObject(font);
    DestroyMenu(menu);
    DestroyWindow(window);
}

}  // namespace

}  // namespace rl::test
