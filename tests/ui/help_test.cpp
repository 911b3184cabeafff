// The keyboard help and the font dialogs.
#include <gtest/gtest.h>
#include <windows.h>

// Needs the types of windows.h.
#include <commdlg.h>

#include <functional>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"
#include "tools/common/import_patch.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "a,b\n1,2\n";

HWND FindHelp() {
    return FindWindowW(L"RowlarkHelpDialog", nullptr);
}

TEST(Help, OpensWithF1AndClosesWithEscape) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    Key(VK_F1);

    const HWND help = FindHelp();
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(TextOf(help), L"rowlark 1.1.0 - Keyboard Shortcuts");
    constexpr auto kWanted = static_cast<LONG_PTR>(WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE);
    const LONG_PTR style = GetWindowLongPtrW(help, GWL_STYLE);
    EXPECT_EQ(style & kWanted, kWanted);

    EXPECT_NE(GetWindowLongPtrW(help, GWL_EXSTYLE) & WS_EX_DLGMODALFRAME, 0);

    Key(VK_ESCAPE);
    EXPECT_EQ(FindHelp(), nullptr);
    EXPECT_EQ(GetFocus(), viewer.Grid());
}

TEST(Help, OpensOnlyOnce) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);

    SendMessageW(viewer.Window(), WM_KEYDOWN, VK_F1, 0);
    const HWND first = FindHelp();
    SendMessageW(viewer.Window(), WM_KEYDOWN, VK_F1, 0);

    EXPECT_EQ(FindHelp(), first);
    EXPECT_EQ(FindWindowExW(nullptr, first, L"RowlarkHelpDialog", nullptr), nullptr);
}

TEST(Help, GoesWithItsViewer) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    SendMessageW(viewer.Window(), WM_KEYDOWN, VK_F1, 0);
    ASSERT_NE(FindHelp(), nullptr);

    host.Close(viewer);

    EXPECT_EQ(FindHelp(), nullptr);
}

struct FontRequest {
    DWORD flags = 0;
    LOGFONTW font{};
};

FontRequest request;
LOGFONTW answer;
INT answerPoints = 0;
std::function<void()> whileDialogIsOpen;

BOOL WINAPI AnswerFont(LPCHOOSEFONTW dialog) {
    request = {dialog->Flags, *dialog->lpLogFont};
    if (whileDialogIsOpen) {
        whileDialogIsOpen();
    }
    *dialog->lpLogFont = answer;
    dialog->iPointSize = answerPoints;
    return answerPoints != 0;
}

void WillPick(const UiHost& host, const wchar_t* face, LONG weight, INT tenthsOfPoints) {
    whileDialogIsOpen = {};
    answer = {};
    answer.lfWeight = weight;
    lstrcpynW(answer.lfFaceName, face, LF_FACESIZE);
    answerPoints = tenthsOfPoints;
    tools::PatchImport(host.Module().Handle(), "ChooseFontW", &AnswerFont);
}

TEST(FontDialog, SetsFaceWeightAndSizeOfTheGrid) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    WillPick(host, L"DejaVu Sans", 700, 200);

    Choose(viewer, 5071);

    EXPECT_EQ(request.font.lfFaceName, std::wstring(L"Segoe UI"));
    EXPECT_EQ(request.font.lfHeight, -21);  // 16 points at 96 dots per inch
    EXPECT_EQ(request.flags & CF_FIXEDPITCHONLY, 0u);
    EXPECT_NE(request.flags & CF_NOVERTFONTS, 0u);
    EXPECT_EQ(host.IniValue(L"font"), L"DejaVu Sans");
    EXPECT_EQ(host.IniValue(L"font-weight"), L"7");
    EXPECT_EQ(host.IniValue(L"font-size"), L"20");
}

TEST(FontDialog, StoresTheNormalWeightAsZeroAndKeepsTheSizeInItsLimits) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    WillPick(host, L"DejaVu Sans", 400, 720);

    Choose(viewer, 5071);

    EXPECT_EQ(host.IniValue(L"font-weight"), L"0");
    EXPECT_EQ(host.IniValue(L"font-size"), L"48");
}

TEST(FontDialog, SetsTheSourceFontAndTheCommonSize) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    WillPick(host, L"DejaVu Sans Mono", 400, 120);

    Choose(viewer, 5072);

    EXPECT_NE(request.flags & CF_FIXEDPITCHONLY, 0u);
    EXPECT_EQ(request.font.lfFaceName, std::wstring(L"Consolas"));
    EXPECT_EQ(host.IniValue(L"source-font"), L"DejaVu Sans Mono");
    EXPECT_EQ(host.IniValue(L"font-size"), L"12");
    EXPECT_EQ(host.IniValue(L"font"), L"?");
}

LOGFONTW FontOf(HWND window) {
    LOGFONTW font{};
    const auto handle = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
    GetObjectW(handle, sizeof font, &font);
    return font;
}

TEST(FontDialog, ChangesTheFontsAndWidthsOnView) {
    UiHost host({.ini = "font-size=16\n"});
    const Viewer viewer = host.OpenText(kTable);
    const int width = viewer.Width(0);
    const RECT before = viewer.CellRect(0, 1);
    WillPick(host, L"DejaVu Sans Mono", 600, 300);

    Choose(viewer, 5071);

    const HWND box = GetDlgItem(viewer.Window(), 2000);
    for (const HWND window : {viewer.Grid(), viewer.Pane(), box}) {
        EXPECT_EQ(FontOf(window).lfFaceName, std::wstring(L"DejaVu Sans Mono"));
        EXPECT_EQ(FontOf(window).lfHeight, -40);
        EXPECT_EQ(FontOf(window).lfWeight, 600);
    }
    EXPECT_EQ(FontOf(viewer.Header()).lfWeight, 700);
    EXPECT_GT(viewer.Width(0), width);
    const RECT after = viewer.CellRect(0, 1);
    EXPECT_GT(after.bottom - after.top, before.bottom - before.top);
    EXPECT_EQ(viewer.Place(box).right - viewer.Place(box).left, viewer.Width(0));
}

TEST(FontDialog, OfTheSourceChangesTheSizeOfTheGridButNotItsFace) {
    UiHost host({.ini = "font-size=16\n"});
    const Viewer viewer = host.OpenText(kTable);
    const int width = viewer.Width(0);
    WillPick(host, L"DejaVu Sans Mono", 400, 300);

    Choose(viewer, 5072);

    EXPECT_EQ(FontOf(viewer.Grid()).lfFaceName, std::wstring(L"Segoe UI"));
    EXPECT_EQ(FontOf(viewer.Grid()).lfHeight, -40);
    EXPECT_GT(viewer.Width(0), width);
}

TEST(FontDialog, ReckonsByTheScreenWhateverTheDpiOfTheWindow) {
    UiHost host({.ini = "font-size=16\n"});
    TheFakes().dpi = 192;
    const Viewer viewer = host.OpenText(kTable);
    WillPick(host, L"Segoe UI", 400, 160);

    Choose(viewer, 5071);

    EXPECT_EQ(request.font.lfHeight, -21);  // 16 points at the screen's 96 dots per inch
    EXPECT_EQ(host.IniValue(L"font-size"), L"16");
    EXPECT_EQ(FontOf(viewer.Grid()).lfHeight, -43);
}

TEST(FontDialog, MayBeOpenWhenTheViewerGoes) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    WillPick(host, L"DejaVu Sans", 700, 200);
    whileDialogIsOpen = [&] { host.Close(viewer); };

    Choose(viewer, 5071);

    EXPECT_FALSE(IsWindow(viewer.Window()));
    EXPECT_EQ(host.IniValue(L"font"), L"?");
}

TEST(FontDialog, ChangesNothingWhenCancelled) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    WillPick(host, L"DejaVu Sans", 700, 0);

    Choose(viewer, 5071);

    EXPECT_EQ(host.IniValue(L"font"), L"?");
    EXPECT_EQ(host.IniValue(L"font-size"), L"?");
}

}  // namespace

}  // namespace rl::test
