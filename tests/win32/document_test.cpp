// A document as the viewer holds it: which value a cell of each view stands for.
#include "view/document.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

class DocumentValues : public testing::Test {
protected:
    void LoadJson(std::wstring text) {
        document.json = std::make_unique<JsonDocument>();
        ASSERT_TRUE(document.json->Parse(std::move(text), false, false));
    }
    void LoadXml(std::wstring text) {
        document.xml = std::make_unique<XmlDocument>();
        ASSERT_TRUE(document.xml->Parse(std::move(text)));
    }
    void Show(const ITableModel& model) { document.rows = std::make_unique<RowView>(model, false); }
    bool Set(int32_t row, int32_t column, const std::wstring& text) {
        reason.clear();
        return document.SetValue(row, column, text, reason);
    }

    Document document;
    std::wstring reason;
};

TEST_F(DocumentValues, AreEmptyAndUnmodifiedWithoutADocument) {
    EXPECT_FALSE(document.IsModified());
    EXPECT_FALSE(document.TextIsOutdated());
    EXPECT_EQ(document.Serialize(), L"");
    document.ClearModified();
}

TEST_F(DocumentValues, OfDelimitedTextAreItsCells) {
    document.csv = std::make_unique<CsvModel>();
    ASSERT_TRUE(document.csv->Parse(L"# c\na,b\n", {}));
    Show(*document.csv);
    EXPECT_EQ(document.ValueOf(1, 1), L"b");
    EXPECT_TRUE(Set(1, 1, L"x"));
    EXPECT_FALSE(Set(0, 0, L"x")) << "a comment";
    EXPECT_FALSE(Set(2, 0, L"x")) << "no such row";
    EXPECT_EQ(document.Serialize(), L"# c\na,x\n");
    EXPECT_TRUE(document.TextIsOutdated());
    document.ClearModified();
    EXPECT_FALSE(document.TextIsOutdated());
    document.hasSavedEdits = true;
    EXPECT_TRUE(document.TextIsOutdated());
}

TEST_F(DocumentValues, OfARecordTableAreItsNodes) {
    LoadJson(L"[{\"a\":1,\"b\":\"x\"},{\"a\":2,\"c\":[]}]");
    document.jsonTable =
        std::make_unique<JsonTableView>(document.json.get(), document.json->root, L"N/A", false);
    Show(*document.jsonTable);
    EXPECT_EQ(document.ValueOf(2, 0), L"2");
    EXPECT_TRUE(Set(2, 0, L"3"));
    EXPECT_TRUE(Set(1, 1, L"y"));
    EXPECT_FALSE(Set(1, 0, L"x"));
    EXPECT_EQ(reason, L"INVALID NUMBER");
    EXPECT_FALSE(Set(0, 0, L"x")) << "a column name";
    EXPECT_FALSE(Set(2, 1, L"x")) << "a missing cell";
    EXPECT_FALSE(Set(2, 2, L"x")) << "an array";
    EXPECT_EQ(document.jsonTable->CellText(2, 0), L"3");
    std::wstring compact;
    document.json->WriteCompact(document.json->root, compact);
    EXPECT_EQ(compact, L"[{\"a\":1,\"b\":\"y\"},{\"a\":3,\"c\":[]}]");
}

TEST_F(DocumentValues, OfMembersAreTheirValues) {
    LoadJson(L"{\"k\":true,\"o\":{}}");
    document.jsonTable =
        std::make_unique<JsonTableView>(document.json.get(), document.json->root, L"N/A", false);
    Show(*document.jsonTable);
    EXPECT_FALSE(Set(1, 0, L"x")) << "a key";
    EXPECT_FALSE(Set(1, 1, L"yes"));
    EXPECT_EQ(reason, L"USE true OR false");
    EXPECT_TRUE(Set(1, 1, L"false"));
    EXPECT_FALSE(Set(2, 1, L"x")) << "an object";
    EXPECT_TRUE(document.IsModified());
}

TEST_F(DocumentValues, OfAnXmlTableAreAttributesAndSingleTexts) {
    LoadXml(L"<r><i a='1'>one</i><i a='2'><b>two</b></i></r>");
    document.xmlTable =
        std::make_unique<XmlTableView>(document.xml.get(), document.xml->FirstElement(), L"");
    Show(*document.xmlTable);
    int edited = 0;
    for (int32_t row = 0; row < document.xmlTable->RowCount(); ++row) {
        for (int32_t column = 0; column < document.xmlTable->ColumnCount(); ++column) {
            const bool editable = document.xmlTable->IsCellEditable(row, column);
            EXPECT_EQ(Set(row, column, L"<n>"), editable) << row << ":" << column;
            edited += editable ? 1 : 0;
            EXPECT_EQ(document.xmlTable->CellText(row, column) == L"<n>", editable);
        }
    }
    EXPECT_GE(edited, 3);
    EXPECT_EQ(document.Serialize(),
              L"<r><i a='&lt;n&gt;'>one</i><i a='&lt;n&gt;'><b>&lt;n&gt;</b></i></r>");
}

TEST_F(DocumentValues, OfAnOutlineAreWholeThoughItsRowsAreOneLine) {
    LoadJson(L"{\"s\":\"one\\ntwo\"}");
    document.outline = std::make_unique<TreeTableView>(*document.json, 0);
    Show(*document.outline);
    ASSERT_TRUE(document.ShowsOutline());
    EXPECT_EQ(document.outline->CellText(1, 1), L"one two");
    EXPECT_EQ(document.ValueOf(1, 1), L"one\ntwo");
    EXPECT_FALSE(Set(1, 0, L"x")) << "a name";
    EXPECT_TRUE(Set(1, 1, L"x"));
    EXPECT_EQ(document.ValueOf(1, 1), L"x");
}

TEST_F(DocumentValues, OfAnXmlOutlineSayWhyTheyRefuse) {
    LoadXml(L"<r a='1'><!--c--></r>");
    document.outline = std::make_unique<TreeTableView>(*document.xml, 0);
    Show(*document.outline);
    int refused = 0;
    for (int32_t row = 0; row < document.outline->RowCount(); ++row) {
        const bool isComment = document.outline->IsCommentRow(row);
        if (isComment) {
            EXPECT_FALSE(Set(row, 1, L"--"));
            EXPECT_EQ(reason, L"COMMENT CANNOT CONTAIN --");
            ++refused;
        }
    }
    EXPECT_EQ(refused, 1);
    EXPECT_FALSE(document.IsModified());
}

}  // namespace
}  // namespace rl
