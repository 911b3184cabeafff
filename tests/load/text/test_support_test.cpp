// Known answers for the hash that the tests over real documents compare with.
#include "tests/support/sha256.h"

#include <gtest/gtest.h>

#include "tests/support/corpus.h"

namespace rl::test {
namespace {

TEST(Sha256Hex, GivesThePublishedAnswers) {
    EXPECT_EQ(Sha256Hex(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(Sha256Hex("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(Sha256Hex("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

TEST(ReadJsonLines, ReadsEveryAnswerOfTheCollection) {
    if (!HasCorpus()) {
        GTEST_SKIP();
    }
    EXPECT_EQ(ExpectedAnswers("encodings").size(), 179u);
    EXPECT_GT(ExpectedAnswers("csv").size(), 100u);
}

TEST(ParseJson, KeepsUnpairedSurrogates) {
    const JsonValue value = ParseJson(R"({"a": ["\ud83d", 12, true, null], "b": "same"})");

    EXPECT_EQ(value["a"].Items()[0].AsText(), std::wstring(1, static_cast<wchar_t>(0xD83D)));
    EXPECT_EQ(value["a"].Items()[1].AsInt(), 12);
    EXPECT_TRUE(value["a"].Items()[2].AsBool());
    EXPECT_TRUE(value["a"].Items()[3].IsNull());
    EXPECT_EQ(value["b"].AsAscii(), "same");
    EXPECT_TRUE(value["c"].IsNull());
}

}  // namespace
}  // namespace rl::test
