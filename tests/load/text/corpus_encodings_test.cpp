// Every settled answer about encodings in the collection of real documents: decode, encode back,
// encode, and charset names.
#include <gtest/gtest.h>

#include "load/text/charset_names.h"
#include "load/text/decode_text.h"
#include "load/text/encode_text.h"
#include "tests/support/corpus.h"

namespace rl {
namespace {

using test::JsonValue;

std::vector<JsonValue> AnswersOf(std::string_view operation) {
    std::vector<JsonValue> answers = test::ExpectedAnswers("encodings");
    std::erase_if(answers, [operation](const JsonValue& answer) {
        return answer["op"].AsAscii() != operation;
    });
    return answers;
}

EncodingRequest RequestOf(const JsonValue& answer) {
    return {.name = answer["forced"].AsText(),
            .ansiCodePage = static_cast<uint32_t>(answer["ansi_codepage"].AsInt()),
            .honourXmlDeclaration = answer["xml"].AsBool()};
}

void ExpectDecoded(const JsonValue& answer) {
    const std::string bytes =
        test::ReadBytes(test::CorpusRoot() / "encodings" / answer["file"].AsAscii());
    TextEncoding found;
    const std::wstring text = DecodeText(bytes, RequestOf(answer), found);

    EXPECT_EQ(test::Readable(found.name), test::Readable(answer["name"].AsText()));
    EXPECT_EQ(found.hasBom, answer["has_bom"].AsBool());
    EXPECT_EQ(found.codePage, static_cast<uint32_t>(answer["codepage"].AsInt()));
    EXPECT_EQ(static_cast<int64_t>(text.size()), answer["units"].AsInt());
    EXPECT_EQ(test::Readable(text.substr(0, 24)), test::Readable(answer["head"].AsText()));
    EXPECT_EQ(test::Sha256Hex(test::Utf16LeBytes(text)), answer["text_sha256"].AsAscii());
    if (answer.Has("saves_back")) {
        std::string saved;
        const bool same = EncodeText(text, found, saved) && saved == bytes;
        EXPECT_EQ(same, answer["saves_back"].AsBool());
    }
}

std::string Hex(std::string_view bytes) {
    std::string out;
    for (const char byte : bytes) {
        out += "0123456789abcdef"[static_cast<uint8_t>(byte) >> 4];
        out += "0123456789abcdef"[static_cast<uint8_t>(byte) & 0xF];
    }
    return out;
}

TEST(CorpusEncodings, DecodeAsExpectedAndSaveBack) {
    if (!test::HasCorpus()) {
        GTEST_SKIP() << "no collection of real documents here";
    }
    const std::vector<JsonValue> answers = AnswersOf("decode");
    EXPECT_EQ(answers.size(), 114u);
    for (const JsonValue& answer : answers) {
        SCOPED_TRACE(answer["file"].AsAscii() + " forced=" + answer["forced"].AsAscii() +
                     " ansi=" + std::to_string(answer["ansi_codepage"].AsInt()) +
                     (answer["xml"].AsBool() ? " xml" : ""));
        ExpectDecoded(answer);
    }
}

TEST(CorpusEncodings, EncodeAsExpected) {
    if (!test::HasCorpus()) {
        GTEST_SKIP() << "no collection of real documents here";
    }
    const std::vector<JsonValue> answers = AnswersOf("encode");
    EXPECT_EQ(answers.size(), 21u);
    for (const JsonValue& answer : answers) {
        SCOPED_TRACE(test::Readable(answer["text"].AsText()) + " to " + answer["to"].AsAscii() +
                     " " + std::to_string(answer["codepage"].AsInt()));
        const TextEncoding encoding{.name = answer["to"].AsText(),
                                    .hasBom = answer["bom"].AsBool(),
                                    .codePage = static_cast<uint32_t>(answer["codepage"].AsInt())};
        std::string bytes = "left over";
        EXPECT_EQ(EncodeText(answer["text"].AsText(), encoding, bytes), answer["ok"].AsBool());
        EXPECT_EQ(Hex(bytes), answer["bytes"].AsAscii());
    }
}

TEST(CorpusEncodings, NameTheExpectedCodePages) {
    if (!test::HasCorpus()) {
        GTEST_SKIP() << "no collection of real documents here";
    }
    const std::vector<JsonValue> answers = AnswersOf("charset");
    EXPECT_EQ(answers.size(), 44u);
    for (const JsonValue& answer : answers) {
        SCOPED_TRACE(test::Readable(answer["name"].AsText()));
        EXPECT_EQ(CodePageForCharset(answer["name"].AsText()),
                  static_cast<uint32_t>(answer["codepage"].AsInt()));
    }
}

}  // namespace
}  // namespace rl
