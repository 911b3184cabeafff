#include "model/json_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace rl {
namespace {

using Rows = std::vector<std::vector<std::wstring>>;

Rows AllCells(const JsonTableView& table) {
    Rows rows;
    for (int32_t row = 0; row < table.RowCount(); ++row) {
        rows.emplace_back();
        for (int32_t column = 0; column < table.ColumnCount(); ++column) {
            rows.back().push_back(table.CellText(row, column));
        }
    }
    return rows;
}

Rows Table(const std::wstring& text, bool firstRecordOnly = false) {
    JsonDocument document;
    EXPECT_TRUE(document.Parse(text, false, false));
    return AllCells(JsonTableView(&document, document.root, L"N/A", firstRecordOnly));
}

TEST(JsonTable, ShowsAnArrayAsRecordsBelowARowOfNames) {
    EXPECT_EQ(Table(L"[{\"a\":1},{\"b\":2,\"a\":3}]"),
              (Rows{{L"a", L"b"}, {L"1", L"N/A"}, {L"3", L"2"}}));
    EXPECT_EQ(Table(L"[{\"a\":1},{\"b\":2,\"a\":3}]", true), (Rows{{L"a"}, {L"1"}, {L"3"}}));
    EXPECT_EQ(Table(L"[{\"A\":1},{\"a\":2}]"),
              (Rows{{L"A", L"a"}, {L"1", L"N/A"}, {L"N/A", L"2"}}));
}

TEST(JsonTable, StopsAtTheFirstObjectNotAtTheFirstElement) {
    EXPECT_EQ(Table(L"[7,{\"a\":1},{\"b\":2}]", true), (Rows{{L"a"}, {L"N/A"}, {L"1"}, {L"N/A"}}));
    EXPECT_EQ(Table(L"[{},{\"b\":2}]", true), (Rows{{L"Element"}, {L"[Object]"}, {L"[Object]"}}));
}

TEST(JsonTable, ShowsElementsThatAreNoRecordsInOneColumn) {
    EXPECT_EQ(Table(L"[1,\"x\",null]"), (Rows{{L"Element"}, {L"1"}, {L"x"}, {L"null"}}));
    EXPECT_EQ(Table(L"[{},[1]]"), (Rows{{L"Element"}, {L"[Object]"}, {L"[Array]"}}));
    EXPECT_EQ(Table(L"[]"), (Rows{{L"Element"}}));
}

TEST(JsonTable, LeavesTheRowOfAnotherKindOfElementMissing) {
    EXPECT_EQ(Table(L"[{\"a\":1},5]"), (Rows{{L"a"}, {L"1"}, {L"N/A"}}));
}

TEST(JsonTable, TakesTheFirstOfARepeatedKey) {
    EXPECT_EQ(Table(L"[{\"a\":1,\"a\":2}]"), (Rows{{L"a"}, {L"1"}}));
    EXPECT_EQ(Table(L"[{\"a\":1,\"b\":0,\"\\u0061\":2}]"), (Rows{{L"a", L"b"}, {L"1", L"0"}}));
}

TEST(JsonTable, ComparesKeysAsDecoded) {
    EXPECT_EQ(Table(L"[{\"a\":1},{\"\\u0061\":2}]"), (Rows{{L"a"}, {L"1"}, {L"2"}}));
    EXPECT_EQ(Table(L"[{\"\\u0061\":1},{\"a\":2}]"), (Rows{{L"a"}, {L"1"}, {L"2"}}));
    EXPECT_EQ(Table(L"[{\"\\n\":1,\"\":2},{\"n\":3}]"),
              (Rows{{L"\n", L"", L"n"}, {L"1", L"2", L"N/A"}, {L"N/A", L"N/A", L"3"}}));
}

TEST(JsonTable, ShowsAnObjectAsAttributesAndValues) {
    EXPECT_EQ(Table(L"{\"k\":{\"z\":1},\"\\u0061\":\"t\",\"k\":2}"),
              (Rows{{L"Attribute", L"Value"}, {L"k", L"[Object]"}, {L"a", L"t"}, {L"k", L"2"}}));
    EXPECT_EQ(Table(L"{}"), (Rows{{L"Attribute", L"Value"}}));
}

TEST(JsonTable, ShowsAScalarAsOneCell) {
    EXPECT_EQ(Table(L"\"x\\ty\""), (Rows{{L"Value"}, {L"x\ty"}}));
}

TEST(JsonTable, HasOnlyAnEmptyHeaderWithoutANode) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"1", false, false));
    for (const JsonTableView& table :
         {JsonTableView(&document, -1, L"", false), JsonTableView(nullptr, 0, L"", false)}) {
        EXPECT_EQ(table.RowCount(), 1);
        EXPECT_EQ(table.ColumnCount(), 0);
        EXPECT_EQ(table.CellText(0, 0), L"");
        EXPECT_EQ(table.CellNode(1, 0), -1);
        EXPECT_EQ(table.RowNode(1), -1);
    }
}

TEST(JsonTable, LetsOnlyScalarsBeEdited) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"[{\"a\":1,\"b\":[]},{\"a\":2}]", false, false));
    const JsonTableView records(&document, 0, L"N/A", false);
    EXPECT_FALSE(records.IsCellEditable(0, 0));
    EXPECT_TRUE(records.IsCellEditable(1, 0));
    EXPECT_FALSE(records.IsCellEditable(1, 1));
    EXPECT_FALSE(records.IsCellEditable(2, 1));
    EXPECT_FALSE(records.IsCellEditable(3, 0));
    EXPECT_FALSE(records.IsCellEditable(1, 2));
    EXPECT_FALSE(records.IsCellEditable(-1, -1));
    EXPECT_FALSE(records.IsCommentRow(1));
    const JsonTableView members(&document, 1, L"N/A", false);
    EXPECT_FALSE(members.IsCellEditable(1, 0));
    EXPECT_TRUE(members.IsCellEditable(1, 1));
    EXPECT_FALSE(members.IsCellEditable(2, 1));
}

TEST(JsonTable, LetsNoObjectBeEditedAndEveryScalarElement) {
    JsonDocument members;
    ASSERT_TRUE(members.Parse(L"{\"k\":{\"z\":1}}", false, false));
    const JsonTableView member(&members, 0, L"N/A", false);
    EXPECT_EQ(member.CellText(1, 0), L"k");
    EXPECT_EQ(member.CellText(1, 1), L"[Object]");
    EXPECT_FALSE(member.IsCellEditable(1, 0));
    EXPECT_FALSE(member.IsCellEditable(1, 1));
    JsonDocument elements;
    ASSERT_TRUE(elements.Parse(L"[1,\"x\",[2],{}]", false, false));
    const JsonTableView element(&elements, 0, L"N/A", false);
    EXPECT_TRUE(element.IsCellEditable(1, 0));
    EXPECT_TRUE(element.IsCellEditable(2, 0));
    EXPECT_FALSE(element.IsCellEditable(3, 0));
    EXPECT_FALSE(element.IsCellEditable(4, 0));
}

TEST(JsonTable, NamesTheNodesBehindRowsAndCells) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"[{\"a\":1},{\"b\":2}]", false, false));
    const JsonTableView table(&document, 0, L"", false);
    EXPECT_EQ(table.RowNode(0), -1);
    EXPECT_EQ(table.RowNode(2), 3);
    EXPECT_EQ(table.RowNode(3), -1);
    EXPECT_EQ(table.CellNode(0, 0), -1);
    EXPECT_EQ(table.CellNode(1, 0), 2);
    EXPECT_EQ(table.CellNode(1, 1), -1);
    EXPECT_EQ(table.CellNode(2, 1), 4);
}

TEST(JsonTable, ShowsEditsAtOnce) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"[{\"a\":1}]", false, false));
    const JsonTableView table(&document, 0, L"", false);
    ASSERT_TRUE(document.SetValue(table.CellNode(1, 0), L"5"));
    EXPECT_EQ(table.CellText(1, 0), L"5");
}

TEST(JsonTable, HoldsRecordsWithAKeyEachOfTheirOwn) {
    constexpr int32_t kRecords = 100'000;
    std::wstring text = L"[";
    for (int32_t i = 0; i < kRecords; ++i) {
        const std::wstring number = std::to_wstring(i);
        text += L"{\"key " + number + L"\":" + number + L",\"all\":-1,\"all\":2},";
    }
    JsonDocument document;
    ASSERT_TRUE(document.Parse(text + L"]", false, false));
    const JsonTableView table(&document, 0, L"N/A", false);
    ASSERT_EQ(table.RowCount(), kRecords + 1);
    ASSERT_EQ(table.ColumnCount(), kRecords + 1);
    for (const int32_t record : {0, 1, 777, kRecords - 1}) {
        const int32_t column = record == 0 ? 0 : record + 1;
        EXPECT_EQ(table.CellText(0, column), L"key " + std::to_wstring(record));
        EXPECT_EQ(table.CellText(record + 1, column), std::to_wstring(record));
        EXPECT_EQ(table.CellText(record + 1, 1), L"-1");
        EXPECT_EQ(table.CellText(record + 1, 5), record == 4 ? L"4" : L"N/A");
    }
}

}  // namespace
}  // namespace rl
