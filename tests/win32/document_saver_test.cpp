// Whole saves: what stands in the file afterwards, in each encoding, and what does not get there.
#include "load/document_saver.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "load/document_loaders.h"
#include "load/files/file_handle.h"
#include "tests/support/temp_folder.h"

namespace rl::test {
namespace {

using namespace std::string_literals;

/// Delimited text that is loaded, edited and saved.
class SaveCsvTest : public testing::Test {
protected:
    void Load(const std::string& bytes, const EncodingRequest& request = {}) {
        std::wstring error;
        path = folder.Write(L"a.csv", bytes);
        model = LoadCsv(path, 0, {}, request, error);
        ASSERT_NE(model, nullptr);
    }
    bool Save() { return SaveCsv(*model, path, written); }
    /// The bytes of the file after a save.
    std::string Saved() {
        EXPECT_TRUE(Save());
        return folder.Read(L"a.csv");
    }
    /// The same where nothing was changed before.
    std::string SavedUntouched(const std::string& bytes, const EncodingRequest& request = {}) {
        Load(bytes, request);
        return Saved();
    }

    TempFolder folder;
    std::wstring path;
    std::wstring written;
    std::unique_ptr<CsvModel> model;
};

TEST_F(SaveCsvTest, WritesTheEditAndTellsTheText) {
    Load("a,b\n1,2\n");
    model->SetCellText(1, 1, L"x");
    EXPECT_EQ(Saved(), "a,b\n1,x\n");
    EXPECT_EQ(written, L"a,b\n1,x\n");
}

TEST_F(SaveCsvTest, KeepsUtf8WithAndWithoutMark) {
    Load("\xEF\xBB\xBF\xC3\xA4,b\n1,2\n");
    model->SetCellText(1, 1, L"\x20AC");
    EXPECT_EQ(Saved(), "\xEF\xBB\xBF\xC3\xA4,b\n1,\xE2\x82\xAC\n");
    Load("\xC3\xA4,b\n1,2\n");
    model->SetCellText(1, 1, L"\xD83D\xDE00");
    EXPECT_EQ(Saved(), "\xC3\xA4,b\n1,\xF0\x9F\x98\x80\n");
}

TEST_F(SaveCsvTest, KeepsUtf16OfBothOrders) {
    Load(
        "\xFF\xFE"
        "a\0,\0b\0\n\0"s);
    model->SetCellText(0, 1, L"\x20AC");
    EXPECT_EQ(Saved(),
              "\xFF\xFE"
              "a\0,\0\xAC\x20\n\0"s);
    Load("\xFE\xFF\0a\0,\0b\0\n"s);
    model->SetCellText(0, 1, L"\x20AC");
    EXPECT_EQ(Saved(), "\xFE\xFF\0a\0,\x20\xAC\0\n"s);
    Load("a\0,\0b\0\n\0"s);
    model->SetCellText(0, 1, L"c");
    EXPECT_EQ(Saved(), "a\0,\0c\0\n\0"s);
}

TEST_F(SaveCsvTest, KeepsTheCodePageItWasReadWith) {
    Load("\xE8,b\n", {.ansiCodePage = 1250});
    model->SetCellText(0, 1, L"\x010C");
    EXPECT_EQ(Saved(), "\xE8,\xC8\n");
    Load("\xE8,b\n", {.ansiCodePage = 1251});
    model->SetCellText(0, 1, L"\x0416");
    EXPECT_EQ(Saved(), "\xE8,\xC6\n");
}

TEST_F(SaveCsvTest, RefusesTextThatTheCodePageCannotHold) {
    Load("\xE8,b\n", {.ansiCodePage = 1252});
    model->SetCellText(0, 1, L"\x0416");
    EXPECT_FALSE(Save());
    EXPECT_EQ(folder.Read(L"a.csv"), "\xE8,b\n");
    EXPECT_TRUE(model->IsModified());
    EXPECT_EQ(model->CellText(0, 1), L"\x0416");
}

TEST_F(SaveCsvTest, NeverWritesALookAlikeInPlaceOfAnEdit) {
    Load("\xE8,b\n", {.ansiCodePage = 1252});
    for (const wchar_t* text : {L"\x0100", L"\xFF21", L"\x2212", L"\xD83D\xDE00"}) {
        model->SetCellText(0, 1, text);
        EXPECT_FALSE(Save());
    }
    EXPECT_EQ(folder.Read(L"a.csv"), "\xE8,b\n");
}

TEST_F(SaveCsvTest, WritesAnEmptyFile) {
    Load("a");
    ASSERT_TRUE(model->DeleteRow(0));
    EXPECT_EQ(Saved(), "");
}

TEST_F(SaveCsvTest, FailsWhereTheFileCannotBeWritten) {
    Load("a,b\n");
    model->SetCellText(0, 0, L"x");
    {
        const UniqueFile other(CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                           FILE_ATTRIBUTE_NORMAL, nullptr));
        EXPECT_FALSE(Save());
    }
    EXPECT_EQ(folder.Read(L"a.csv"), "a,b\n");
    EXPECT_TRUE(model->IsModified());
}

// --- Bytes that do not survive decoding: rows nobody touched are written with what was shown.

TEST_F(SaveCsvTest, ReplacesOverlongUtf8) {
    const std::string saved = SavedUntouched("a\xC3\xA4,\xC0\xAF,b\n");
    EXPECT_TRUE(saved == "a\xC3\xA4,\xEF\xBF\xBD\xEF\xBF\xBD,b\n" ||
                saved == "a\xC3\xA4,\xEF\xBF\xBD,b\n")
        << saved;
}

TEST_F(SaveCsvTest, ReplacesSurrogatesEncodedInUtf8) {
    std::string saved = SavedUntouched("a\xC3\xA4,\xED\xA0\x80,b\n");
    EXPECT_EQ(saved.substr(0, 4), "a\xC3\xA4,");
    EXPECT_EQ(saved.substr(saved.size() - 3), ",b\n");
    saved = saved.substr(4, saved.size() - 7);
    EXPECT_FALSE(saved.empty());
    for (size_t at = 0; at < saved.size(); at += 3) {
        EXPECT_EQ(saved.substr(at, 3), "\xEF\xBF\xBD");
    }
}

TEST_F(SaveCsvTest, DropsTheOddLastByteOfUtf16) {
    EXPECT_EQ(SavedUntouched("\xFF\xFE"
                             "a\0,\0b\0\n\0x"s),
              "\xFF\xFE"
              "a\0,\0b\0\n\0"s);
}

TEST_F(SaveCsvTest, ReplacesIllFormedBytesReadAsUtf8OnRequest) {
    EXPECT_EQ(SavedUntouched("a,\xE4,b\n", {.name = L"UTF-8"}), "a,\xEF\xBF\xBD,b\n");
}

TEST_F(SaveCsvTest, KeepsHalvesOfSurrogatePairsInUtf16) {
    const std::string bytes = "\xFF\xFE\x00\xD8,\0\x00\xDC\n\0"s;
    EXPECT_EQ(SavedUntouched(bytes), bytes);
}

TEST_F(SaveCsvTest, KeepsEveryByteOfASingleBytePage) {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '"') {
            bytes += static_cast<char>(byte);
        }
    }
    for (const uint32_t page : {1250u, 1251u, 1252u, 1254u, 437u}) {
        EXPECT_EQ(SavedUntouched(bytes, {.name = L"ANSI", .ansiCodePage = page}), bytes) << page;
    }
}

TEST_F(SaveCsvTest, KeepsASecondMarkAndNulUnits) {
    const std::string bytes =
        "\xEF\xBB\xBF\xEF\xBB\xBF"
        "a,\0b\n"s;
    EXPECT_EQ(SavedUntouched(bytes, {.name = L"UTF-8"}), bytes);
}

// --- JSON and XML.

TEST(SaveNodeDocuments, WritesJsonAnewInItsEncoding) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a.json", "{}");
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"{\"a\":\"\x20AC\"} // remark", false, false));
    EXPECT_TRUE(document.Save(path));
    EXPECT_EQ(folder.Read(L"a.json"), "{\r\n  \"a\": \"\xE2\x82\xAC\"\r\n}");
    document.encoding = {.name = L"ANSI", .codePage = 1252};
    EXPECT_TRUE(document.Save(path));
    EXPECT_EQ(folder.Read(L"a.json"), "{\r\n  \"a\": \"\x80\"\r\n}");
    document.encoding = {.name = L"ANSI", .codePage = 437};
    EXPECT_FALSE(document.Save(path));
    EXPECT_EQ(folder.Read(L"a.json"), "{\r\n  \"a\": \"\x80\"\r\n}");
}

TEST(SaveNodeDocuments, KeepsHalvesOfPairsThatJsonEscapesHold) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a.json", "{}");
    JsonDocument document;
    ASSERT_TRUE(document.Parse(
        L"[\"\\uD83D\\uDE00\\ude00\",{\"\\uD83Dx\":\"\\uDE00\\uD83D\"},\"edited\"]", false, false));
    ASSERT_TRUE(document.SetValue(4, L"\xD83D\xD83D\xDE00"));
    EXPECT_TRUE(document.Save(path));
    EXPECT_EQ(
        folder.Read(L"a.json"),
        "[\r\n  \"\xF0\x9F\x98\x80\\uDE00\",\r\n  {\r\n    \"\\uD83Dx\": \"\\uDE00\\uD83D\"\r\n"
        "  },\r\n  \"\\uD83D\xF0\x9F\x98\x80\"\r\n]");
}

TEST(SaveNodeDocuments, KeepsHalvesOfPairsThatJsonInUtf16Holds) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a.json", "{}");
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"\"\xD83D\"", false, false));
    document.encoding = {.name = L"UTF-16LE"};
    EXPECT_TRUE(document.Save(path));
    EXPECT_EQ(folder.Read(L"a.json"), "\"\0\x3D\xD8\"\0"s);
}

TEST(SaveNodeDocuments, WritesXmlInItsEncoding) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a.xml", "<r/>");
    XmlDocument document;
    ASSERT_TRUE(document.Parse(L"<r a='1'>\r\n</r>"));
    ASSERT_TRUE(document.SetValue(XmlDocument::AttributeRef(1, 0), L"\x20AC"));
    document.encoding = {.name = L"UTF-8", .hasBom = true};
    EXPECT_TRUE(document.Save(path));
    EXPECT_EQ(folder.Read(L"a.xml"), "\xEF\xBB\xBF<r a='\xE2\x82\xAC'>\r\n</r>");
    document.encoding = {.name = L"ANSI", .codePage = 437};
    EXPECT_FALSE(document.Save(path));
    EXPECT_EQ(folder.Read(L"a.xml"), "\xEF\xBB\xBF<r a='\xE2\x82\xAC'>\r\n</r>");
}

TEST(SaveNodeDocuments, WritesXmlInThePageItDeclares) {
    const std::string before = "<?xml version='1.0' encoding='ISO-8859-1'?><r a='1'/>";
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a.xml", before);
    std::wstring error;
    const auto document = LoadXmlDocument(path, 0, {.honourXmlDeclaration = true}, error);
    ASSERT_NE(document, nullptr);
    ASSERT_EQ(document->encoding.name, L"UTF-8");
    ASSERT_TRUE(document->SetValue(XmlDocument::AttributeRef(1, 0), L"\x0416"));
    EXPECT_FALSE(document->Save(path));
    EXPECT_EQ(folder.Read(L"a.xml"), before);
    for (const auto& [value, bytes] :
         {std::pair(L"\x00E9", "\xE9"), std::pair(L"e", "e"), std::pair(L"\x00E8", "\xE8")}) {
        ASSERT_TRUE(document->SetValue(XmlDocument::AttributeRef(1, 0), value));
        EXPECT_TRUE(document->Save(path));
        EXPECT_EQ(folder.Read(L"a.xml"),
                  "<?xml version='1.0' encoding='ISO-8859-1'?><r a='"s + bytes + "'/>");
    }
}

TEST(SaveNodeDocuments, WritesXmlAsUtf8WhereNothingElseIsMeant) {
    for (const std::string head :
         {"<?xml version='1.0' encoding='utf-8'?>", "<?xml version='1.0'?>",
          "<?xml version='1.0' encoding='x'?>", "\xEF\xBB\xBF<?xml encoding='ISO-8859-1'?>",
          "<?xml encoding='ISO-8859-1'?><!--\xC3\xA4-->"}) {
        const TempFolder folder;
        const std::wstring path = folder.Write(L"a.xml", head + "<r a='1'/>");
        std::wstring error;
        const auto document = LoadXmlDocument(path, 0, {.honourXmlDeclaration = true}, error);
        ASSERT_NE(document, nullptr);
        const auto node = static_cast<int32_t>(document->nodes.size() - 1);
        ASSERT_TRUE(document->SetValue(XmlDocument::AttributeRef(node, 0), L"\x00E9"));
        EXPECT_TRUE(document->Save(path));
        EXPECT_EQ(folder.Read(L"a.xml"), head + "<r a='\xC3\xA9'/>");
    }
}

}  // namespace
}  // namespace rl::test
