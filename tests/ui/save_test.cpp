// Saving delimited text, and the question before edits are lost.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/ui/support/editing.h"
#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

using namespace std::string_literals;

constexpr const char* kTable = "name,city\nann,rome\nbob,oslo\ncid,bern\n";
constexpr const char* kEdited = "name,city\nann,rome\nbob,paris\ncid,bern\n";
constexpr const char* kEditing = "start-mode=edit\n";
constexpr int kSave = 5041;

/// A file open in edit mode.
struct Opened {
    explicit Opened(const std::string& bytes = kTable, const std::wstring& name = L"data.csv",
                    const std::string& ini = {})
        : host({.ini = kEditing + ini}), file(host.Write(name, bytes)), viewer(host.Open(file)) {}

    void Edit() const { EditCell(viewer, 1, 1, L"paris"); }
    void RequestClose() const {
        PostMessageW(viewer.Window(), WM_CLOSE, 0, 0);
        PumpIdle();
    }
    [[nodiscard]] bool IsAlive() const { return IsWindow(viewer.Window()) != FALSE; }
    [[nodiscard]] std::string Bytes() const { return BytesOf(file); }

    UiHost host;
    std::filesystem::path file;
    Viewer viewer;
};

void Reload(const Viewer& viewer, int command) {
    Choose(viewer, command);
    PumpIdle();
}

// --- Saving.

TEST(Save, WritesTheFileByKeyAndByCommand) {
    const Opened it;
    it.Edit();
    Key('S', {VK_CONTROL});
    EXPECT_EQ(it.Bytes(), kEdited);
    EXPECT_EQ(it.viewer.Status(4), L" 2:2 EDIT");
    EditCell(it.viewer, 0, 0, L"eve");
    Choose(it.viewer, kSave);
    EXPECT_EQ(it.Bytes(), "name,city\neve,rome\nbob,paris\ncid,bern\n");
    EXPECT_TRUE(TheFakes().boxes.empty());
    EXPECT_EQ(TemporaryFilesBeside(it.file), 0);
}

TEST(Save, WritesNothingThatIsNotModified) {
    const Opened it;
    Key('E', {VK_CONTROL});
    Key('E', {VK_CONTROL});
    OpenEditor(it.viewer, 0, 0);
    Key(VK_RETURN);
    Key('S', {VK_CONTROL});
    Choose(it.viewer, kSave);
    EXPECT_TRUE(TheFakes().writes.empty());
    EXPECT_EQ(it.Bytes(), kTable);
}

TEST(Save, StoresTheOpenEditorFirst) {
    const Opened it;
    OpenEditor(it.viewer, 1, 1);
    Fill(it.viewer, L"paris");
    Key('S', {VK_CONTROL});
    EXPECT_EQ(it.Bytes(), kEdited);
    EXPECT_EQ(Editor(it.viewer), nullptr);
}

TEST(Save, GoesThroughItsStepsOnce) {
    const Opened it;
    it.Edit();
    Key('S', {VK_CONTROL});
    EXPECT_EQ(TheFakes().writes, (std::vector<std::string>{"GetTempFileNameW", "WriteFile",
                                                           "FlushFileBuffers", "ReplaceFileW"}));
}

TEST(Save, ShowsTheWaitCursor) {
    const Opened it;
    it.Edit();
    TheFakes().cursors.clear();
    Key('S', {VK_CONTROL});
    EXPECT_EQ(std::ranges::count(TheFakes().cursors, LoadCursorW(nullptr, IDC_WAIT)) > 0, true);
}

TEST(Save, StartsFilterAndSortAnewAndStaysOnItsRow) {
    const Opened it;
    Click(it.viewer.Header(), it.viewer.HeaderCenter(0));
    Click(it.viewer.Header(), it.viewer.HeaderCenter(0));
    SetFocus(GetDlgItem(it.viewer.Window(), 2001));
    Type(L"o");
    ASSERT_EQ(it.viewer.RowCount(), 2);
    EditCell(it.viewer, 0, 1, L"oxford");
    Key('S', {VK_CONTROL});
    EXPECT_EQ(it.viewer.RowCount(), 3);
    EXPECT_EQ(it.viewer.Cell(0, 0), L"ann");
    EXPECT_EQ(TextOf(GetDlgItem(it.viewer.Window(), 2001)), L"");
    EXPECT_EQ(it.viewer.Status(4), L" 2:2 EDIT");
    EXPECT_EQ(it.viewer.PaneText(), L"oxford");
    EXPECT_EQ(it.viewer.SelectedRows(), std::vector<int>{1});
}

TEST(Save, StaysOnItsRowWhenAnEditHidesTheOneAbove) {
    const Opened it("a,b\n1,2\n3,4\n", L"a.csv", "skip-comments=2\nheader-row=0\n");
    EditCell(it.viewer, 1, 0, L"#1");
    ClickCell(it.viewer, 2, 0);
    Key('S', {VK_CONTROL});
    EXPECT_EQ(it.viewer.RowCount(), 2);
    EXPECT_EQ(it.viewer.Status(4), L" 2:1 EDIT");
    EXPECT_EQ(it.viewer.PaneText(), L"3");
}

TEST(Save, KeepsTheDelimiterInUse) {
    const Opened it("a,b\n1,2\n", L"a.csv", "header-row=0\n");
    ASSERT_EQ(it.viewer.Status(1), L" Delimiter: Auto (,)");
    for (const int row : {0, 1}) {
        EditCell(it.viewer, row, 0, L"x;;;;;;;;");  // would be found to be the delimiter now
    }
    Key('S', {VK_CONTROL});
    EXPECT_EQ(it.viewer.ColumnCount(), 2);
    EXPECT_EQ(it.viewer.Status(1), L" Delimiter: Auto (,)");
    EXPECT_EQ(it.viewer.Row(0), (Texts{L"x;;;;;;;;", L"b"}));
}

TEST(Save, KeepsTheCommentHandlingInUse) {
    const Opened it("# c\na,b\n1,2\n");
    Reload(it.viewer, 5032);
    ASSERT_EQ(it.viewer.RowCount(), 1);
    EditCell(it.viewer, 0, 0, L"9");
    Key('S', {VK_CONTROL});
    EXPECT_EQ(it.viewer.RowCount(), 1);
    EXPECT_EQ(it.viewer.Status(2), L" Comments: hidden (1)");
    EXPECT_EQ(it.Bytes(), "# c\na,b\n9,2\n");
}

TEST(Save, WritesEachEncodingBack) {
    const std::pair<std::string, std::string> kFiles[] = {
        {"\xEF\xBB\xBF\xC3\xA4,b\n1,2\n", "\xEF\xBB\xBF\xC3\xA4,b\n\xE2\x82\xAC,2\n"},
        {"\xC3\xA4,b\n1,2\n", "\xC3\xA4,b\n\xE2\x82\xAC,2\n"},
        {"\xFF\xFE"
         "a\0,\0b\0\n\0001\0,\0002\0\n\0"s,
         "\xFF\xFE"
         "a\0,\0b\0\n\0\xAC\x20,\0002\0\n\0"s},
        {"\xFE\xFF\0a\0,\0b\0\n\0001\0,\0002\0\n"s, "\xFE\xFF\0a\0,\0b\0\n\x20\xAC\0,\0002\0\n"s},
        {"\xE4,b\n1,2\n", "\xE4,b\n\x80,2\n"},
    };
    for (const auto& [before, after] : kFiles) {
        const Opened it(before, L"a.csv", "ansi-codepage=1252\n");
        EditCell(it.viewer, 0, 0, L"\x20AC");
        Key('S', {VK_CONTROL});
        EXPECT_EQ(it.Bytes(), after);
        EXPECT_TRUE(TheFakes().boxes.empty());
    }
}

TEST(Save, RefusesTextThatTheCodePageCannotHold) {
    const Opened it("\xE4,b\n1,2\n", L"a.csv", "ansi-codepage=1252\n");
    EditCell(it.viewer, 0, 0, L"\x0416");
    Key('S', {VK_CONTROL});
    ASSERT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(TheFakes().boxes[0].text, L"The file could not be saved.");
    EXPECT_EQ(it.Bytes(), "\xE4,b\n1,2\n");
    EXPECT_EQ(it.viewer.Cell(0, 0), L"\x0416");
    EXPECT_EQ(it.viewer.Status(4), L" 1:1 EDIT *");
}

TEST(Save, SaysThatItFailedAndKeepsTheEdits) {
    for (const char* step :
         {"GetTempFileNameW", "WriteFile", "FlushFileBuffers", "ReplaceFileW+MoveFileExW"}) {
        const Opened it;
        it.Edit();
        if (std::string(step) == "ReplaceFileW+MoveFileExW") {
            TheFakes().failing = {"ReplaceFileW", "MoveFileExW"};
        } else {
            TheFakes().failing = {step};
        }
        Key('S', {VK_CONTROL});
        ASSERT_EQ(TheFakes().boxes.size(), 1u) << step;
        const ShownBox& box = TheFakes().boxes.front();
        EXPECT_EQ(box.text, L"The file could not be saved.");
        EXPECT_EQ(box.caption, L"rowlark");
        EXPECT_EQ(box.owner, it.viewer.Window());
        EXPECT_EQ(box.type & MB_ICONMASK, static_cast<UINT>(MB_ICONERROR));
        EXPECT_EQ(it.Bytes(), kTable) << step;
        EXPECT_EQ(TemporaryFilesBeside(it.file), 0) << step;
        EXPECT_EQ(it.viewer.Cell(1, 1), L"paris");
        EXPECT_EQ(it.viewer.Status(4), L" 2:2 EDIT *");
        TheFakes().failing.clear();
        Key('S', {VK_CONTROL});
        EXPECT_EQ(it.Bytes(), kEdited) << "the second try works";
    }
}

TEST(Save, WritesAnEmptyFile) {
    const Opened it("a\n", L"a.csv", "header-row=0\n");
    ClickCell(it.viewer, 0, 0);
    Key('X', {VK_CONTROL});
    Key('S', {VK_CONTROL});
    EXPECT_EQ(it.Bytes(), "");
    EXPECT_EQ(it.viewer.RowCount(), 0);
    EXPECT_TRUE(TheFakes().boxes.empty());
}

// --- The question.

TEST(SaveQuestion, IsNotAskedWithoutEdits) {
    const Opened it;
    it.RequestClose();
    EXPECT_FALSE(it.IsAlive());
    EXPECT_TRUE(TheFakes().boxes.empty());
}

TEST(SaveQuestion, IsAskedBeforeClosing) {
    const Opened it;
    it.Edit();
    TheFakes().boxAnswer = IDNO;
    it.RequestClose();
    ASSERT_EQ(TheFakes().boxes.size(), 1u);
    const ShownBox& box = TheFakes().boxes.front();
    EXPECT_EQ(box.text, L"Save changes to \"data.csv\" before closing?");
    EXPECT_EQ(box.caption, L"rowlark");
    EXPECT_EQ(box.owner, it.viewer.Window());
    EXPECT_EQ(box.type, static_cast<UINT>(MB_YESNO | MB_ICONWARNING));
    EXPECT_FALSE(it.IsAlive());
    EXPECT_EQ(it.Bytes(), kTable) << "No drops the edits";
}

TEST(SaveQuestion, NamesTheFileBehindTheLastSlash) {
    UiHost host({.ini = kEditing});
    std::wstring path = host.Write(L"a.csv", kTable).wstring();
    std::ranges::replace(path, L'\\', L'/');
    const Viewer viewer = host.Open(path);
    EditCell(viewer, 0, 0, L"x");
    TheFakes().boxAnswer = IDNO;
    host.Close(viewer);
    ASSERT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(TheFakes().boxes[0].text, L"Save changes to \"a.csv\" before closing?");
}

TEST(SaveQuestion, SavesOnYes) {
    const Opened it;
    it.Edit();
    TheFakes().boxAnswer = IDYES;
    it.host.Close(it.viewer);
    EXPECT_FALSE(it.IsAlive());
    EXPECT_EQ(it.Bytes(), kEdited);
}

TEST(SaveQuestion, IsAskedAfterTheEditorIsStored) {
    const Opened it;
    OpenEditor(it.viewer, 1, 1);
    Fill(it.viewer, L"paris");
    TheFakes().boxAnswer = IDYES;
    it.host.Close(it.viewer);
    EXPECT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(it.Bytes(), kEdited);
}

TEST(SaveQuestion, KeepsTheViewerWhenSavingFails) {
    const Opened it;
    it.Edit();
    TheFakes().boxAnswer = IDYES;
    TheFakes().failing = {"WriteFile"};
    it.RequestClose();
    ASSERT_EQ(TheFakes().boxes.size(), 2u);
    EXPECT_EQ(TheFakes().boxes[1].text, L"The file could not be saved.");
    EXPECT_TRUE(it.IsAlive());
    EXPECT_EQ(it.viewer.Cell(1, 1), L"paris");
    TheFakes().failing.clear();
    it.RequestClose();
    EXPECT_FALSE(it.IsAlive());
    EXPECT_EQ(it.Bytes(), kEdited);
}

TEST(SaveQuestion, IsNotAskedTwiceAtOnce) {
    const Opened it;
    it.Edit();
    TheFakes().boxAnswer = IDNO;
    TheFakes().whileBoxIsOpen = [&] {
        SendMessageW(it.viewer.Window(), WM_CLOSE, 0, 0);
        it.host.Close(it.viewer);
        Choose(it.viewer, 5020);
        EXPECT_TRUE(it.IsAlive());
    };
    it.RequestClose();
    TheFakes().whileBoxIsOpen = nullptr;
    EXPECT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_FALSE(it.IsAlive());
}

TEST(SaveQuestion, KeepsTheViewerWhenMemoryRunsOutBeforeIt) {
    const Opened it;
    it.Edit();
    TheFakes().memoryFailsOnce = true;
    SendMessageW(it.viewer.Window(), WM_CLOSE, 0, 0);
    ASSERT_TRUE(it.IsAlive());
    EXPECT_TRUE(TheFakes().boxes.empty());
    EXPECT_EQ(it.viewer.Cell(1, 1), L"paris");
    Key('S', {VK_CONTROL});
    EXPECT_EQ(it.Bytes(), kEdited);
}

TEST(SaveQuestion, SurvivesAHostThatDestroysTheViewerMeanwhile) {
    const Opened it;
    it.Edit();
    TheFakes().boxAnswer = IDYES;
    TheFakes().whileBoxIsOpen = [&] { DestroyWindow(it.viewer.Window()); };
    it.RequestClose();
    TheFakes().whileBoxIsOpen = nullptr;
    EXPECT_FALSE(it.IsAlive());
    EXPECT_EQ(it.Bytes(), kTable);
}

TEST(SaveQuestion, IsAskedBeforeReloading) {
    const Opened it;
    it.Edit();
    TheFakes().boxAnswer = IDNO;
    Reload(it.viewer, 5021);
    ASSERT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(TheFakes().boxes[0].text, L"Save changes to \"data.csv\" before reloading?");
    EXPECT_EQ(it.viewer.ColumnCount(), 1);
    EXPECT_EQ(it.viewer.Cell(1, 0), L"bob,oslo") << "No drops the edits";
    EXPECT_EQ(it.viewer.Status(4), L" EDIT");
}

TEST(SaveQuestion, SavesBeforeReloadingOnYes) {
    const Opened it;
    it.Edit();
    TheFakes().boxAnswer = IDYES;
    Reload(it.viewer, 5021);
    EXPECT_EQ(it.Bytes(), kEdited);
    EXPECT_EQ(it.viewer.Cell(1, 0), L"bob,paris");
}

TEST(SaveQuestion, KeepsEverythingWhenSavingBeforeAReloadFails) {
    const Opened it;
    it.Edit();
    TheFakes().boxAnswer = IDYES;
    TheFakes().failing = {"GetTempFileNameW"};
    Reload(it.viewer, 5021);
    EXPECT_EQ(it.viewer.ColumnCount(), 2);
    EXPECT_EQ(it.viewer.Cell(1, 1), L"paris");
    EXPECT_EQ(it.Bytes(), kTable);
}

}  // namespace

}  // namespace rl::test
