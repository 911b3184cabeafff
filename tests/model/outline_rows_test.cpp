#include <gtest/gtest.h>

#include <string>

#include "tests/support/outline_text.h"

namespace rl {
namespace {

using test::JsonMode;
using test::JsonOf;
using test::Shown;
using test::XmlOf;

TEST(OutlineRows, NameJsonMembersByKeyAndElementsByPosition) {
    const auto document = JsonOf(LR"({"a":1,"b":[true,null,"x"],"":{}})");
    const TreeTableView outline(*document, 0);
    EXPECT_EQ(Shown(outline),
              L"-<<root>>\n"
              L" .a=1\n"
              L" -b\n"
              L"  .[0]=true\n"
              L"  .[1]=null\n"
              L"  .[2]=x\n"
              L" .\n");
}

TEST(OutlineRows, TellAttributesThenChildrenButNeverTexts) {
    const auto document =
        XmlOf(L"<!DOCTYPE r><r a='1'>t<b/>u<!--c--><![CDATA[d]]><?p q?></r><!-- e -->");
    const TreeTableView outline(*document, 0);
    EXPECT_EQ(Shown(outline),
              L"-#document\n"
              L" .\n"
              L" -r\n"
              L"  .a=1\n"
              L"  .b\n"
              L"  .#COMMENT=c\n"
              L"  .#CDATA=d\n"
              L"  .p=q\n"
              L" .#COMMENT= e \n");
}

TEST(OutlineRows, HoldTheTypeOfEachNode) {
    const auto json = JsonOf(LR"([{},[],"s",1,true,null])");
    const TreeTableView values(*json, 0);
    using enum OutlineRowType;
    constexpr OutlineRowType kValues[] = {JsonArray,  JsonObject,  JsonArray, JsonString,
                                          JsonNumber, JsonBoolean, JsonNull};
    ASSERT_EQ(values.RowCount(), 7);
    for (int32_t row = 0; row < 7; ++row) {
        EXPECT_EQ(values.Row(row).rowType, kValues[row]) << row;
    }
    const auto xml = XmlOf(L"<!DOCTYPE r><r a=''><!--c--><![CDATA[d]]><?p?></r>");
    const TreeTableView nodes(*xml, 0);
    constexpr OutlineRowType kNodes[] = {XmlDocument, XmlDoctype, XmlElement,    XmlAttribute,
                                         XmlComment,  XmlCdata,   XmlInstruction};
    ASSERT_EQ(nodes.RowCount(), 7);
    for (int32_t row = 0; row < 7; ++row) {
        EXPECT_EQ(nodes.Row(row).rowType, kNodes[row]) << row;
    }
}

TEST(OutlineRows, NumberTheCodesOfTheirTypesAsThePainterKnowsThem) {
    EXPECT_EQ(static_cast<int>(OutlineRowType::XmlDocument), 0);
    EXPECT_EQ(static_cast<int>(OutlineRowType::XmlComment), 4);
    EXPECT_EQ(static_cast<int>(OutlineRowType::XmlDoctype), 7);
    EXPECT_EQ(static_cast<int>(OutlineRowType::JsonObject), 8);
    EXPECT_EQ(static_cast<int>(OutlineRowType::JsonNull), 13);
}

TEST(OutlineRows, KnowTheirPlaceInTheArrayAboveAndTheirAttribute) {
    const auto json = JsonOf(LR"([[1,2],{"k":3},4])");
    const TreeTableView values(*json, 0);
    constexpr int32_t kPlaces[] = {-1, 0, 0, 1, 1, -1, 2};
    ASSERT_EQ(values.RowCount(), 7);
    for (int32_t row = 0; row < 7; ++row) {
        EXPECT_EQ(values.Row(row).aux, kPlaces[row]) << row;
    }
    const auto xml = XmlOf(L"<r a='1' b='2'><s c='3'/></r>");
    const TreeTableView nodes(*xml, 0);
    constexpr int32_t kAttributes[] = {-1, -1, 0, 1, -1, 2};
    ASSERT_EQ(nodes.RowCount(), 6);
    for (int32_t row = 0; row < 6; ++row) {
        EXPECT_EQ(nodes.Row(row).aux, kAttributes[row]) << row;
        EXPECT_EQ(nodes.Row(row).IsAttribute(), kAttributes[row] >= 0) << row;
    }
    EXPECT_EQ(nodes.Row(2).node, nodes.Row(1).node);
}

TEST(OutlineRows, ShowLinesAsElementsOfTheRoot) {
    const auto document = JsonOf(L"{\"a\":1}\n\n[2]\n", JsonMode::Lines);
    const TreeTableView outline(*document, 0);
    EXPECT_EQ(Shown(outline),
              L"-<<root>>\n"
              L" -[0]\n"
              L"  .a=1\n"
              L" -[1]\n"
              L"  .[0]=2\n");
}

TEST(OutlineRows, MarkSalvagedAndMalformedDocumentsAtTheirRoot) {
    const auto several = JsonOf(L"{\"a\":1} x [2]", JsonMode::Recover);
    EXPECT_EQ(Shown(TreeTableView(*several, 0)),
              L"-<<malformed>>\n -[0]\n  .a=1\n -[1]\n  .[0]=2\n");
    const auto one = JsonOf(L"x {\"a\":[1]} x", JsonMode::Recover);
    EXPECT_EQ(Shown(TreeTableView(*one, 0)), L"-<<malformed>>\n -a\n  .[0]=1\n");
    const auto xml = XmlOf(L"<a><b></a></b>");
    EXPECT_EQ(Shown(TreeTableView(*xml, 0)), L"-<<malformed>>\n -a\n  .b\n");
}

TEST(OutlineRows, ShowTheTextOfAnElementThatHoldsNothingElse) {
    const auto document =
        XmlOf(L"<r><p>h&amp;i</p><e/><m>a<b/>c</m><d><![CDATA[x]]></d><n a=''>t</n></r>");
    const TreeTableView outline(*document, 0);
    EXPECT_EQ(Shown(outline),
              L"-#document\n"
              L" -r\n"
              L"  .p=h&i\n"
              L"  .e\n"
              L"  -m\n"
              L"   .b\n"
              L"  -d\n"
              L"   .#CDATA=x\n"
              L"  -n=t\n"
              L"   .a\n");
}

TEST(OutlineRows, ShowValuesOnOneLineAndInFullOnRequest) {
    const auto document = JsonOf(L"[\"a\\r\\n\\t\\nb  c\\n\", \"\\n\\n\"]");
    const TreeTableView outline(*document, 0);
    EXPECT_EQ(outline.ValueText(1), L"a b  c ");
    EXPECT_EQ(outline.FullValueText(1), L"a\r\n\t\nb  c\n");
    EXPECT_EQ(outline.ValueText(2), L" ");
    const auto xml = XmlOf(L"<r a='1\n2'/>");
    const TreeTableView nodes(*xml, 0);
    EXPECT_EQ(nodes.ValueText(2), L"1 2");
    EXPECT_EQ(nodes.FullValueText(2), L"1\n2");
}

TEST(OutlineRows, SummariseContainersByTheirItems) {
    const auto document = JsonOf(LR"([[],{},[1],{"a":1,"b":2},"s"])");
    const TreeTableView outline(*document, 1);
    EXPECT_EQ(outline.SummaryText(0), L"5 items");
    EXPECT_EQ(outline.SummaryText(1), L"[ ]");
    EXPECT_EQ(outline.SummaryText(2), L"{ }");
    EXPECT_EQ(outline.SummaryText(3), L"1 item");
    EXPECT_EQ(outline.SummaryText(test::RowNamed(outline, L"[3]")), L"2 items");
    EXPECT_EQ(outline.SummaryText(test::RowNamed(outline, L"[4]")), L"");
}

TEST(OutlineRows, SummariseElementsByNameThenIdThenKeyInAnyCase) {
    const auto document = XmlOf(
        L"<r><i id='7' Name='x'/><i KEY='k' iD='8'/><i key='k&amp;'/><i x='1'/>"
        L"<i name='1' NAME='2'/></r>");
    const TreeTableView outline(*document, 1);
    constexpr const wchar_t* kSummaries[] = {L"x", L"8", L"k&", L"", L"1"};
    int32_t next = 0;
    for (int32_t row = 0; row < outline.RowCount(); ++row) {
        if (outline.NameText(row) == L"i") {
            EXPECT_EQ(outline.SummaryText(row), kSummaries[next++]);
        } else {
            EXPECT_EQ(outline.SummaryText(row), L"");
        }
    }
    EXPECT_EQ(next, 5);
}

TEST(OutlineRows, AnswerNothingOutsideTheOutline) {
    const auto document = JsonOf(L"[1]");
    TreeTableView outline(*document, 0);
    for (const int32_t row : {-1, 2, 1000}) {
        EXPECT_EQ(outline.CellText(row, 0), L"");
        EXPECT_EQ(outline.FullValueText(row), L"");
        EXPECT_EQ(outline.SummaryText(row), L"");
        EXPECT_EQ(outline.Row(row).node, -1);
        EXPECT_FALSE(outline.IsCommentRow(row));
        EXPECT_FALSE(outline.IsCellEditable(row, 1));
        EXPECT_FALSE(outline.Toggle(row));
        outline.ExpandSubtree(row);
        EXPECT_EQ(outline.SourceOf(row).end, 0u);
        EXPECT_EQ(outline.ValueRefOf(row).kind, XmlValueRef::Kind::None);
    }
    EXPECT_EQ(outline.ColumnCount(), 2);
    EXPECT_EQ(outline.CellText(1, 2), L"");
    EXPECT_EQ(outline.CellText(1, -1), L"");
    EXPECT_EQ(&outline.Row(-1), &outline.Row(7));
}

TEST(OutlineRows, AreNoneForADocumentThatWasNotRead) {
    const JsonDocument json;
    TreeTableView values(json, 120);
    EXPECT_EQ(values.RowCount(), 0);
    EXPECT_EQ(values.RevealMatches(L"a"), 0);
    EXPECT_EQ(values.RevealNode(0, -1), -1);
    values.SetFilter(0, L"a", [](std::wstring&) { return true; });
    values.CollapseAll();
    values.ExpandAll();
    EXPECT_EQ(values.RowCount(), 0);
    const XmlDocument xml;
    TreeTableView nodes(xml, 120);
    nodes.SetFilter(1, L"a", [](std::wstring&) { return true; });
    EXPECT_EQ(nodes.RowCount(), 0);
}

TEST(OutlineRows, LetScalarsAttributesAndContentsBeEdited) {
    const auto json = JsonOf(LR"({"a":1,"b":[],"c":"x"})");
    const TreeTableView values(*json, 0);
    EXPECT_FALSE(values.IsCellEditable(0, 1));
    EXPECT_TRUE(values.IsCellEditable(1, 1));
    EXPECT_FALSE(values.IsCellEditable(1, 0));
    EXPECT_FALSE(values.IsCellEditable(2, 1));
    EXPECT_TRUE(values.IsCellEditable(3, 1));
    const auto xml = XmlOf(L"<!DOCTYPE r><r a=''><p>text</p><!--c--><![CDATA[d]]><?p q?></r>");
    const TreeTableView nodes(*xml, 0);
    using enum XmlValueRef::Kind;
    constexpr XmlValueRef::Kind kKinds[] = {None, None,    None,  Attribute,
                                            None, Comment, Cdata, ProcessingInstruction};
    ASSERT_EQ(nodes.RowCount(), 8);
    for (int32_t row = 0; row < 8; ++row) {
        EXPECT_EQ(nodes.ValueRefOf(row).kind, kKinds[row]) << row;
        EXPECT_EQ(nodes.IsCellEditable(row, 1), kKinds[row] != None) << row;
        EXPECT_EQ(nodes.IsCommentRow(row), kKinds[row] == Comment) << row;
    }
    EXPECT_EQ(nodes.ValueRefOf(3).attribute, 0);
    EXPECT_EQ(nodes.ValueRefOf(5).node, nodes.Row(5).node);
}

TEST(OutlineRows, ShowAnEditAtOnce) {
    const auto json = JsonOf(LR"({"a":1})");
    const TreeTableView values(*json, 0);
    ASSERT_TRUE(json->SetValue(values.Row(1).node, L"23"));
    EXPECT_EQ(values.ValueText(1), L"23");
    const auto xml = XmlOf(L"<r a='1'/>");
    const TreeTableView nodes(*xml, 0);
    ASSERT_TRUE(xml->SetValue(nodes.ValueRefOf(2), L"x\ny"));
    EXPECT_EQ(nodes.ValueText(2), L"x y");
    EXPECT_EQ(nodes.FullValueText(2), L"x\ny");
}

TEST(OutlineRows, KnowTheirPartOfTheSource) {
    const std::wstring jsonText = LR"( {"a": [1, "x"]} )";
    const auto json = JsonOf(jsonText);
    const TreeTableView values(*json, 0);
    const auto valueOf = [&](int32_t row) {
        const auto range = values.SourceOf(row);
        return jsonText.substr(range.start, range.end - range.start);
    };
    EXPECT_EQ(valueOf(0), LR"({"a": [1, "x"]})");
    EXPECT_EQ(valueOf(1), LR"([1, "x"])");
    EXPECT_EQ(valueOf(3), LR"("x")");
    const std::wstring xmlText = L"<r a = '1' b=\"2\"><s/></r>";
    const auto xml = XmlOf(xmlText);
    const TreeTableView nodes(*xml, 0);
    const auto nodeOf = [&](int32_t row) {
        const auto range = nodes.SourceOf(row);
        return xmlText.substr(range.start, range.end - range.start);
    };
    EXPECT_EQ(nodeOf(1), xmlText);
    EXPECT_EQ(nodeOf(2), L"a = '1'");
    EXPECT_EQ(nodeOf(3), L"b=\"2\"");
    EXPECT_EQ(nodeOf(4), L"<s/>");
}

TEST(OutlineRows, EndAtTheTextWhereAnAttributeIsNeverClosed) {
    const auto document = XmlOf(L"<r/><s a='1");
    const TreeTableView outline(*document, 0);
    for (int32_t row = 0; row < outline.RowCount(); ++row) {
        EXPECT_LE(outline.SourceOf(row).start, outline.SourceOf(row).end);
        EXPECT_LE(outline.SourceOf(row).end, document->text.size());
    }
}

TEST(OutlineRows, ReuseTheRoomOfTheTextTheyAreReadInto) {
    const auto document = JsonOf(LR"({"key":"value"})");
    const TreeTableView outline(*document, 0);
    std::wstring text(100, L'x');
    const wchar_t* room = text.data();
    outline.ReadCell(1, 0, text);
    EXPECT_EQ(text, L"key");
    outline.ReadCell(1, 1, text);
    EXPECT_EQ(text, L"value");
    outline.ReadCell(5, 1, text);
    EXPECT_EQ(text, L"");
    EXPECT_EQ(text.data(), room);
}

std::wstring NestedElements(int32_t count) {
    std::wstring text;
    for (int32_t i = 0; i < count; ++i) {
        text += L"<a>";
    }
    for (int32_t i = 0; i < count; ++i) {
        text += L"</a>";
    }
    return text;
}

TEST(OutlineRows, StopCountingTheirDepthBeforeItOverflows) {
    constexpr int32_t kElements = 70'000;
    const auto document = XmlOf(NestedElements(kElements));
    const TreeTableView outline(*document, 0);
    ASSERT_EQ(outline.RowCount(), kElements + 1);
    EXPECT_EQ(outline.Row(65'534).depth, 65'534);
    EXPECT_EQ(outline.Row(65'535).depth, 65'535);
    EXPECT_EQ(outline.Row(65'536).depth, 65'535);
    EXPECT_EQ(outline.Row(kElements).depth, 65'535);
}

TEST(OutlineRows, EndAtTwoMillions) {
    std::wstring text = L"[0";
    for (int32_t i = 2; i < kMaxOutlineRows; ++i) {
        text += L",0";
    }
    const auto fitting = JsonOf(text + L"]");
    const TreeTableView whole(*fitting, 0);
    EXPECT_EQ(whole.RowCount(), kMaxOutlineRows);
    EXPECT_FALSE(whole.IsCapped());
    const auto tooMany = JsonOf(text + L",0]");
    TreeTableView cut(*tooMany, 0);
    EXPECT_EQ(cut.RowCount(), kMaxOutlineRows);
    EXPECT_TRUE(cut.IsCapped());
    EXPECT_EQ(cut.NodeCount(), kMaxOutlineRows + 1);
    EXPECT_EQ(cut.RevealNode(kMaxOutlineRows, -1), -1);
    EXPECT_EQ(cut.RevealNode(kMaxOutlineRows - 1, -1), kMaxOutlineRows - 1);
    EXPECT_TRUE(cut.Toggle(0));
    EXPECT_EQ(cut.RowCount(), 1);
    EXPECT_FALSE(cut.IsCapped());
}

TEST(OutlineRows, EndAtTwoMillionsAmongAttributesToo) {
    std::wstring text = L"<r>";
    for (int32_t i = 0; i < kMaxOutlineRows / 2; ++i) {
        text += L"<a b=''/>";
    }
    const auto document = XmlOf(text + L"</r>");
    const TreeTableView outline(*document, 0);
    EXPECT_EQ(outline.RowCount(), kMaxOutlineRows);
    EXPECT_TRUE(outline.IsCapped());
}

}  // namespace
}  // namespace rl
