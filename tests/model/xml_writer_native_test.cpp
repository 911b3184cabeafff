// What is written after edits, read back by a parser that forgives nothing.
#include <expat.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "model/xml_document.h"
#include "tests/support/corpus.h"

namespace rl {
namespace {

/// Everything expat reports as text, and each attribute's value.
struct Heard {
    std::string text;
    std::string values;
};

void XMLCALL OnText(void* heard, const XML_Char* text, int length) {
    static_cast<Heard*>(heard)->text.append(text, static_cast<size_t>(length));
}

void XMLCALL OnElement(void* heard, const XML_Char*, const XML_Char** attributes) {
    for (; *attributes != nullptr; attributes += 2) {
        static_cast<Heard*>(heard)->values += attributes[1];
        static_cast<Heard*>(heard)->values += '|';
    }
}

::testing::AssertionResult IsWellFormed(std::wstring_view text, Heard& heard) {
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate("UTF-8"), XML_ParserFree);
    XML_SetUserData(parser.get(), &heard);
    XML_SetCharacterDataHandler(parser.get(), OnText);
    XML_SetStartElementHandler(parser.get(), OnElement);
    const std::string bytes = test::Utf8(text);
    if (XML_Parse(parser.get(), bytes.data(), static_cast<int>(bytes.size()), 1) == XML_STATUS_OK) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure()
           << XML_ErrorString(XML_GetErrorCode(parser.get())) << ": " << bytes;
}

TEST(XmlWriterWithExpat, EditsInEveryPlaceStayWellFormedAndComeBack) {
    for (const std::wstring_view value :
         {L"a&b", L"<tag>", L"]]>", L"'\"", L"&amp;", L"x=\"y\"", L"--", L"?>", L"</r>", L"-"}) {
        XmlDocument document;
        ASSERT_TRUE(
            document.Parse(L"<r a='1' b=\"2\"><t>3</t><s><![CDATA[4]]></s><!--5--><?p 6?>"
                           L"<?q?></r>"));
        EXPECT_TRUE(document.SetValue(XmlDocument::AttributeRef(1, 0), value));
        EXPECT_TRUE(document.SetValue(XmlDocument::AttributeRef(1, 1), value));
        std::wstring text(value);
        EXPECT_TRUE(document.SetValue(document.ValueRefOf(2), value));
        // The rest may refuse.
        text += document.SetValue(document.ValueRefOf(4), value) ? value : L"4";
        (void)document.SetValue(document.ValueRefOf(6), value);
        (void)document.SetValue(document.ValueRefOf(7), value);
        (void)document.SetValue(document.ValueRefOf(8), value);
        Heard heard;
        EXPECT_TRUE(IsWellFormed(document.Serialize(), heard));
        EXPECT_EQ(heard.text, test::Utf8(text));
        EXPECT_EQ(heard.values, test::Utf8(value) + "|" + test::Utf8(value) + "|");
    }
}

TEST(XmlWriterWithExpat, RealDocumentsStayWellFormedWithEveryValueEdited) {
    if (!test::HasCorpus()) {
        GTEST_SKIP();
    }
    size_t edited = 0;
    for (const test::JsonValue& line :
         test::ReadJsonLines(test::CorpusRoot() / "xml" / "inline.jsonl")) {
        const std::wstring text = line["text"].AsText();
        XmlDocument document;
        Heard heard;
        if (!document.Parse(text) || !IsWellFormed(text, heard)) {
            continue;
        }
        ++edited;
        for (size_t i = 0; i < document.nodes.size(); ++i) {
            const auto node = static_cast<int32_t>(i);
            if (document.nodes[i].parent > 0) {  // no text may stand beside the root
                (void)document.SetValue(document.ValueRefOf(node), L"a < b & 'c' \"d\" ]]");
            }
        }
        for (size_t i = 0; i < document.attributes.size(); ++i) {
            EXPECT_TRUE(document.SetValue(XmlDocument::AttributeRef(0, static_cast<int32_t>(i)),
                                          L"<&>'\""));
        }
        EXPECT_TRUE(IsWellFormed(document.Serialize(), heard)) << line["name"].AsAscii();
    }
    EXPECT_GT(edited, 20U);
}

}  // namespace
}  // namespace rl
