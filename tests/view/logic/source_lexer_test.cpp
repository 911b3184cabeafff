// Colours of source lines, and the state that goes from line to line.
#include "view/logic/source_lexer.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "view/logic/source_lines.h"

namespace rl {
namespace {

constexpr SourceSyntax kJson{.mode = SourceMode::Json};
constexpr SourceSyntax kXml{.mode = SourceMode::Xml};
constexpr SourceSyntax kCsv{.mode = SourceMode::Delimited, .delimiter = L','};
constexpr SourceSyntax kSemicolons{.mode = SourceMode::Delimited, .delimiter = L';'};

/// One letter for each unit: . text, c comment, t tag, a attribute, s string, n number, k keyword,
/// p punctuation. "?" was left out by the lexer.
std::string Letters(std::span<const SourceClass> classes) {
    std::string letters;
    for (const SourceClass value : classes) {
        const auto index = static_cast<size_t>(value);
        letters += index < kSourceClassCount ? ".ctasnkp"[index] : '?';
    }
    return letters;
}

struct Coloured {
    std::string letters;
    int state = 0;

    bool operator==(const Coloured&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Coloured& coloured) {
    return out << coloured.letters << " then " << coloured.state;
}

Coloured Lex(const SourceSyntax& syntax, std::wstring_view line, int state = 0,
             bool isFirst = false) {
    std::vector<SourceClass> classes(line.size(), static_cast<SourceClass>(99));
    const LineContext context{.state = static_cast<LineState>(state), .isFirst = isFirst};
    const LineState next = LexLine(syntax, line, context, ClassSink(classes));
    EXPECT_EQ(LexLine(syntax, line, context, {}), next) << "the state is the same without classes";
    return {Letters(classes), next};
}

std::vector<int> States(const SourceSyntax& syntax, std::wstring_view text) {
    const LineIndex index = IndexLines(text, 4);
    const std::vector<LineState> fast = ScanLineStates(syntax, text, index.starts);
    EXPECT_EQ(fast, ScanLineStatesPlain(syntax, text, index.starts));
    return {fast.begin(), fast.end()};
}

// JSON

TEST(JsonLexer, ColoursAStringBeforeAColonAsAKey) {
    EXPECT_EQ(Lex(kJson, L"\"name\" : 1"), (Coloured{"aaaaaa.p.n"}));
    EXPECT_EQ(Lex(kJson, L"\"k\":"), (Coloured{"aaap"}));
    EXPECT_EQ(Lex(kJson, L"\"k\" \t :"), (Coloured{"aaa...p"}));
}

TEST(JsonLexer, ColoursOtherStringsAsStrings) {
    EXPECT_EQ(Lex(kJson, L"\"x\","), (Coloured{"sssp"}));
    EXPECT_EQ(Lex(kJson, L"\"x\""), (Coloured{"sss"}));
    EXPECT_EQ(Lex(kJson, L"\"x\"  "), (Coloured{"sss.."}));
}

TEST(JsonLexer, LooksForTheColonOnTheSameLineOnly) {
    EXPECT_EQ(Lex(kJson, L"\"x\"\x00A0:"), (Coloured{"sss.p"}));  // no blank of ours between
}

TEST(JsonLexer, SkipsWhatABackslashEscapes) {
    EXPECT_EQ(Lex(kJson, L"\"a\\\"b\",1"), (Coloured{"sssssspn"}));
    EXPECT_EQ(Lex(kJson, L"\"a\\\\\",1"), (Coloured{"ssssspn"}));
}

TEST(JsonLexer, EndsAnOpenStringWithItsLine) {
    EXPECT_EQ(Lex(kJson, L"\"open : 1"), (Coloured{"sssssssss", 0}));
    EXPECT_EQ(Lex(kJson, L"\"x\\"), (Coloured{"sss", 0}));
    EXPECT_EQ(Lex(kJson, L"\"x\\\""), (Coloured{"ssss", 0}));
    EXPECT_EQ(Lex(kJson, L"\""), (Coloured{"s", 0}));
}

TEST(JsonLexer, TakesNumbersAsFarAsTheirCharactersGo) {
    EXPECT_EQ(Lex(kJson, L"-1.5e+10,"), (Coloured{"nnnnnnnnp"}));
    EXPECT_EQ(Lex(kJson, L"12E-3]"), (Coloured{"nnnnnp"}));
    EXPECT_EQ(Lex(kJson, L"-"), (Coloured{"n"}));
    EXPECT_EQ(Lex(kJson, L"1-2"), (Coloured{"nnn"}));
    EXPECT_EQ(Lex(kJson, L"0x1F"), (Coloured{"n.n."}));
    EXPECT_EQ(Lex(kJson, L"+1"), (Coloured{".n"}));
    EXPECT_EQ(Lex(kJson, L".5"), (Coloured{".n"}));
}

TEST(JsonLexer, ColoursKeywordsWithoutLookingWhatFollows) {
    EXPECT_EQ(Lex(kJson, L"true,false,null"), (Coloured{"kkkkpkkkkkpkkkk"}));
    EXPECT_EQ(Lex(kJson, L"nullable"), (Coloured{"kkkk...."}));
    EXPECT_EQ(Lex(kJson, L"untrue"), (Coloured{"..kkkk"}));
    EXPECT_EQ(Lex(kJson, L"True tru"), (Coloured{"........"}));
}

TEST(JsonLexer, ColoursTheRestOfALineAfterTwoSlashes) {
    EXPECT_EQ(Lex(kJson, L"1 // \"a\" /* 2"), (Coloured{"n.ccccccccccc", 0}));
    EXPECT_EQ(Lex(kJson, L"\"//\" 1"), (Coloured{"ssss.n"}));
    EXPECT_EQ(Lex(kJson, L"/ 1"), (Coloured{"..n"}));
}

TEST(JsonLexer, ColoursBlockComments) {
    EXPECT_EQ(Lex(kJson, L"1/* 2 */3"), (Coloured{"ncccccccn", 0}));
    EXPECT_EQ(Lex(kJson, L"/* open"), (Coloured{"ccccccc", 1}));
    EXPECT_EQ(Lex(kJson, L"still \"open\"", 1), (Coloured{"cccccccccccc", 1}));
    EXPECT_EQ(Lex(kJson, L"end */ null", 1), (Coloured{"cccccc.kkkk", 0}));
    EXPECT_EQ(Lex(kJson, L"/*/ 1"), (Coloured{"ccccc", 1}));
    EXPECT_EQ(Lex(kJson, L"/**/1"), (Coloured{"ccccn", 0}));
    EXPECT_EQ(Lex(kJson, L"*/ 1"), (Coloured{"...n", 0}));
}

TEST(JsonLexer, ColoursPunctuation) {
    EXPECT_EQ(Lex(kJson, L"{}[],:"), (Coloured{"pppppp"}));
    EXPECT_EQ(Lex(kJson, L"();'="), (Coloured{"....."}));
}

TEST(JsonStates, FollowABlockCommentOverItsLines) {
    EXPECT_EQ(States(kJson, L"1 /* a\nb\nc */ 2\n3"), (std::vector<int>{0, 1, 1, 0}));
    EXPECT_EQ(States(kJson, L"/*\r\n\r\n*/\r\n"), (std::vector<int>{0, 1, 1, 0}));
    EXPECT_EQ(States(kJson, L"/* never closed\n\n"), (std::vector<int>{0, 1, 1}));
}

TEST(JsonStates, IgnoreCommentMarksInsideStringsAndLineComments) {
    EXPECT_EQ(States(kJson, L"\"/*\"\n1\n// /*\n2"), (std::vector<int>{0, 0, 0, 0}));
    EXPECT_EQ(States(kJson, L"\"/*\" /*\n*/ \"*/\n2"), (std::vector<int>{0, 1, 0}));
}

TEST(JsonStates, DoNotSeeMarksAcrossALineBreak) {
    EXPECT_EQ(States(kJson, L"/\n* 1\n2"), (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(States(kJson, L"/* *\n/ 1\n2"), (std::vector<int>{0, 1, 1}));
}

TEST(JsonStates, FindMarksThatCrossTheBlocksOfTheFastPass) {
    for (size_t pad = 55; pad < 70; ++pad) {
        const std::wstring text = std::wstring(pad, L' ') + L"/*\n1\n*/\n2";
        EXPECT_EQ(States(kJson, text), (std::vector<int>{0, 1, 1, 0})) << pad;
    }
}

// XML: state, input, colours, next state; one row of the table of states each.

struct XmlCase {
    int state;
    const wchar_t* input;
    const char* letters;
    int next;
};

class XmlTable : public testing::TestWithParam<XmlCase> {};

TEST_P(XmlTable, GivesTheClassAndTheNextState) {
    const XmlCase& row = GetParam();
    EXPECT_EQ(Lex(kXml, row.input, row.state), (Coloured{row.letters, row.next}));
}

INSTANTIATE_TEST_SUITE_P(
    Content, XmlTable,
    testing::Values(XmlCase{0, L"<!--", "cccc", 1}, XmlCase{0, L"<![CDATA[", "kkkkkkkkk", 2},
                    XmlCase{0, L"<!", "kk", 7}, XmlCase{0, L"<?", "pp", 3},
                    XmlCase{0, L"</", "pp", 3}, XmlCase{0, L"<", "p", 3},
                    XmlCase{0, L"<a", "pt", 3}, XmlCase{0, L"x> \t\"'=&", "........", 0},
                    XmlCase{0, L"<!-", "kkk", 7}, XmlCase{0, L"<![CDATA", "kkkkkkkk", 7}));

INSTANTIATE_TEST_SUITE_P(
    Comment, XmlTable,
    testing::Values(XmlCase{1, L"-->", "ccc", 0}, XmlCase{1, L"<a \"'>", "cccccc", 1},
                    XmlCase{1, L"--->x", "cccc.", 0}, XmlCase{0, L"<!-->", "ccccc", 1},
                    XmlCase{0, L"<!--->", "cccccc", 1}, XmlCase{0, L"<!---->", "ccccccc", 0}));

INSTANTIATE_TEST_SUITE_P(Cdata, XmlTable,
                         testing::Values(XmlCase{2, L"]]>", "kkk", 0},
                                         XmlCase{2, L"<a> ]] >", "........", 2},
                                         XmlCase{2, L"]]]>x", ".kkk.", 0}));

INSTANTIATE_TEST_SUITE_P(TagName, XmlTable,
                         testing::Values(XmlCase{3, L">", "p", 0}, XmlCase{3, L" ", ".", 4},
                                         XmlCase{3, L"\t", ".", 4}, XmlCase{3, L"/", "p", 3},
                                         XmlCase{3, L"?", "p", 3},
                                         XmlCase{3, L"a:b-c\"'=<", "ttttttttt", 3}));

INSTANTIATE_TEST_SUITE_P(TagAttributes, XmlTable,
                         testing::Values(XmlCase{4, L">", "p", 0}, XmlCase{4, L"\"", "s", 5},
                                         XmlCase{4, L"'", "s", 6}, XmlCase{4, L"/", "p", 4},
                                         XmlCase{4, L"=", "p", 4}, XmlCase{4, L"?", "p", 4},
                                         XmlCase{4, L" \t", "..", 4},
                                         XmlCase{4, L"id<", "aaa", 4}));

INSTANTIATE_TEST_SUITE_P(Quoted, XmlTable,
                         testing::Values(XmlCase{5, L"\"", "s", 4},
                                         XmlCase{5, L"a'<>/= ", "sssssss", 5},
                                         XmlCase{6, L"'", "s", 4},
                                         XmlCase{6, L"a\"<>/= ", "sssssss", 6}));

INSTANTIATE_TEST_SUITE_P(Declaration, XmlTable,
                         testing::Values(XmlCase{7, L">", "k", 0},
                                         XmlCase{7, L"DOCTYPE a \"'", "kkkkkkkkkkkk", 7},
                                         XmlCase{7, L"<!--", "kkkk", 7}));

TEST(XmlLexer, ColoursADeclaration) {
    EXPECT_EQ(Lex(kXml, L"<?xml version=\"1.0\"?>"), (Coloured{"ppttt.aaaaaaapssssspp", 0}));
}

TEST(XmlLexer, ColoursATagWithItsContents) {
    EXPECT_EQ(Lex(kXml, L"<a b='1'>t</a>"), (Coloured{"pt.apsssp.pptp", 0}));
    EXPECT_EQ(Lex(kXml, L"<br/>"), (Coloured{"pttpp", 0}));
}

TEST(XmlStates, ReachFromLineToLine) {
    EXPECT_EQ(States(kXml, L"<a\nb\n c='\n'\n>\n"), (std::vector<int>{0, 3, 3, 6, 4, 0}));
    EXPECT_EQ(States(kXml, L"<!--\n-->\n<![CDATA[\n]]>\n<!D\n>"),
              (std::vector<int>{0, 1, 0, 2, 0, 7}));
    EXPECT_EQ(States(kXml, L"<a b=\"\n\"\n/>\n"), (std::vector<int>{0, 5, 4, 0}));
}

TEST(XmlStates, DoNotSeeMarksAcrossALineBreak) {
    EXPECT_EQ(States(kXml, L"<!--\n--\n>\n-->"), (std::vector<int>{0, 1, 1, 1}));
    EXPECT_EQ(States(kXml, L"<!\n-->\n"), (std::vector<int>{0, 7, 0}));
    EXPECT_EQ(States(kXml, L"<\n!--\n"), (std::vector<int>{0, 3, 3}));
}

TEST(XmlStates, DoNotCloseACommentWithTheDashesThatOpenedIt) {
    EXPECT_EQ(States(kXml, L"<!-->\n<!--\n-->\n<!--->\n"), (std::vector<int>{0, 1, 1, 0, 1}));
}

// Delimited text

TEST(CsvLexer, ColoursDelimitersAndQuotedFields) {
    EXPECT_EQ(Lex(kCsv, L"a,\"b,c\",d"), (Coloured{".psssssp."}));
    EXPECT_EQ(Lex(kCsv, L"\"a\"\"b\",1"), (Coloured{"sssssspn"}));
    EXPECT_EQ(Lex(kCsv, L"\"\",\"\"\"\""), (Coloured{"sspssss"}));
    EXPECT_EQ(Lex(kCsv, L"a\"b"), (Coloured{".ss", 1}));
}

TEST(CsvLexer, TakesTheGivenDelimiterOnly) {
    EXPECT_EQ(Lex(kSemicolons, L"a; 1,5 ;\"x\""), (Coloured{".pnnnnnpsss"}));
    EXPECT_EQ(Lex(kSemicolons, L"1,5,6"), (Coloured{"....."}));
    EXPECT_EQ(Lex({.mode = SourceMode::Delimited, .delimiter = L'\t'}, L"1\t2"), (Coloured{"npn"}));
}

TEST(CsvLexer, ColoursANumberTogetherWithTheBlanksAroundIt) {
    EXPECT_EQ(Lex(kCsv, L" \t12 ,"), (Coloured{"nnnnnp"}));
}

TEST(CsvLexer, KnowsWhatANumberIs) {
    for (const wchar_t* number : {L"0", L"+1", L"-1", L"1.5", L"007", L"1,", L"1.", L"-1,5"}) {
        EXPECT_EQ(Lex(kSemicolons, number).letters, std::string(std::wcslen(number), 'n'))
            << number;
    }
    for (const wchar_t* other : {L"+", L"--1", L"1.5.6", L"1,5.6", L"1e5", L"1 2", L" ", L".",
                                 L"x1", L"1x", L"+ 1", L"0x1"}) {
        EXPECT_EQ(Lex(kSemicolons, other).letters, std::string(std::wcslen(other), '.')) << other;
    }
}

TEST(CsvLexer, ColoursTheNamesInTheFirstLine) {
    EXPECT_EQ(Lex(kCsv, L"id,\"n\",12", 0, true), (Coloured{"aapssspaa"}));
    EXPECT_EQ(Lex(kCsv, L"id,\"n\",12", 0, false), (Coloured{"..pssspnn"}));
}

TEST(CsvLexer, KeepsAQuotedFieldOpenOverLines) {
    EXPECT_EQ(Lex(kCsv, L"1,\"two"), (Coloured{"npssss", 1}));
    EXPECT_EQ(Lex(kCsv, L"li,nes\",3", 1), (Coloured{"ssssssspn", 0}));
    EXPECT_EQ(Lex(kCsv, L"\"\"", 1), (Coloured{"ss", 1}));
}

TEST(CsvStates, CountQuotes) {
    EXPECT_EQ(States(kCsv, L"a,\"b\nc\"\"d\ne\",1\n2"), (std::vector<int>{0, 1, 1, 0}));
    EXPECT_EQ(States(kCsv, L"\"\n\"\r\"\r\n\"\n"), (std::vector<int>{0, 1, 0, 1, 0}));
    EXPECT_EQ(States(kCsv, L"\"\n"), (std::vector<int>{0, 1}));
}

TEST(CsvStates, AreNeverInsideQuotesWhenTheQuoteIsTheDelimiter) {
    EXPECT_EQ(States({.mode = SourceMode::Delimited, .delimiter = L'"'}, L"\"a\nb\n"),
              (std::vector<int>{0, 0, 0}));
}

TEST(CsvStates, CountQuotesAcrossTheBlocksOfTheFastPass) {
    for (size_t pad = 60; pad < 70; ++pad) {
        const std::wstring text =
            std::wstring(pad, L'x') + L"\"\n" + std::wstring(pad, L'"') + L"\n";
        EXPECT_EQ(States(kCsv, text), (std::vector<int>{0, 1, pad % 2 == 0 ? 1 : 0})) << pad;
    }
}

// All three

TEST(LineStates, OfAnyTextAgreeWithItsLinesReadOneByOne) {
    static constexpr std::wstring_view kPieces[] = {L"<",
                                                    L"!--",
                                                    L"-->",
                                                    L"![CDATA[",
                                                    L"]]>",
                                                    L"\"",
                                                    L"'",
                                                    L"=",
                                                    L" ",
                                                    L"\t",
                                                    L"\n",
                                                    L"\r\n",
                                                    L"\r",
                                                    L"/*",
                                                    L"*/",
                                                    L"//",
                                                    L"\\",
                                                    L"?",
                                                    L"/",
                                                    L">",
                                                    L"abc",
                                                    L"1",
                                                    L"\x4E2D\x4E2D\x4E2D",
                                                    L"\xD83D\xDE00",
                                                    L"----------",
                                                    std::wstring_view(L"\0", 1)};
    std::mt19937 random(20261121);
    for (int round = 0; round < 2000; ++round) {
        std::wstring text;
        for (size_t piece = random() % 120; piece > 0; --piece) {
            text += kPieces[random() % std::size(kPieces)];
        }
        const LineIndex index = IndexLines(text, 4);
        for (const SourceSyntax& syntax : {kJson, kXml, kCsv}) {
            ASSERT_EQ(ScanLineStates(syntax, text, index.starts),
                      ScanLineStatesPlain(syntax, text, index.starts))
                << static_cast<int>(syntax.mode) << " round " << round;
        }
    }
}

TEST(LineStates, OfAnEmptyTextAreOne) {
    for (const SourceSyntax& syntax : {kJson, kXml, kCsv}) {
        EXPECT_EQ(States(syntax, L""), std::vector<int>{0});
    }
}

TEST(ClassSink, KeepsInsideTheClassesItWasGiven) {
    std::vector<SourceClass> classes(3, SourceClass::Text);
    LexLine(kJson, L"12345", {}, ClassSink(classes));
    EXPECT_EQ(Letters(classes), "nnn");
}

}  // namespace
}  // namespace rl
