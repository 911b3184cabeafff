// The Source tab of a document that is being edited, and of large ones.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/ui/support/editing.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/source_tab.h"
#include "tests/ui/support/ui_host.h"
#include "tools/common/import_patch.h"

namespace rl::test {

namespace {

constexpr const char* kEditing = "start-mode=edit\n";

void SwitchTab() {
    Key(VK_TAB, {VK_CONTROL});
}

int RowOf(const Viewer& viewer, const std::wstring& name) {
    for (int row = 0; row < viewer.RowCount(); ++row) {
        if (viewer.Cell(row, 0) == name) {
            return row;
        }
    }
    ADD_FAILURE() << "no such row";
    return 0;
}

TEST(SourceOfEdits, ShowsWhatHasBeenChangedOnTheDataTab) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText("a,b\n1,2\n3,4\n");
    SwitchTab();
    SwitchTab();

    EditCell(viewer, 0, 1, L"x");
    SwitchTab();

    EXPECT_EQ(TextOf(viewer.Source()), L"a,b\n1,x\n3,4\n");
}

TEST(SourceOfEdits, IsTheWholeJsonAsItWouldBeSaved) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText("{\"n\": 1} // one\n", L"data.json");

    EditCell(viewer, RowOf(viewer, L"n"), 1, L"2");
    SwitchTab();

    EXPECT_EQ(TextOf(viewer.Source()), L"{\r\n  \"n\": 2\r\n}");
}

TEST(SourceOfEdits, IsTheXmlWithItsChange) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText("<r>\n <b >one</b ><!-- c -->\n</r>\n", L"data.xml");
    Key(VK_MULTIPLY);  // opens all

    EditCell(viewer, RowOf(viewer, L"#COMMENT"), 1, L" d ");
    SwitchTab();

    EXPECT_EQ(TextOf(viewer.Source()), L"<r>\n <b >one</b ><!-- d -->\n</r>\n");
}

TEST(SourceOfEdits, LocatesNothingWhileTheyAreUnsaved) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText("a,b\n1,2\n3,4\n");
    EditCell(viewer, 0, 1, L"longer");
    Click(viewer.Grid(), viewer.CellCenter(1, 0));

    Key('L', {VK_CONTROL});

    EXPECT_EQ(viewer.CurrentTab(), 1);
    EXPECT_EQ(Selection(viewer), (Ends{0, 0}));
}

TEST(SourceOfEdits, LocatesInASavedTableAgain) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText("a,b\n1,2\n3,4\n");
    EditCell(viewer, 0, 1, L"longer");
    Key('S', {VK_CONTROL});
    Click(viewer.Grid(), viewer.CellCenter(1, 0));

    Key('L', {VK_CONTROL});

    EXPECT_EQ(SelectedText(viewer), L"3,4");
}

TEST(SourceOfEdits, LocatesNothingInJsonThatWasSavedWithThem) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText("{\"n\": 1, \"m\": 2}", L"data.json");
    EditCell(viewer, RowOf(viewer, L"n"), 1, L"100");
    Key('S', {VK_CONTROL});
    Click(viewer.Grid(), viewer.CellCenter(RowOf(viewer, L"m"), 1));

    Key('L', {VK_CONTROL});

    EXPECT_EQ(viewer.CurrentTab(), 1);
    EXPECT_EQ(Selection(viewer), (Ends{0, 0}));
    EXPECT_EQ(TextOf(viewer.Source()), L"{\r\n  \"n\": 100,\r\n  \"m\": 2\r\n}");
}

TEST(SourceOfLargeFiles, FindsTheLastOfTwoMillionNodes) {
    std::string bytes = "[0";
    for (int node = 1; node < 1'999'998; ++node) {
        bytes += node % 20 == 0 ? ",\n1" : ",1";
    }
    bytes += ",\n77]";
    UiHost host({.ini = "outline-expand-max=0\n"});
    const Viewer viewer = host.OpenText(bytes, L"data.json");
    ASSERT_EQ(viewer.RowCount(), 2'000'000);
    Click(viewer.Grid(), viewer.CellCenter(0, 1));
    Key(VK_DOWN, {VK_CONTROL});

    Key('L', {VK_CONTROL});

    EXPECT_EQ(SelectedText(viewer), L"77");
    EXPECT_GT(GetScrollPos(viewer.Source(), SB_VERT), 99'900);
}

// What one picture costs

int textCalls = 0;
int copies = 0;
decltype(&ExtTextOutW) realTextOut = nullptr;
decltype(&BitBlt) realBitBlt = nullptr;

BOOL WINAPI CountingTextOut(HDC dc, int x, int y, UINT options, const RECT* area, LPCWSTR text,
                            UINT units, const INT* advances) {
    textCalls += units > 0 ? 1 : 0;  // without text it fills an area
    return realTextOut(dc, x, y, options, area, text, units, advances);
}

BOOL WINAPI CountingBitBlt(HDC to, int x, int y, int width, int height, HDC from, int fromX,
                           int fromY, DWORD operation) {
    ++copies;
    return realBitBlt(to, x, y, width, height, from, fromX, fromY, operation);
}

TEST(SourcePicture, TakesOneCallForEachRunAndOneCopyToTheScreen) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,bb\n1,2\n" + std::string(5000, '\n') + "a,b\n");
    ShowSource(viewer);
    const HMODULE module = host.Module().Handle();
    realTextOut = tools::PatchImport(module, "ExtTextOutW", &CountingTextOut);
    realBitBlt = tools::PatchImport(module, "BitBlt", &CountingBitBlt);
    ASSERT_NE(realTextOut, nullptr);
    ASSERT_NE(realBitBlt, nullptr);
    textCalls = copies = 0;

    RedrawWindow(viewer.Source(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);

    RECT client{};
    GetClientRect(viewer.Source(), &client);
    const int lines = client.bottom / CellSize(viewer).cy + 1;
    EXPECT_EQ(textCalls, lines + 6);  // the numbers; three runs in each of two lines
    EXPECT_EQ(copies, 1);
    tools::PatchImport(module, "ExtTextOutW", realTextOut);
    tools::PatchImport(module, "BitBlt", realBitBlt);
}

decltype(&CreateWindowExW) realCreate = nullptr;

HWND WINAPI CreateNoSource(DWORD extended, LPCWSTR type, LPCWSTR text, DWORD style, int x, int y,
                           int width, int height, HWND parent, HMENU menu, HINSTANCE owner,
                           LPVOID data) {
    const bool isName = reinterpret_cast<ULONG_PTR>(type) > 0xFFFF;
    if (isName && std::wstring_view(type) == L"RowlarkSourceView") {
        return nullptr;
    }
    return realCreate(extended, type, text, style, x, y, width, height, parent, menu, owner, data);
}

TEST(MissingSourceView, LeavesTheRestOfTheViewerAsItIs) {
    UiHost host;
    const HMODULE module = host.Module().Handle();
    realCreate = tools::PatchImport(module, "CreateWindowExW", &CreateNoSource);
    ASSERT_NE(realCreate, nullptr);

    const Viewer viewer = host.OpenText("a,b\n1,2\n");

    EXPECT_EQ(viewer.Source(), nullptr);
    EXPECT_EQ(viewer.Cell(0, 1), L"2");
    Click(viewer.Grid(), viewer.CellCenter(0, 0));
    Key('L', {VK_CONTROL});
    EXPECT_EQ(viewer.CurrentTab(), 0);
    SwitchTab();
    EXPECT_EQ(viewer.CurrentTab(), 1);
    Click(viewer.Tabs(), viewer.TabCenter(0));
    EXPECT_EQ(viewer.CurrentTab(), 0);
    EXPECT_EQ(GetFocus(), viewer.Grid());
    tools::PatchImport(module, "CreateWindowExW", realCreate);
}

}  // namespace

}  // namespace rl::test
