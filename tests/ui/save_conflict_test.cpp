// A file that another program has written since the viewer read it.
#include <gtest/gtest.h>

#include <windows.h>

#include "load/files/file_handle.h"
#include "tests/ui/support/editing.h"
#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "name,city\nann,rome\nbob,oslo\n";
constexpr const char* kEdited = "name,city\nann,rome\nbob,paris\n";
constexpr const char* kForeign = "name,city\nzoe,riga\nann,rome\nbob,oslo\n";

struct Opened {
    explicit Opened(const std::string& bytes = kTable, const std::wstring& name = L"data.csv")
        : host({.ini = "start-mode=edit\n"}),
          file(host.Write(name, bytes)),
          viewer(host.Open(file)) {}

    void Edit(std::wstring_view text = L"paris") const { EditCell(viewer, 1, 1, text); }
    void ChangeOutside() const { host.Write(L"data.csv", kForeign); }
    /// Another last write, the content as it is.
    void Touch() const {
        const UniqueFile handle(CreateFileW(file.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr,
                                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        const FILETIME time{.dwLowDateTime = 0, .dwHighDateTime = 0x01D00000};
        ASSERT_TRUE(SetFileTime(handle.Get(), nullptr, nullptr, &time));
    }
    [[nodiscard]] std::string Bytes() const { return BytesOf(file); }

    UiHost host;
    std::filesystem::path file;
    Viewer viewer;
};

TEST(SaveConflict, AsksBeforeAnotherProgramsContentGoes) {
    const Opened it;
    it.Edit();
    it.ChangeOutside();
    TheFakes().boxAnswer = IDNO;
    Key('S', {VK_CONTROL});
    ASSERT_EQ(TheFakes().boxes.size(), 1u);
    const ShownBox& box = TheFakes().boxes.front();
    EXPECT_EQ(box.text, L"\"data.csv\" has been changed by another program. Overwrite it?");
    EXPECT_EQ(box.caption, L"rowlark");
    EXPECT_EQ(box.owner, it.viewer.Window());
    EXPECT_EQ(box.type, static_cast<UINT>(MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2));
    EXPECT_EQ(it.Bytes(), kForeign);
    EXPECT_EQ(it.viewer.Cell(1, 1), L"paris");
    EXPECT_EQ(it.viewer.Status(4), L" 2:2 EDIT *");
}

TEST(SaveConflict, OverwritesOnYesAndAsksNoMore) {
    const Opened it;
    it.Edit();
    it.ChangeOutside();
    TheFakes().boxAnswer = IDYES;
    Key('S', {VK_CONTROL});
    EXPECT_EQ(it.Bytes(), kEdited);
    EXPECT_EQ(TheFakes().boxes.size(), 1u);
    it.Edit(L"bern");
    Key('S', {VK_CONTROL});
    it.Edit(L"riga");
    Key('S', {VK_CONTROL});
    EXPECT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(it.Bytes(), "name,city\nann,rome\nbob,riga\n");
}

TEST(SaveConflict, NoticesAnotherTimeAlone) {
    const Opened it;
    it.Edit();
    it.Touch();
    TheFakes().boxAnswer = IDNO;
    Key('S', {VK_CONTROL});
    EXPECT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(it.Bytes(), kTable);
}

TEST(SaveConflict, NoticesWhatFollowsAnOwnSave) {
    const Opened it;
    it.Edit();
    Key('S', {VK_CONTROL});
    ASSERT_TRUE(TheFakes().boxes.empty());
    it.ChangeOutside();
    it.Edit(L"bern");
    TheFakes().boxAnswer = IDNO;
    Key('S', {VK_CONTROL});
    EXPECT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(it.Bytes(), kForeign);
}

TEST(SaveConflict, IsOverOnceTheFileIsReadAgain) {
    const Opened it;
    it.ChangeOutside();
    Choose(it.viewer, 5020);
    PumpIdle();
    ASSERT_EQ(it.viewer.RowCount(), 3);
    it.Edit();
    Key('S', {VK_CONTROL});
    EXPECT_TRUE(TheFakes().boxes.empty());
    EXPECT_EQ(it.Bytes(), "name,city\nzoe,riga\nann,paris\nbob,oslo\n");
}

TEST(SaveConflict, MakesAFileThatHasGoneWithoutAsking) {
    const Opened it;
    it.Edit();
    std::filesystem::remove(it.file);
    Key('S', {VK_CONTROL});
    EXPECT_TRUE(TheFakes().boxes.empty());
    EXPECT_EQ(it.Bytes(), kEdited);
}

TEST(SaveConflict, KeepsTheViewerThatWasToCloseOnNo) {
    const Opened it;
    it.Edit();
    it.ChangeOutside();
    TheFakes().boxAnswer = IDYES;
    TheFakes().whileBoxIsOpen = [&] {
        Key('S', {VK_CONTROL});  // a second question is not stacked on the first
        TheFakes().boxAnswer = TheFakes().boxes.size() == 1 ? IDYES : IDNO;
    };
    SendMessageW(it.viewer.Window(), WM_CLOSE, 0, 0);
    TheFakes().whileBoxIsOpen = nullptr;
    EXPECT_EQ(TheFakes().boxes.size(), 2u);
    EXPECT_TRUE(IsWindow(it.viewer.Window()));
    EXPECT_EQ(it.Bytes(), kForeign);
    EXPECT_EQ(it.viewer.Cell(1, 1), L"paris");
}

TEST(SaveConflict, AsksForNodesToo) {
    UiHost host({.ini = "start-mode=edit\ntree-outline=0\n"});
    const auto file = host.Write(L"data.json", "[{\"a\":1},{\"a\":2}]");
    const Viewer viewer = host.Open(file);
    EditCell(viewer, 0, 0, L"3");
    host.Write(L"data.json", "[]");
    TheFakes().boxAnswer = IDNO;
    Key('S', {VK_CONTROL});
    EXPECT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(BytesOf(file), "[]");
}

TEST(SaveConflict, SurvivesAHostThatDestroysTheViewerMeanwhile) {
    const Opened it;
    it.Edit();
    it.ChangeOutside();
    TheFakes().boxAnswer = IDYES;
    TheFakes().whileBoxIsOpen = [&] { DestroyWindow(it.viewer.Window()); };
    Key('S', {VK_CONTROL});
    TheFakes().whileBoxIsOpen = nullptr;
    EXPECT_FALSE(IsWindow(it.viewer.Window()));
    EXPECT_EQ(it.Bytes(), kForeign);
}

// --- A system that does not tell the state of a file: no reason to ask, and none to refuse.

TEST(SaveConflict, SavesAFileWhoseStampCouldNotBeReadWhenItWasOpened) {
    UiHost host({.ini = "start-mode=edit\n"});
    TheFakes().stampFails = true;
    const auto file = host.Write(L"data.csv", kTable);
    const Viewer viewer = host.Open(file);
    TheFakes().stampFails = false;
    EditCell(viewer, 1, 1, L"paris");
    TheFakes().boxAnswer = IDNO;
    Key('S', {VK_CONTROL});
    EXPECT_TRUE(TheFakes().boxes.empty());
    EXPECT_EQ(BytesOf(file), kEdited);
    EXPECT_EQ(viewer.Status(4), L" 2:2 EDIT");
}

TEST(SaveConflict, NoticesChangesAgainOnceTheStampOfASaveCouldBeRead) {
    UiHost host({.ini = "start-mode=edit\n"});
    TheFakes().stampFails = true;
    const auto file = host.Write(L"data.csv", kTable);
    const Viewer viewer = host.Open(file);
    TheFakes().stampFails = false;
    EditCell(viewer, 1, 1, L"paris");
    Key('S', {VK_CONTROL});
    host.Write(L"data.csv", kForeign);
    EditCell(viewer, 1, 1, L"bern");
    TheFakes().boxAnswer = IDNO;
    Key('S', {VK_CONTROL});
    EXPECT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(BytesOf(file), kForeign);
}

TEST(SaveConflict, SavesAFileWhoseStampCannotBeReadNow) {
    const Opened it;
    it.Edit();
    TheFakes().stampFails = true;
    TheFakes().boxAnswer = IDNO;
    Key('S', {VK_CONTROL});
    EXPECT_EQ(it.Bytes(), kEdited);
    it.Edit(L"bern");
    Key('S', {VK_CONTROL});
    EXPECT_EQ(it.Bytes(), "name,city\nann,rome\nbob,bern\n");
    EXPECT_TRUE(TheFakes().boxes.empty());
    EXPECT_EQ(TemporaryFilesBeside(it.file), 0);
}

TEST(SaveConflict, AsksNothingOfAStampFromBeforeAnUnreadableOne) {
    const Opened it;
    it.Edit();
    TheFakes().stampFails = true;
    Key('S', {VK_CONTROL});
    TheFakes().stampFails = false;
    it.Edit(L"bern");
    TheFakes().boxAnswer = IDNO;
    Key('S', {VK_CONTROL});  // the file is another one than was read, by our own hand
    EXPECT_TRUE(TheFakes().boxes.empty());
    EXPECT_EQ(it.Bytes(), "name,city\nann,rome\nbob,bern\n");
}

}  // namespace

}  // namespace rl::test
