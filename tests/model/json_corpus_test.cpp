// Every JSON text of the shared collection, with and without recovery, against its settled answer.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <string_view>

#include "load/text/decode_text.h"
#include "model/json_document.h"
#include "tests/support/corpus.h"

namespace rl {
namespace {

using test::JsonValue;

bool IsLinesName(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
    });
    return name.ends_with(".jsonl") || name.ends_with(".ndjson");
}

/// As a file of that name is read: lines are the second try of what is not named so.
bool Read(JsonDocument& document, const std::wstring& text, const std::string& name,
          bool recovery) {
    const bool lines = IsLinesName(name);
    if (document.Parse(text, lines, recovery)) {
        return true;
    }
    return !lines && document.Parse(document.TakeText(), true, recovery);
}

std::string Dump(const JsonDocument& document) {
    std::string dump;
    int64_t index = 0;
    for (const JsonNode& node : document.nodes) {
        for (const int64_t number :
             {index++, int64_t{static_cast<uint8_t>(node.kind)}, int64_t{node.hasKey},
              int64_t{node.keyOffset}, int64_t{node.keyLength}, int64_t{node.valueOffset},
              int64_t{node.valueLength}, int64_t{node.parent}, int64_t{node.firstChild},
              int64_t{node.nextSibling}}) {
            dump += std::to_string(number) + ' ';
        }
        dump += std::to_string(node.childCount) + '\n';
    }
    return dump;
}

std::wstring Texts(const JsonDocument& document) {
    std::wstring texts;
    std::wstring shown;
    for (int32_t node = 0; node < static_cast<int32_t>(document.nodes.size()); ++node) {
        document.ReadKey(node, shown);
        texts += shown + L'\x1F';
        document.ReadDisplay(node, shown);
        texts += shown + L'\x1E';
    }
    return texts;
}

int64_t Depth(const JsonDocument& document) {
    int64_t deepest = 0;
    std::vector<int64_t> depths(document.nodes.size(), -1);
    depths[static_cast<size_t>(document.root)] = 0;
    for (size_t node = 0; node < depths.size(); ++node) {
        const int32_t parent = document.nodes[node].parent;
        if (parent >= 0 && depths[static_cast<size_t>(parent)] >= 0) {
            depths[node] = depths[static_cast<size_t>(parent)] + 1;
        }
        deepest = std::max(deepest, depths[node]);
    }
    return deepest;
}

void ExpectAnswer(const std::wstring& text, const std::string& name, bool recovery,
                  const JsonValue& answer) {
    JsonDocument document;
    const bool parsed = Read(document, text, name, recovery);
    const std::string verdict = !parsed             ? "rejected"
                                : document.salvaged ? "salvaged"
                                : document.lines    ? "lines"
                                                    : "document";
    ASSERT_EQ(verdict, answer["verdict"].AsAscii());
    EXPECT_TRUE(document.text == text);
    if (!parsed) {
        EXPECT_EQ(document.root, -1);
        return;
    }
    EXPECT_EQ(static_cast<int64_t>(document.nodes.size()), answer["nodes"].AsInt());
    EXPECT_EQ(Depth(document), answer["depth"].AsInt());
    if (!answer.Has("dump_sha256")) {
        return;  // decoded differently from platform to platform
    }
    EXPECT_EQ(document.salvaged, answer["salvaged"].AsBool());
    EXPECT_EQ(document.lines, answer["lines"].AsBool());
    EXPECT_EQ(document.root, answer["root"].AsInt());
    EXPECT_EQ(static_cast<int64_t>(document.nodes[static_cast<size_t>(document.root)].kind),
              answer["root_kind"].AsInt());
    EXPECT_EQ(test::Sha256Hex(Dump(document)), answer["dump_sha256"].AsAscii()) << Dump(document);
    EXPECT_EQ(test::Sha256Hex(test::Utf8(Texts(document))), answer["texts_sha256"].AsAscii());
    const std::wstring saved = document.Serialize();
    EXPECT_EQ(test::Sha256Hex(test::Utf8(saved)), answer["saved_sha256"].AsAscii());
    if (answer.Has("saved")) {
        EXPECT_EQ(saved, answer["saved"].AsText());
    }
}

void ExpectAnswersInBothModes(const std::wstring& text, const std::string& name,
                              const JsonValue& answers) {
    SCOPED_TRACE(name);
    const JsonValue& plain = answers["parse_mode_0"];
    const JsonValue& recovering = answers["parse_mode_1"];
    ExpectAnswer(text, name, false, plain);
    ExpectAnswer(text, name, true, recovering.IsObject() ? recovering : plain);
}

TEST(JsonCorpus, GivesTheSettledAnswerForEachFile) {
    if (!test::HasCorpus()) {
        GTEST_SKIP();
    }
    size_t files = 0;
    for (const JsonValue& answers : test::ExpectedAnswers("json")) {
        if (!answers.Has("file")) {
            continue;
        }
        ++files;
        const std::string name = answers["file"].AsAscii();
        TextEncoding encoding;
        const std::wstring text = DecodeText(
            test::ReadBytes(test::CorpusRoot() / "json" / name),
            {.ansiCodePage = static_cast<uint32_t>(answers["ansi_codepage"].AsInt())}, encoding);
        ExpectAnswersInBothModes(text, name, answers);
    }
    EXPECT_GT(files, 300U);
}

TEST(JsonCorpus, GivesTheSettledAnswerForEachInlineText) {
    if (!test::HasCorpus()) {
        GTEST_SKIP();
    }
    std::map<std::string, std::wstring> texts;
    for (const JsonValue& line :
         test::ReadJsonLines(test::CorpusRoot() / "json" / "inline.jsonl")) {
        texts[line["name"].AsAscii()] = line["text"].AsText();
    }
    size_t answered = 0;
    for (const JsonValue& answers : test::ExpectedAnswers("json")) {
        if (answers.Has("inline")) {
            ++answered;
            const std::string name = answers["inline"].AsAscii();
            ExpectAnswersInBothModes(texts.at(name), name, answers);
        }
    }
    EXPECT_EQ(answered, texts.size());
}

TEST(JsonCorpus, AgreesOnWhatIsANumber) {
    if (!test::HasCorpus()) {
        GTEST_SKIP();
    }
    size_t answered = 0;
    for (const JsonValue& answers : test::ExpectedAnswers("json")) {
        if (answers.Has("number")) {
            ++answered;
            const std::wstring number = answers["number"].AsText();
            EXPECT_EQ(IsValidJsonNumber(number), answers["valid"].AsBool())
                << test::Readable(number);
        }
    }
    EXPECT_GT(answered, 0U);
}

}  // namespace
}  // namespace rl
