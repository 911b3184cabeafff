#include "model/xml_parser.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace rl {
namespace {

/// One node or attribute a line, as the text shows it: kind letter, name, value.
class Outline {
public:
    explicit Outline(std::wstring_view text) : text_(text), tree_(ParseXml(text).value()) {}

    [[nodiscard]] std::vector<std::wstring> Lines() const {
        std::vector<std::wstring> lines;
        for (size_t i = 1; i < tree_.nodes.size(); ++i) {
            const XmlNode& node = tree_.nodes[i];
            std::wstring line(1, L"DETCSPY"[static_cast<size_t>(node.kind)]);
            line += L' ';
            line += Span(node.nameOffset, node.nameLength);
            line += L'|';
            line += Span(node.valueOffset, node.valueLength);
            for (uint32_t k = 0; k < node.attributeCount; ++k) {
                const XmlAttribute& attribute = tree_.attributes[node.firstAttribute + k];
                line += L' ';
                line += Span(attribute.nameOffset, attribute.nameLength);
                line += static_cast<wchar_t>(attribute.quote);
                line += Span(attribute.valueOffset, attribute.valueLength);
            }
            lines.push_back(line);
        }
        return lines;
    }
    [[nodiscard]] std::wstring Source(size_t node) const {
        return std::wstring(
            text_.substr(tree_.nodes[node].sourceStart,
                         tree_.nodes[node].sourceEnd - tree_.nodes[node].sourceStart));
    }
    [[nodiscard]] const XmlTree& Tree() const { return tree_; }

private:
    [[nodiscard]] std::wstring_view Span(uint32_t offset, uint32_t length) const {
        return text_.substr(offset, length);
    }
    std::wstring_view text_;
    XmlTree tree_;
};

using Lines = std::vector<std::wstring>;

Lines LinesOf(std::wstring_view text) {
    return Outline(text).Lines();
}

bool IsMalformed(std::wstring_view text) {
    return ParseXml(text).value().malformed;
}

TEST(XmlParser, MakesNoNodeForTheDeclarationInAnyCase) {
    for (const std::wstring_view text :
         {L"<?xml version=\"1.0\"?><r/>", L"<?XML version=\"1.0\"?><r/>", L"<?xMl?><r/>"}) {
        EXPECT_EQ(LinesOf(text), Lines{L"E r|"});
    }
}

TEST(XmlParser, ReadsInstructionsWithTargetAndData) {
    EXPECT_EQ(LinesOf(L"<?php x ?>"), Lines{L"P php|x "});
    EXPECT_EQ(LinesOf(L"<?foo?>"), Lines{L"P foo|"});
    EXPECT_EQ(LinesOf(L"<?foo  ?>"), Lines{L"P foo|"});
    EXPECT_EQ(LinesOf(L"<?xml-style a?b>c?>"), Lines{L"P xml-style|a?b>c"});
    EXPECT_EQ(LinesOf(L"<?foo abc"), Lines{L"P foo|a"});
    EXPECT_EQ(LinesOf(L"<?>?>"), Lines{L"P |>"});
    EXPECT_EQ(LinesOf(L"<?"), Lines{L"P |"});
    EXPECT_EQ(LinesOf(L"<?a"), Lines{L"P a|"});
}

TEST(XmlParser, LetsAnUnterminatedSectionLoseItsLastThreeUnits) {
    EXPECT_EQ(LinesOf(L"<!--abcdef"), Lines{L"C |abc"});
    EXPECT_EQ(LinesOf(L"<!--ab"), Lines{L"C |"});
    EXPECT_EQ(LinesOf(L"<!-->"), Lines{L"C |"});
    EXPECT_EQ(LinesOf(L"<!--->-->"), Lines{L"C |->"});
    EXPECT_EQ(LinesOf(L"<!---->"), Lines{L"C |"});
    EXPECT_EQ(LinesOf(L"<![CDATA[abcdef"), Lines{L"S |abc"});
    EXPECT_EQ(LinesOf(L"<![CDATA[]]]>"), Lines{L"S |]"});
}

TEST(XmlParser, FindsTheEndOfADoctypeBehindQuotesAndBrackets) {
    const Outline outline(L"<!DOCTYPE r [<!ENTITY e \"]>\">]><r/>");
    EXPECT_EQ(outline.Lines(), (Lines{L"Y |", L"E r|"}));
    EXPECT_EQ(outline.Source(1), L"<!DOCTYPE r [<!ENTITY e \"]>\">]>");
    EXPECT_EQ(LinesOf(L"<!doctype r><r/>"), Lines{L"E r|"});
    EXPECT_EQ(LinesOf(L"<!DOCTYPE r [ '"), Lines{L"Y |"});
}

TEST(XmlParser, SkipsTextOfBlanksAndKeepsAllOtherTextWhole) {
    EXPECT_EQ(LinesOf(L"<r>\n\t <a/> x\r\n</r> "), (Lines{L"E r|", L"E a|", L"T | x\r\n"}));
    EXPECT_EQ(LinesOf(L"<r>\x00A0</r>"), (Lines{L"E r|", L"T |\x00A0"}));
}

TEST(XmlParser, RecordsOnlyQuotedAttributes) {
    EXPECT_EQ(LinesOf(L"<r a=1 b=\"2\" k d='4'/>"), Lines{L"E r| b\"2 d'4"});
    EXPECT_EQ(LinesOf(L"<r a = '1' b\n=\n\"\"/>"), Lines{L"E r| a'1 b\""});
    EXPECT_EQ(LinesOf(L"<r a='1'b=\"2\">"), Lines{L"E r| a'1 b\"2"});
    EXPECT_EQ(LinesOf(L"<r a==\"1\" b='>'/>"), Lines{L"E r| b'>"});
}

TEST(XmlParser, EndsATagBehindItsQuotesOrWithTheText) {
    EXPECT_EQ(LinesOf(L"<a x='>'>t</a>"), (Lines{L"E a| x'>", L"T |t"}));
    EXPECT_EQ(LinesOf(L"<a x='1>"), Lines{L"E a| x'1>"});
    EXPECT_EQ(LinesOf(L"<a"), Lines{L"E a|"});
    EXPECT_EQ(LinesOf(L"<"), Lines{L"E |"});
}

TEST(XmlParser, GivesALoneLessThanAnEmptyName) {
    EXPECT_EQ(LinesOf(L"<p>a < b</p>"), (Lines{L"E p|", L"T |a ", L"E |"}));
    EXPECT_TRUE(IsMalformed(L"<p>a < b</p>"));
}

TEST(XmlParser, KnowsAnEmptyElementByTheSlashBeforeTheEnd) {
    EXPECT_FALSE(IsMalformed(L"<a/>"));
    EXPECT_FALSE(IsMalformed(L"<a / >"));
    EXPECT_FALSE(IsMalformed(L"<a b=/>"));
    EXPECT_TRUE(IsMalformed(L"<a b='/'>"));
    EXPECT_TRUE(IsMalformed(L"<a/"));
}

TEST(XmlParser, ClosesInnerElementsWithoutAMarkAndKeepsTheirEnds) {
    const Outline outline(L"<a><b></a>");
    EXPECT_FALSE(outline.Tree().malformed);
    EXPECT_EQ(outline.Source(1), L"<a><b></a>");
    EXPECT_EQ(outline.Source(2), L"<b>");
}

TEST(XmlParser, MarksStrayEndTagsAndOpenElements) {
    EXPECT_TRUE(IsMalformed(L"<a></b></a>"));
    EXPECT_TRUE(IsMalformed(L"<a></A></a>"));
    EXPECT_TRUE(IsMalformed(L"</a><a/>"));
    EXPECT_TRUE(IsMalformed(L"<a/></a>"));
    EXPECT_TRUE(IsMalformed(L"<a><b>"));
    EXPECT_EQ(Outline(L"<a><b>text").Source(2), L"<b>text");
    EXPECT_FALSE(IsMalformed(L"<a></ a>"));
    EXPECT_FALSE(IsMalformed(L"<a></a\n>"));
    EXPECT_FALSE(IsMalformed(L"<a></a x='>'><b/>"));
}

TEST(XmlParser, ForgetsTheNamesOfClosedElements) {
    // The first stray end tag makes it count names; "b" is no longer open at the second.
    EXPECT_TRUE(IsMalformed(L"<a><b><c></b></b></a>"));
    EXPECT_FALSE(IsMalformed(L"<a><b><c></b><b><c></b></a>"));
    EXPECT_FALSE(IsMalformed(L"<a><b><b><c></b><d></b></a>"));
}

TEST(XmlParser, LinksParentsChildrenAndSiblings) {
    const XmlTree tree = ParseXml(L"<a><b/>t<c><d/></c></a><!--x-->").value();
    const std::array<int32_t, 7> parents = {-1, 0, 1, 1, 1, 4, 0};
    const std::array<int32_t, 7> firsts = {1, 2, -1, -1, 5, -1, -1};
    const std::array<int32_t, 7> nexts = {-1, 6, 3, 4, -1, -1, -1};
    const std::array<uint32_t, 7> counts = {2, 3, 0, 0, 1, 0, 0};
    ASSERT_EQ(tree.nodes.size(), 7U);
    for (size_t i = 0; i < 7; ++i) {
        EXPECT_EQ(tree.nodes[i].parent, parents.at(i));
        EXPECT_EQ(tree.nodes[i].firstChild, firsts.at(i));
        EXPECT_EQ(tree.nodes[i].nextSibling, nexts.at(i));
        EXPECT_EQ(tree.nodes[i].childCount, counts.at(i));
    }
}

void ExpectNothingWasted(const std::u16string& text) {
    for (const XmlScanKernel kernel :
         {XmlScanKernel::Plain, XmlScanKernel::Sse2, BestXmlScanKernel()}) {
        const XmlTree tree = ParseXml(text, {}, kernel).value();
        EXPECT_EQ(tree.nodes.capacity(), tree.nodes.size());
        EXPECT_EQ(tree.attributes.capacity(), tree.attributes.size());
    }
}

TEST(XmlParser, ReservesOnlyWhatItFills) {
    ExpectNothingWasted(u"<long-name b='1'>x<c/></long-name>");
    ExpectNothingWasted(u"<!DOCTYPE a [ <!ENTITY x '<a>'> ]><a x='1' y=\"2\"/><?p?>");
    ExpectNothingWasted(u"<some><!-- <a b='1'>x</a> --><![CDATA[<a b=\"1\">x</a>]]>text</some>");
    for (size_t blanks = 0; blanks < 140; ++blanks) {
        const std::u16string gap(blanks, u' ');
        ExpectNothingWasted(u"<root>" + gap + u"<a x='1'>" + gap + u"text" + gap + u"</a>" + gap +
                            u"<!--c-->" + gap + u"<b y=" + gap + u"\"2\"/>" + gap + u"\u0444" +
                            gap + u"</root>" + gap);
    }
}

TEST(XmlParser, ReservesOnlyWhatItFillsInLongTexts) {
    std::u16string text = u"<r>";
    while (text.size() < 5'000'000) {
        text += u"<item a='1' b=\"2\">  text <!-- note --> \n</item>  \n";
    }
    ExpectNothingWasted(text + u"</r>");
}

TEST(XmlParser, ReservesNoGigabytesForTextsThatOnlyLookLikeMarkup) {
    const std::u16string text = u"<a/>" + std::u16string(100'000, u'<');
    const XmlTree tree = ParseXml(text).value();
    EXPECT_EQ(tree.nodes.size(), 3U);
    EXPECT_EQ(tree.nodes.capacity(), 3U);
}

TEST(XmlParser, AsksWhetherItIsStillWantedAndStops) {
    std::wstring text = L"<r>";
    while (text.size() < 8'000'000) {
        text += L"<a/>";
    }
    int asked = 0;
    EXPECT_FALSE(ParseXml(text, [&asked] { return ++asked == 3; }).has_value());
    EXPECT_EQ(asked, 3);
    EXPECT_FALSE(ParseXml(text, [&asked] { return ++asked == 9; }).has_value());
    EXPECT_TRUE(ParseXml(text, [] { return false; }).has_value());
}

// --- texts made to hurt

std::wstring Repeated(std::wstring_view piece, size_t count) {
    std::wstring text;
    text.reserve(piece.size() * count);
    for (size_t i = 0; i < count; ++i) {
        text += piece;
    }
    return text;
}

TEST(XmlParser, NestsAMillionElements) {
    const std::wstring text = Repeated(L"<a>", 1'000'000) + Repeated(L"</a>", 1'000'000);
    const XmlTree tree = ParseXml(text).value();
    EXPECT_FALSE(tree.malformed);
    ASSERT_EQ(tree.nodes.size(), 1'000'001U);
    EXPECT_EQ(tree.nodes.back().parent, 999'999);
    EXPECT_EQ(tree.nodes[1].sourceEnd, text.size());
}

TEST(XmlParser, NeverSearchesTheWholeStackForStrayEndTags) {
    const XmlTree tree = ParseXml(Repeated(L"<a>", 300'000) + Repeated(L"</b>", 300'000)).value();
    EXPECT_TRUE(tree.malformed);
    EXPECT_EQ(tree.nodes.size(), 300'001U);
    std::wstring mixed = Repeated(L"<a>", 300'000);
    mixed += Repeated(L"<b></c></b></b>", 100'000);
    EXPECT_EQ(ParseXml(mixed).value().nodes.size(), 400'001U);
}

TEST(XmlParser, EndsInTimeWhateverIsLeftOpen) {
    const std::array<std::wstring_view, 14> pieces = {
        L"<",   L"<!--",  L"<![CDATA[", L"<?",     L"<!DOCTYPE [", L"<a '", L"<a b=\"",
        L"</a", L"</a '", L"<a b=c ",   L"<!-- >", L"<?a>",        L"<a /", L"<!\"'"};
    for (const std::wstring_view piece : pieces) {
        const std::wstring text = L"<r>" + Repeated(piece, 200'000);
        EXPECT_EQ(ParseXml(text).value().nodes[0].sourceEnd, text.size());
    }
}

TEST(XmlParser, ReadsAHundredThousandAttributes) {
    std::wstring text = L"<r";
    for (int i = 0; i < 100'000; ++i) {
        text += L" a" + std::to_wstring(i) + L"='1'";
    }
    EXPECT_EQ(ParseXml(text + L"/>").value().attributes.size(), 100'000U);
    EXPECT_EQ(ParseXml(text + L" odd/>").value().attributes.size(), 100'000U);
}

// --- the fast kernel

void ExpectKernelsAgree(const std::u16string& text) {
    const XmlTree plain = ParseXml(text, {}, XmlScanKernel::Plain).value();
    EXPECT_TRUE(ParseXml(text, {}, XmlScanKernel::Sse2).value() == plain);
    EXPECT_TRUE(ParseXml(text).value() == plain);
    EXPECT_TRUE(ParseXml(std::wstring(text.begin(), text.end())).value() == plain);
}

TEST(XmlScanKernels, FindTheSameInTextsOfMarks) {
    constexpr std::u16string_view kUnits = u"<<<>>>//!?-[]='\"\"'  \nabA:\u013C\u223E\xD83D";
    uint32_t random = 12345;
    for (int round = 0; round < 3000; ++round) {
        std::u16string text;
        for (int i = 0; i < 5 + round % 90; ++i) {
            random = random * 1664525 + 1013904223;
            text += kUnits[(random >> 16) % kUnits.size()];
        }
        ExpectKernelsAgree(text);
    }
}

TEST(XmlScanKernels, FindTheSameInLongRuns) {
    for (size_t length = 0; length < 40; ++length) {
        const std::u16string run(length, u'x');
        ExpectKernelsAgree(u"<a b=\"" + run + u"\" c='" + run + u"'>" + run + u"</a>" + run +
                           u"<!--" + run + u"--><?p " + run + u"?><x " + run + u"\"" + run);
    }
}

// Each of these looks nearly regular to somebody who only sees marks.
constexpr std::array<std::u16string_view, 47> kOddPieces = {
    u"<a  \"b>",
    u"<a b'c=\"1\"><d e='f'>",
    u"<a b=\"1\" 'c><d e='f'>",
    u"<a 'b>c='d'>",
    u"<a \"b>c=\"d\">",
    u"<a b='\"'>",
    u"<a b=\"'\">",
    u"<a b='1' c=\"2\">",
    u"<a b=\"1\" c='2'>",
    u"<a b='><'>",
    u"<a b=\"><\">",
    u"<a  \"b\">",
    u"<a \"b\">",
    u"<a\"b\">",
    u"<a'b'>",
    u"<a=\"b\">",
    u"<a =\"b\">",
    u"<a b =\"c\">",
    u"<a b= \"c\">",
    u"<a b=c>",
    u"<a b=\"c\"d=\"e\">",
    u"<a b=\"c\"\"d\">",
    u"<a b=\"c\"/ >",
    u"<a b=\"c\" / >",
    u"<a / b=\"c\">",
    u"<a/b=\"c\">",
    u"<a/ >",
    u"<a/>",
    u"<a />",
    u"<a = >",
    u"<a =/>",
    u"< a>",
    u"<>",
    u"<\"a\">",
    u"</ a>",
    u"</a >",
    u"</a b=\">\">",
    u"</a'b'>",
    u"</>",
    u"</a/b>",
    u"<!-- > < \" -->",
    u"<!-- < ' -->",
    u"<![CDATA[ > ' \" ]]>",
    u"<? > < ?>",
    u"a > b",
    u"\v \" ' / =",
    u"<\u013C \u223E=\"\u2F3C\">",
};

/// Regular markup of all kinds, which the odd piece must not disturb, nor be disturbed by.
std::u16string Framed(std::u16string_view piece, size_t gap) {
    std::u16string text = u"<r>" + std::u16string(gap, gap % 2 == 0 ? u' ' : u'x');
    text += piece;
    for (int i = 0; i < 12; ++i) {
        text += u" <b c=\"1\" d=\"two three\">four</b>\n <e/> five <f g=\"/=\"/>";
    }
    return text + u"</r>";
}

TEST(XmlScanKernels, FindTheSameAroundOddPieces) {
    for (const std::u16string_view piece : kOddPieces) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(piece)));
        for (size_t gap = 0; gap < 70; ++gap) {
            ExpectKernelsAgree(Framed(piece, gap));
        }
    }
}

TEST(XmlScanKernels, FindTheSameBeforeNothingButText) {
    for (const std::u16string_view piece : kOddPieces) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(piece)));
        ExpectKernelsAgree(u"<r>" + std::u16string(piece) + std::u16string(300, u'x'));
    }
}

TEST(XmlScanKernels, FindTheSameInMixedPieces) {
    uint32_t random = 2024;
    for (int round = 0; round < 1500; ++round) {
        std::u16string text;
        while (text.size() < static_cast<size_t>(100 + round * 3)) {
            random = random * 1664525 + 1013904223;
            const uint32_t die = random >> 12;
            text += die % 8 == 0   ? kOddPieces.at((die >> 3) % kOddPieces.size())
                    : die % 2 == 0 ? std::u16string_view(u"<b c=\"1\">text</b> ")
                                   : std::u16string_view(u"\n  <e f='2' g='h i'/>");
        }
        ExpectKernelsAgree(text);
    }
}

}  // namespace
}  // namespace rl
