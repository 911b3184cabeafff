// From rows to the units of the text they stand for.
#include "view/logic/locate_node.h"

#include <gtest/gtest.h>

#include <string>

namespace rl {
namespace {

std::wstring Cut(const std::wstring& text, const std::optional<LocatedRange>& range) {
    return range ? text.substr(range->start, range->length) : L"nothing";
}

TEST(LocateCsvRow, IsItsRecordWithoutTheLineBreak) {
    CsvModel model;
    ASSERT_TRUE(model.Parse(L"a,b\r\n\"1\r\nx\",2\r\n\r\n", {}));
    EXPECT_EQ(Cut(model.Text(), LocateRow(model, 0)), L"a,b");
    EXPECT_EQ(Cut(model.Text(), LocateRow(model, 1)), L"\"1\r\nx\",2");
    EXPECT_FALSE(LocateRow(model, -1));
    EXPECT_FALSE(LocateRow(model, 99));
}

TEST(LocateCsvRow, IsNothingForAnInsertedRow) {
    CsvModel model;
    ASSERT_TRUE(model.Parse(L"a,b\n1,2\n", {}));
    ASSERT_TRUE(model.InsertRowBelow(0));
    EXPECT_FALSE(LocateRow(model, 1));
    EXPECT_EQ(Cut(model.Text(), LocateRow(model, 2)), L"1,2");
}

TEST(LocateOutlineRow, IsTheValueOfAJsonRow) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"{\"a\": [1, 22]}", false, false));
    const TreeTableView outline(document, 0);
    EXPECT_EQ(Cut(document.text, LocateRow(outline, 0)), document.text);
    EXPECT_EQ(Cut(document.text, LocateRow(outline, outline.RowCount() - 1)), L"22");
    EXPECT_FALSE(LocateRow(outline, -1));
    EXPECT_FALSE(LocateRow(outline, outline.RowCount()));
}

TEST(LocateJsonRow, IsTheRecordOrTheTableItself) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"[{\"a\": 1}, {\"a\": 2}]", false, false));
    const JsonTableView table(&document, document.root, L"", false);
    EXPECT_EQ(Cut(document.text, LocateRow(table, document, 2, document.root)), L"{\"a\": 2}");
    EXPECT_EQ(Cut(document.text, LocateRow(table, document, 0, document.root)), document.text);
    EXPECT_FALSE(LocateRow(table, document, -1, -1));
    EXPECT_FALSE(LocateRow(table, document, -1, 9999));
}

TEST(LocateXmlRow, IsTheElementOrTheTableItself) {
    XmlDocument document;
    ASSERT_TRUE(document.Parse(L"<r><i>1</i>\n<i>22</i></r>"));
    const int32_t root = document.FirstElement();
    const XmlTableView table(&document, root, L"");
    EXPECT_EQ(Cut(document.text, LocateRow(table, document, 2, root)), L"<i>22</i>");
    EXPECT_EQ(Cut(document.text, LocateRow(table, document, 0, root)), document.text);
    EXPECT_FALSE(LocateRow(table, document, 0, -1));
}

}  // namespace
}  // namespace rl
