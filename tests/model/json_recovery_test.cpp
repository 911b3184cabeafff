#include "model/json_recovery.h"

#include <gtest/gtest.h>

#include <string>

#include "model/json_document.h"

namespace rl {
namespace {

TEST(JsonRecovery, ReadsOneValueALine) {
    JsonDocument document;
    EXPECT_FALSE(document.Parse(L"1\n// a comment alone is no value\n", true, false));
    ASSERT_TRUE(document.Parse(L"\n {\"a\":1} \r\n\t\r\n[2] // two\n3", true, false));
    EXPECT_TRUE(document.lines);
    EXPECT_FALSE(document.salvaged);
    EXPECT_EQ(document.root, 0);
    EXPECT_EQ(document.nodes[0], (JsonNode{JsonKind::Array, 0, 0, 0, 0, 0, -1, 1, -1, 3}));
    EXPECT_EQ(document.ChildIndices(0), (std::vector<int32_t>{1, 3, 5}));
    EXPECT_EQ(document.nodes[5].parent, 0);
}

TEST(JsonRecovery, SplitsLinesAtLineFeedsOnly) {
    JsonDocument document;
    EXPECT_FALSE(document.Parse(L"1\r2", true, false));
    EXPECT_TRUE(document.Parse(L"[1,\r2]", true, false));
    EXPECT_FALSE(document.Parse(L"[1,\n2]", true, false));
    EXPECT_TRUE(document.Parse(L"1 /* open\n2", true, false));
    EXPECT_EQ(document.nodes[0].childCount, 2U);
}

TEST(JsonRecovery, RefusesAllLinesForOneBadOne) {
    for (const bool recovery : {false, true}) {
        JsonDocument document;
        EXPECT_FALSE(document.Parse(L"{\"a\":1}\nbad\n{\"b\":2}", true, recovery));
        EXPECT_EQ(document.root, -1);
        EXPECT_FALSE(document.Parse(L" \r\n\t\n", true, recovery));
        EXPECT_FALSE(document.Parse(L"", true, recovery));
    }
}

TEST(JsonRecovery, SalvagesEveryBalancedBlock) {
    JsonDocument document;
    ASSERT_TRUE(
        document.Parse(L"x {\"a\":1} junk {oops [1,2]} [3] }] {\"b\":\"}\\\"\"} [", false, true));
    EXPECT_TRUE(document.salvaged);
    EXPECT_EQ(document.root, 0);
    EXPECT_EQ(document.PrettyText(0),
              L"[\r\n  {\r\n    \"a\": 1\r\n  },\r\n  [\r\n    3\r\n  ],\r\n  {\r\n    \"b\": "
              L"\"}\\\"\"\r\n  }\r\n]");
}

TEST(JsonRecovery, MakesASingleBlockTheRoot) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"var x = [1, 2];", false, true));
    EXPECT_TRUE(document.salvaged);
    EXPECT_EQ(document.root, 1);
    EXPECT_EQ(document.nodes[1].parent, -1);
    EXPECT_EQ(document.Serialize(), L"[\r\n  1,\r\n  2\r\n]");
}

TEST(JsonRecovery, FindsNothingInBlocksThatAreNoValues) {
    JsonDocument document;
    EXPECT_FALSE(document.Parse(L"{\"a\":1]", false, true));
    EXPECT_FALSE(document.salvaged);
    EXPECT_TRUE(document.nodes.empty());
    EXPECT_FALSE(document.Parse(L"{\"a\":1", false, true));
    EXPECT_FALSE(document.Parse(L"no brackets", false, true));
    EXPECT_TRUE(document.Parse(L"[1]", false, true));
    EXPECT_FALSE(document.salvaged);
}

TEST(JsonRecovery, PrefersBlocksToLinesAndLeavesLinesToASecondTry) {
    const std::wstring text = L"{\"a\":1}\n{\"b\":2}";
    JsonDocument document;
    EXPECT_FALSE(document.Parse(text, false, false));
    ASSERT_TRUE(document.Parse(document.TakeText(), true, false));
    EXPECT_EQ(document.Serialize(), L"{\"a\":1}\r\n{\"b\":2}");
    ASSERT_TRUE(document.Parse(text, false, true));
    EXPECT_TRUE(document.salvaged && !document.lines);
    EXPECT_EQ(document.nodes[0].childCount, 2U);
    EXPECT_EQ(document.Serialize(),
              L"[\r\n  {\r\n    \"a\": 1\r\n  },\r\n  {\r\n    \"b\": 2\r\n  }\r\n]");
}

TEST(JsonRecovery, SalvagesManySmallAndBrokenBlocks) {
    std::wstring text;
    for (int block = 0; block < 100'000; ++block) {
        text += block % 2 == 0 ? L"[0,1] " : L"[0,1,x] ";
    }
    JsonDocument document;
    ASSERT_TRUE(document.Parse(text, false, true));
    EXPECT_EQ(document.nodes.size(), 150'001U);
    EXPECT_LT(document.nodes.capacity(), 2 * document.nodes.size());
}

TEST(JsonRecovery, SkipsBlocksWhoseOuterBracketsAreOfTwoKinds) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"[1} {\"a\":1] [2] {[}} {}", false, true));
    EXPECT_TRUE(document.salvaged);
    EXPECT_EQ(document.nodes[0].childCount, 2U);
}

}  // namespace
}  // namespace rl
