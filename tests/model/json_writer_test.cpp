#include "model/json_writer.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <string>
#include <string_view>

#include "load/text/decode_text.h"
#include "tests/support/corpus.h"

#if __has_include(<rapidjson/document.h>)
// RapidJSON adds to null pointers before it allocates, which is nothing of ours to find.
#ifdef __clang__
#pragma clang attribute push(__attribute__((no_sanitize("pointer-overflow"))), apply_to = function)
#endif
#include <rapidjson/document.h>
#ifdef __clang__
#pragma clang attribute pop
#endif
#endif

namespace rl {
namespace {

std::wstring Compact(const JsonDocument& document) {
    std::wstring out;
    document.WriteCompact(document.root, out);
    return out;
}

TEST(JsonWriter, WritesCompactlyWithoutBlanks) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L" { \"a\" : [ 1 , { } , [ ] , \"\\u00e9\\/\" ] , \"\\n\" : null } ",
                               false, false));
    EXPECT_EQ(Compact(document), L"{\"a\":[1,{},[],\"\xE9/\"],\"\\n\":null}");
}

TEST(JsonWriter, IndentsByTwoBlanksAndEndsLinesWithCrLf) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"{\n\t\"a\":[1,{}],\n\t\"b\":{\"c\":[]}}\n", false, false));
    EXPECT_EQ(document.PrettyText(0),
              L"{\r\n  \"a\": [\r\n    1,\r\n    {}\r\n  ],\r\n  \"b\": {\r\n    \"c\": []\r\n  "
              L"}\r\n}");
    std::wstring out = L"> ";
    document.WritePretty(1, out, 1);
    EXPECT_EQ(out, L"> [\r\n    1,\r\n    {}\r\n  ]");
    EXPECT_EQ(JsonTextSize(document, 1, JsonLayout::Pretty, 1), out.size() - 2);
}

TEST(JsonWriter, WritesLinesAsLinesAndAllElseIndented) {
    JsonDocument document;
    EXPECT_EQ(document.Serialize(), L"");
    ASSERT_TRUE(document.Parse(L"[1, 2]\n\n\"x\"\n{\"a\": 1}\n", true, false));
    EXPECT_EQ(document.Serialize(), L"[1,2]\r\n\"x\"\r\n{\"a\":1}");
    ASSERT_TRUE(document.Parse(L"[1]", false, false));
    EXPECT_EQ(document.Serialize(), L"[\r\n  1\r\n]");
}

TEST(JsonWriter, TakesTheRoomOfTheTextAndNoMore) {
    std::wstring text = L"[";
    for (int i = 0; i < 10'000; ++i) {
        text += L"{\"key\":\"\\u00e9\\u00e9\\u00e9\\u00e9\t\"},";
    }
    JsonDocument document;
    ASSERT_TRUE(document.Parse(text + L"]", false, false));
    const std::wstring out = document.Serialize();
    EXPECT_EQ(out.capacity(), out.size());
}

#if __has_include(<rapidjson/document.h>)

using PeerDocument = rapidjson::GenericDocument<rapidjson::UTF16<char16_t>>;
using PeerValue = PeerDocument::ValueType;

std::wstring Widened(const PeerValue& text) {
    const std::u16string_view units(text.GetString(), text.GetStringLength());
    return {units.begin(), units.end()};
}

void ExpectSame(const JsonDocument& document, int32_t node, const PeerValue& peer) {
    const JsonNode& entry = document.nodes[static_cast<size_t>(node)];
    switch (entry.kind) {
        case JsonKind::Null: ASSERT_TRUE(peer.IsNull()); break;
        case JsonKind::Boolean:
            ASSERT_TRUE(peer.IsBool());
            ASSERT_EQ(peer.GetBool(), document.ValueText(node) == L"true");
            break;
        case JsonKind::Number:
            ASSERT_TRUE(peer.IsNumber());
            ASSERT_EQ(peer.GetDouble(), std::wcstod(document.ValueText(node).c_str(), nullptr));
            break;
        case JsonKind::String:
            ASSERT_TRUE(peer.IsString());
            ASSERT_TRUE(Widened(peer) == document.DisplayText(node));
            break;
        case JsonKind::Array: {
            ASSERT_TRUE(peer.IsArray() && peer.Size() == entry.childCount);
            rapidjson::SizeType index = 0;
            for (const int32_t child : document.ChildIndices(node)) {
                ASSERT_NO_FATAL_FAILURE(ExpectSame(document, child, peer[index++]));
            }
            break;
        }
        case JsonKind::Object: {
            ASSERT_TRUE(peer.IsObject() && peer.MemberCount() == entry.childCount);
            auto member = peer.MemberBegin();
            for (const int32_t child : document.ChildIndices(node)) {
                ASSERT_TRUE(Widened(member->name) == document.KeyText(child));
                ASSERT_NO_FATAL_FAILURE(ExpectSame(document, child, member->value));
                ++member;
            }
        }
    }
}

/// What is written must be strict JSON and the same tree to a parser that is not ours.
void ExpectWrittenTextIsUnderstood(const JsonDocument& document) {
    constexpr unsigned kFlags = rapidjson::kParseIterativeFlag | rapidjson::kParseFullPrecisionFlag;
    for (const std::wstring& text : {document.PrettyText(document.root), Compact(document)}) {
        const std::u16string units(text.begin(), text.end());
        PeerDocument peer;
        peer.Parse<kFlags>(units.c_str());
        if (peer.GetParseError() == rapidjson::kParseErrorNumberTooBig) {
            return;  // not kept by a parser of values
        }
        ASSERT_FALSE(peer.HasParseError());
        ASSERT_NO_FATAL_FAILURE(ExpectSame(document, document.root, peer));
    }
}

TEST(JsonWriter, IsUnderstoodByAnotherParser) {
    JsonDocument document;
    std::wstring controls = L"[\"";
    for (wchar_t unit = 1; unit < 0x120; ++unit) {
        controls += unit == L'"' || unit == L'\\' ? L' ' : unit;
    }
    controls += L"\xD800 \xDC00\\ud83d\\ude00\\u0007\\q\\/\\\"\\\\\"";
    ASSERT_TRUE(
        document.Parse(controls + L",1e-7,-0,/**/{\"\":{},\"\\t\":[],},true,]", false, false));
    ASSERT_TRUE(document.SetValue(1, L"line\r\n\"quoted\" \\ \x1F"));
    ASSERT_TRUE(document.SetValue(2, L"1E+5"));
    ExpectWrittenTextIsUnderstood(document);
    ASSERT_TRUE(document.Parse(controls + L"]", false, false));
    ExpectWrittenTextIsUnderstood(document);
}

TEST(JsonWriter, IsUnderstoodByAnotherParserForEachCollectedFile) {
    if (!test::HasCorpus()) {
        GTEST_SKIP();
    }
    size_t written = 0;
    for (const test::JsonValue& answers : test::ExpectedAnswers("json")) {
        if (!answers.Has("file")) {
            continue;
        }
        SCOPED_TRACE(answers["file"].AsAscii());
        TextEncoding encoding;
        std::wstring text = DecodeText(
            test::ReadBytes(test::CorpusRoot() / "json" / answers["file"].AsAscii()), {}, encoding);
        JsonDocument document;
        if (document.Parse(std::move(text), false, true)) {
            ++written;
            ExpectWrittenTextIsUnderstood(document);
        }
    }
    EXPECT_GT(written, 100U);
}

#endif

}  // namespace
}  // namespace rl
