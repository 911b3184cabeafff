#include "load/load_options.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "host/store/settings_store.h"
#include "tests/support/temp_folder.h"

namespace rl {
namespace {

/// The process's store reads a file of this test's own.
class LoadOptionsTest : public testing::Test {
protected:
    void Use(std::string_view lines) {
        SettingsStore::Instance().SetPluginIniPath(
            folder.Write(L"rowlark.ini", "[rowlark]\n" + std::string(lines)));
    }
    LoadOptionsTest() { Use(""); }
    ~LoadOptionsTest() override { SettingsStore::Instance().SetPluginIniPath(L""); }

    test::TempFolder folder;
};

TEST_F(LoadOptionsTest, HaveTheirDefaultsWithoutSettings) {
    const LoadOptions options = CaptureLoadOptions(DocumentKind::Csv);

    EXPECT_EQ(options.sizeLimit, static_cast<int64_t>(DefaultMaxFileSize()));
    EXPECT_EQ(options.parseMode, 0);
    EXPECT_EQ(options.csv, (CsvOptions{.delimiter = 0,
                                       .quoteChar = L'"',
                                       .commentMode = CommentMode::Parse,
                                       .trimValues = true,
                                       .sampleRows = 1000}));
    EXPECT_EQ(options.encoding, EncodingRequest{});
    EXPECT_TRUE(options.delimiterDetected);
}

TEST_F(LoadOptionsTest, FollowTheSettings) {
    Use("max-file-size=1000\nparse-mode=1\ndefault-column-delimiter=|\nquote-char='\n"
        "skip-comments=3\ntrim-values=0\nmax-column-samples=7\nansi-codepage=1250\n");
    const LoadOptions options = CaptureLoadOptions(DocumentKind::Csv);

    EXPECT_EQ(options.sizeLimit, 1000);
    EXPECT_EQ(options.parseMode, 1);
    EXPECT_EQ(options.csv, (CsvOptions{.delimiter = L'|',
                                       .quoteChar = L'\'',
                                       .commentMode = CommentMode::Auto,
                                       .trimValues = false,
                                       .sampleRows = 7}));
    EXPECT_EQ(options.encoding.ansiCodePage, 1250u);
    EXPECT_EQ(options.encoding.name, L"");
    EXPECT_FALSE(options.delimiterDetected);
}

TEST_F(LoadOptionsTest, AreReadAfreshEachTime) {
    Use("parse-mode=1\n");
    EXPECT_EQ(CaptureLoadOptions(DocumentKind::Json).parseMode, 1);
    Use("parse-mode=10\n");
    EXPECT_EQ(CaptureLoadOptions(DocumentKind::Json).parseMode, 10);
}

TEST_F(LoadOptionsTest, TakeTheWordTabForTheCharacter) {
    Use("default-column-delimiter=Tab\n");

    EXPECT_EQ(CaptureLoadOptions(DocumentKind::Csv).csv.delimiter, L'\t');
    EXPECT_FALSE(CaptureLoadOptions(DocumentKind::Csv).delimiterDetected);
}

TEST_F(LoadOptionsTest, TakeASemicolonForTheDelimiterItIs) {
    Use("default-column-delimiter=;\n");

    EXPECT_EQ(CaptureLoadOptions(DocumentKind::Csv).csv.delimiter, L';');
}

TEST_F(LoadOptionsTest, TakeEmptyValuesForAutomatic) {
    Use("max-file-size=\ndefault-column-delimiter=\nquote-char=\nansi-codepage=\n");

    EXPECT_EQ(CaptureLoadOptions(DocumentKind::Csv),
              (LoadOptions{.sizeLimit = static_cast<int64_t>(DefaultMaxFileSize()),
                           .delimiterDetected = true}));
}

TEST_F(LoadOptionsTest, CountAnUnknownCommentModeAsZero) {
    for (const char* line : {"skip-comments=4\n", "skip-comments=-11\n", "skip-comments=oddly\n"}) {
        SCOPED_TRACE(line);
        Use(line);
        EXPECT_EQ(CaptureLoadOptions(DocumentKind::Csv).csv.commentMode, CommentMode::Parse);
    }
}

TEST_F(LoadOptionsTest, CountACodePageBelowZeroAsTheSystems) {
    Use("ansi-codepage=-1\n");
    EXPECT_EQ(CaptureLoadOptions(DocumentKind::Csv).encoding.ansiCodePage, 0u);
    Use("ansi-codepage=latin\n");
    EXPECT_EQ(CaptureLoadOptions(DocumentKind::Csv).encoding.ansiCodePage, 0u);
}

TEST_F(LoadOptionsTest, HonourADeclarationOnlyInXml) {
    EXPECT_FALSE(CaptureLoadOptions(DocumentKind::Csv).encoding.honourXmlDeclaration);
    EXPECT_FALSE(CaptureLoadOptions(DocumentKind::Json).encoding.honourXmlDeclaration);
    EXPECT_TRUE(CaptureLoadOptions(DocumentKind::Xml).encoding.honourXmlDeclaration);
}

TEST_F(LoadOptionsTest, KeepTheDefaultLimitForAnythingButAWholeNumber) {
    for (const char* line : {"max-file-size=-5\n", "max-file-size=1e9\n", "max-file-size=10MB\n"}) {
        SCOPED_TRACE(line);
        Use(line);
        EXPECT_EQ(MaxFileSize(), static_cast<int64_t>(DefaultMaxFileSize()));
    }
}

TEST_F(LoadOptionsTest, TakeALimitOfZeroForNone) {
    Use("max-file-size=0\n");

    EXPECT_EQ(MaxFileSize(), 0);
}

TEST_F(LoadOptionsTest, HaveADefaultLimitWithinItsBounds) {
    EXPECT_GE(DefaultMaxFileSize(), 500'000'000u);
    EXPECT_LE(DefaultMaxFileSize(), 1'073'741'824u);
}

class DecideDocumentKindTest : public testing::Test {
protected:
    DocumentKind Decide(std::wstring_view name, std::string_view bytes) const {
        return DecideDocumentKind(folder.Write(name, bytes));
    }

    test::TempFolder folder;
};

TEST_F(DecideDocumentKindTest, GoesByTheNameFirst) {
    EXPECT_EQ(Decide(L"a.csv", "<xml/>"), DocumentKind::Csv);
    EXPECT_EQ(Decide(L"a.JSON", "a,b"), DocumentKind::Json);
}

TEST_F(DecideDocumentKindTest, GoesByTheContentOtherwise) {
    EXPECT_EQ(Decide(L"data.txt", " \r\n{\"a\":1}"), DocumentKind::Json);
    EXPECT_EQ(Decide(L"notes.txt", "<a/>"), DocumentKind::Xml);
    EXPECT_EQ(Decide(L"list.dat", "// a"), DocumentKind::Json);
    EXPECT_EQ(Decide(L"path.dat", "/a"), DocumentKind::Csv);
    EXPECT_EQ(Decide(L"app.config", "<configuration/>"), DocumentKind::Xml);
    EXPECT_EQ(Decide(L"noext", "[1]"), DocumentKind::Json);
}

TEST_F(DecideDocumentKindTest, DecodesTheContentFirst) {
    EXPECT_EQ(Decide(L"a.txt", "\xEF\xBB\xBF{"), DocumentKind::Json);
    EXPECT_EQ(Decide(L"b.txt", std::string_view("\xFF\xFE<\0", 4)), DocumentKind::Xml);
    EXPECT_EQ(Decide(L"c.txt", std::string_view("\0<\0a", 4)), DocumentKind::Xml);
}

TEST_F(DecideDocumentKindTest, LooksNoFurtherThan4096Bytes) {
    EXPECT_EQ(Decide(L"a.txt", std::string(4095, ' ') + "<"), DocumentKind::Xml);
    EXPECT_EQ(Decide(L"b.txt", std::string(4096, ' ') + "<"), DocumentKind::Csv);
}

TEST_F(DecideDocumentKindTest, TakesWhatItCannotReadForCsv) {
    EXPECT_EQ(Decide(L"empty.txt", ""), DocumentKind::Csv);
    EXPECT_EQ(DecideDocumentKind(folder.PathOf(L"missing.txt")), DocumentKind::Csv);
    EXPECT_EQ(DecideDocumentKind(folder.PathOf(L"")), DocumentKind::Csv);
}

TEST_F(DecideDocumentKindTest, ReadsAFileThatAnotherProgramWrites) {
    const std::wstring path = folder.Write(L"a.txt", "<a/>");
    const HANDLE writer =
        CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);

    EXPECT_EQ(DecideDocumentKind(path), DocumentKind::Xml);
    CloseHandle(writer);
}

TEST(LoadingTextFor, NamesTheFileAndItsSize) {
    const test::TempFolder folder;

    EXPECT_EQ(LoadingTextFor(folder.Write(L"data.csv", std::string(1'572'864, 'x'))),
              L"Loading data.csv (1.5 MB)\x2026");
    EXPECT_EQ(LoadingTextFor(folder.PathOf(L"none.csv")), L"Loading none.csv\x2026");
}

}  // namespace
}  // namespace rl
