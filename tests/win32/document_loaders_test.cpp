#include "load/document_loaders.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/temp_folder.h"

namespace rl {
namespace {

class LoadCsvTest : public testing::Test {
protected:
    /// Loads a file with these bytes; what went wrong is in `error`.
    std::unique_ptr<CsvModel> Load(std::string_view bytes, const CsvOptions& options = {},
                                   const EncodingRequest& request = {}) {
        return LoadCsv(folder.Write(L"a.csv", bytes), 0, options, request, error);
    }

    test::TempFolder folder;
    std::wstring error = L"left over";
};

TEST_F(LoadCsvTest, ReadsDecodesAndParses) {
    const auto model = Load("name,city\nZo\xC3\xAB,K\xC3\xB6ln\n");

    ASSERT_NE(model, nullptr);
    EXPECT_EQ(error, L"");
    EXPECT_EQ(model->RowCount(), 2);
    EXPECT_EQ(model->ColumnCount(), 2);
    EXPECT_EQ(model->CellText(1, 1), L"K\x00F6ln");
    EXPECT_EQ(model->encoding, (TextEncoding{.name = L"UTF-8"}));
}

TEST_F(LoadCsvTest, KeepsTheEncodingItFound) {
    const auto model =
        Load(std::string_view("\xFF\xFE"
                              "a\0,\0b\0",
                              8));

    ASSERT_NE(model, nullptr);
    EXPECT_EQ(model->encoding, (TextEncoding{.name = L"UTF-16LE", .hasBom = true}));
    EXPECT_EQ(model->CellText(0, 1), L"b");
}

TEST_F(LoadCsvTest, DecodesAsTheRequestSays) {
    const auto model = Load("\xE8", {}, {.name = L"", .ansiCodePage = 1250});

    ASSERT_NE(model, nullptr);
    EXPECT_EQ(model->CellText(0, 0), L"\x010D");
    EXPECT_EQ(model->encoding, (TextEncoding{.name = L"ANSI", .codePage = 1250}));
}

TEST_F(LoadCsvTest, TurnsToTheCodePageWhereverTheFirstOtherByteStands) {
    const std::string bytes = std::string(3'000'000, 'x') + ",\xE8\n";
    const auto model = Load(bytes, {}, {.ansiCodePage = 1250});

    ASSERT_NE(model, nullptr);
    EXPECT_EQ(model->CellText(0, 1), L"\x010D");
    EXPECT_EQ(model->encoding, (TextEncoding{.name = L"ANSI", .codePage = 1250}));
}

TEST_F(LoadCsvTest, KeepsCharactersThatTheReadingParts) {
    std::string bytes = "a";  // so that the sequences of two bytes lie across the pieces
    while (bytes.size() < 2'000'000) {
        bytes += "\xC3\xA9";
    }
    const auto model = Load(bytes);

    ASSERT_NE(model, nullptr);
    EXPECT_EQ(model->Text(), L"a" + std::wstring(1'000'000, L'\x00E9'));
}

TEST_F(LoadCsvTest, IgnoresAnXmlDeclaration) {
    const auto model = Load("<?xml version=\"1.0\" encoding=\"windows-1251\"?>\n\xE8");

    ASSERT_NE(model, nullptr);
    EXPECT_EQ(model->CellText(1, 0), L"\x00E8");
}

TEST_F(LoadCsvTest, ParsesWithTheGivenOptions) {
    const auto model = Load("a|'b|c'", {.delimiter = L'|', .quoteChar = L'\''});

    ASSERT_NE(model, nullptr);
    EXPECT_EQ(model->ColumnCount(), 2);
    EXPECT_EQ(model->CellText(0, 1), L"b|c");
}

TEST_F(LoadCsvTest, OpensAnEmptyFile) {
    const auto model = Load("");

    ASSERT_NE(model, nullptr);
    EXPECT_EQ(model->RowCount(), 0);
}

TEST_F(LoadCsvTest, RefusesAnOpenQuote) {
    EXPECT_EQ(Load("a,\"b\n"), nullptr);
    EXPECT_EQ(error, L"The file could not be parsed (unbalanced quotes).");
}

TEST_F(LoadCsvTest, PassesOnWhatTheReaderSays) {
    EXPECT_EQ(LoadCsv(folder.PathOf(L"none.csv"), 0, {}, {}, error), nullptr);
    EXPECT_EQ(error, L"The file could not be opened.");
}

TEST_F(LoadCsvTest, HoldsTheLimit) {
    EXPECT_NE(LoadCsv(folder.Write(L"a.csv", "1234"), 4, {}, {}, error), nullptr);
    EXPECT_EQ(LoadCsv(folder.Write(L"a.csv", "12345"), 4, {}, {}, error), nullptr);
    EXPECT_TRUE(error.starts_with(
        L"The file could not be loaded because it exceeds the configured size limit.\r\n"));
}

TEST_F(LoadCsvTest, EndsWithoutASentenceWhenAbandonedAtAnyMoment) {
    std::string bytes;
    for (int row = 0; row < 1'000'000; ++row) {
        bytes += "1234567,abcdef,\"x\"\n";
    }
    const std::wstring path = folder.Write(L"a.csv", bytes);
    int questions = 0;
    const auto complete = LoadCsv(path, 0, {}, {}, error, [&] {
        ++questions;
        return false;
    });
    ASSERT_NE(complete, nullptr);
    EXPECT_GE(questions, 5) << "19 MB are five steps of reading alone";

    for (int end = 1; end <= questions; ++end) {
        SCOPED_TRACE(end);
        int asked = 0;
        EXPECT_EQ(LoadCsv(path, 0, {}, {}, error, [&] { return ++asked >= end; }), nullptr);
        EXPECT_EQ(error, L"");
    }
}

class LoadJsonTest : public testing::Test {
protected:
    std::unique_ptr<JsonDocument> Load(const std::wstring& name, std::string_view bytes,
                                       int32_t parseMode = 0) {
        return LoadJsonDocument(folder.Write(name, bytes), 0, parseMode, {}, error);
    }

    test::TempFolder folder;
    std::wstring error = L"left over";
};

TEST_F(LoadJsonTest, TriesAnyFileAsADocumentAndThenAsLines) {
    const auto document = Load(L"a.json", "{\"a\":1}");
    ASSERT_NE(document, nullptr);
    EXPECT_FALSE(document->lines);

    const auto lines = Load(L"b.json", "{\"a\":1}\n{\"b\":2}");
    ASSERT_NE(lines, nullptr);
    EXPECT_TRUE(lines->lines);
    EXPECT_EQ(lines->nodes[0].childCount, 2U);
    EXPECT_EQ(error, L"");
}

TEST_F(LoadJsonTest, ReadsAFileNamedForLinesInNoOtherWay) {
    for (const wchar_t* name : {L"a.jsonl", L"a.NDJSON", L"a.b.JsonL"}) {
        EXPECT_EQ(Load(name, "[1,\n2]"), nullptr) << "a document, but not line by line";
        EXPECT_EQ(error, L"Not a valid JSON document");
        for (const int mode : {0, 1}) {
            error.clear();
            EXPECT_EQ(Load(name, "{\"a\":1}\nbad\n{\"b\":2}", mode), nullptr);
            EXPECT_EQ(error, L"Not a valid JSON document");
        }
        const auto lines = Load(name, "1\n2");
        ASSERT_NE(lines, nullptr);
        EXPECT_TRUE(lines->lines);
    }
}

TEST_F(LoadJsonTest, SaysSoWhereNoBlockCanBeRecovered) {
    EXPECT_EQ(Load(L"a.json", "{\"a\":1]", 1), nullptr);
    EXPECT_EQ(error, L"Not a valid JSON document");
}

TEST_F(LoadJsonTest, RecoversBlocksBeforeItTriesLines) {
    const auto salvaged = Load(L"a.json", "{\"a\":1}\n{\"b\":2}", 1);
    ASSERT_NE(salvaged, nullptr);
    EXPECT_TRUE(salvaged->salvaged);
    EXPECT_FALSE(salvaged->lines);
}

TEST_F(LoadJsonTest, KeepsTheEncodingItFound) {
    const auto document = Load(L"a.json", std::string_view("\xFF\xFE[\0]\0", 6));
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->encoding, (TextEncoding{.name = L"UTF-16LE", .hasBom = true}));
}

TEST_F(LoadJsonTest, EndsWithoutASentenceWhenAbandoned) {
    const std::wstring path = folder.Write(L"a.json", "[1]");
    EXPECT_EQ(LoadJsonDocument(path, 0, 0, {}, error, [] { return true; }), nullptr);
    EXPECT_EQ(error, L"");
}

TEST(LoadXmlDocument, HonoursTheDeclarationWhenAskedTo) {
    const test::TempFolder folder;
    const std::wstring path =
        folder.Write(L"a.xml", "<?xml version=\"1.0\" encoding=\"windows-1251\"?><a>\xE8</a>");
    std::wstring error;
    const auto document = LoadXmlDocument(path, 0, {.honourXmlDeclaration = true}, error);
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->InnerText(document->FirstElement()), L"\x0438");
    EXPECT_EQ(document->encoding.codePage, 1251U);
}

TEST(LoadXmlDocument, RefusesAFileWithoutAnElement) {
    const test::TempFolder folder;
    std::wstring error;
    EXPECT_EQ(LoadXmlDocument(folder.Write(L"a.xml", ""), 0, {}, error), nullptr);
    EXPECT_EQ(error, L"Not a valid XML document");
}

}  // namespace
}  // namespace rl
