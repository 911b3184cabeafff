#include "model/xml_writer.h"

#include <gtest/gtest.h>

#include <string>

namespace rl {
namespace {

using Kind = XmlValueRef::Kind;

void Edit(XmlDocument& document, int32_t node, std::wstring_view text) {
    EXPECT_TRUE(document.SetValue(document.ValueRefOf(node), text));
}

TEST(XmlWriter, WritesAnUntouchedDocumentUnitForUnit) {
    const std::wstring text =
        L"\n<?xml version='1.0'?>\r\n<a  b = \"&#65;\"\t>x</b>&unknown;<c/ ><![CDATA[ ";
    XmlDocument document;
    EXPECT_TRUE(document.Parse(text));
    EXPECT_EQ(document.Serialize(), text);
}

TEST(XmlWriter, EscapesOnlyTheQuoteAroundAnAttribute) {
    XmlDocument document;
    EXPECT_TRUE(document.Parse(L"<r x='a\"b'/>"));
    EXPECT_TRUE(document.SetValue(XmlDocument::AttributeRef(1, 0), L"a\"b'z"));
    EXPECT_EQ(document.Serialize(), L"<r x='a\"b&apos;z'/>");
}

TEST(XmlWriter, EscapesTextAndLeavesOtherContentsAsTheyAre) {
    XmlDocument document;
    EXPECT_TRUE(document.Parse(L"<r><a>1</a> <b><![CDATA[2]]></b><!--3--><?p 4?></r>"));
    Edit(document, 2, L"<&>\"");
    Edit(document, 4, L"<&>");
    Edit(document, 6, L"<&>");
    Edit(document, 7, L"<&>");
    EXPECT_EQ(document.Serialize(),
              L"<r><a>&lt;&amp;&gt;\"</a> <b><![CDATA[<&>]]></b><!--<&>--><?p <&>?></r>");
}

TEST(XmlWriter, WritesATextOfBlanksSoThatItIsReadAgain) {
    XmlDocument document;
    ASSERT_TRUE(document.Parse(L"<r><a>one</a><b>two<i/></b><c>three</c></r>"));
    Edit(document, 3, L"  ");
    Edit(document, 5, L"\t");
    Edit(document, 8, L" x ");
    const std::wstring written = document.Serialize();
    EXPECT_EQ(written, L"<r><a>&#32; </a><b>&#9;<i/></b><c> x </c></r>");
    ASSERT_TRUE(document.Parse(written));
    EXPECT_EQ(document.NodeValue(3), L"  ");
    EXPECT_EQ(document.NodeValue(5), L"\t");
    EXPECT_EQ(document.NodeValue(8), L" x ");
}

TEST(XmlWriter, PutsManyEditsInTheirPlaces) {
    std::wstring text = L"<r>";
    std::wstring expected = L"<r>";
    for (int i = 0; i < 500; ++i) {
        const std::wstring number = std::to_wstring(i);
        text += L"<i a=\"" + number + L"\">" + number + L"</i>\n";
        expected += L"<i a=\"" + number + number + L"\">n" + number + L"</i>\n";
    }
    XmlDocument document;
    EXPECT_TRUE(document.Parse(text + L"</r>"));
    for (int32_t i = 499; i >= 0; --i) {
        const std::wstring number = std::to_wstring(i);
        EXPECT_TRUE(document.SetValue(XmlDocument::AttributeRef(2 + 2 * i, i), number + number));
        Edit(document, 3 + 2 * i, L"n" + number);
    }
    EXPECT_EQ(document.Serialize(), expected + L"</r>");
}

TEST(XmlWriter, LengthensAndShortensAndEmpties) {
    XmlDocument document;
    EXPECT_TRUE(document.Parse(L"<r a='' b='long'>text</r>"));
    EXPECT_TRUE(document.SetValue(XmlDocument::AttributeRef(1, 0), L"new"));
    EXPECT_TRUE(document.SetValue(XmlDocument::AttributeRef(1, 1), L""));
    Edit(document, 2, L"");
    EXPECT_EQ(document.Serialize(), L"<r a='new' b=''></r>");
}

TEST(XmlWriter, KeepsNewDataApartFromTheTargetOfItsInstruction) {
    XmlDocument document;
    EXPECT_TRUE(document.Parse(L"<?foo?><?bar ?><r/>"));
    Edit(document, 1, L"x");
    Edit(document, 2, L"y");
    EXPECT_EQ(document.Serialize(), L"<?foo x?><?bar y?><r/>");
}

TEST(XmlWriter, WritesAMillionNestedElements) {
    std::wstring text;
    for (int i = 0; i < 1'000'000; ++i) {
        text += L"<a>";
    }
    const size_t middle = text.size();
    text += L"deep";
    for (int i = 0; i < 1'000'000; ++i) {
        text += L"</a>";
    }
    XmlDocument document;
    EXPECT_TRUE(document.Parse(text));
    EXPECT_EQ(document.InnerText(1), L"deep");
    EXPECT_TRUE(document.Serialize() == text);
    Edit(document, 1'000'001, L"new & deep");
    EXPECT_EQ(document.NodeValue(1), L"new & deep");
    EXPECT_TRUE(document.Serialize() == text.replace(middle, 4, L"new &amp; deep"));
}

}  // namespace
}  // namespace rl
