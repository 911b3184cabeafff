// Edit mode of the tables beside the tree: records, members, attributes.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "tests/ui/support/editing.h"
#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kRecords = "{\"top\":7,\"list\":[{\"a\":1,\"b\":\"x\"},{\"a\":2,\"c\":[]}]}";
constexpr const char* kCatalog =
    "<?xml version='1.0'?>\n<list>\n <item id='1'><name>one</name></item>\n"
    " <item id='2'><name>two &amp; more</name><tag/></item>\n</list>\n";

struct Opened {
    Opened(const std::string& bytes, const std::wstring& name)
        : host({.ini = "start-mode=edit\ntree-outline=0\n"}),
          file(host.Write(name, bytes)),
          viewer(host.Open(file)) {}

    void Save() const { Key('S', {VK_CONTROL}); }
    [[nodiscard]] std::string Bytes() const { return BytesOf(file); }
    [[nodiscard]] int Column(const std::wstring& name) const {
        const Texts headers = viewer.Headers();
        const auto found = std::ranges::find(headers, name);
        EXPECT_NE(found, headers.end());
        return static_cast<int>(found - headers.begin());
    }
    /// Clicks the first item of the tree.
    void ClickTop() const {
        const LRESULT top = SendMessageW(viewer.Tree(), TVM_GETNEXTITEM, TVGN_ROOT, 0);
        RECT place{};
        *reinterpret_cast<HTREEITEM*>(&place) = reinterpret_cast<HTREEITEM>(top);
        SendMessageW(viewer.Tree(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&place));
        Click(viewer.Tree(), {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
    }

    UiHost host;
    std::filesystem::path file;
    Viewer viewer;
};

TEST(EditRecords, ChangesTheValueBehindACell) {
    const Opened it(kRecords, L"a.json");
    ASSERT_EQ(it.viewer.Headers(), (Texts{L"a", L"b", L"c"}));
    EditCell(it.viewer, 1, 0, L"3");
    EditCell(it.viewer, 0, 1, L"y\"z");
    EXPECT_EQ(it.viewer.Cell(1, 0), L"3");
    EXPECT_NE(it.viewer.Status(4).find(L"EDIT *"), std::wstring::npos);
    it.Save();
    EXPECT_EQ(it.Bytes(),
              "{\r\n  \"top\": 7,\r\n  \"list\": [\r\n    {\r\n      \"a\": 1,\r\n"
              "      \"b\": \"y\\\"z\"\r\n    },\r\n    {\r\n      \"a\": 3,\r\n      \"c\": []\r\n"
              "    }\r\n  ]\r\n}");
    EXPECT_EQ(it.viewer.Cell(1, 0), L"3");
}

TEST(EditRecords, BeepsOnMissingCellsAndContainers) {
    const Opened it(kRecords, L"a.json");
    size_t beeps = 0;
    for (const auto& [row, column] : {std::pair{1, 1}, {0, 2}, {1, 2}}) {
        ClickCell(it.viewer, row, column);
        Key(VK_F2);
        EXPECT_EQ(Editor(it.viewer), nullptr);
        EXPECT_EQ(TheFakes().beeps.size(), ++beeps);
    }
}

TEST(EditRecords, RefusesWhatIsNoNumber) {
    const Opened it(kRecords, L"a.json");
    OpenEditor(it.viewer, 0, 0);
    const Balloons balloons(it.viewer);
    Fill(it.viewer, L"one");
    Key(VK_RETURN);
    EXPECT_EQ(balloons.Texts(), std::vector<std::wstring>{L"INVALID NUMBER"});
    Key(VK_ESCAPE);
    EXPECT_EQ(it.viewer.Cell(0, 0), L"1");
}

TEST(EditRecords, KeepsItsEditorFromAClickInTheTree) {
    const Opened it(kRecords, L"a.json");
    OpenEditor(it.viewer, 0, 0);
    Fill(it.viewer, L"one");
    it.ClickTop();
    ASSERT_NE(Editor(it.viewer), nullptr);
    EXPECT_EQ(TextOf(Editor(it.viewer)), L"one");
    EXPECT_EQ(GetFocus(), Editor(it.viewer));
    EXPECT_EQ(TheFakes().beeps, std::vector<UINT>{MB_ICONEXCLAMATION});
    EXPECT_EQ(it.viewer.Headers(), (Texts{L"a", L"b", L"c"}));
    Key(VK_ESCAPE);
}

TEST(EditRecords, StoresBeforeAnotherNodeIsShown) {
    const Opened it(kRecords, L"a.json");
    OpenEditor(it.viewer, 0, 0);
    Fill(it.viewer, L"5");
    it.ClickTop();
    EXPECT_EQ(Editor(it.viewer), nullptr);
    EXPECT_EQ(it.viewer.Headers(), (Texts{L"Attribute", L"Value"}));
    EditCell(it.viewer, 0, 1, L"8");
    it.Save();
    EXPECT_NE(it.Bytes().find("\"a\": 5"), std::string::npos);
    EXPECT_NE(it.Bytes().find("\"top\": 8"), std::string::npos);
}

TEST(EditRecords, StoresBeforeTheOutlineIsShown) {
    const Opened it(kRecords, L"a.json");
    OpenEditor(it.viewer, 0, 0);
    Fill(it.viewer, L"5");
    Choose(it.viewer, 5050);
    EXPECT_EQ(Editor(it.viewer), nullptr);
    EXPECT_EQ(it.viewer.ColumnCount(), 2);
    it.Save();
    EXPECT_NE(it.Bytes().find("\"a\": 5"), std::string::npos);
}

TEST(EditXmlTable, SplicesAttributesAndTextsIntoTheSource) {
    const Opened it(kCatalog, L"a.xml");
    EditCell(it.viewer, 0, it.Column(L"@id"), L"7'");
    EditCell(it.viewer, 1, it.Column(L"name"), L"a<b");
    EXPECT_EQ(it.viewer.Cell(1, it.Column(L"name")), L"a<b");
    it.Save();
    EXPECT_EQ(it.Bytes(),
              "<?xml version='1.0'?>\n<list>\n <item id='7&apos;'><name>one</name></item>\n"
              " <item id='2'><name>a&lt;b</name><tag/></item>\n</list>\n");
}

TEST(EditXmlTable, BeepsOnWhatHasNoSingleText) {
    const Opened it(kCatalog, L"a.xml");
    ClickCell(it.viewer, 1, it.Column(L"tag"));
    Key(VK_F2);
    EXPECT_EQ(Editor(it.viewer), nullptr);
    EXPECT_EQ(TheFakes().beeps, std::vector<UINT>{MB_ICONEXCLAMATION});
}

TEST(EditXmlTable, ChangesNoRowsAndColumns) {
    const Opened it(kCatalog, L"a.xml");
    ClickCell(it.viewer, 0, 0);
    TheFakes().boxAnswer = IDYES;
    Key('X', {VK_CONTROL});
    for (const int command : {5034, 5007, 5042}) {
        Choose(it.viewer, command);
    }
    EXPECT_EQ(it.viewer.RowCount(), 2);
    EXPECT_TRUE(TheFakes().boxes.empty());
    EXPECT_EQ(it.viewer.Status(4).find(L"*"), std::wstring::npos);
}

}  // namespace

}  // namespace rl::test
