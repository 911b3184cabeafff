#include "model/csv_model.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "model/csv_model_state.h"

namespace rl {
namespace {

using Row = std::vector<std::wstring>;
using Table = std::vector<Row>;

constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
constexpr int32_t kMin = std::numeric_limits<int32_t>::min();

Table TableOf(const CsvModel& model) {
    Table table;
    for (int32_t row = 0; row < model.RowCount(); ++row) {
        Row cells;
        for (int32_t column = 0; column < model.ColumnCount(); ++column) {
            cells.push_back(model.CellText(row, column));
        }
        table.push_back(std::move(cells));
    }
    return table;
}

std::vector<int32_t> CommentRows(const CsvModel& model) {
    std::vector<int32_t> rows;
    for (int32_t row = 0; row < model.RowCount(); ++row) {
        if (model.IsCommentRow(row)) {
            rows.push_back(row);
        }
    }
    return rows;
}

/// A model of `text` that parsed without complaint.
class ParsedModel {
public:
    explicit ParsedModel(std::wstring text, const CsvOptions& options = {}) {
        EXPECT_TRUE(model_.Parse(std::move(text), options));
    }
    operator const CsvModel&() const { return model_; }
    const CsvModel* operator->() const { return &model_; }

private:
    CsvModel model_;
};

TEST(CsvModel, IsEmptyBeforeAnythingIsParsed) {
    const CsvModel model;
    EXPECT_EQ(model.RowCount(), 0);
    EXPECT_EQ(model.ColumnCount(), 0);
    EXPECT_EQ(model.Serialize(), L"");
}

TEST(CsvModel, StartsNoRecordAtTheEndOfTheText) {
    EXPECT_EQ(ParsedModel(L"")->RowCount(), 0);
    EXPECT_EQ(ParsedModel(L"\n")->RowCount(), 1);
    EXPECT_EQ(ParsedModel(L"a\nb\n")->RowCount(), 2);
    EXPECT_EQ(ParsedModel(L"a\nb")->RowCount(), 2);
    EXPECT_EQ(ParsedModel(L"a\n\n")->RowCount(), 2);
}

TEST(CsvModel, CountsCrLfAsOneBreakAndLoneOnesAsOneEach) {
    EXPECT_EQ(TableOf(ParsedModel(L"a\r\nb\rc\nd")), (Table{{L"a"}, {L"b"}, {L"c"}, {L"d"}}));
    EXPECT_EQ(TableOf(ParsedModel(L"a\r\r\nb\n\rc")),
              (Table{{L"a"}, {L""}, {L"b"}, {L""}, {L"c"}}));
}

TEST(CsvModel, IsAsWideAsItsWidestRow) {
    const ParsedModel model(L"a,b,c\n1\n2,3\n");
    EXPECT_EQ(TableOf(model), (Table{{L"a", L"b", L"c"}, {L"1", L"", L""}, {L"2", L"3", L""}}));
}

TEST(CsvModel, LetsAQuotedFieldHoldDelimitersAndLines) {
    const ParsedModel model(L"a,\"b,\r\nc\"\nd,e\n");
    EXPECT_EQ(TableOf(model), (Table{{L"a", L"b,\r\nc"}, {L"d", L"e"}}));
}

TEST(CsvModel, KeepsNulsAndSurrogates) {
    using namespace std::string_literals;
    const std::wstring text = L"a,\0b,\xD83D\xDE00,\xD800\n"s;
    EXPECT_EQ(TableOf(ParsedModel(text)), (Table{{L"a", L"\0b"s, L"\xD83D\xDE00", L"\xD800"}}));
}

TEST(CsvModel, RefusesATextThatEndsInsideQuotes) {
    CsvModel model;
    EXPECT_FALSE(model.Parse(L"a,b\n1,\"x\n2,3\n", {}));
    EXPECT_EQ(model.RowCount(), 2);
    EXPECT_FALSE(model.Parse(L"\"", {}));
    EXPECT_FALSE(model.Parse(L"a\"", {}));
    EXPECT_FALSE(model.Parse(L"\"\"\"", {}));
    EXPECT_TRUE(model.Parse(L"\"\"", {}));
}

TEST(CsvModel, DoesNotTrackQuotesInCommentsItDoesNotParse) {
    const std::wstring text = L"a,b\n# 5\" long\n1,2\n";
    CsvModel model;
    EXPECT_FALSE(model.Parse(text, {.commentMode = CommentMode::Parse}));
    EXPECT_TRUE(model.Parse(text, {.commentMode = CommentMode::DoNotParse}));
    EXPECT_TRUE(model.Parse(text, {.commentMode = CommentMode::Hide}));
    EXPECT_TRUE(model.Parse(text, {.commentMode = CommentMode::Auto}));
    EXPECT_EQ(model.RowCount(), 3);
}

TEST(CsvModel, FindsTheDelimiterUnlessOneIsGiven) {
    EXPECT_EQ(ParsedModel(L"a;b\n")->Delimiter(), L';');
    EXPECT_EQ(ParsedModel(L"a;b\n", {.delimiter = L'|'})->Delimiter(), L'|');
    EXPECT_EQ(ParsedModel(L"a;b\n", {.delimiter = L'|'})->ColumnCount(), 1);
}

TEST(CsvModel, TakesASeparatorLineAsAComment) {
    const ParsedModel model(L"sep=;\na;b,c\n");
    EXPECT_EQ(model->Delimiter(), L';');
    EXPECT_EQ(CommentRows(model), std::vector<int32_t>{0});
    EXPECT_EQ(model->CellText(1, 1), L"b,c");
}

TEST(CsvModel, ReadsADelimiterFarBeyondAscii) {
    EXPECT_EQ(TableOf(ParsedModel(L"sep=\u3001\na\u3001b\n")),
              (Table{{L"sep=", L""}, {L"a", L"b"}}));
}

TEST(CsvModel, SplitsCommentsOnlyInModeParse) {
    const std::wstring text = L"a,b\n#x,y\n";
    const auto row1 = [&text](CommentMode mode) {
        return TableOf(ParsedModel(text, {.commentMode = mode}))[1];
    };
    EXPECT_EQ(row1(CommentMode::Parse), (Row{L"#x", L"y"}));
    EXPECT_EQ(row1(CommentMode::DoNotParse), (Row{L"#x,y", L""}));
}

TEST(CsvModel, ShowsALaterCommentSplitInModeAutoButCountsItAsOneField) {
    const ParsedModel model(L"a,b\n#x,y,z\n", {.commentMode = CommentMode::Auto});
    EXPECT_EQ(TableOf(model), (Table{{L"a", L"b"}, {L"#x", L"y"}}));
}

TEST(CsvModel, MarksTitlesAboveTheWidestRow) {
    const ParsedModel model(L"Report\n2024,x\na,b,c\n1,2,3\n");
    EXPECT_EQ(CommentRows(model), (std::vector<int32_t>{0, 1}));
    EXPECT_FALSE(model->IsCellEditable(0, 0));
    EXPECT_TRUE(model->IsCellEditable(2, 0));
}

TEST(CsvModel, MarksTitlesInEveryMode) {
    const std::wstring text = L"Report\na,b\n";
    for (const CommentMode mode : {CommentMode::Parse, CommentMode::DoNotParse}) {
        EXPECT_EQ(CommentRows(ParsedModel(text, {.commentMode = mode})), std::vector<int32_t>{0});
    }
    for (const CommentMode mode : {CommentMode::Hide, CommentMode::Auto}) {
        const ParsedModel model(text, {.commentMode = mode});
        EXPECT_EQ(TableOf(model), (Table{{L"a", L"b"}}));
        EXPECT_EQ(model->HiddenCommentCount(), 1);
    }
}

TEST(CsvModel, SplitsTitlesEvenWhenCommentsAreNotParsed) {
    const ParsedModel model(L"t,u\na,b,c\n", {.commentMode = CommentMode::DoNotParse});
    EXPECT_EQ(TableOf(model)[0], (Row{L"t", L"u", L""}));
}

TEST(CsvModel, MarksAHeaderWithTooFewFields) {
    EXPECT_EQ(CommentRows(ParsedModel(L"a,b\n1,2,3\n4,5,6\n")), std::vector<int32_t>{0});
    EXPECT_EQ(CommentRows(ParsedModel(L"a,b,c\n1,2\n")), std::vector<int32_t>{});
}

TEST(CsvModel, MarksBlankLinesAmongTheTitles) {
    EXPECT_EQ(CommentRows(ParsedModel(L"t\n\na,b\n\n1,2\n")), (std::vector<int32_t>{0, 1}));
}

TEST(CsvModel, LooksForTitlesOnlyAmongTheSampledRows) {
    const std::wstring text = L"a,b\n1,2\n1,2,3\n";
    EXPECT_EQ(CommentRows(ParsedModel(text, {.sampleRows = 2})), std::vector<int32_t>{});
    EXPECT_EQ(CommentRows(ParsedModel(text, {.sampleRows = 3})), (std::vector<int32_t>{0, 1}));
    EXPECT_EQ(CommentRows(ParsedModel(text, {.sampleRows = 0})), std::vector<int32_t>{});
    EXPECT_EQ(CommentRows(ParsedModel(text, {.sampleRows = kMin})), std::vector<int32_t>{});
}

TEST(CsvModel, SamplesNeitherCommentsNorBlankLines) {
    const ParsedModel model(L"#1,2,3,4\n\na\nb,c\n", {.sampleRows = 2});
    EXPECT_EQ(CommentRows(model), (std::vector<int32_t>{0, 1, 2}));
    EXPECT_EQ(model->ColumnCount(), 4);
}

TEST(CsvModel, HidesCommentsAndBlankLinesEverywhereInModeHide) {
    const ParsedModel model(L"# c\n\na,b\n\n# d\n1,2\n", {.commentMode = CommentMode::Hide});
    EXPECT_EQ(TableOf(model), (Table{{L"a", L"b"}, {L"1", L"2"}}));
    EXPECT_EQ(model->HiddenCommentCount(), 3);  // the blank line above the table is one of them
}

TEST(CsvModel, HidesThemOnlyAboveTheFirstDataRowInModeAuto) {
    const ParsedModel model(L"# c\n\na,b\n\n# d\n1,2\n", {.commentMode = CommentMode::Auto});
    EXPECT_EQ(TableOf(model), (Table{{L"a", L"b"}, {L"", L""}, {L"# d", L""}, {L"1", L"2"}}));
    EXPECT_EQ(model->HiddenCommentCount(), 2);
}

TEST(CsvModel, HidesNothingInTheOtherModes) {
    for (const CommentMode mode : {CommentMode::Parse, CommentMode::DoNotParse}) {
        const ParsedModel model(L"# c\n\na,b\n", {.commentMode = mode});
        EXPECT_EQ(model->RowCount(), 3);
        EXPECT_EQ(model->HiddenCommentCount(), 0);
    }
}

TEST(CsvModel, MayHideEverything) {
    const ParsedModel model(L"# a\n\n; b\n", {.commentMode = CommentMode::Auto});
    EXPECT_EQ(model->RowCount(), 0);
    EXPECT_EQ(model->HiddenCommentCount(), 2);
    EXPECT_EQ(model->Serialize(), L"# a\n\n; b\n");
}

TEST(CsvModel, TakesALineWithTwoSemicolonsAsData) {
    const ParsedModel model(L";a;b\n;\n", {.delimiter = L';'});
    EXPECT_EQ(CommentRows(model), std::vector<int32_t>{1});
}

TEST(CsvModel, TrimsUnquotedFieldsWhenAsked) {
    const std::wstring text = L" x ,\" y \", \"z\"\n";
    EXPECT_EQ(TableOf(ParsedModel(text)), (Table{{L"x", L" y ", L"\"z\""}}));
    EXPECT_EQ(TableOf(ParsedModel(text, {.trimValues = false})),
              (Table{{L" x ", L" y ", L" \"z\""}}));
}

TEST(CsvModel, AnswersNothingOutsideTheTable) {
    const ParsedModel model(L"a,b\n1,2\n");
    for (const int32_t row : {-1, 2, kMax, kMin}) {
        EXPECT_EQ(model->CellText(row, 0), L"");
        EXPECT_EQ(model->RawRow(row), L"");
        EXPECT_FALSE(model->IsCommentRow(row));
        EXPECT_FALSE(model->IsCellEditable(row, 0));
    }
    for (const int32_t column : {-1, 2, kMax, kMin}) {
        EXPECT_EQ(model->CellText(0, column), L"");
        EXPECT_FALSE(model->IsCellEditable(0, column));
    }
}

TEST(CsvModel, ReadsCellsIntoTheSameText) {
    const ParsedModel model(L"long enough to need room of its own,\"b\"\"c\"\n");
    std::wstring cell;
    model->ReadCell(0, 0, cell);
    EXPECT_EQ(cell, L"long enough to need room of its own");
    const auto* room = cell.data();
    model->ReadCell(0, 1, cell);
    EXPECT_EQ(cell, L"b\"c");
    model->ReadCell(0, 2, cell);
    EXPECT_EQ(cell, L"");
    EXPECT_EQ(cell.data(), room);
}

TEST(CsvModel, ShowsCellsWithoutCopyingThem) {
    const ParsedModel model(L"a,bc\n");
    std::wstring scratch;
    EXPECT_EQ(model->CellView(0, 1, scratch).data(), model->Text().data() + 2);
}

TEST(CsvModel, HandsOutTheRecordBehindARow) {
    const ParsedModel model(L"# c\r\n\"a\",b\r\n", {.commentMode = CommentMode::Hide});
    EXPECT_EQ(model->RawRow(0), L"\"a\",b");
}

TEST(CsvModel, KnowsItsTextOptionsAndLineEnding) {
    const CsvOptions options{.delimiter = L';', .trimValues = false};
    const ParsedModel model(L"a;b\r1", options);
    EXPECT_EQ(model->Text(), L"a;b\r1");
    EXPECT_EQ(model->Options(), options);
    EXPECT_EQ(model->LineEnding(), L"\r");
}

TEST(CsvModel, ForgetsEverythingWhenParsedAnew) {
    CsvModel model;
    ASSERT_TRUE(model.Parse(L"# c\na,b\n1,2\n", {.commentMode = CommentMode::Hide}));
    EXPECT_EQ(model.CellText(0, 0), L"a");
    model.SetCellText(0, 0, L"edited");
    EXPECT_TRUE(model.InsertRowBelow(0));
    EXPECT_TRUE(model.DeleteColumn(1));
    ASSERT_TRUE(model.Parse(L"x,y\nz,w\n", {}));
    EXPECT_EQ(TableOf(model), (Table{{L"x", L"y"}, {L"z", L"w"}}));
    EXPECT_FALSE(model.IsModified());
    EXPECT_EQ(model.HiddenCommentCount(), 0);
    EXPECT_EQ(model.Serialize(), L"x,y\nz,w\n");
}

TEST(CsvModel, SplitsTheRecordsOfTheNewTextWhenParsedAnew) {
    CsvModel model;
    ASSERT_TRUE(model.Parse(L"long,b\n", {}));
    EXPECT_EQ(model.CellText(0, 1), L"b");
    ASSERT_TRUE(model.Parse(L"x,yz\n", {}));
    EXPECT_EQ(model.CellText(0, 1), L"yz");
}

TEST(CsvModel, StopsParsingWhenNobodyWantsTheResult) {
    std::wstring text;
    while (text.size() < size_t{12} << 20) {
        text += L"some,cells,in,a,row\n";
    }
    CsvModel model;
    int asked = 0;
    EXPECT_FALSE(model.Parse(text, {}, [&asked] { return ++asked == 2; }));
    EXPECT_EQ(asked, 2);
    EXPECT_TRUE(model.Parse(text, {}, [] { return false; }));
    EXPECT_EQ(model.RowCount(), static_cast<int32_t>(text.size() / 20));
}

TEST(CsvModel, StopsInsideAnEndlessQuotedField) {
    std::wstring text(size_t{12} << 20, L'x');
    text[0] = L'"';
    CsvModel model;
    int asked = 0;
    EXPECT_FALSE(model.Parse(text, {.delimiter = L','}, [&asked] { return ++asked == 1; }));
    EXPECT_EQ(asked, 1);
}

TEST(CsvCellKeyHash, IsFnv1aOverTheBytesFromTheLowest) {
    const detail::CsvCellKeyHash hash;
    EXPECT_EQ(hash(0), 0xA8C7F832281A39C5U);
    EXPECT_EQ(detail::MakeCellKey(1, 2), 0x100002U);
    EXPECT_EQ(detail::MakeCellKey(0x7FFFFFFF, 0xFFFFF), 0x7FFFFFFFFFFFFU);
}

}  // namespace
}  // namespace rl
