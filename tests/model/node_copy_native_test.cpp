#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "load/text/decode_text.h"
#include "model/node_copy.h"
#include "tests/support/corpus.h"
#include "tests/support/outline_text.h"
#include "tests/support/parse_back.h"

namespace rl {
namespace {

using test::JsonOf;
using test::XmlOf;

constexpr int32_t kCheckedRows = 30;  // of each document; of a large one fewer
constexpr size_t kLargeUnits = 50'000;

/// Whether others accept what is copied of a row. A fragment is put where it may stand.
void ExpectValidCopies(const TreeTableView& outline, int32_t row) {
    SCOPED_TRACE("row " + std::to_string(row));
    const OutlineRow& shown = outline.Row(row);
    EXPECT_TRUE(test::IsJson(NodeTextAs(outline, row, CopyFormat::Json).value()));
    const std::wstring xml = NodeTextAs(outline, row, CopyFormat::Xml).value();
    const bool isDocument =
        shown.rowType == OutlineRowType::XmlDocument || outline.Json() != nullptr;
    const bool isDoctype = shown.rowType == OutlineRowType::XmlDoctype;
    const std::wstring whole = isDocument            ? xml
                               : shown.IsAttribute() ? L"<r " + xml + L"/>"
                               : isDoctype           ? xml + L"<r/>"
                                                     : L"<r>" + xml + L"</r>";
    EXPECT_TRUE(test::IsXml(whole));
}

void ExpectValidCopies(const TreeTableView& outline) {
    const size_t units =
        outline.Json() != nullptr ? outline.Json()->text.size() : outline.Xml()->text.size();
    const int32_t rows = std::min(outline.RowCount(), units > kLargeUnits ? 2 : kCheckedRows);
    for (int32_t row = 0; row < rows; ++row) {
        ExpectValidCopies(outline, row);
    }
}

TEST(CopyIsValid, ForJsonOfAllKinds) {
    for (const wchar_t* text : {
             LR"({"a":[1,-0.5e3,true,false,null,"x",{},[]],"b":{"c d":{"":[[]]}}})",
             LR"(["\ud800","\udc00\ud800","\ud83d\ude00","\u0000\u0001\u001f\u007f\u2028\ufffe"])",
             LR"({"\ud800":1,"\u0000":2,"<&>":3,"]]>":"]]>","--":"--","1":1,"xml":"<?xml?>"})",
             LR"({"a":1,"a":2, /* c */ "a":[3,],})",
             LR"({"\u00aa":1,"\u00b5":2,"\u0300":3,"\u4e2d":4,"\u0660":5,"a\u00b7":6})",
         }) {
        SCOPED_TRACE(testing::Message() << text);
        const auto document = JsonOf(text);
        ExpectValidCopies(TreeTableView(*document, 0));
    }
}

TEST(CopyIsValid, ForXmlHoweverBroken) {
    for (const wchar_t* text : {
             L"<r a='1' b=\"2\">x<s/>y</r>",
             L"<!DOCTYPE r [<!ENTITY e \"]>\">]><r>&e;&copy;&#0;&#x110000;&#xD800;</r>",
             L"<!DOCTYPE r SYSTEM 'a' x><!DOCTYPE><r/>",
             L"<!DOCTYPE r PUBLIC \"\x00E9\" 'x'><r><!DOCTYPE s></r>",
             L"<r><a a='1' a='2' A='3' a'='4' a\"='5'/></r>",
             L"a < b > c </d> <e f='<' g='&'>",
             L"<r><!--a--b---><!-----><!-->",
             L"<r><![CDATA[a]]b]]><![CDATA[]]>",
             L"<r><?p a?"
             L"?><?1?><? x?><?a'b c?><?q",
             L"<a/><b/>text<c/>",
             L"<r>\x0001\xFFFE\xD800<x y='\xDC00\x0002'/></r>",
             L"<r><a:b:c d::e='1' :='2'/><-a/><.b/><\x00B7/><\xD83D\xDE00/></r>",
             L"<r>]]>&gt;</r>",
             L"<r",
             L"<",
             L"<><a/>",
         }) {
        SCOPED_TRACE(testing::Message() << text);
        XmlDocument document;
        if (document.Parse(text)) {
            ExpectValidCopies(TreeTableView(document, 0));
        }
    }
}

/// The files below a folder of the shared collection, decoded.
template <typename Check>
void ForEachText(const char* folder, const Check& check) {
    for (const auto& file :
         std::filesystem::recursive_directory_iterator(test::CorpusRoot() / folder)) {
        if (file.is_regular_file()) {
            SCOPED_TRACE(file.path().string());
            TextEncoding encoding;
            check(DecodeText(test::ReadBytes(file.path()), {}, encoding));
        }
    }
}

TEST(CopyIsValid, ForTheSharedDocuments) {
    if (!test::HasCorpus()) {
        GTEST_SKIP();
    }
    constexpr int32_t kRows = 300;  // opened, of each document
    int32_t documents = 0;
    ForEachText("json", [&](std::wstring text) {
        JsonDocument document;
        if (document.Parse(std::move(text), false, true)) {
            ++documents;
            ExpectValidCopies(TreeTableView(document, kRows));
        }
    });
    EXPECT_GT(documents, 100);
    documents = 0;
    ForEachText("xml", [&](std::wstring text) {
        XmlDocument document;
        if (document.Parse(std::move(text))) {
            ++documents;
            ExpectValidCopies(TreeTableView(document, kRows));
        }
    });
    EXPECT_GT(documents, 100);
}

std::wstring Chain(int32_t count) {
    std::wstring text;
    for (int32_t i = 0; i < count; ++i) {
        text += L"<a>";
    }
    for (int32_t i = 0; i < count; ++i) {
        text += L"</a>";
    }
    return text;
}

TEST(CopyOfAMillionLevels, IsXmlIndentedNoFurtherThan64Levels) {
    constexpr int32_t kLevels = 1'000'000;
    const auto document = XmlOf(Chain(kLevels));
    const TreeTableView outline(*document, 0);
    const auto text = NodeTextAs(outline, 0, CopyFormat::Xml);
    ASSERT_TRUE(text.has_value());
    EXPECT_LT(text->size(), size_t{kLevels} * 7 + 64 * 300);
    EXPECT_EQ(text->find(std::wstring(129, L' ')), std::wstring::npos);
    EXPECT_NE(text->find(std::wstring(128, L' ')), std::wstring::npos);
    EXPECT_TRUE(test::IsXml(*text));
}

TEST(CopyOfAMillionLevels, IsTooLongAsJsonAndFitsAsAPath) {
    constexpr int32_t kLevels = 1'000'000;
    const auto document = XmlOf(Chain(kLevels));
    const TreeTableView outline(*document, 0);
    EXPECT_EQ(NodeTextAs(outline, 0, CopyFormat::Json), std::nullopt);
    const auto path = NodeTextAs(outline, kLevels, CopyFormat::Path);
    ASSERT_TRUE(path.has_value());
    EXPECT_EQ(path->size(), size_t{kLevels} * 2);
}

TEST(CopyOfManyNodes, TakesOnePassForAHundredThousandPaths) {
    constexpr int32_t kNodes = 100'000;
    std::wstring json = L"[0";
    std::wstring xml = L"<r>";
    for (int32_t i = 1; i < kNodes; ++i) {
        json += L",0";
        xml += L"<i/>";
    }
    const auto values = JsonOf(json + L"]");
    const auto nodes = XmlOf(xml + L"</r>");
    const TreeTableView valueRows(*values, 0);
    const TreeTableView nodeRows(*nodes, 0);
    for (const TreeTableView* outline : {&valueRows, &nodeRows}) {
        std::vector<int32_t> rows;
        for (int32_t row = outline->RowCount() - 1; row >= 0; --row) {
            rows.push_back(row);
        }
        const auto text = NodeTextsAs(*outline, rows, CopyFormat::Path);
        ASSERT_TRUE(text.has_value());
        EXPECT_TRUE(text->starts_with(outline == &valueRows ? L"$[99999]\r\n$[99998]"
                                                            : L"/r/i[99999]\r\n/r/i[99998]"));
    }
}

TEST(CopyOfManyNodes, GroupsAHundredThousandNames) {
    std::wstring xml = L"<r>";
    for (int32_t i = 0; i < 100'000; ++i) {
        xml += L"<n" + std::to_wstring(i) + L"/>";
    }
    const auto document = XmlOf(xml + L"<n0/></r>");
    const auto text = NodeTextAs(TreeTableView(*document, 1), 1, CopyFormat::Json);
    ASSERT_TRUE(text.has_value());
    EXPECT_TRUE(test::IsJson(*text));
    EXPECT_NE(text->find(L"\"n0\": ["), std::wstring::npos);
}

}  // namespace
}  // namespace rl
