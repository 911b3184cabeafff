// Every delimited text of the shared collection, in every comment mode, against its settled answer.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>

#include "load/text/decode_text.h"
#include "model/csv_model.h"
#include "tests/support/corpus.h"

namespace rl {
namespace {

using test::JsonValue;

/// All cells: 1F between cells, 1E between rows.
std::wstring AllCells(const CsvModel& model) {
    std::wstring all;
    std::wstring cell;
    for (int32_t row = 0; row < model.RowCount(); ++row) {
        all.append(row > 0 ? 1 : 0, L'\x1E');
        for (int32_t column = 0; column < model.ColumnCount(); ++column) {
            all.append(column > 0 ? 1 : 0, L'\x1F');
            model.ReadCell(row, column, cell);
            all += cell;
        }
    }
    return all;
}

int64_t CommentRowCount(const CsvModel& model) {
    int64_t count = 0;
    for (int32_t row = 0; row < model.RowCount(); ++row) {
        count += model.IsCommentRow(row) ? 1 : 0;
    }
    return count;
}

std::string LineEndingName(const CsvModel& model) {
    const std::wstring_view ending = model.LineEnding();
    return ending == L"\r\n" ? "CRLF" : ending == L"\n" ? "LF" : "CR";
}

void ExpectAnswer(const std::wstring& text, const CsvOptions& options, const JsonValue& answer) {
    CsvModel model;
    const bool parsed = model.Parse(text, options);
    EXPECT_EQ(parsed, answer["verdict"].AsAscii() == "table");
    EXPECT_EQ(std::wstring(1, model.Delimiter()), answer["delimiter"].AsText());
    EXPECT_TRUE(model.Serialize() == text);
    if (!parsed) {
        return;
    }
    EXPECT_EQ(LineEndingName(model), answer["line_ending"].AsAscii());
    EXPECT_EQ(model.RowCount(), answer["rows"].AsInt());
    EXPECT_EQ(model.ColumnCount(), answer["columns"].AsInt());
    EXPECT_EQ(CommentRowCount(model), answer["comment_rows"].AsInt());
    EXPECT_EQ(model.HiddenCommentCount(), answer["hidden_comments"].AsInt());
    EXPECT_EQ(test::Sha256Hex(test::Utf8(AllCells(model))), answer["cells_sha256"].AsAscii());
}

/// What an answer says about the first rows, in clear.
void ExpectFirstRows(const std::wstring& text, const JsonValue& answer) {
    CsvModel model;
    ASSERT_TRUE(model.Parse(text, {}));
    int32_t row = 0;
    for (const JsonValue& cells : answer["first_rows"].Items()) {
        int32_t column = 0;
        for (const JsonValue& cell : cells.Items()) {
            EXPECT_EQ(model.CellText(row, column++), cell.AsText());
        }
        ++row;
    }
    for (const JsonValue& number : answer["comment_row_numbers"].Items()) {
        EXPECT_TRUE(model.IsCommentRow(static_cast<int32_t>(number.AsInt())));
    }
}

CsvOptions OptionsFrom(const JsonValue& named) {
    CsvOptions options;
    if (named.Has("delimiter")) {
        options.delimiter = named["delimiter"].AsText().at(0);
    }
    if (named.Has("quote")) {
        options.quoteChar = named["quote"].AsText().at(0);
    }
    if (named.Has("samples")) {
        options.sampleRows = static_cast<int32_t>(named["samples"].AsInt());
    }
    if (named.Has("mode")) {
        options.commentMode = static_cast<CommentMode>(named["mode"].AsInt());
    }
    if (named.Has("trim")) {
        options.trimValues = named["trim"].AsBool();
    }
    return options;
}

void ExpectAnswersInAllModes(const std::wstring& text, const JsonValue& answers) {
    for (int mode = 0; mode < 4; ++mode) {
        SCOPED_TRACE("mode " + std::to_string(mode));
        const JsonValue& own = answers["skip_comments_" + std::to_string(mode)];
        ExpectAnswer(text, {.commentMode = static_cast<CommentMode>(mode)},
                     own.IsObject() ? own : answers["skip_comments_0"]);
    }
    if (answers.Has("first_rows")) {
        ExpectFirstRows(text, answers);
    }
    if (answers.Has("trim_values_0")) {
        CsvModel model;
        EXPECT_TRUE(model.Parse(text, {.trimValues = false}));
        EXPECT_EQ(test::Sha256Hex(test::Utf8(AllCells(model))), answers["trim_values_0"].AsAscii());
    }
}

TEST(CsvCorpus, GivesTheSettledAnswerForEachFile) {
    if (!test::HasCorpus()) {
        GTEST_SKIP();
    }
    size_t files = 0;
    for (const JsonValue& answers : test::ExpectedAnswers("csv")) {
        if (!answers.Has("file")) {
            continue;
        }
        ++files;
        SCOPED_TRACE(answers["file"].AsAscii());
        TextEncoding encoding;
        const auto codePage = static_cast<uint32_t>(answers["ansi_codepage"].AsInt());
        const std::wstring text =
            DecodeText(test::ReadBytes(test::CorpusRoot() / "csv" / answers["file"].AsAscii()),
                       {.ansiCodePage = codePage}, encoding);
        EXPECT_EQ(encoding.name, answers["encoding"].AsText());
        EXPECT_EQ(encoding.hasBom, answers["has_bom"].AsBool());
        EXPECT_EQ(static_cast<int64_t>(text.size()), answers["units"].AsInt());
        ExpectAnswersInAllModes(text, answers);
    }
    EXPECT_EQ(files, 93U);
}

TEST(CsvCorpus, GivesTheSettledAnswerForEachInlineText) {
    if (!test::HasCorpus()) {
        GTEST_SKIP();
    }
    std::map<std::string, std::wstring> texts;
    for (const JsonValue& line : test::ReadJsonLines(test::CorpusRoot() / "csv" / "inline.jsonl")) {
        texts[line["name"].AsAscii()] = line["text"].AsText();
    }
    size_t answered = 0;
    for (const JsonValue& answers : test::ExpectedAnswers("csv")) {
        if (!answers.Has("inline")) {
            continue;
        }
        ++answered;
        SCOPED_TRACE(answers["inline"].AsAscii());
        const std::wstring& text = texts.at(answers["inline"].AsAscii());
        if (answers.Has("options")) {
            ExpectAnswer(text, OptionsFrom(answers["options"]), answers["answer"]);
        } else {
            ExpectAnswersInAllModes(text, answers);
        }
    }
    EXPECT_EQ(answered, 91U);
}

}  // namespace
}  // namespace rl
