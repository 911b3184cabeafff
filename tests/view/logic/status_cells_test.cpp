#include "view/logic/status_cells.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

StatusState Csv() {
    StatusState state;
    state.kind = StatusKind::Csv;
    state.encodingName = L"UTF-8";
    state.visibleRows = 9;
    state.totalRows = 9;
    return state;
}

StatusState Outline() {
    StatusState state;
    state.kind = StatusKind::Outline;
    state.encodingName = L"UTF-16LE";
    state.visibleRows = 3;
    state.totalRows = 12;
    return state;
}

TEST(StatusPartEdges, AreScaledAndTheLastRunsToTheEnd) {
    EXPECT_EQ(StatusPartEdges(96), (std::array<int, 5>{110, 280, 480, 630, -1}));
    EXPECT_EQ(StatusPartEdges(144), (std::array<int, 5>{165, 420, 720, 945, -1}));
}

TEST(ComposeStatus, SaysLoadingAndNothingElseAtFirst) {
    EXPECT_EQ(ComposeStatus({}), (StatusTexts{L" Loading...", L"", L"", L"", L""}));
}

TEST(ComposeStatus, DescribesATableOfDelimitedText) {
    EXPECT_EQ(ComposeStatus(Csv()), (StatusTexts{L" UTF-8", L" Delimiter: ,",
                                                 L" Comments: parse (0)", L" Rows: 9/9", L""}));
}

TEST(ComposeStatus, NamesTheDelimiterAndHowItWasFound) {
    StatusState state = Csv();
    state.delimiter = L'\t';
    EXPECT_EQ(ComposeStatus(state)[1], L" Delimiter: TAB");
    state.delimiterIsAuto = true;
    EXPECT_EQ(ComposeStatus(state)[1], L" Delimiter: Auto (TAB)");
    state.delimiter = L';';
    EXPECT_EQ(ComposeStatus(state)[1], L" Delimiter: Auto (;)");
}

TEST(ComposeStatus, CountsCommentLinesInTwoModesAndWritesZeroInTheOthers) {
    StatusState state = Csv();
    state.commentLines = 7;
    state.commentMode = CommentMode::Auto;
    EXPECT_EQ(ComposeStatus(state)[2], L" Comments: auto (7)");
    state.commentMode = CommentMode::Hide;
    EXPECT_EQ(ComposeStatus(state)[2], L" Comments: hidden (7)");
    state.commentMode = CommentMode::Parse;
    EXPECT_EQ(ComposeStatus(state)[2], L" Comments: parse (0)");
    state.commentMode = CommentMode::DoNotParse;
    EXPECT_EQ(ComposeStatus(state)[2], L" Comments: no parse (0)");
}

TEST(ComposeStatus, ShowsVisibleAndAllRows) {
    StatusState state = Csv();
    state.visibleRows = 3;
    EXPECT_EQ(ComposeStatus(state)[3], L" Rows: 3/9");
    state.visibleRows = 0;
    state.totalRows = -1;
    EXPECT_EQ(ComposeStatus(state)[3], L" Rows: 0/0");
}

TEST(ComposeStatus, CountsTheCurrentCellFromOne) {
    StatusState state = Csv();
    state.focusedRow = 0;
    EXPECT_EQ(ComposeStatus(state)[4], L"") << "no column";
    state.focusedColumn = 2;
    EXPECT_EQ(ComposeStatus(state)[4], L" 1:3");
    state.editMode = true;
    EXPECT_EQ(ComposeStatus(state)[4], L" 1:3 EDIT");
    state.modified = true;
    EXPECT_EQ(ComposeStatus(state)[4], L" 1:3 EDIT *");
    state.editMode = false;
    EXPECT_EQ(ComposeStatus(state)[4], L" 1:3 MODIFIED *");
    state.focusedRow = -1;
    EXPECT_EQ(ComposeStatus(state)[4], L" MODIFIED *");
}

TEST(ComposeStatus, GivesNoRecordHintForATable) {
    StatusState state = Csv();
    state.recordCount = 50;
    EXPECT_EQ(ComposeStatus(state)[4], L"");
    state.kind = StatusKind::Json;
    EXPECT_EQ(ComposeStatus(state)[4], L"");
}

TEST(ComposeStatus, DescribesAnOutline) {
    StatusState state = Outline();
    EXPECT_EQ(ComposeStatus(state),
              (StatusTexts{L" UTF-16LE", L" JSON outline", L"", L" Rows: 3/12", L""}));
    state.nodeName = L"city";
    state.isCapped = true;
    EXPECT_EQ(ComposeStatus(state)[2], L" city");
    EXPECT_EQ(ComposeStatus(state)[3], L" Rows: 3/12 (capped)");
}

TEST(ComposeStatus, MarksAMalformedXmlOutlineButNoJsonOutline) {
    StatusState state = Outline();
    state.isMalformed = true;
    EXPECT_EQ(ComposeStatus(state)[1], L" JSON outline");
    state.isJsonLines = true;
    EXPECT_EQ(ComposeStatus(state)[1], L" JSONL outline");
    state.isXml = true;
    EXPECT_EQ(ComposeStatus(state)[1], L" XML outline (malformed)");
    state.isMalformed = false;
    EXPECT_EQ(ComposeStatus(state)[1], L" XML outline");
}

TEST(ComposeStatus, HintsAtATableFromFiveRecordsOn) {
    StatusState state = Outline();
    state.recordCount = 4;
    EXPECT_EQ(ComposeStatus(state)[4], L"");
    state.recordCount = 5;
    EXPECT_EQ(ComposeStatus(state)[4], L"   5 records: Ctrl+T for table");
    state.focusedRow = 1;
    state.focusedColumn = 0;
    state.editMode = true;
    EXPECT_EQ(ComposeStatus(state)[4], L" 2:1 EDIT   5 records: Ctrl+T for table");
}

TEST(ComposeStatus, DescribesAnXmlTable) {
    StatusState state = Outline();
    state.kind = StatusKind::Xml;
    EXPECT_EQ(ComposeStatus(state)[1], L" XML");
    state.isMalformed = true;
    EXPECT_EQ(ComposeStatus(state)[1], L" XML (malformed)");
    state.isKeyValue = true;
    EXPECT_EQ(ComposeStatus(state)[1], L" XML (key/value) (malformed)");
    state.nodeName = L"#DOCUMENT";
    state.isCapped = true;
    EXPECT_EQ(ComposeStatus(state)[2], L" #DOCUMENT");
    EXPECT_EQ(ComposeStatus(state)[3], L" Rows: 3/12") << "only an outline is capped";
}

TEST(ComposeStatus, DescribesAJsonTable) {
    StatusState state = Outline();
    state.kind = StatusKind::Json;
    EXPECT_EQ(ComposeStatus(state)[1], L" JSON");
    state.isJsonLines = true;
    state.isMalformed = true;
    EXPECT_EQ(ComposeStatus(state)[1], L" JSONL (malformed)");
    state.nodeName = L"ARRAY";
    EXPECT_EQ(ComposeStatus(state)[2], L" ARRAY");
}

TEST(TotalDataRows, LeavesTheHeaderOutAndNeverGoesBelowNothing) {
    EXPECT_EQ(TotalDataRows(10, true), 9);
    EXPECT_EQ(TotalDataRows(10, false), 10);
    EXPECT_EQ(TotalDataRows(0, true), 0);
}

}  // namespace
}  // namespace rl
