// Edit mode of JSON and XML: what a value takes, what it refuses and how, and what a save writes.
#include <gtest/gtest.h>

#include "tests/ui/support/editing.h"
#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

using namespace std::string_literals;

constexpr const char* kJson =
    "{\n  // numbers\n  \"n\": 1,\n  \"s\": \"one\",\n  \"b\": true,\n  \"z\": null,\n"
    "  \"a\": [1, 2]\n}\n";

/// A file open in edit mode, in the outline.
struct Opened {
    Opened(const std::string& bytes, const std::wstring& name, const std::string& ini = {})
        : host({.ini = "start-mode=edit\n" + ini}),
          file(host.Write(name, bytes)),
          viewer(host.Open(file)) {}

    /// The first row whose name is so.
    [[nodiscard]] int RowOf(const std::wstring& name) const {
        for (int row = 0; row < viewer.RowCount(); ++row) {
            if (viewer.Cell(row, 0) == name) {
                return row;
            }
        }
        ADD_FAILURE() << "no such row";
        return 0;
    }
    void Edit(const std::wstring& name, std::wstring_view text) const {
        EditCell(viewer, RowOf(name), 1, text);
    }
    [[nodiscard]] std::wstring Value(const std::wstring& name) const {
        return viewer.Cell(RowOf(name), 1);
    }
    void Save() const { Key('S', {VK_CONTROL}); }
    [[nodiscard]] std::string Bytes() const { return BytesOf(file); }

    UiHost host;
    std::filesystem::path file;
    Viewer viewer;
};

TEST(EditJson, ChangesAValueAndRewritesTheFileOnSave) {
    const Opened it(kJson, L"a.json");
    it.Edit(L"s", L"say \"hi\"");
    EXPECT_EQ(it.Value(L"s"), L"say \"hi\"");
    EXPECT_EQ(it.viewer.PaneText(), L"say \"hi\"");
    EXPECT_NE(it.viewer.Status(4).find(L"EDIT *"), std::wstring::npos);
    it.Save();
    EXPECT_EQ(it.Bytes(),
              "{\r\n  \"n\": 1,\r\n  \"s\": \"say \\\"hi\\\"\",\r\n  \"b\": true,\r\n"
              "  \"z\": null,\r\n  \"a\": [\r\n    1,\r\n    2\r\n  ]\r\n}");
    EXPECT_EQ(it.viewer.Status(4).find(L"EDIT *"), std::wstring::npos);
    EXPECT_EQ(it.Value(L"s"), L"say \"hi\"");
}

TEST(EditJson, WritesLinesBackAsLines) {
    const Opened it("{\"a\": 1}\n{\"a\": 2}\n", L"a.jsonl");
    Key(VK_MULTIPLY);  // opens all
    it.Edit(L"a", L"3");
    it.Save();
    EXPECT_EQ(it.Bytes(), "{\"a\":3}\r\n{\"a\":2}");
}

TEST(EditJson, RefusesWhatItsKindDoesNotTakeAndSaysWhy) {
    struct Refusal {
        const wchar_t* name;
        const wchar_t* typed;
        const wchar_t* reason;
    };
    for (const auto& [name, typed, reason] :
         {Refusal{L"n", L"1x", L"INVALID NUMBER"}, Refusal{L"n", L"1e999", L"INVALID NUMBER"},
          Refusal{L"b", L"True", L"USE true OR false"}, Refusal{L"z", L"", L"USE null"}}) {
        const Opened it(kJson, L"a.json");
        OpenEditor(it.viewer, it.RowOf(name), 1);
        const Balloons balloons(it.viewer);
        Fill(it.viewer, typed);
        Key(VK_RETURN);
        ASSERT_NE(Editor(it.viewer), nullptr) << typed;
        EXPECT_EQ(TextOf(Editor(it.viewer)), typed);
        EXPECT_EQ(GetFocus(), Editor(it.viewer));
        EXPECT_EQ(balloons.Texts(), std::vector<std::wstring>{reason});
        EXPECT_EQ(TheFakes().beeps, std::vector<UINT>{MB_ICONEXCLAMATION});
        Key(VK_ESCAPE);
        EXPECT_EQ(Editor(it.viewer), nullptr);
        EXPECT_EQ(it.viewer.Status(4).find(L"*"), std::wstring::npos);
    }
}

TEST(EditJson, BeepsOnWhatCannotBeEdited) {
    const Opened it(kJson, L"a.json");
    const int places[][2] = {{it.RowOf(L"a"), 1}, {it.RowOf(L"n"), 0}, {0, 1}};
    size_t beeps = 0;
    for (const auto& [row, column] : places) {
        ClickCell(it.viewer, row, column);
        Key(VK_F2);
        EXPECT_EQ(Editor(it.viewer), nullptr);
        EXPECT_EQ(TheFakes().beeps.size(), ++beeps);
    }
    Key('E', {VK_CONTROL});
    Key(VK_F2);
    EXPECT_EQ(TheFakes().beeps.size(), beeps) << "silent outside edit mode";
}

TEST(EditJson, OpensByADoubleClickOnAValueOnly) {
    const Opened it(kJson, L"a.json");
    DoubleClick(it.viewer.Grid(), it.viewer.CellCenter(it.RowOf(L"n"), 1));
    ASSERT_NE(Editor(it.viewer), nullptr);
    EXPECT_EQ(TextOf(Editor(it.viewer)), L"1");
    Key(VK_ESCAPE);
    DoubleClick(it.viewer.Grid(), it.viewer.CellCenter(it.RowOf(L"n"), 0));
    EXPECT_EQ(Editor(it.viewer), nullptr);
    const int rows = it.viewer.RowCount();
    DoubleClick(it.viewer.Grid(), it.viewer.CellCenter(it.RowOf(L"a"), 1));
    EXPECT_EQ(Editor(it.viewer), nullptr);
    EXPECT_NE(it.viewer.RowCount(), rows) << "an array opens or closes instead";
}

TEST(EditJson, ChangesNoRowsAndColumns) {
    const Opened it(kJson, L"a.json");
    const int rows = it.viewer.RowCount();
    ClickCell(it.viewer, it.RowOf(L"s"), 1);
    TheFakes().boxAnswer = IDYES;
    Key('X', {VK_CONTROL});
    for (const int command : {5034, 5007, 5042}) {
        Choose(it.viewer, command);
    }
    EXPECT_EQ(it.viewer.RowCount(), rows);
    EXPECT_TRUE(TheFakes().boxes.empty());
    EXPECT_EQ(it.viewer.Status(4).find(L"*"), std::wstring::npos);
}

// --- A refused text keeps its editor: one beep, and what was to happen does not.

class RefusedText : public testing::Test {
protected:
    RefusedText() {
        OpenEditor(it.viewer, it.RowOf(L"n"), 1);
        Fill(it.viewer, L"abc");
    }
    ~RefusedText() override {
        if (Editor(it.viewer) != nullptr) {
            SetFocus(Editor(it.viewer));
            Key(VK_ESCAPE);
        }
    }
    void ExpectKept() const {
        ASSERT_NE(Editor(it.viewer), nullptr);
        EXPECT_EQ(TextOf(Editor(it.viewer)), L"abc");
        EXPECT_EQ(GetFocus(), Editor(it.viewer));
        EXPECT_EQ(TheFakes().beeps, std::vector<UINT>{MB_ICONEXCLAMATION});
        EXPECT_TRUE(TheFakes().boxes.empty());
        EXPECT_EQ(it.Bytes(), kJson);
    }

    Opened it{kJson, L"a.json"};
};

TEST_F(RefusedText, StopsAClickOnAnotherCell) {
    const std::wstring before = it.viewer.Status(4);
    ClickCell(it.viewer, it.RowOf(L"s"), 1);
    ExpectKept();
    EXPECT_EQ(it.viewer.Status(4), before);
}

TEST_F(RefusedText, StopsADoubleClickAndARightClick) {
    DoubleClick(it.viewer.Grid(), it.viewer.CellCenter(it.RowOf(L"s"), 1));
    ASSERT_NE(Editor(it.viewer), nullptr);
    EXPECT_EQ(TextOf(Editor(it.viewer)), L"abc");
    TheFakes().beeps.clear();
    RightClick(it.viewer.Grid(), it.viewer.CellCenter(it.RowOf(L"s"), 1));
    EXPECT_TRUE(TheFakes().menus.empty());
    ExpectKept();
}

TEST_F(RefusedText, StopsATabSwitch) {
    Click(it.viewer.Tabs(), it.viewer.TabCenter(1));
    EXPECT_EQ(it.viewer.CurrentTab(), 0);
    EXPECT_TRUE(IsWindowVisible(it.viewer.Grid()));
    ExpectKept();
}

TEST_F(RefusedText, StopsASaveAndAToggleOfEditMode) {
    Key('S', {VK_CONTROL});
    ExpectKept();
    TheFakes().beeps.clear();
    Key('E', {VK_CONTROL});
    ExpectKept();
    EXPECT_NE(it.viewer.Status(4).find(L"EDIT"), std::wstring::npos);
    EXPECT_TRUE(TheFakes().writes.empty());
}

TEST_F(RefusedText, StopsTheClose) {
    it.host.Close(it.viewer);
    EXPECT_TRUE(IsWindow(it.viewer.Window()));
    ExpectKept();
}

TEST_F(RefusedText, TakesTheFocusBackFromAFilterBox) {
    Click(GetDlgItem(it.viewer.Window(), 2000), {5, 5});
    ExpectKept();
}

TEST_F(RefusedText, TakesTheFocusBackFromTheValuePane) {
    Click(it.viewer.Pane(), {5, 5});
    ExpectKept();
}

TEST_F(RefusedText, LeavesTheFocusToOtherWindows) {
    SetFocus(it.host.Frame());
    PumpIdle();
    EXPECT_EQ(GetFocus(), it.host.Frame());
    ASSERT_NE(Editor(it.viewer), nullptr);
    EXPECT_EQ(TheFakes().beeps.size(), 1u);
}

TEST_F(RefusedText, StopsTheHostsSearch) {
    (void)it.host.Module().Search(it.viewer.Window(), L"one", 1);
    ExpectKept();
}

TEST_F(RefusedText, IsGivenUpWhenTheHostDestroysTheViewer) {
    DestroyWindow(it.viewer.Window());
    EXPECT_TRUE(TheFakes().boxes.empty());
}

// --- XML.

constexpr const char* kXml =
    "<?xml version=\"1.0\"?>\n<!-- note -->\n<r a='1' b=\"2\">\n  <n>one</n>\n"
    "  <!--remark--><![CDATA[raw]]><?go on?>\n</r>\n";

TEST(EditXml, SplicesEachEditIntoTheSource) {
    struct Edit {
        const wchar_t* name;
        const wchar_t* typed;
        const char* before;
        const char* after;
    };
    for (const auto& [name, typed, before, after] :
         {Edit{L"a", L"x'y\"&z", "a='1'", "a='x&apos;y\"&amp;z'"},
          Edit{L"b", L"x'y\"", "b=\"2\"", "b=\"x'y&quot;\""},
          Edit{L"#COMMENT", L"<new>", "<!-- note -->", "<!--<new>-->"},
          Edit{L"#CDATA", L"a<b", "[raw]", "[a<b]"},
          Edit{L"go", L"off", "<?go on?>", "<?go off?>"}}) {
        const Opened it(kXml, L"a.xml", "outline-expand-max=0\n");
        it.Edit(name, typed);
        EXPECT_EQ(it.Value(name), typed);
        it.Save();
        std::string expected = kXml;
        expected.replace(expected.find(before), std::string(before).size(), after);
        EXPECT_EQ(it.Bytes(), expected);
        EXPECT_EQ(it.Value(name), typed);
        it.Edit(name, L"again");
        it.Save();
        EXPECT_NE(it.Bytes().find("again"), std::string::npos) << "a second save edits once more";
    }
}

TEST(EditXml, RefusesWhatWouldEndItsOwnMarkup) {
    struct Refusal {
        const wchar_t* name;
        const wchar_t* typed;
        const wchar_t* reason;
    };
    for (const auto& [name, typed, reason] :
         {Refusal{L"#COMMENT", L"a--b", L"COMMENT CANNOT CONTAIN --"},
          Refusal{L"#COMMENT", L"a-", L"COMMENT CANNOT CONTAIN --"},
          Refusal{L"#CDATA", L"]]>", L"CDATA CANNOT CONTAIN ]]>"},
          Refusal{L"go", L"?>", L"PI CANNOT CONTAIN ?>"}}) {
        const Opened it(kXml, L"a.xml", "outline-expand-max=0\n");
        OpenEditor(it.viewer, it.RowOf(name), 1);
        const Balloons balloons(it.viewer);
        Fill(it.viewer, typed);
        Key(VK_RETURN);
        EXPECT_EQ(balloons.Texts(), std::vector<std::wstring>{reason});
        EXPECT_EQ(TheFakes().beeps, std::vector<UINT>{MB_ICONEXCLAMATION});
        Key(VK_ESCAPE);
        it.Save();
        EXPECT_TRUE(TheFakes().writes.empty());
    }
}

TEST(EditXml, EditsTheWholeValueThatItsRowShowsOnOneLine) {
    const Opened it("<r a=\"one\ttwo\"/>", L"a.xml", "outline-expand-max=0\n");
    ASSERT_EQ(it.Value(L"a"), L"one two");
    OpenEditor(it.viewer, it.RowOf(L"a"), 1);
    EXPECT_EQ(TextOf(Editor(it.viewer)), L"one\ttwo");
    Key(VK_ESCAPE);
}

TEST(EditXml, BeepsOnElements) {
    const Opened it(kXml, L"a.xml");
    ClickCell(it.viewer, it.RowOf(L"r"), 1);
    Key(VK_F2);
    EXPECT_EQ(Editor(it.viewer), nullptr);
    EXPECT_EQ(TheFakes().beeps, std::vector<UINT>{MB_ICONEXCLAMATION});
}

TEST(EditXml, ChangesNoRowsAndColumns) {
    const Opened it(kXml, L"a.xml");
    const int rows = it.viewer.RowCount();
    ClickCell(it.viewer, it.RowOf(L"a"), 1);
    TheFakes().boxAnswer = IDYES;
    Key('X', {VK_CONTROL});
    for (const int command : {5034, 5007, 5042}) {
        Choose(it.viewer, command);
    }
    EXPECT_EQ(it.viewer.RowCount(), rows);
    EXPECT_TRUE(TheFakes().boxes.empty());
}

// --- Both: encodings, and a save that fails.

TEST(SaveNodes, WritesTheEncodingBack) {
    const Opened utf16("\xFF\xFE{\0\"\0a\0\"\0:\0\"\0x\0\"\0}\0"s, L"a.json");
    utf16.Edit(L"a", L"\x20AC");
    utf16.Save();
    EXPECT_EQ(utf16.Bytes(),
              "\xFF\xFE{\0\r\0\n\0 \0 \0\"\0a\0\"\0:\0 \0\"\0\xAC\x20\"\0\r\0\n\0}\0"s);
    const Opened declared("<?xml version=\"1.0\" encoding=\"windows-1251\"?><r a=\"\xE6\"/>",
                          L"a.xml");
    declared.Edit(L"a", L"\x0416");
    declared.Save();
    EXPECT_EQ(declared.Bytes(), "<?xml version=\"1.0\" encoding=\"windows-1251\"?><r a=\"\xC6\"/>");
    declared.Edit(L"a", L"\x4E2D");
    declared.Save();
    ASSERT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(TheFakes().boxes[0].text, L"The file could not be saved.");
    EXPECT_NE(declared.viewer.Status(4).find(L"EDIT *"), std::wstring::npos);
}

TEST(SaveNodes, AsksBeforeEditsAreLostAndKeepsThemWhenSavingFails) {
    for (const wchar_t* name : {L"a.json", L"a.xml"}) {
        const bool isXml = std::wstring(name) == L"a.xml";
        const Opened it(isXml ? "<r a=\"1\"/>" : "{\"a\":\"1\"}", name);
        const std::string before = it.Bytes();
        it.Edit(L"a", L"new");
        TheFakes().boxAnswer = IDYES;
        TheFakes().failing = {"WriteFile"};
        it.host.Close(it.viewer);
        ASSERT_EQ(TheFakes().boxes.size(), 2u);
        EXPECT_EQ(TheFakes().boxes[0].text,
                  L"Save changes to \"" + std::wstring(name) + L"\" before closing?");
        EXPECT_TRUE(IsWindow(it.viewer.Window()));
        EXPECT_EQ(it.Bytes(), before);
        EXPECT_EQ(it.Value(L"a"), L"new");
        TheFakes().failing.clear();
        it.host.Close(it.viewer);
        EXPECT_FALSE(IsWindow(it.viewer.Window()));
        EXPECT_NE(it.Bytes().find("new"), std::string::npos);
    }
}

TEST(SaveNodes, WritesNothingThatIsNotModified) {
    for (const wchar_t* name : {L"a.json", L"a.xml"}) {
        const Opened it(std::wstring(name) == L"a.xml" ? "<r a=\"1\"/>" : "{\"a\":\"1\"}", name);
        it.Edit(L"a", L"1");
        Key('E', {VK_CONTROL});
        it.Save();
        it.host.Close(it.viewer);
        EXPECT_TRUE(TheFakes().writes.empty());
        EXPECT_TRUE(TheFakes().boxes.empty());
    }
}

}  // namespace

}  // namespace rl::test
