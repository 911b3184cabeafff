#include "model/node_copy.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/copied_xml.h"
#include "tests/support/outline_text.h"

namespace rl {
namespace {

using test::JsonMode;
using test::JsonOf;
using test::RowNamed;
using test::XmlOf;

/// The first row of that name (the root for none), copied; throws when it is too long.
template <typename Document>
std::wstring Copied(const Document& document, CopyFormat format, std::wstring_view name = L"") {
    const TreeTableView outline(document, 0);
    return NodeTextAs(outline, name.empty() ? 0 : RowNamed(outline, name), format).value();
}

std::wstring JsonAsJson(const std::wstring& text, std::wstring_view name = L"") {
    return Copied(*JsonOf(text), CopyFormat::Json, name);
}
std::wstring JsonAsXml(const std::wstring& text, std::wstring_view name = L"") {
    return Copied(*JsonOf(text), CopyFormat::Xml, name);
}
std::wstring XmlAsJson(const std::wstring& text, std::wstring_view name = L"") {
    return Copied(*XmlOf(text), CopyFormat::Json, name);
}
std::wstring XmlAsXml(const std::wstring& text, std::wstring_view name = L"") {
    return Copied(*XmlOf(text), CopyFormat::Xml, name);
}

TEST(CopyJsonAsJson, WritesElementsAloneAndMembersWithTheirKey) {
    EXPECT_EQ(JsonAsJson(LR"([1,"a\"b"])", L"[1]"), LR"("a\"b")");
    EXPECT_EQ(JsonAsJson(LR"({"k":[1,{"x":null}],"e":{}})", L"k"),
              L"{\r\n  \"k\": [\r\n    1,\r\n    {\r\n      \"x\": null\r\n    }\r\n  ]\r\n}");
    EXPECT_EQ(JsonAsJson(LR"({"k":{}})", L"k"), L"{\r\n  \"k\": {}\r\n}");
    EXPECT_EQ(JsonAsJson(L" [ ] "), L"[]");
}

TEST(CopyJsonAsJson, WritesAWholeValueAsSavingDoes) {
    const auto document = JsonOf(LR"({"a":[1,[],{},"x\u00e9",-1.5e3,true],"b":{"c":"\n"}})");
    EXPECT_EQ(Copied(*document, CopyFormat::Json), document->PrettyText(document->root));
}

TEST(CopyJsonAsJson, EscapesHalvesOfPairsOnly) {
    EXPECT_EQ(JsonAsJson(LR"(["\ud800"])", L"[0]"), LR"("\uD800")");
    EXPECT_EQ(JsonAsJson(LR"(["a\udfffb\udc00"])", L"[0]"), LR"("a\uDFFFb\uDC00")");
    EXPECT_EQ(JsonAsJson(LR"(["\ud83d\ude00\ud83d"])", L"[0]"), L"\"\xD83D\xDE00\\uD83D\"");
    EXPECT_EQ(JsonAsJson(LR"({"\udbff":1})"), L"{\r\n  \"\\uDBFF\": 1\r\n}");
}

TEST(CopyJsonAsJson, WritesEdits) {
    const auto document = JsonOf(LR"({"a":"old"})");
    ASSERT_TRUE(document->SetValue(1, L"n\"w"));
    EXPECT_EQ(Copied(*document, CopyFormat::Json, L"a"), L"{\r\n  \"a\": \"n\\\"w\"\r\n}");
}

TEST(CopyXmlAsJson, WritesAnElementOfTextAsAString) {
    EXPECT_EQ(XmlAsJson(L"<r><p>h&amp;i<![CDATA[<>]]></p></r>", L"p"),
              L"{\r\n  \"p\": \"h&i<>\"\r\n}");
    EXPECT_EQ(XmlAsJson(L"<r><p/></r>", L"p"), L"{\r\n  \"p\": \"\"\r\n}");
    EXPECT_EQ(XmlAsJson(L"<r><p>a<!--c-->b</p></r>", L"p"), L"{\r\n  \"p\": \"ab\"\r\n}");
}

TEST(CopyXmlAsJson, WritesAttributesThenChildrenByNameThenText) {
    EXPECT_EQ(XmlAsJson(L"<r a='1' b='\"'> t <x>1</x><y/><x c='2'/> u </r>", L"r"),
              L"{\r\n"
              L"  \"r\": {\r\n"
              L"    \"@a\": \"1\",\r\n"
              L"    \"@b\": \"\\\"\",\r\n"
              L"    \"x\": [\r\n"
              L"      \"1\",\r\n"
              L"      {\r\n"
              L"        \"@c\": \"2\"\r\n"
              L"      }\r\n"
              L"    ],\r\n"
              L"    \"y\": \"\",\r\n"
              L"    \"#text\": \" t  u \"\r\n"
              L"  }\r\n"
              L"}");
}

TEST(CopyXmlAsJson, KeepsTextOnlyWhereItIsNotBlank) {
    EXPECT_EQ(XmlAsJson(L"<r a='1'>&#32;&#9;<![CDATA[ \n]]></r>", L"r"),
              L"{\r\n  \"r\": {\r\n    \"@a\": \"1\"\r\n  }\r\n}");
    EXPECT_EQ(XmlAsJson(L"<r a='1'>&#160;</r>", L"r"),
              L"{\r\n  \"r\": {\r\n    \"@a\": \"1\",\r\n    \"#text\": \"\x00A0\"\r\n  }\r\n}");
}

TEST(CopyXmlAsJson, KeepsTheOrderOfRepeatedNames) {
    EXPECT_EQ(XmlAsJson(L"<r><b>1</b><a>2</a><b>3</b><c>4</c><a>5</a></r>"),
              L"{\r\n  \"r\": {\r\n"
              L"    \"b\": [\r\n      \"1\",\r\n      \"3\"\r\n    ],\r\n"
              L"    \"a\": [\r\n      \"2\",\r\n      \"5\"\r\n    ],\r\n"
              L"    \"c\": \"4\"\r\n  }\r\n}");
}

TEST(CopyXmlAsJson, WritesTheDocumentWithoutAWrapper) {
    EXPECT_EQ(XmlAsJson(L"<!--c--><r>1</r>"), L"{\r\n  \"r\": \"1\"\r\n}");
    EXPECT_EQ(XmlAsJson(L"<r/>x<r>2</r>"),
              L"{\r\n  \"r\": [\r\n    \"\",\r\n    \"2\"\r\n  ],\r\n  \"#text\": \"x\"\r\n}");
}

TEST(CopyXmlAsJson, NamesOtherNodesAsTheyAreShown) {
    const std::wstring text = L"<!DOCTYPE r><r><!--c\n--><![CDATA[d]]><?p q r?></r>";
    EXPECT_EQ(XmlAsJson(text, L"#COMMENT"), L"{\r\n  \"#COMMENT\": \"c\\n\"\r\n}");
    EXPECT_EQ(XmlAsJson(text, L"#CDATA"), L"{\r\n  \"#CDATA\": \"d\"\r\n}");
    EXPECT_EQ(XmlAsJson(text, L"p"), L"{\r\n  \"p\": \"q r\"\r\n}");
    const auto document = XmlOf(text);
    EXPECT_EQ(NodeTextAs(TreeTableView(*document, 0), 1, CopyFormat::Json),
              L"{\r\n  \"\": \"\"\r\n}");
}

TEST(CopyXmlAsJson, WritesAnAttributeAsOneMember) {
    EXPECT_EQ(XmlAsJson(L"<r id='&lt;1&#10;'/>", L"id"), L"{\r\n  \"@id\": \"<1\\n\"\r\n}");
}

TEST(CopyXmlAsXml, IndentsElementsAndLeavesMixedContentAlone) {
    EXPECT_EQ(XmlAsXml(L"<r a=\"1\"  b='2'>\n<s/><t>x &amp; y</t><m>a<b>c<d/></b></m></r>", L"r"),
              L"<r a=\"1\" b='2'>\r\n"
              L"  <s/>\r\n"
              L"  <t>x &amp; y</t>\r\n"
              L"  <m>a<b>c<d/></b></m>\r\n"
              L"</r>");
}

TEST(CopyXmlAsXml, StartsAtTheCopiedNode) {
    EXPECT_EQ(XmlAsXml(L"<r><s><t><u/></t></s><v/></r>", L"t"), L"<t>\r\n  <u/>\r\n</t>");
}

TEST(CopyXmlAsXml, KeepsTheQuoteOfAnAttribute) {
    EXPECT_EQ(XmlAsXml(L"<r x='a\"b&apos;'/>", L"x"), L"x='a\"b&apos;'");
    EXPECT_EQ(XmlAsXml(L"<r x=\"a&quot;b'&lt;\"/>", L"x"), L"x=\"a&quot;b'&lt;\"");
    EXPECT_EQ(XmlAsXml(L"<r x='a\"b&apos;'/>", L"r"), L"<r x='a\"b&apos;'/>");
}

TEST(CopyXmlAsXml, WritesADocumentWithItsDoctypeButNotItsSubset) {
    EXPECT_EQ(
        XmlAsXml(L"<?xml version='1.0'?><!--a--><!DOCTYPE r SYSTEM \"r.dtd\" [<!ENTITY e 'x'>]>"
                 L"<?p q?><r/><!--b-->"),
        L"<!--a-->\r\n<!DOCTYPE r SYSTEM \"r.dtd\">\r\n<?p q?>\r\n<r/>\r\n<!--b-->");
    EXPECT_EQ(XmlAsXml(L"<!DOCTYPE html PUBLIC '-//W3C//DTD' 'a&b'><html/>"),
              L"<!DOCTYPE html PUBLIC '-//W3C//DTD' 'a&b'>\r\n<html/>");
}

TEST(CopyXmlAsXml, LeavesOutWhatNoDoctypeMayBe) {
    EXPECT_EQ(XmlAsXml(L"<!DOCTYPE><r/>"), L"<r/>");
    EXPECT_EQ(XmlAsXml(L"<!DOCTYPE 1><r/>"), L"<r/>");
    EXPECT_EQ(XmlAsXml(L"<!DOCTYPE r PUBLIC \"{}\" \"x\"><r/>"), L"<!DOCTYPE r>\r\n<r/>");
    EXPECT_EQ(XmlAsXml(L"<!DOCTYPE r PUBLIC \"x\"><r/>"), L"<!DOCTYPE r>\r\n<r/>");
    EXPECT_EQ(XmlAsXml(L"<!DOCTYPE r><!DOCTYPE s><r/><!DOCTYPE t>"), L"<!DOCTYPE r>\r\n<r/>");
    EXPECT_EQ(XmlAsXml(L"<r><!DOCTYPE r><s/></r>"), L"<r>\r\n  <s/>\r\n</r>");
}

TEST(CopyXmlAsXml, PutsARootAroundSeveralElements) {
    EXPECT_EQ(XmlAsXml(L"<!DOCTYPE a><a/><b/>"), L"<root>\r\n  <a/>\r\n  <b/>\r\n</root>");
    EXPECT_EQ(XmlAsXml(L"x<a/>"), L"<root>x<a/></root>");
}

TEST(CopyXmlAsXml, MendsNames) {
    EXPECT_EQ(XmlAsXml(L"<r><1a b'c='1'/></r>", L"r"), L"<r>\r\n  <_1a b_c='1'/>\r\n</r>");
    EXPECT_EQ(XmlAsXml(L"<r>a < b</r>", L"r"), L"<r>a <_/></r>");
    EXPECT_EQ(XmlAsXml(L"<n:r xmlns:n='u' n:a='1'/>", L"n:r"), L"<n:r xmlns:n='u' n:a='1'/>");
    EXPECT_EQ(XmlAsXml(L"<r 2='1'/>", L"2"), L"_2='1'");
    EXPECT_EQ(XmlAsXml(L"<r><?1 x?></r>", L"1"), L"<?_1 x?>");
}

TEST(CopyXmlAsXml, WritesOneAttributeOfEachName) {
    EXPECT_EQ(XmlAsXml(L"<r a='1' a='2' b'='3' b\"='4'/>", L"r"), L"<r a='1' b_='3'/>");
}

TEST(CopyXmlAsXml, ReplacesWhatXmlForbids) {
    EXPECT_EQ(XmlAsXml(L"<r a='&#1;'>\x0002&#xFFFF;\xD800</r>", L"r"),
              L"<r a='\xFFFD'>\xFFFD\xFFFD\xFFFD</r>");
    EXPECT_EQ(XmlAsXml(L"<r>\xD83D\xDE00\t</r>", L"r"), L"<r>\xD83D\xDE00\t</r>");
    EXPECT_EQ(XmlAsXml(L"<r><!--a--b---></r>", L"#COMMENT"), L"<!--a- -b- -->");
    EXPECT_EQ(XmlAsXml(L"<r><!------->", L"#COMMENT"), L"<!--- - - -->");
}

TEST(CopyXmlAsXml, KeepsOtherContents) {
    const std::wstring text = L"<r><!-- c --><![CDATA[<&]]><?p q?><?e?></r>";
    EXPECT_EQ(XmlAsXml(text, L"#COMMENT"), L"<!-- c -->");
    EXPECT_EQ(XmlAsXml(text, L"#CDATA"), L"<![CDATA[<&]]>");
    EXPECT_EQ(XmlAsXml(text, L"p"), L"<?p q?>");
    EXPECT_EQ(XmlAsXml(text, L"e"), L"<?e?>");
}

TEST(CopyJsonAsXml, NamesElementsAfterTheirKeys) {
    EXPECT_EQ(JsonAsXml(L"[1,2]"), L"<root>\r\n  <item>1</item>\r\n  <item>2</item>\r\n</root>");
    EXPECT_EQ(JsonAsXml(LR"({"first name":"<a>","2nd":[],"":{},"n":null,"e":""})"),
              L"<root>\r\n"
              L"  <first_name>&lt;a&gt;</first_name>\r\n"
              L"  <_2nd/>\r\n"
              L"  <_/>\r\n"
              L"  <n>null</n>\r\n"
              L"  <e/>\r\n"
              L"</root>");
    EXPECT_EQ(JsonAsXml(LR"({"a":[[true]]})", L"a"),
              L"<a>\r\n  <item>\r\n    <item>true</item>\r\n  </item>\r\n</a>");
    EXPECT_EQ(JsonAsXml(L"[[1]]", L"[0]"), L"<item>\r\n  <item>1</item>\r\n</item>");
}

TEST(CopyJsonAsXml, ReplacesWhatXmlForbids) {
    EXPECT_EQ(JsonAsXml(LR"("\u0001\ud800x\uffff\ud83d\ude00")"),
              L"<root>\xFFFD\xFFFDx\xFFFD\xD83D\xDE00</root>");
}

TEST(CopyJsonAsXml, MakesKeysSafe) {
    EXPECT_EQ(XmlSafeName(L"first name"), L"first_name");
    EXPECT_EQ(XmlSafeName(L"2nd"), L"_2nd");
    EXPECT_EQ(XmlSafeName(L""), L"_");
    EXPECT_EQ(XmlSafeName(L"-a"), L"_-a");
    EXPECT_EQ(XmlSafeName(L".5"), L"_.5");
    EXPECT_EQ(XmlSafeName(L"a:b"), L"a_b");
    EXPECT_EQ(XmlSafeName(L"_x-1.y"), L"_x-1.y");
    EXPECT_EQ(XmlSafeName(L"\x00E9\x4E2D\x0416"), L"\x00E9\x4E2D\x0416");
    EXPECT_EQ(XmlSafeName(L"\xD83D\xDE00"), L"__");
    EXPECT_EQ(XmlSafeName(L"\x00AA\x00B5\xFF21\x00B2"), L"__\xFF21_");  // letters, not in XML
}

TEST(CopyPaths, AreJsonPathsOrXPaths) {
    EXPECT_EQ(Copied(*JsonOf(LR"({"a":[1]})"), CopyFormat::Path, L"[0]"), L"$.a[0]");
    EXPECT_EQ(Copied(*XmlOf(L"<r id='1'/>"), CopyFormat::Path, L"id"), L"/r/@id");
    EXPECT_EQ(Copied(*XmlOf(L"<r/>"), CopyFormat::Path), L"");
}

TEST(CopySeveral, JoinsTextsAndLeavesOutEmptyOnes) {
    const auto xml = XmlOf(L"<!--c--><r><s a='1'/><s/></r>");
    const TreeTableView outline(*xml, 0);
    const std::vector<int32_t> rows = {0, 1, 2, 3, 4, -1, 99, 5};
    EXPECT_EQ(NodeTextsAs(outline, rows, CopyFormat::Path),
              L"/r\r\n/r/s[1]\r\n/r/s[1]/@a\r\n/r/s[2]");
    const std::vector<int32_t> two = {4, 5};
    EXPECT_EQ(NodeTextsAs(outline, two, CopyFormat::Xml), L"a='1'\r\n<s/>");
    EXPECT_EQ(NodeTextsAs(outline, {}, CopyFormat::Json), L"");
    const std::vector<int32_t> none = {0, 1};
    EXPECT_EQ(NodeTextsAs(outline, none, CopyFormat::Path), L"");
    EXPECT_EQ(NodeTextsAs(outline, two, static_cast<CopyFormat>(3)), L"");
    EXPECT_EQ(NodeTextAs(outline, -1, CopyFormat::Json), L"");
}

TEST(CopySeveral, KeepsTheOrderOfTheRows) {
    const auto json = JsonOf(L"[1,2,3]");
    const TreeTableView outline(*json, 0);
    const std::vector<int32_t> rows = {3, 1, 3};
    EXPECT_EQ(NodeTextsAs(outline, rows, CopyFormat::Json), L"3\r\n1\r\n3");
    EXPECT_EQ(NodeTextsAs(outline, rows, CopyFormat::Path), L"$[2]\r\n$[0]\r\n$[2]");
}

TEST(CopyLimit, IsExactForEveryFormat) {
    const auto json = JsonOf(LR"({"a":["x",{"b":1}]})");
    const auto xml = XmlOf(L"<r a='1'>t<b/></r>");
    const TreeTableView values(*json, 0);
    const TreeTableView nodes(*xml, 0);
    for (const TreeTableView* outline : {&values, &nodes}) {
        for (const auto format : {CopyFormat::Json, CopyFormat::Xml, CopyFormat::Path}) {
            const std::vector<int32_t> rows = {1, 2};
            const std::wstring text = NodeTextsAs(*outline, rows, format).value();
            EXPECT_EQ(NodeTextsAs(*outline, rows, format, text.size()), text);
            EXPECT_EQ(NodeTextsAs(*outline, rows, format, text.size() - 1), std::nullopt);
            EXPECT_EQ(NodeTextsAs(*outline, rows, format, 0), std::nullopt);
        }
    }
}

TEST(CopyLimit, EndsDeepAndWideJsonEarly) {
    // 512 levels of brackets make lines of a thousand blanks: 40 MB of text out of 80 kB.
    std::wstring text(512, L'[');
    for (int32_t i = 0; i < 40'000; ++i) {
        text += L"0,";
    }
    const auto document = JsonOf(text + L"0" + std::wstring(512, L']'));
    const TreeTableView outline(*document, 0);
    EXPECT_TRUE(NodeTextAs(outline, 0, CopyFormat::Json).has_value());
    EXPECT_FALSE(NodeTextAs(outline, 0, CopyFormat::Json, 1'000'000).has_value());
}

}  // namespace
}  // namespace rl
