#include "load/text/document_kind.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace rl {
namespace {

std::optional<DocumentKind> Kind(std::wstring_view path) {
    DocumentKind kind{};
    return KindFromName(path, kind) ? std::optional(kind) : std::nullopt;
}

TEST(KindFromName, KnowsDelimitedText) {
    for (const wchar_t* suffix : {L"csv", L"tsv", L"tab"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(suffix)));
        EXPECT_EQ(Kind(std::wstring(L"C:\\a.") + suffix), DocumentKind::Csv);
    }
}

TEST(KindFromName, KnowsJsonAndItsRelatives) {
    for (const wchar_t* suffix :
         {L"json", L"jsonl", L"ndjson", L"geojson", L"har", L"jsonc", L"json5"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(suffix)));
        EXPECT_EQ(Kind(std::wstring(L"C:\\a.") + suffix), DocumentKind::Json);
    }
}

TEST(KindFromName, KnowsXmlAndTheFormatsBasedOnIt) {
    for (const wchar_t* suffix :
         {L"xml",    L"gpx",     L"svg",      L"xsd",        L"xsl",  L"xslt",  L"rss",
          L"osm",    L"kml",     L"manifest", L"nuspec",     L"resx", L"xaml",  L"csproj",
          L"vbproj", L"vcxproj", L"props",    L"targets",    L"wsdl", L"plist", L"atom",
          L"dgml",   L"xlf",     L"xliff",    L"runsettings"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(suffix)));
        EXPECT_EQ(Kind(std::wstring(L"C:\\a.") + suffix), DocumentKind::Xml);
    }
}

TEST(KindFromName, ComparesInAnyLetterCase) {
    EXPECT_EQ(Kind(L"C:\\A.CSV"), DocumentKind::Csv);
    EXPECT_EQ(Kind(L"C:\\A.GeoJson"), DocumentKind::Json);
    EXPECT_EQ(Kind(L"C:\\A.RunSettings"), DocumentKind::Xml);
}

TEST(KindFromName, LooksBehindTheLastDotOnly) {
    EXPECT_EQ(Kind(L"C:\\a.csv.xml"), DocumentKind::Xml);
    EXPECT_EQ(Kind(L"C:\\a.xml.bak"), std::nullopt);
    EXPECT_EQ(Kind(L".csv"), DocumentKind::Csv);
}

TEST(KindFromName, LeavesOtherNamesToTheContent) {
    for (const wchar_t* path : {L"", L"csv", L"C:\\csv", L"C:\\a.", L"C:\\a.txt", L"C:\\a.config",
                                L"C:\\a.csv ", L"C:\\a.csvx", L"C:\\a.xm", L"C:\\folder.csv\\a"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(path)));
        EXPECT_EQ(Kind(path), std::nullopt);
    }
}

TEST(KindFromName, LeavesTheAnswerUntouchedWhenItKnowsNone) {
    DocumentKind kind = DocumentKind::Xml;

    EXPECT_FALSE(KindFromName(L"a.txt", kind));
    EXPECT_EQ(kind, DocumentKind::Xml);
}

TEST(KindFromHead, TakesALessThanSignForXml) {
    EXPECT_EQ(KindFromHead(L"<a/>"), DocumentKind::Xml);
    EXPECT_EQ(KindFromHead(L"<"), DocumentKind::Xml);
}

TEST(KindFromHead, TakesBracesAndBracketsForJson) {
    EXPECT_EQ(KindFromHead(L"{\"a\": 1}"), DocumentKind::Json);
    EXPECT_EQ(KindFromHead(L"[1]"), DocumentKind::Json);
}

TEST(KindFromHead, TakesCommentsForJson) {
    EXPECT_EQ(KindFromHead(L"// remark\n{}"), DocumentKind::Json);
    EXPECT_EQ(KindFromHead(L"/* remark */ {}"), DocumentKind::Json);
}

TEST(KindFromHead, TakesALoneSlashForText) {
    EXPECT_EQ(KindFromHead(L"/"), DocumentKind::Csv);
    EXPECT_EQ(KindFromHead(L"/usr/bin;1"), DocumentKind::Csv);
    EXPECT_EQ(KindFromHead(L"/ /"), DocumentKind::Csv);
}

TEST(KindFromHead, SkipsBlanksAndMarks) {
    EXPECT_EQ(KindFromHead(L"\xFEFF\t\r\n {"), DocumentKind::Json);
    EXPECT_EQ(KindFromHead(L" \xFEFF \xFEFF<"), DocumentKind::Xml);
    EXPECT_EQ(KindFromHead(L"\v<"), DocumentKind::Csv) << "only four blanks count";
    EXPECT_EQ(KindFromHead(L"\x00A0<"), DocumentKind::Csv);
}

TEST(KindFromHead, TakesEverythingElseForText) {
    EXPECT_EQ(KindFromHead(L""), DocumentKind::Csv);
    EXPECT_EQ(KindFromHead(L" \r\n\t"), DocumentKind::Csv);
    EXPECT_EQ(KindFromHead(L"a,b\n<x>"), DocumentKind::Csv);
    EXPECT_EQ(KindFromHead(L"\"{\""), DocumentKind::Csv);
    EXPECT_EQ(KindFromHead(std::wstring_view(L"\0{", 2)), DocumentKind::Csv);
}

}  // namespace
}  // namespace rl
