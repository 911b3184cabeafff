// Every XML document of the shared collection against its settled answer.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <vector>

#include "load/text/decode_text.h"
#include "model/xml_document.h"
#include "tests/support/corpus.h"

namespace rl {
namespace {

using test::JsonValue;

template <typename... Numbers>
std::string Line(Numbers... numbers) {
    std::string line;
    ((line += line.empty() ? std::to_string(numbers) : " " + std::to_string(numbers)), ...);
    return line;
}

std::vector<std::string> Dump(const XmlDocument& document) {
    std::vector<std::string> lines;
    for (size_t i = 0; i < document.nodes.size(); ++i) {
        const XmlNode& node = document.nodes[i];
        const std::string end = i == 0 ? "-" : std::to_string(node.sourceEnd);
        lines.push_back(Line(i, static_cast<int>(node.kind), node.nameOffset, node.nameLength,
                             node.valueOffset, node.valueLength, node.sourceStart) +
                        " " + end + " " +
                        Line(node.parent, node.firstChild, node.nextSibling, node.childCount,
                             node.attributeCount > 0 ? node.firstAttribute : 0,
                             node.attributeCount));
    }
    for (size_t i = 0; i < document.attributes.size(); ++i) {
        const XmlAttribute& attribute = document.attributes[i];
        lines.push_back("@" + Line(i, attribute.nameOffset, attribute.nameLength,
                                   attribute.valueOffset, attribute.valueLength, attribute.quote));
    }
    return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string all;
    for (const std::string& line : lines) {
        all += line + "\n";
    }
    return all;
}

std::wstring AllTexts(const XmlDocument& document) {
    std::wstring all;
    for (size_t i = 0; i < document.nodes.size(); ++i) {
        const auto node = static_cast<int32_t>(i);
        all += document.NodeName(node);
        all += L'\x1F';
        all += document.nodes[i].kind == XmlKind::Element ? L"" : document.NodeValue(node);
        all += L'\x1E';
    }
    for (size_t i = 0; i < document.attributes.size(); ++i) {
        all += document.AttributeName(static_cast<int32_t>(i));
        all += L'\x1F';
        all += document.AttributeValue(static_cast<int32_t>(i));
        all += L'\x1E';
    }
    return all;
}

int64_t Depth(const XmlDocument& document) {
    std::vector<int64_t> levels(document.nodes.size(), 0);
    for (size_t i = 1; i < levels.size(); ++i) {
        levels[i] = levels[static_cast<size_t>(document.nodes[i].parent)] + 1;
    }
    return *std::max_element(levels.begin(), levels.end());
}

void ExpectKinds(const XmlDocument& document, const JsonValue& answer) {
    std::array<int64_t, 7> kinds{};
    for (const XmlNode& node : document.nodes) {
        ++kinds.at(static_cast<size_t>(node.kind));
    }
    size_t kind = 0;
    for (const JsonValue& count : answer["kinds"].Items()) {
        EXPECT_EQ(kinds.at(kind++), count.AsInt());
    }
    EXPECT_EQ(kinds[1], answer["elements"].AsInt());
}

void ExpectAnswer(const std::wstring& text, const JsonValue& answer) {
    XmlDocument document;
    const bool parsed = document.Parse(text);
    const std::string verdict = !parsed              ? "rejected"
                                : document.malformed ? "malformed"
                                                     : "balanced";
    EXPECT_EQ(verdict, answer["verdict"].AsAscii());
    EXPECT_TRUE(document.Serialize() == text);
    if (!parsed) {
        return;
    }
    EXPECT_EQ(static_cast<int64_t>(document.nodes.size()), answer["nodes"].AsInt());
    EXPECT_EQ(static_cast<int64_t>(document.attributes.size()), answer["attributes"].AsInt());
    ExpectKinds(document, answer);
    EXPECT_EQ(Depth(document), answer["depth"].AsInt());
    EXPECT_EQ(document.FirstElement(), answer["first_element"].AsInt());
    const std::vector<std::string> lines = Dump(document);
    if (answer.Has("dump")) {
        size_t at = 0;
        for (const JsonValue& line : answer["dump"].Items()) {
            EXPECT_EQ(at < lines.size() ? lines[at] : "", line.AsAscii());
            ++at;
        }
    }
    EXPECT_EQ(test::Sha256Hex(Joined(lines)), answer["dump_sha256"].AsAscii());
    EXPECT_EQ(test::Sha256Hex(test::Utf8(AllTexts(document))), answer["texts_sha256"].AsAscii());
    EXPECT_EQ(test::Sha256Hex(test::Utf8(document.InnerText(document.FirstElement()))),
              answer["inner_text_sha256"].AsAscii());
}

TEST(XmlCorpus, GivesTheSettledAnswerForEachFile) {
    if (!test::HasCorpus()) {
        GTEST_SKIP();
    }
    size_t files = 0;
    for (const JsonValue& answer : test::ExpectedAnswers("xml")) {
        if (!answer.Has("file")) {
            continue;
        }
        ++files;
        SCOPED_TRACE(answer["file"].AsAscii());
        TextEncoding encoding;
        const auto codePage = static_cast<uint32_t>(answer["ansi_codepage"].AsInt());
        const std::wstring text =
            DecodeText(test::ReadBytes(test::CorpusRoot() / "xml" / answer["file"].AsAscii()),
                       {.ansiCodePage = codePage, .honourXmlDeclaration = true}, encoding);
        EXPECT_EQ(encoding.name, answer["encoding"].AsText());
        EXPECT_EQ(static_cast<int64_t>(text.size()), answer["units"].AsInt());
        ExpectAnswer(text, answer);
    }
    EXPECT_EQ(files, 111U);
}

TEST(XmlCorpus, GivesTheSettledAnswerForEachInlineText) {
    if (!test::HasCorpus()) {
        GTEST_SKIP();
    }
    std::map<std::string, std::wstring> texts;
    for (const JsonValue& line : test::ReadJsonLines(test::CorpusRoot() / "xml" / "inline.jsonl")) {
        texts[line["name"].AsAscii()] = line["text"].AsText();
    }
    size_t answered = 0;
    for (const JsonValue& answer : test::ExpectedAnswers("xml")) {
        if (!answer.Has("inline")) {
            continue;
        }
        ++answered;
        SCOPED_TRACE(answer["inline"].AsAscii());
        ExpectAnswer(texts.at(answer["inline"].AsAscii()), answer);
    }
    EXPECT_EQ(answered, 142U);
}

}  // namespace
}  // namespace rl
