#include "model/xml_document.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace rl {
namespace {

using Kind = XmlValueRef::Kind;

std::unique_ptr<XmlDocument> Parsed(std::wstring_view text) {
    auto document = std::make_unique<XmlDocument>();
    EXPECT_TRUE(document->Parse(std::wstring(text)));
    return document;
}

XmlValueRef NodeRef(Kind kind, int32_t node) {
    return {.kind = kind, .node = node};
}

TEST(XmlDocument, NeedsAnElement) {
    for (const std::wstring_view text :
         {L"", L" ", L"text", L"<!-- c -->", L"<?xml version='1.0'?>", L"<!DOCTYPE r>", L"</r>",
          L"<![CDATA[<r/>]]>"}) {
        XmlDocument document;
        EXPECT_FALSE(document.Parse(std::wstring(text)));
        EXPECT_EQ(document.root, -1);
        EXPECT_EQ(document.FirstElement(), -1);
    }
}

TEST(XmlDocument, IsNotThereWhenAbandoned) {
    XmlDocument document;
    EXPECT_FALSE(document.Parse(L"<r/>", [] { return true; }));
    EXPECT_EQ(document.root, -1);
}

TEST(XmlDocument, NamesNodesByTheirKind) {
    const auto document = Parsed(L"<!DOCTYPE r><?p d?><x:r>t<!--c--><![CDATA[s]]></x:r>");
    EXPECT_EQ(document->NodeName(0), L"#DOCUMENT");
    EXPECT_EQ(document->NodeName(1), L"");
    EXPECT_EQ(document->NodeName(2), L"p");
    EXPECT_EQ(document->NodeName(3), L"x:r");
    EXPECT_EQ(document->NodeName(4), L"#TEXT");
    EXPECT_EQ(document->NodeName(5), L"#COMMENT");
    EXPECT_EQ(document->NodeName(6), L"#CDATA");
    EXPECT_EQ(document->FirstElement(), 3);
}

TEST(XmlDocument, DecodesTextsAndAttributesAndNothingElse) {
    const auto document =
        Parsed(L"<!DOCTYPE r><r a='&lt;'>&lt;<!--&lt;--><![CDATA[&lt;]]><?p &lt;?></r>");
    EXPECT_EQ(document->NodeValue(0), L"");
    EXPECT_EQ(document->NodeValue(1), L"");
    EXPECT_EQ(document->NodeValue(2), L"<&lt;");
    EXPECT_EQ(document->NodeValue(3), L"<");
    EXPECT_EQ(document->NodeValue(4), L"&lt;");
    EXPECT_EQ(document->NodeValue(5), L"&lt;");
    EXPECT_EQ(document->NodeValue(6), L"&lt;");
    EXPECT_EQ(document->AttributeName(0), L"a");
    EXPECT_EQ(document->AttributeValue(0), L"<");
}

TEST(XmlDocument, JoinsTheTextBelowAnElementAndNoFurther) {
    const auto document =
        Parsed(L"<r><a>1<b>2<c/><![CDATA[<3>]]><!--no--><?no no?></b>4</a>5<d>6</d></r>");
    EXPECT_EQ(document->InnerText(1), L"12<3>456");
    EXPECT_EQ(document->InnerText(2), L"12<3>4");
    EXPECT_EQ(document->NodeValue(2), L"12<3>4");
}

TEST(XmlDocument, ReadsIntoTextThatIsThere) {
    const auto document = Parsed(L"<r a='1'>two</r>");
    std::wstring out = L"old";
    document->ReadNodeValue(1, out);
    EXPECT_EQ(out, L"two");
    document->ReadAttributeValue(0, out);
    EXPECT_EQ(out, L"1");
    document->ReadInnerText(1, out);
    EXPECT_EQ(out, L"two");
}

TEST(XmlDocument, KnowsWhatKindsOfChildrenThereAre) {
    const auto document = Parsed(L"<r><a>t</a><b><!--c--></b><c>t<d/></c><e/></r>");
    EXPECT_TRUE(document->HasElementChild(0));
    EXPECT_FALSE(document->HasNonTextChild(2));
    EXPECT_TRUE(document->HasNonTextChild(4));
    EXPECT_FALSE(document->HasElementChild(4));
    EXPECT_TRUE(document->HasElementChild(6));
    EXPECT_FALSE(document->HasNonTextChild(9));
}

TEST(XmlDocument, RefersToTheOnlyTextOfAnElement) {
    const auto document =
        Parsed(L"<r><a>t</a><b><![CDATA[s]]></b><c/><d>t<!--c--></d><e><!--c--></e><?p d?></r>");
    EXPECT_EQ(document->ValueRefOf(2), NodeRef(Kind::OnlyChild, 3));
    EXPECT_EQ(document->ValueRefOf(3), NodeRef(Kind::Text, 3));
    EXPECT_EQ(document->ValueRefOf(4), NodeRef(Kind::OnlyChild, 5));
    EXPECT_EQ(document->ValueRefOf(5), NodeRef(Kind::Cdata, 5));
    EXPECT_EQ(document->ValueRefOf(6), XmlValueRef{});
    EXPECT_EQ(document->ValueRefOf(7), XmlValueRef{});
    EXPECT_EQ(document->ValueRefOf(9), NodeRef(Kind::Comment, 9));
    EXPECT_EQ(document->ValueRefOf(10), XmlValueRef{});
    EXPECT_EQ(document->ValueRefOf(12), NodeRef(Kind::ProcessingInstruction, 12));
    EXPECT_EQ(document->ValueRefOf(0), XmlValueRef{});
    EXPECT_EQ(XmlDocument::AttributeRef(3, 7),
              (XmlValueRef{.kind = Kind::Attribute, .node = 3, .attribute = 7}));
}

TEST(XmlEdits, ShowAtOnceWhereverTheValueIsRead) {
    const auto document = Parsed(L"<r a='1'><b>old</b>!</r>");
    EXPECT_TRUE(document->SetValue(NodeRef(Kind::OnlyChild, 3), L"a<b"));
    EXPECT_TRUE(document->SetValue(XmlDocument::AttributeRef(1, 0), L"&2"));
    EXPECT_EQ(document->NodeValue(3), L"a<b");
    EXPECT_EQ(document->InnerText(1), L"a<b!");
    EXPECT_EQ(document->AttributeValue(0), L"&2");
    EXPECT_TRUE(document->modified);
}

TEST(XmlEdits, StoreNothingForTheSameText) {
    const auto document = Parsed(L"<r a='&lt;'>&amp;</r>");
    EXPECT_TRUE(document->SetValue(XmlDocument::AttributeRef(1, 0), L"<"));
    EXPECT_TRUE(document->SetValue(NodeRef(Kind::Text, 2), L"&"));
    EXPECT_FALSE(document->modified);
    EXPECT_TRUE(document->nodeEdits.empty());
    EXPECT_TRUE(document->attributeEdits.empty());
}

TEST(XmlEdits, ReplaceEarlierOnes) {
    const auto document = Parsed(L"<r>1</r>");
    EXPECT_TRUE(document->SetValue(NodeRef(Kind::Text, 2), L"2"));
    EXPECT_TRUE(document->SetValue(NodeRef(Kind::Text, 2), L"1"));
    EXPECT_EQ(document->NodeValue(2), L"1");
}

struct Refusal {
    Kind kind;
    int32_t node;
    std::wstring_view text;
    std::wstring_view message;
};

TEST(XmlEdits, RefuseWhatCannotStandThere) {
    constexpr std::wstring_view kComment = L"COMMENT CANNOT CONTAIN --";
    constexpr std::wstring_view kCdata = L"CDATA CANNOT CONTAIN ]]>";
    constexpr std::wstring_view kInstruction = L"PI CANNOT CONTAIN ?>";
    constexpr std::wstring_view kReadOnly = L"READ ONLY";
    const auto document =
        Parsed(L"<!DOCTYPE r><r><!--c--><![CDATA[s]]><?p d?>t<b><![CDATA[s]]></b></r>");
    for (const Refusal& refusal :
         {Refusal{Kind::Comment, 3, L"a--b", kComment}, Refusal{Kind::Comment, 3, L"ab-", kComment},
          Refusal{Kind::Cdata, 4, L"a]]>b", kCdata},
          Refusal{Kind::ProcessingInstruction, 5, L"a?>", kInstruction},
          Refusal{Kind::OnlyChild, 8, L"]]>", kCdata}, Refusal{Kind::None, 6, L"x", kReadOnly},
          Refusal{Kind::Text, 2, L"x", kReadOnly}, Refusal{Kind::Text, 1, L"x", kReadOnly},
          Refusal{Kind::OnlyChild, 2, L"x", kReadOnly}, Refusal{Kind::Text, 0, L"x", kReadOnly},
          Refusal{Kind::Text, -1, L"x", kReadOnly}, Refusal{Kind::Text, 99, L"x", kReadOnly}}) {
        std::wstring reason;
        EXPECT_FALSE(
            document->SetValue(NodeRef(refusal.kind, refusal.node), refusal.text, &reason));
        EXPECT_EQ(reason, refusal.message);
        EXPECT_FALSE(document->SetValue(NodeRef(refusal.kind, refusal.node), refusal.text));
    }
    std::wstring reason;
    EXPECT_FALSE(document->SetValue(XmlDocument::AttributeRef(2, 0), L"x", &reason));
    EXPECT_EQ(reason, kReadOnly);
    EXPECT_FALSE(document->modified);
    EXPECT_TRUE(document->SetValue(NodeRef(Kind::Comment, 3), L"a-b"));
    EXPECT_TRUE(document->SetValue(NodeRef(Kind::Cdata, 4), L"a]]"));
}

TEST(XmlEdits, AreForgottenByTheNextParse) {
    const auto document = Parsed(L"<r a='1'>t</r>");
    EXPECT_TRUE(document->SetValue(NodeRef(Kind::Text, 2), L"x"));
    EXPECT_TRUE(document->SetValue(XmlDocument::AttributeRef(1, 0), L"x"));
    EXPECT_TRUE(document->Parse(L"<r a='1'>t"));
    EXPECT_FALSE(document->modified);
    EXPECT_TRUE(document->malformed);
    EXPECT_EQ(document->NodeValue(2), L"t");
    EXPECT_EQ(document->AttributeValue(0), L"1");
    EXPECT_FALSE(document->Parse(L""));
    EXPECT_FALSE(document->malformed);
    EXPECT_TRUE(document->nodes.size() <= 1);
}

}  // namespace
}  // namespace rl
