#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "model/csv_model.h"
#include "tests/support/allocation_limit.h"

namespace rl {
namespace {

/// A model to edit, and what saving it would write.
class CsvEdits : public testing::Test {
protected:
    void Load(std::wstring text, const CsvOptions& options = {}) {
        ASSERT_TRUE(model.Parse(std::move(text), options));
    }
    std::wstring Saved() { return model.Serialize(); }

    CsvModel model;
};

TEST_F(CsvEdits, ShowAChangedCellAtOnce) {
    Load(L"a,b\n1,2\n");
    model.SetCellText(1, 0, L" new ");
    EXPECT_EQ(model.CellText(1, 0), L" new ");
    EXPECT_EQ(model.CellText(1, 1), L"2");
    EXPECT_TRUE(model.IsModified());
}

TEST_F(CsvEdits, MarkTheDocumentUntilItIsSaved) {
    Load(L"a\nb\n");
    EXPECT_FALSE(model.IsModified());
    model.SetCellText(0, 0, L"x");
    EXPECT_TRUE(model.IsModified());
    model.ClearModified();
    EXPECT_FALSE(model.IsModified());
    EXPECT_EQ(model.CellText(0, 0), L"x");
    EXPECT_TRUE(model.DeleteRow(0));
    EXPECT_TRUE(model.IsModified());
}

TEST_F(CsvEdits, AreRefusedOutsideTheTable) {
    Load(L"a,b\n1,2\n");
    model.SetCellText(2, 0, L"x");
    model.SetCellText(-1, 0, L"x");
    model.SetCellText(0, 2, L"x");
    model.SetCellText(0, -1, L"x");
    EXPECT_FALSE(model.InsertRowBelow(2));
    EXPECT_FALSE(model.InsertRowBelow(-1));
    EXPECT_FALSE(model.DeleteRow(2));
    EXPECT_FALSE(model.DeleteRow(-1));
    EXPECT_FALSE(model.DeleteColumn(2));
    EXPECT_FALSE(model.DeleteColumn(-1));
    EXPECT_FALSE(model.IsModified());
    EXPECT_EQ(Saved(), L"a,b\n1,2\n");
}

TEST_F(CsvEdits, AreRefusedOnComments) {
    Load(L"# c\na,b\n");
    model.SetCellText(0, 0, L"x");
    EXPECT_EQ(model.CellText(0, 0), L"# c");
    EXPECT_FALSE(model.IsModified());
}

TEST_F(CsvEdits, RewriteOnlyTheEditedField) {
    Load(L"a , \"b\" ,c\n1, 2 ,\"3\"\r\n x , y , z \n");
    model.SetCellText(1, 0, L"9");
    EXPECT_EQ(Saved(), L"a , \"b\" ,c\n9, 2 ,\"3\"\r\n x , y , z \n");
}

TEST_F(CsvEdits, KeepAQuotedFieldQuoted) {
    Load(L"\"a\",b\n");
    model.SetCellText(0, 0, L"x");
    model.SetCellText(0, 1, L"y");
    EXPECT_EQ(Saved(), L"\"x\",y\n");
}

TEST_F(CsvEdits, QuoteAValueThatNeedsIt) {
    Load(L"a,b\n1,2\n");
    model.SetCellText(0, 0, L"x,y");
    model.SetCellText(1, 1, L"say \"hi\"\n");
    EXPECT_EQ(Saved(), L"\"x,y\",b\n1,\"say \"\"hi\"\"\n\"\n");
}

TEST_F(CsvEdits, KeepEachRowsOwnLineBreak) {
    Load(L"a\nb\r\nc\rd");
    model.SetCellText(0, 0, L"1");
    model.SetCellText(1, 0, L"2");
    model.SetCellText(2, 0, L"3");
    model.SetCellText(3, 0, L"4");
    EXPECT_EQ(Saved(), L"1\n2\r\n3\r4");
}

TEST_F(CsvEdits, PadAShortRowUpToTheLastEditedColumn) {
    Load(L"a,b,c,d\n1\n");
    model.SetCellText(1, 2, L"x");
    EXPECT_EQ(model.CellText(1, 2), L"x");
    EXPECT_EQ(Saved(), L"a,b,c,d\n1,,x\n");
}

TEST_F(CsvEdits, PadAnEmptyRow) {
    Load(L"a,b,c\n\n1,2,3\n");
    model.SetCellText(1, 1, L"x");
    EXPECT_EQ(Saved(), L"a,b,c\n,x\n1,2,3\n");
}

TEST_F(CsvEdits, LetTheLastValueOfACellWin) {
    Load(L"a,b\n");
    model.SetCellText(0, 1, L"x");
    model.SetCellText(0, 1, L"y");
    EXPECT_EQ(Saved(), L"a,y\n");
}

TEST_F(CsvEdits, InsertAnEmptyRowBelow) {
    Load(L"a,b\n1,2\n");
    ASSERT_TRUE(model.InsertRowBelow(0));
    ASSERT_EQ(model.RowCount(), 3);
    EXPECT_EQ(model.CellText(1, 0), L"");
    EXPECT_EQ(model.CellText(2, 0), L"1");
    EXPECT_FALSE(model.IsCommentRow(1));
    EXPECT_TRUE(model.IsCellEditable(1, 1));
    EXPECT_EQ(model.RawRow(1), L"");
    EXPECT_EQ(Saved(), L"a,b\n,\n1,2\n");
}

TEST_F(CsvEdits, FillAnInsertedRow) {
    Load(L"a,b\n1,2\n");
    ASSERT_TRUE(model.InsertRowBelow(0));
    model.SetCellText(1, 0, L"x,y");
    model.SetCellText(1, 1, L"z");
    EXPECT_EQ(model.CellText(1, 0), L"x,y");
    EXPECT_EQ(Saved(), L"a,b\n\"x,y\",z\n1,2\n");
}

TEST_F(CsvEdits, WriteNoBreakAfterAnInsertedLastRow) {
    Load(L"a,b\n");
    ASSERT_TRUE(model.InsertRowBelow(0));
    model.SetCellText(1, 0, L"x");
    EXPECT_EQ(Saved(), L"a,b\nx,");
}

TEST_F(CsvEdits, EndARowWithoutBreakBeforeAnotherFollows) {
    Load(L"a,b");
    ASSERT_TRUE(model.InsertRowBelow(0));
    model.SetCellText(1, 0, L"x");
    model.SetCellText(1, 1, L"y");
    EXPECT_EQ(Saved(), L"a,b\r\nx,y");
}

TEST_F(CsvEdits, EndAnEditedRowWithoutBreakToo) {
    Load(L"1\na");
    model.SetCellText(1, 0, L"b");
    ASSERT_TRUE(model.InsertRowBelow(1));
    ASSERT_TRUE(model.InsertRowBelow(2));
    model.SetCellText(2, 0, L"c");
    model.SetCellText(3, 0, L"d");
    EXPECT_EQ(Saved(), L"1\nb\nc\nd");
}

TEST_F(CsvEdits, EndACommentWithoutBreakToo) {
    Load(L"a,b\n# c", {.commentMode = CommentMode::DoNotParse});
    ASSERT_TRUE(model.InsertRowBelow(1));
    EXPECT_EQ(Saved(), L"a,b\n# c\n,");
}

TEST_F(CsvEdits, InsertSeveralRowsWhereAsked) {
    Load(L"a\nb\n");
    ASSERT_TRUE(model.InsertRowBelow(0));
    model.SetCellText(1, 0, L"1");
    ASSERT_TRUE(model.InsertRowBelow(0));
    model.SetCellText(1, 0, L"2");
    ASSERT_TRUE(model.InsertRowBelow(2));
    model.SetCellText(3, 0, L"3");
    EXPECT_EQ(Saved(), L"a\n2\n1\n3\nb\n");
}

TEST_F(CsvEdits, WriteTheTextsOwnLineEnding) {
    Load(L"a\rb\r");
    ASSERT_TRUE(model.InsertRowBelow(0));
    model.SetCellText(1, 0, L"x");
    EXPECT_EQ(Saved(), L"a\rx\rb\r");
}

TEST_F(CsvEdits, DeleteARow) {
    Load(L"a\nb\nc\n");
    ASSERT_TRUE(model.DeleteRow(1));
    EXPECT_EQ(model.RowCount(), 2);
    EXPECT_EQ(model.CellText(1, 0), L"c");
    EXPECT_EQ(Saved(), L"a\nc\n");
}

TEST_F(CsvEdits, DropTheEditsOfADeletedRow) {
    Load(L"a\nb\nc\n");
    model.SetCellText(1, 0, L"gone");
    model.SetCellText(2, 0, L"kept");
    ASSERT_TRUE(model.DeleteRow(1));
    EXPECT_EQ(Saved(), L"a\nkept\n");
}

TEST_F(CsvEdits, DeleteAnInsertedRow) {
    Load(L"a\nb\n");
    ASSERT_TRUE(model.InsertRowBelow(0));
    ASSERT_TRUE(model.DeleteRow(1));
    EXPECT_EQ(Saved(), L"a\nb\n");
}

TEST_F(CsvEdits, DeleteManyRowsInOneGo) {
    Load(L"a\nb\nc\nd\ne\n");
    ASSERT_TRUE(model.InsertRowBelow(1));
    model.SetCellText(2, 0, L"new");
    const int32_t rows[] = {0, 2, 4, 5};
    ASSERT_TRUE(model.DeleteRows(rows));
    EXPECT_EQ(model.RowCount(), 2);
    EXPECT_TRUE(model.IsModified());
    EXPECT_EQ(Saved(), L"b\nc\n");
}

TEST_F(CsvEdits, DeleteManyRowsAroundHiddenOnes) {
    Load(L"# c\na\n\nb\n# d\nc\n", {.commentMode = CommentMode::Hide});
    const int32_t rows[] = {0, 2};
    ASSERT_TRUE(model.DeleteRows(rows));
    EXPECT_EQ(model.CellText(0, 0), L"b");
    EXPECT_EQ(Saved(), L"# c\n\nb\n# d\n");
}

TEST_F(CsvEdits, DeleteNoneOfManyRowsThatAreNotInOrder) {
    Load(L"a\nb\nc\n");
    const int32_t twice[] = {1, 1};
    const int32_t backwards[] = {1, 0};
    const int32_t outside[] = {1, 3};
    const int32_t before[] = {-1, 1};
    EXPECT_FALSE(model.DeleteRows({}));
    EXPECT_FALSE(model.DeleteRows(twice));
    EXPECT_FALSE(model.DeleteRows(backwards));
    EXPECT_FALSE(model.DeleteRows(outside));
    EXPECT_FALSE(model.DeleteRows(before));
    EXPECT_FALSE(model.IsModified());
    EXPECT_EQ(model.RowCount(), 3);
}

TEST_F(CsvEdits, FindARowAgainByItsNumberInTheFile) {
    Load(L"# c\n\na\n# d\nb\nc\n", {.commentMode = CommentMode::Hide});
    EXPECT_EQ(model.FileRow(0), 2);
    EXPECT_EQ(model.FileRow(1), 4);
    EXPECT_EQ(model.FileRow(3), -1);
    EXPECT_EQ(model.FileRow(-1), -1);
    EXPECT_EQ(model.RowAt(4), 1);
    EXPECT_EQ(model.RowAt(3), 1);  // hidden: the next one
    EXPECT_EQ(model.RowAt(0), 0);
    EXPECT_EQ(model.RowAt(99), 3);
    ASSERT_TRUE(model.InsertRowBelow(0));
    EXPECT_EQ(model.FileRow(1), 3);
    EXPECT_EQ(model.FileRow(2), 5);
    EXPECT_EQ(model.RowAt(5), 2);
}

TEST_F(CsvEdits, FindARowAgainBelowCommentsHiddenAtTheTop) {
    Load(L"# c\n\na,b\n1,2\n", {.commentMode = CommentMode::Auto});
    EXPECT_EQ(model.FileRow(1), 3);
    EXPECT_EQ(model.RowAt(3), 1);
    EXPECT_EQ(model.RowAt(1), 0);
    EXPECT_EQ(model.RowAt(4), 2);
}

TEST_F(CsvEdits, TakeNoRoomForTheEmptyCellsOfInsertedRows) {
    Load(std::wstring(200'000, L',') + L"\n");
    const test::AllocationLimit limit(size_t{1} << 20);
    for (int row = 0; row < 1000; ++row) {
        ASSERT_TRUE(model.InsertRowBelow(0));
    }
    model.SetCellText(1, 150'000, L"x");
    EXPECT_EQ(model.CellText(1, 150'000), L"x");
    EXPECT_EQ(model.CellText(1, 149'999), L"");
}

TEST_F(CsvEdits, WriteWhatLooksLikeACommentAsItStands) {
    Load(L"a,b\n1,2\n");
    model.SetCellText(1, 0, L"#x");
    ASSERT_TRUE(model.InsertRowBelow(0));
    model.SetCellText(1, 0, L";y");
    EXPECT_EQ(Saved(), L"a,b\n;y,\n#x,2\n");
    Load(Saved());
    EXPECT_EQ(model.CellText(2, 0), L"#x");
    EXPECT_TRUE(model.IsCommentRow(2));
}

// The LF of an empty row behind a CR would be one line break with it.
TEST_F(CsvEdits, KeepAnEmptyRowApartFromTheCrAboveIt) {
    Load(L"a\rb\nc\n");
    model.SetCellText(1, 0, L"");
    EXPECT_EQ(Saved(), L"a\r\r\nc\n");
    Load(L"a\rb\n\n\nc\n");
    ASSERT_TRUE(model.DeleteRow(1));
    EXPECT_EQ(Saved(), L"a\r\r\n\nc\n");
    Load(L"a\nb\rc\n");
    ASSERT_TRUE(model.InsertRowBelow(1));
    EXPECT_EQ(Saved(), L"a\nb\r\r\nc\n");
    Load(L"a,b\n1,2\r3\n\n");
    ASSERT_TRUE(model.DeleteColumn(0));
    EXPECT_EQ(Saved(), L"b\n2\r\r\n\n");
}

TEST_F(CsvEdits, MayDeleteEveryRow) {
    Load(L"a\nb");
    ASSERT_TRUE(model.DeleteRow(0));
    ASSERT_TRUE(model.DeleteRow(0));
    EXPECT_EQ(model.RowCount(), 0);
    EXPECT_FALSE(model.InsertRowBelow(0));
    EXPECT_EQ(Saved(), L"");
}

TEST_F(CsvEdits, DeleteAColumn) {
    Load(L"a,b,c\n1,2,3\r\n4\n");
    ASSERT_TRUE(model.DeleteColumn(1));
    EXPECT_EQ(model.ColumnCount(), 2);
    EXPECT_EQ(model.CellText(0, 1), L"c");
    EXPECT_EQ(Saved(), L"a,c\n1,3\r\n4\n");
}

TEST_F(CsvEdits, DeleteTheFirstAndTheLastColumn) {
    Load(L"a,b,c\n1,2,3\n");
    ASSERT_TRUE(model.DeleteColumn(0));
    ASSERT_TRUE(model.DeleteColumn(1));
    EXPECT_EQ(model.CellText(1, 0), L"2");
    EXPECT_EQ(Saved(), L"b\n2\n");
}

TEST_F(CsvEdits, MayDeleteEveryColumn) {
    Load(L"a,b\n1,2\n");
    ASSERT_TRUE(model.DeleteColumn(0));
    ASSERT_TRUE(model.DeleteColumn(0));
    EXPECT_EQ(model.ColumnCount(), 0);
    EXPECT_FALSE(model.DeleteColumn(0));
    EXPECT_EQ(Saved(), L"\n\n");
}

TEST_F(CsvEdits, LeaveCommentsAloneWhenAColumnGoes) {
    Load(L"# x,y\nTitle,z\na,b,c\n1,2,3\n");
    ASSERT_TRUE(model.DeleteColumn(0));
    EXPECT_EQ(Saved(), L"# x,y\nTitle,z\nb,c\n2,3\n");
}

TEST_F(CsvEdits, KeepFieldsAsTheyStandWhenAColumnGoes) {
    Load(L" a ,\"b\", c\n");
    ASSERT_TRUE(model.DeleteColumn(0));
    EXPECT_EQ(Saved(), L"\"b\", c\n");
}

TEST_F(CsvEdits, GoToTheRightColumnAfterOneWasDeleted) {
    Load(L"a,b,c\n1,2,3\n");
    ASSERT_TRUE(model.DeleteColumn(0));
    model.SetCellText(1, 1, L"x");
    EXPECT_EQ(model.CellText(1, 1), L"x");
    EXPECT_EQ(Saved(), L"b,c\n2,x\n");
}

TEST_F(CsvEdits, GoWithTheColumnTheyStandIn) {
    Load(L"a,b,c\n1\n");
    model.SetCellText(1, 2, L"gone");
    ASSERT_TRUE(model.DeleteColumn(2));
    EXPECT_EQ(Saved(), L"a,b\n1\n");
}

TEST_F(CsvEdits, PadAcrossADeletedColumn) {
    Load(L"a,b,c,d\n1\n");
    ASSERT_TRUE(model.DeleteColumn(1));
    model.SetCellText(1, 2, L"x");
    EXPECT_EQ(Saved(), L"a,c,d\n1,,x\n");
}

TEST_F(CsvEdits, LeaveTheDeletedColumnOutOfInsertedRows) {
    Load(L"a,b,c\n1,2,3\n");
    ASSERT_TRUE(model.InsertRowBelow(0));
    model.SetCellText(1, 0, L"x");
    model.SetCellText(1, 1, L"gone");
    model.SetCellText(1, 2, L"y");
    ASSERT_TRUE(model.DeleteColumn(1));
    EXPECT_EQ(model.CellText(1, 1), L"y");
    ASSERT_TRUE(model.InsertRowBelow(1));
    model.SetCellText(2, 1, L"z");
    EXPECT_EQ(Saved(), L"a,c\nx,y\n,z\n1,3\n");
}

TEST_F(CsvEdits, SaveHiddenRows) {
    Load(L"# c\n\na,b\n\n# d\n1,2\n", {.commentMode = CommentMode::Hide});
    model.SetCellText(1, 0, L"9");
    ASSERT_TRUE(model.InsertRowBelow(0));
    ASSERT_EQ(model.RowCount(), 3);
    model.SetCellText(1, 0, L"x");
    EXPECT_EQ(Saved(), L"# c\n\na,b\nx,\n\n# d\n9,2\n");
    ASSERT_TRUE(model.DeleteRow(0));
    EXPECT_EQ(model.CellText(0, 0), L"x");
    EXPECT_EQ(Saved(), L"# c\n\nx,\n\n# d\n9,2\n");
}

TEST_F(CsvEdits, SaveRowsHiddenAtTheTop) {
    Load(L"# c\n\na,b\n1,2\n", {.commentMode = CommentMode::Auto});
    ASSERT_TRUE(model.DeleteRow(0));
    EXPECT_EQ(model.CellText(0, 0), L"1");
    ASSERT_TRUE(model.InsertRowBelow(0));
    model.SetCellText(1, 1, L"z");
    EXPECT_EQ(Saved(), L"# c\n\n1,2\n,z");
}

TEST_F(CsvEdits, WriteAnUntouchedTextExactly) {
    const std::wstring text = L"sep=;\r\n\n a ; \"b\"x;\n;;\r# \r\r\n\"q\r\n;\"";
    for (const CommentMode mode :
         {CommentMode::Parse, CommentMode::DoNotParse, CommentMode::Hide, CommentMode::Auto}) {
        Load(text, {.commentMode = mode});
        EXPECT_EQ(Saved(), text);
    }
}

TEST_F(CsvEdits, LeaveTheLoadedTextUntouched) {
    Load(L"a,b\n");
    model.SetCellText(0, 0, L"x");
    EXPECT_TRUE(model.DeleteColumn(1));
    EXPECT_EQ(model.Text(), L"a,b\n");
}

TEST_F(CsvEdits, QuoteFieldsInTheDocumentsOwnDialect) {
    Load(L"a;b\n", {.quoteChar = L'\''});
    EXPECT_EQ(model.QuoteField(L"a;b", false), L"'a;b'");
    EXPECT_EQ(model.QuoteField(L"a,b", false), L"a,b");
    EXPECT_EQ(model.QuoteField(L"it's", false), L"'it''s'");
    EXPECT_EQ(model.QuoteField(L"x", true), L"'x'");
}

TEST_F(CsvEdits, EndAtTheLastColumnAKeyCanName) {
    Load(std::wstring(1048576, L','));
    ASSERT_EQ(model.ColumnCount(), 1048577);
    EXPECT_TRUE(model.IsCellEditable(0, 1048575));
    EXPECT_FALSE(model.IsCellEditable(0, 1048576));
    model.SetCellText(0, 1048576, L"x");
    EXPECT_EQ(model.CellText(0, 1048576), L"");
    EXPECT_FALSE(model.IsModified());
}

}  // namespace
}  // namespace rl
