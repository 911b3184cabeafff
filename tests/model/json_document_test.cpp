#include "model/json_document.h"

#include <gtest/gtest.h>

#include <string>

namespace rl {
namespace {

TEST(JsonDocument, NamesKinds) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"[null,true,1,\"\",{}]", false, false));
    const std::wstring_view names[] = {L"ARRAY",  L"NULL",   L"BOOLEAN",
                                       L"NUMBER", L"STRING", L"OBJECT"};
    for (int32_t node = 0; node < 6; ++node) {
        EXPECT_EQ(document.TypeName(node), names[node]);
    }
    EXPECT_EQ(TypeName(static_cast<JsonKind>(6)), L"");
}

TEST(JsonDocument, ShowsKeysAndValues) {
    JsonDocument document;
    ASSERT_TRUE(
        document.Parse(L"{\"k\\u0041\":\"x\\ty\",\"n\":1.50,\"a\":[],\"o\":{}}", false, false));
    EXPECT_EQ(document.KeyText(0), L"");
    EXPECT_EQ(document.KeyText(1), L"kA");
    EXPECT_EQ(document.ValueText(1), L"\"x\\ty\"");
    EXPECT_EQ(document.DisplayText(1), L"x\ty");
    EXPECT_EQ(document.DisplayText(2), L"1.50");
    EXPECT_EQ(document.DisplayText(3), L"[Array]");
    EXPECT_EQ(document.DisplayText(4), L"[Object]");
    EXPECT_EQ(document.ValueText(3), L"[]");
    EXPECT_TRUE(document.ChildIndices(-1).empty());
    EXPECT_EQ(document.PrettyText(-1), L"");
}

TEST(JsonDocument, DecodesStrings) {
    JsonDocument document;
    const auto decoded = [&document](std::wstring token) {
        const auto length = static_cast<uint32_t>(token.size());
        document.text = std::move(token);
        return document.DecodeString(0, length);
    };
    EXPECT_EQ(decoded(L"\"\\b\\f\\n\\r\\t\\\"\\\\\\/\\q\""), L"\b\f\n\r\t\"\\/q");
    EXPECT_EQ(decoded(L"\"\\u00e9\\uD83D\\uDE00\""), L"\xE9\xD83D\xDE00");
    EXPECT_EQ(decoded(L"\"a\\\""), L"a");
    EXPECT_EQ(decoded(L"\"\\u12\""), L"12");
    EXPECT_EQ(decoded(L"\"\""), L"");
    EXPECT_EQ(decoded(L"\""), L"");
    EXPECT_EQ(decoded(L""), L"");
    EXPECT_EQ(document.DecodeString(7, 9), L"");
}

TEST(JsonDocument, EscapesWhatMustBeEscaped) {
    EXPECT_EQ(EscapeString(L"\b\t\n\f\r\"\\"), L"\"\\b\\t\\n\\f\\r\\\"\\\\\"");
    EXPECT_EQ(EscapeString(std::wstring(L"\x01\x0B\x1F\0", 4)),
              L"\"\\u0001\\u000B\\u001F\\u0000\"");
    EXPECT_EQ(EscapeString(L"/\x7F\xE9\xD800 \x2028"), L"\"/\x7F\xE9\xD800 \x2028\"");
    EXPECT_EQ(EscapeString(L""), L"\"\"");
    for (size_t length = 0; length < 40; ++length) {
        EXPECT_EQ(EscapeString(std::wstring(length, L'x') + L"\n"),
                  L"\"" + std::wstring(length, L'x') + L"\\n\"");
    }
}

TEST(JsonDocument, RefusesEditsThatDoNotFitTheKind) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"[null,true,1,\"s\",[],{}]", false, false));
    const auto reason = [&document](int32_t node, std::wstring_view text) {
        std::wstring error = L"none";
        EXPECT_FALSE(document.SetValue(node, text));
        EXPECT_FALSE(document.SetValue(node, text, &error));
        return error;
    };
    EXPECT_EQ(reason(1, L"NULL"), L"USE null");
    EXPECT_EQ(reason(2, L"True"), L"USE true OR false");
    EXPECT_EQ(reason(3, L"1e999"), L"INVALID NUMBER");
    EXPECT_EQ(reason(3, L"-1e999"), L"INVALID NUMBER");
    EXPECT_EQ(reason(3, L" 1"), L"INVALID NUMBER");
    EXPECT_EQ(reason(3, L""), L"INVALID NUMBER");
    EXPECT_EQ(reason(5, L"[]"), L"READ ONLY");
    EXPECT_EQ(reason(6, L"[Object]"), L"READ ONLY");
    EXPECT_EQ(reason(0, L"[Array]"), L"READ ONLY");
    EXPECT_FALSE(document.modified);
    EXPECT_TRUE(document.edits.empty());
    EXPECT_TRUE(document.SetValue(3, L"1e-999"));
}

TEST(JsonDocument, StoresNothingForAnUnchangedText) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"[\"a\\u0062\",1.0]", false, false));
    EXPECT_TRUE(document.SetValue(1, L"ab"));
    EXPECT_TRUE(document.SetValue(2, L"1.0"));
    EXPECT_FALSE(document.modified);
    EXPECT_TRUE(document.edits.empty());
    EXPECT_TRUE(document.SetValue(2, L"1"));
    EXPECT_TRUE(document.modified);
}

TEST(JsonDocument, ShowsAndWritesEditsInPlaceOfTheSource) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"{\"s\":\"a\",\"n\":1,\"b\":true}", false, false));
    ASSERT_TRUE(document.SetValue(1, L"say \"x\""));
    ASSERT_TRUE(document.SetValue(2, L"2e5"));
    ASSERT_TRUE(document.SetValue(3, L"false"));
    EXPECT_EQ(document.DisplayText(1), L"say \"x\"");
    EXPECT_EQ(document.ValueText(1), L"say \"x\"");
    EXPECT_EQ(document.DisplayText(2), L"2e5");
    std::wstring out = L">";
    document.WriteCompact(0, out);
    EXPECT_EQ(out, L">{\"s\":\"say \\\"x\\\"\",\"n\":2e5,\"b\":false}");
    ASSERT_TRUE(document.Parse(L"[1]", false, false));
    EXPECT_TRUE(document.edits.empty());
    EXPECT_FALSE(document.modified);
}

}  // namespace
}  // namespace rl
