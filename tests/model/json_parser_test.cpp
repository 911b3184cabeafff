#include "model/json_parser.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "model/json_document.h"
#include "model/json_recovery.h"

namespace rl {
namespace {

bool Parses(std::wstring_view text) {
    JsonDocument document;
    return document.Parse(std::wstring(text), false, false);
}

std::wstring Repeated(std::wstring_view part, size_t times) {
    std::wstring all;
    for (size_t i = 0; i < times; ++i) {
        all += part;
    }
    return all;
}

TEST(JsonParser, AllowsOneCommaBeforeTheClosingBracket) {
    for (const auto text : {L"{\"a\":1,}", L"[1,2,]", L"[1 , /**/ ]", L"[[],]", L"{\"a\":{},}"}) {
        EXPECT_TRUE(Parses(text)) << text;
    }
    for (const auto text :
         {L"[,]", L"[1,,2]", L"{,}", L"[1,2,,]", L"[1 2]", L"[1}", L"{\"a\":1]"}) {
        EXPECT_FALSE(Parses(text)) << text;
    }
}

TEST(JsonParser, TakesCommentsForBlanks) {
    EXPECT_TRUE(Parses(L"// note\n{\"a\":/*x*/1}"));
    EXPECT_TRUE(Parses(L"{/**/\"a\"/**/:/**/1/**/,/**/\"b\":2/**/}//"));
    EXPECT_TRUE(Parses(L"[1/*/,2]*/]"));
    EXPECT_FALSE(Parses(L"[1/ ]"));
    EXPECT_FALSE(Parses(L"/"));
    EXPECT_FALSE(Parses(L"// 1\r2"));
}

TEST(JsonParser, TakesGroupsOfCommentsForBlanks) {
    std::wstring text = L"[1";
    for (int i = 0; i < 200; ++i) {
        text += i % 3 == 0 ? L"/*]*/" : i % 3 == 1 ? L" // ]\n\t" : L"\r\n /**/ /* */ ";
    }
    JsonDocument document;
    ASSERT_TRUE(document.Parse(text + L",2/**//**/,/*x*/ // y\n]", false, false));
    EXPECT_EQ(document.nodes.size(), 3U);
    EXPECT_FALSE(document.Parse(text + L"/ ,2]", false, false));
}

TEST(JsonParser, LetsAnOpenCommentSwallowTheRest) {
    EXPECT_TRUE(Parses(L"{\"a\":1} /*"));
    EXPECT_TRUE(Parses(L"{\"a\":1} /*/"));
    EXPECT_TRUE(Parses(L"{\"a\":1} //"));
    EXPECT_FALSE(Parses(L"{\"a\":1 /*}"));
    EXPECT_FALSE(Parses(L"{\"a\":1} /"));
}

TEST(JsonParser, KnowsFourBlanksOnly) {
    EXPECT_TRUE(Parses(L" \t\r\n1 \t\r\n"));
    for (const wchar_t unit : {L'\v', L'\f', wchar_t{0xA0}, wchar_t{0xFEFF}, wchar_t{0}}) {
        EXPECT_FALSE(Parses(std::wstring(1, unit) + L"1"));
        EXPECT_FALSE(Parses(L"[1," + std::wstring(1, unit) + L"2]"));
    }
}

TEST(JsonParser, ValidatesOnlyUnicodeEscapes) {
    for (const auto text : {L"\"\\q\"", L"\"\\u00e9\"", L"\"\\uD800\"", L"\"\\\\\"", L"\"\\\"\"",
                            L"\"a\nb\tc\"", L"\"\\\n\""}) {
        EXPECT_TRUE(Parses(text)) << text;
    }
    for (const auto text : {L"\"\\u12\"", L"\"\\u12", L"\"\\u123g\"", L"\"\\u\"", L"\"\\\"",
                            L"\"\\", L"\"", L"\"abc", L"'a'"}) {
        EXPECT_FALSE(Parses(text)) << text;
    }
}

TEST(JsonParser, ReadsNumbersStrictly) {
    for (const auto text : {L"-0", L"0.5e-3", L"1E+9", L"0", L"-12.50", L"1e05"}) {
        EXPECT_TRUE(Parses(text) && IsValidJsonNumber(text)) << text;
    }
    for (const auto text :
         {L"+1", L".5", L"01", L"-", L"1.", L"1e", L"1e+", L"--1", L"-a", L"1.e1", L"", L"0x1"}) {
        EXPECT_FALSE(Parses(text) || IsValidJsonNumber(text)) << text;
    }
    EXPECT_FALSE(IsValidJsonNumber(L" 1"));
    EXPECT_FALSE(IsValidJsonNumber(L"1 "));
}

TEST(JsonParser, ReadsLiteralsToTheirLastLetter) {
    EXPECT_TRUE(Parses(L"[true,false,null]"));
    for (const auto text :
         {L"truex", L"tru", L"True", L"nul", L"nullnull", L"[true false]", L"f"}) {
        EXPECT_FALSE(Parses(text)) << text;
    }
}

TEST(JsonParser, NestsFiveHundredAndTwelveBelowTheTop) {
    const auto nested = [](size_t levels, std::wstring_view inside) {
        return Repeated(L"[", levels).append(inside) + Repeated(L"]", levels);
    };
    EXPECT_TRUE(Parses(nested(512, L"1")));
    EXPECT_FALSE(Parses(nested(513, L"1")));
    EXPECT_TRUE(Parses(nested(513, L"")));
    EXPECT_FALSE(Parses(nested(514, L"")));
    EXPECT_TRUE(Parses(Repeated(L"{\"a\":", 512) + L"1" + Repeated(L"}", 512)));
    EXPECT_FALSE(Parses(Repeated(L"{\"a\":", 513) + L"1" + Repeated(L"}", 513)));
}

TEST(JsonParser, SurvivesAnyDepthAndAnyEnd) {
    EXPECT_FALSE(Parses(Repeated(L"[", 1'000'000)));
    EXPECT_FALSE(Parses(Repeated(L"{\"a\":", 200'000)));
    const std::wstring whole = L"{\"k\\u0041\": [1.5e3, true, null, /* c */ {\"x\":\"y\"}], }";
    for (size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(Parses(whole.substr(0, length))) << length;
    }
    EXPECT_TRUE(Parses(whole));
}

TEST(JsonParser, LinksNodesAndKeepsSpans) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L" {\"a\":[1,{}],\"b\":\"x\"}", false, false));
    ASSERT_EQ(document.nodes.size(), 5U);
    EXPECT_EQ(document.nodes[0], (JsonNode{JsonKind::Object, 0, 0, 0, 1, 20, -1, 1, -1, 2}));
    EXPECT_EQ(document.nodes[1], (JsonNode{JsonKind::Array, 1, 2, 3, 6, 6, 0, 2, 4, 2}));
    EXPECT_EQ(document.nodes[2], (JsonNode{JsonKind::Number, 0, 0, 0, 7, 1, 1, -1, 3, 0}));
    EXPECT_EQ(document.nodes[3], (JsonNode{JsonKind::Object, 0, 0, 0, 9, 2, 1, -1, -1, 0}));
    EXPECT_EQ(document.nodes[4], (JsonNode{JsonKind::String, 1, 13, 3, 17, 3, 0, -1, -1, 0}));
}

/// The texts that the searches in steps must read as the unit-by-unit ones do.
std::vector<std::u16string> Texts() {
    std::vector<std::u16string> texts;
    for (size_t length = 0; length < 40; ++length) {
        const std::u16string run(length, u'x');
        const std::u16string blanks(length, u' ');
        const std::u16string digits(length, u'7');
        texts.push_back(u"[\"" + run + u"\"]");
        texts.push_back(u"[\"" + run + u"\\\"" + run + u"\\u00e9\"," + blanks + u"1]");
        texts.push_back(u"[\"" + run + u"\u2022\u225c\"" + blanks + u"\t\r\n" + blanks + u"]");
        texts.push_back(u"[1" + digits + u".5" + digits + u"e" + digits + u"]");
        texts.push_back(blanks + u"{\"" + run + u"\":" + blanks + u"-0}");
        texts.push_back(u"[" + blanks + u"\u2020]");
        texts.push_back(u"[" + digits + u"\u0130]");
    }
    return texts;
}

struct Parsed {
    int32_t top = -1;
    std::vector<JsonNode> nodes;
    size_t counted = 0;

    bool operator==(const Parsed&) const = default;
};

template <typename Scan>
Parsed ParseWith(const std::u16string& text) {
    const AbandonCheck never;
    Parsed parsed;
    JsonParser<char16_t, Scan> parser(text, false, parsed.nodes, never);
    parsed.top = parser.Parse(0, text.size(), -1);
    const char16_t* const begin = text.data();
    parsed.counted = CountJsonNodes<char16_t, Scan>(begin, begin + text.size(), false);
    return parsed;
}

/// All ways to read a text, the best of this processor included, come to the same.
void ExpectAgreement(const std::u16string& text, const std::string& what) {
    const Parsed plain = ParseWith<detail::JsonScanPlain>(text);
    EXPECT_TRUE(ParseWith<detail::JsonScanSse2>(text) == plain) << what;
    EXPECT_TRUE(ParseWith<detail::JsonScanBest>(text) == plain) << what;
}

TEST(JsonParser, FindsTheSameNodesInStepsAndUnitByUnit) {
    for (const std::u16string& text : Texts()) {
        EXPECT_GE(ParseWith<detail::JsonScanPlain>(text).counted, 1U);
        ExpectAgreement(text, std::string(text.begin(), text.end()));
    }
}

/// What an edge between two blocks of 64 units may cut in two.
TEST(JsonParser, ReadsAcrossEveryEdgeBetweenBlocks) {
    const std::u16string pieces[] = {u"[\"\\\\\\\\\\\\\",1]",
                                     u"[\"a\\\\\\\"b\\\"\",1]",
                                     u"{\"k\":\"v\"}",
                                     u"{\"k\" : \"v\" , \"w\":2}",
                                     u"[\"\\u00e9\\u12aF\"]",
                                     u"[\"\\u00e\"]",
                                     u"[1/* \" */,2]",
                                     u"[true// \"\n,false]",
                                     u"[12345.678e-9,-0.5]",
                                     u"[1,]",
                                     u"[1,,2]",
                                     u"{\"k\"::1}",
                                     u"[\"k\":1]",
                                     u"[\"a\"\"b\"]",
                                     u"[nullnull]",
                                     u"[1/2]",
                                     u"[\"/*\",\"//\"]",
                                     u"[\\\"\"]",
                                     u"[\"abc\\\"]",
                                     u"[[],{},[[]]]",
                                     u"[\v1]"};
    for (const std::u16string& piece : pieces) {
        const bool isValue = ParseWith<detail::JsonScanPlain>(piece).top == 0;
        for (size_t before = 0; before < 140; ++before) {
            const std::u16string text = std::u16string(before, u' ') + piece;
            const std::string what(text.begin(), text.end());
            EXPECT_EQ(ParseWith<detail::JsonScanPlain>(text).top == 0, isValue) << what;
            ExpectAgreement(text, what);
            ExpectAgreement(u"[\"" + std::u16string(before, u'x') + u"\"," + piece + u"]", what);
            ExpectAgreement(text + std::u16string(before, u'\n') + u"7", what);
        }
    }
}

TEST(JsonParser, ReadsTheSameFromTextsCutAndMixedAtRandom) {
    const std::u16string units = u"{}[]:,\"\\/* \n1-0.eEtrufals\t\v\u00a0\u225c\ufeff+x";
    std::mt19937 dice(5);
    for (int round = 0; round < 20'000; ++round) {
        std::u16string text;
        for (size_t left = dice() % 150; left > 0; --left) {
            text += units[dice() % units.size()];
        }
        ExpectAgreement(text, "round " + std::to_string(round));
    }
}

template <typename Scan>
Parsed ParseLinesWith(const std::u16string& text) {
    const AbandonCheck never;
    Parsed parsed;
    parsed.nodes.resize(1);
    JsonParser<char16_t, Scan> parser(text, true, parsed.nodes, never);
    parsed.top = parser.ParseLines() ? 0 : -1;
    const char16_t* const begin = text.data();
    parsed.counted = CountJsonNodes<char16_t, Scan>(begin, begin + text.size(), true);
    if (parsed.top < 0) {
        parsed.nodes.clear();
    } else {
        EXPECT_EQ(parsed.counted + 1, parsed.nodes.size());
    }
    return parsed;
}

bool ExpectAgreementOfLines(const std::u16string& text) {
    const std::string what(text.begin(), text.end());
    const Parsed plain = ParseLinesWith<detail::JsonScanPlain>(text);
    EXPECT_TRUE(ParseLinesWith<detail::JsonScanSse2>(text) == plain) << what;
    EXPECT_TRUE(ParseLinesWith<detail::JsonScanBest>(text) == plain) << what;
    return plain.top == 0;
}

TEST(JsonParser, KeepsValuesAndCommentsOnTheirLines) {
    for (size_t before = 0; before < 140; ++before) {
        const std::u16string start = std::u16string(before, u' ') + u"\n";
        for (const auto* const text :
             {u"1", u"1\n\n2\r\n", u"{\"a\":[1,\"b\"]} /* , \n2", u"1//x\n2", u"\"a\" /*/\n[]\n",
              u"\"\\u00e9\\\"\"\n \t\r\n[\"b\" ]", u"/**/1\n", u"1 /*x*/ // y\n",
              u"\"a\"//\"\n\"b\" /*\"\n[\"c\"]//\""}) {
            EXPECT_TRUE(ExpectAgreementOfLines(start + text)) << start.size();
        }
        for (const auto* const text :
             {u"1\n//x\n2",    u"1\n/*x*/",      u"[1,\n2]",   u"{\"a\"\n:1}",   u"{\"a\":\n1}",
              u"\"a\nb\"",     u"\"a\\\nb\"",    u"1 2",       u"1\n,2",         u"\"a",
              u"\"a\n\"",      u"{\"a\n\":1}",   u"[1]]\n",    u"\"\\u00e\n9\"", u"1 /*\n*/",
              u"/*\n1",        u"{\"a\":1}:\n2", u"\"a\":\n2", u"1\n/",          u"\"a\":/*\"\n2",
              u"\"a\"://\"\n2"}) {
            EXPECT_FALSE(ExpectAgreementOfLines(start + text)) << start.size();
        }
    }
}

TEST(JsonParser, ReadsTheSameFromLinesMixedAtRandom) {
    const std::u16string pieces[] = {u"1",
                                     u"\"a\"",
                                     u"{\"k\":\"v\"}",
                                     u"[1,\"\\\\\"]",
                                     u"\n",
                                     u"\n\n",
                                     u"\r\n",
                                     u" // x\n",
                                     u"/* \" */",
                                     u"/*",
                                     u"\"x\n",
                                     u"[\n",
                                     u"\\",
                                     u" ",
                                     u"\n"};
    std::mt19937 dice(7);
    int valid = 0;
    for (int round = 0; round < 10'000; ++round) {
        std::u16string text;
        for (size_t left = dice() % 12; left > 0; --left) {
            text += pieces[dice() % std::size(pieces)];
            text += dice() % 2 == 0 ? u"\n" : u"";
        }
        valid += ExpectAgreementOfLines(text) ? 1 : 0;
    }
    EXPECT_GT(valid, 200);
}

/// A colon directly behind a string is not looked at again, so it must be the one after a key.
TEST(JsonParser, TakesAColonForNothingButTheEndOfAKey) {
    for (const auto text :
         {L"[\"a\":]", L"[\"a\":1]", L"[\"a\":,1]", L"{\"a\":\"b\":}", L"{\"a\":\"b\":,\"c\":1}",
          L"{\"a\"::1}", L"{\"a\": :1}", L"{:\"a\":1}", L"[:1]", L"[1:]", L"\"a\":", L"\"a\":1",
          L"{\"a\"}", L"{\"a\",1}", L"{\"a\" 1}", L"{\"a\"/*:*/1}", L"{\"a\"//\":\n1}",
          L"{\"a\"/*\":*/ 1}", L"{\"a\":"}) {
        EXPECT_FALSE(Parses(text)) << text;
    }
    for (const auto text :
         {L"{\"a\" :1}", L"{\"a\"  :  1}", L"{\"a\":/*:*/1}", L"{\"a\"/*\":*/:1}",
          L"{\"a\"//\":\n:1}", L"{\"a\"\n:\n1}", L"{\"\\\":\":1}", L"[\":\",\"::\"]"}) {
        EXPECT_TRUE(Parses(text)) << text;
    }
}

TEST(JsonParser, EndsAStringBeforeACommentThatEndsWithAQuote) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"\"a\"//\"\n\"b\" /*\"\n", true, false));
    EXPECT_EQ(document.DisplayText(1), L"a");
    EXPECT_EQ(document.DisplayText(2), L"b");
    std::vector<JsonNode> nodes;
    const AbandonCheck never;
    EXPECT_EQ(ParseJsonLines<char16_t>(u"\"a\"//\"\n\"b\" /*\"\n", nodes, never), 0);
    EXPECT_TRUE(nodes == document.nodes);
}

TEST(JsonParser, LeavesNothingOfATextThatIsNoValue) {
    std::vector<JsonNode> nodes(3);
    const AbandonCheck never;
    const std::u16string text = u"[1,[2,3],}";
    JsonParser<char16_t> parser(text, false, nodes, never);
    EXPECT_EQ(parser.Parse(0, text.size(), -1), -1);
    EXPECT_EQ(nodes.size(), 3U);
    EXPECT_EQ(parser.Parse(3, 8, 1), 3);
    EXPECT_EQ(nodes.size(), 6U);
}

TEST(JsonParser, CountsTheNodesOfATextExactly) {
    for (const std::u16string& text :
         {std::u16string(u"1"), std::u16string(u"[]"), std::u16string(u"[1,2,]"),
          std::u16string(u"{\"a\":{\"b\":[]},\"c\\\"\":\"d:\\\\\"}"),
          std::u16string(u"// [1,\n[1/*,2:*/,true//\n]/*"),
          std::u16string(u"[\"a\",-1e5 ,null]")}) {
        std::vector<JsonNode> nodes;
        const AbandonCheck never;
        JsonParser<char16_t> parser(text, false, nodes, never);
        ASSERT_EQ(parser.Parse(0, text.size(), -1), 0);
        const char16_t* const end = text.data() + text.size();
        EXPECT_EQ((CountJsonNodes<char16_t, detail::JsonScanPlain>(text.data(), end, false)),
                  nodes.size());
        EXPECT_EQ((CountJsonNodes<char16_t, detail::JsonScanSse2>(text.data(), end, false)),
                  nodes.size());
    }
}

TEST(JsonParser, TakesNoMoreRoomThanALargeTextNeeds) {
    for (const bool lines : {false, true}) {
        JsonDocument document;
        const std::wstring text = lines ? Repeated(L"{\"a\":[1,\"b\"]} /* , \n", 50'000)
                                        : L"[" + Repeated(L"{\"a\":[1,\"b\"]},", 50'000) + L"]";
        ASSERT_TRUE(document.Parse(text, lines, false));
        EXPECT_EQ(document.nodes.size(), 200'001U);
        EXPECT_EQ(document.nodes.capacity(), document.nodes.size());
    }
}

TEST(JsonParser, TakesLittleRoomForATextThatBreaksOff) {
    std::vector<JsonNode> nodes;
    const AbandonCheck never;
    const std::u16string text = u"[1" + std::u16string(1'000'000, u'[');
    JsonParser<char16_t> parser(text, false, nodes, never);
    EXPECT_EQ(parser.Parse(0, text.size(), -1), -1);
    EXPECT_LT(nodes.capacity(), 20'000U);
}

TEST(JsonParser, StopsWhenNobodyWaits) {
    int asked = 0;
    const AbandonCheck second = [&asked] { return ++asked == 2; };
    for (const bool lines : {false, true}) {
        asked = 0;
        JsonDocument document;
        const std::wstring text =
            lines ? Repeated(L"[0,0,0]\n", 2'000'000) : L"[" + Repeated(L"0,", 8'000'000) + L"]";
        EXPECT_FALSE(document.Parse(text, lines, true, second));
        EXPECT_EQ(asked, 2);
        EXPECT_EQ(document.root, -1);
        EXPECT_FALSE(document.salvaged);
        EXPECT_EQ(document.text.size(), text.size());
    }
}

TEST(JsonParser, StopsCountingAndSearchingForBlocksWhenNobodyWaits) {
    int asked = 0;
    const AbandonCheck third = [&asked] { return ++asked == 3; };
    const std::u16string text = u"[" + std::u16string(40'000, u'[') + std::u16string(8 << 20, u' ');
    const char16_t* const end = text.data() + text.size();
    EXPECT_EQ((CountJsonNodes<char16_t, detail::JsonScanPlain>(text.data(), end, false)), 40'001U);
    EXPECT_EQ((CountJsonNodes<char16_t, detail::JsonScanPlain>(text.data(), end, false, third)),
              0U);
    EXPECT_EQ(asked, 3);
    asked = 0;
    EXPECT_EQ((CountJsonNodes<char16_t>(text.data(), end, false)), 40'001U);
    EXPECT_EQ((CountJsonNodes<char16_t>(text.data(), end, false, third)), 0U);
    EXPECT_EQ(asked, 3);
    // Asked as the parse begins, as the search for blocks goes on, and never again.
    asked = 0;
    JsonDocument document;
    EXPECT_FALSE(document.Parse(L"{}x{" + std::wstring(16 << 20, L' '), false, true, third));
    EXPECT_EQ(asked, 3);
}

TEST(JsonParser, ReadsAMillionNodesAndOneHugeString) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"[" + Repeated(L"0,", 1'000'000) + L"]", false, false));
    EXPECT_EQ(document.nodes[0].childCount, 1'000'000U);
    const std::wstring text = L"\"" + std::wstring(10'000'000, L'x') + L"\"";
    ASSERT_TRUE(document.Parse(text, false, false));
    EXPECT_EQ(document.DisplayText(0).size(), text.size() - 2);
    EXPECT_TRUE(document.PrettyText(0) == text);
}

}  // namespace
}  // namespace rl
