// Memory that ends in the middle of an edit, as the user sees it: allocations that the module makes
// for the edit fail, one after the other. The table then is the old one or the new one, and
// whatever stands around it tells the truth about that.
#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "tests/ui/support/editing.h"
#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

// Needs the types of windows.h.
#include <commctrl.h>

namespace rl::test {

namespace {

constexpr const char* kTable = "name,city\nann,rome\nbob,oslo\ncid,bern\ndan,riga\n";
constexpr int kMany = 1000;  // allocations: more than any edit makes
constexpr int kDense = 16;   // so many are tried one by one, then fewer and fewer

constexpr int kInsertRow = 5034;
constexpr int kDeleteRows = 5007;
constexpr int kDeleteColumn = 5042;

using Table = std::vector<Texts>;

class EditsOutOfMemory : public testing::Test {
protected:
    EditsOutOfMemory() { Open(); }

    void Open() {
        file_ = host_.Write(L"data.csv", kTable);
        viewer_ = host_.Open(file_);
        Select();
        TheFakes().boxAnswer = IDYES;
    }

    void Select() const {
        ClickCell(viewer_, 2, 1);
        LVITEMW state{};
        state.state = state.stateMask = LVIS_SELECTED;
        SendMessageW(viewer_.Grid(), LVM_SETITEMSTATE, 1, reinterpret_cast<LPARAM>(&state));
    }

    [[nodiscard]] Table Shown() const {
        Table rows{viewer_.Headers()};
        for (int row = 0; row < viewer_.RowCount(); ++row) {
            rows.push_back(viewer_.Row(row));
        }
        return rows;
    }

    /// What stands around the table, and what a save of an edit makes of the file.
    void ExpectConsistent(bool edited, const std::string& after) const {
        const std::wstring count = std::to_wstring(viewer_.RowCount());
        const std::wstring place = viewer_.Status(4);
        if (viewer_.ColumnCount() > 0) {
            EXPECT_EQ(viewer_.Status(3), L" Rows: " + count + L"/" + count);
        }
        EXPECT_EQ(place.ends_with(L" EDIT *"), edited) << testing::PrintToString(place);
        for (const int row : viewer_.SelectedRows()) {
            EXPECT_LT(row, viewer_.RowCount());
        }
        if (const int row = viewer_.FocusedRow(); row >= 0) {
            EXPECT_EQ(viewer_.PaneText(), viewer_.Cell(row, viewer_.ColumnCount() - 1));
        }
        if (edited || Editor(viewer_) != nullptr) {  // saving takes what is typed first
            Key('S', {VK_CONTROL});
            EXPECT_EQ(BytesOf(file_), after);
        }
    }

    /// Fails allocations of the edit in turn; `after` is the file that the edit leads to.
    void FailAllocations(const std::function<void()>& edit, const Table& shown,
                         const std::string& after) {
        const Table before = Shown();
        int failures = 0;
        for (int count = 0; count < kMany && !HasFailure(); count += 1 + count / kDense) {
            SCOPED_TRACE(count);
            TheFakes().mallocsUntilFailure = count;
            edit();
            const bool cameThrough = TheFakes().mallocsUntilFailure >= 0;
            TheFakes().mallocsUntilFailure = -1;
            PumpIdle();
            ASSERT_TRUE(IsWindow(viewer_.Window()));
            const Table now = Shown();
            const bool isBare = mayShowNothing_ && viewer_.ColumnCount() == 0;
            EXPECT_TRUE(now == before || now == shown || isBare) << testing::PrintToString(now);
            ExpectConsistent(now != before, after);
            if (cameThrough) {
                EXPECT_EQ(now, shown);
                EXPECT_GT(failures, 0) << "the edit never asked for memory";
                return;
            }
            ++failures;
            if (BytesOf(file_) == kTable) {
                Select();
                continue;
            }
            host_.Close(viewer_);
            Open();
        }
    }

    /// What is done here does not count.
    static void WithMemory(const std::function<void()>& act) {
        const int waiting = std::exchange(TheFakes().mallocsUntilFailure, -1);
        act();
        TheFakes().mallocsUntilFailure = waiting;
    }

    void Send(int command) const {
        SendMessageW(viewer_.Window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    }

    UiHost host_{{.ini = "start-mode=edit\n"}};
    std::filesystem::path file_;
    Viewer viewer_{nullptr};
    bool mayShowNothing_ = false;
};

TEST_F(EditsOutOfMemory, DeleteAllSelectedRowsOrNone) {
    FailAllocations([&] { Send(kDeleteRows); },
                    {{L"name", L"city"}, {L"ann", L"rome"}, {L"dan", L"riga"}},
                    "name,city\nann,rome\ndan,riga\n");
}

TEST_F(EditsOutOfMemory, InsertARowOrNone) {
    FailAllocations([&] { Send(kInsertRow); },
                    {{L"name", L"city"},
                     {L"ann", L"rome"},
                     {L"bob", L"oslo"},
                     {L"cid", L"bern"},
                     {L"", L""},
                     {L"dan", L"riga"}},
                    "name,city\nann,rome\nbob,oslo\ncid,bern\n,\ndan,riga\n");
}

// Where the columns that are left find no memory to be shown, none is.
TEST_F(EditsOutOfMemory, DeleteAColumnOrNone) {
    mayShowNothing_ = true;
    FailAllocations([&] { Send(kDeleteColumn); },
                    {{L"name"}, {L"ann"}, {L"bob"}, {L"cid"}, {L"dan"}},
                    "name\nann\nbob\ncid\ndan\n");
}

TEST_F(EditsOutOfMemory, StoreTheWholeTextOfACellOrLeaveTheEditorOpen) {
    const std::wstring text(100, L'x');
    FailAllocations(
        [&] {
            WithMemory([&] {
                OpenEditor(viewer_, 2, 1);
                Fill(viewer_, text);
            });
            SendMessageW(Editor(viewer_), WM_KEYDOWN, VK_RETURN, 1);
            WithMemory([&] {
                EXPECT_TRUE(viewer_.Cell(2, 1) == text || TextOf(Editor(viewer_)) == text);
            });
        },
        {{L"name", L"city"},
         {L"ann", L"rome"},
         {L"bob", L"oslo"},
         {L"cid", text},
         {L"dan", L"riga"}},
        "name,city\nann,rome\nbob,oslo\ncid," + std::string(100, 'x') + "\ndan,riga\n");
}

}  // namespace

}  // namespace rl::test
