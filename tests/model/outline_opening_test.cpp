#include <gtest/gtest.h>

#include <string>

#include "tests/support/outline_text.h"

namespace rl {
namespace {

using test::JsonMode;
using test::JsonOf;
using test::RowNamed;
using test::Shown;
using test::XmlOf;

/// `count` times `item`, with commas between.
std::wstring Repeated(std::wstring_view item, int32_t count) {
    std::wstring text;
    for (int32_t i = 0; i < count; ++i) {
        text += i > 0 ? L"," : L"";
        text += item;
    }
    return text;
}

std::wstring Members(std::wstring_view value, int32_t count) {
    std::wstring text = L"{";
    for (int32_t i = 0; i < count; ++i) {
        text += (i > 0 ? L",\"k" : L"\"k") + std::to_wstring(i) + L"\":";
        text += value;
    }
    return text + L"}";
}

TEST(OutlineOpening, StartsWithTwoLevelsWhateverTheLimit) {
    const auto document = JsonOf(L"[" + Repeated(LR"({"a":1,"b":[2],"c":3})", 200) + L"]");
    const TreeTableView outline(*document, 120);
    EXPECT_EQ(outline.RowCount(), 801);
    EXPECT_EQ(TreeTableView(*document, 1).RowCount(), 801);
}

TEST(OutlineOpening, GainsALevelWithinFourTimesTheLimit) {
    const std::wstring tens = L"[" + Repeated(L"0", 10) + L"]";
    const auto fitting = JsonOf(Members(Members(tens, 3), 10));
    EXPECT_EQ(TreeTableView(*fitting, 120).RowCount(), 341);
    const std::wstring thirties = L"[" + Repeated(L"0", 30) + L"]";
    const auto tooMuch = JsonOf(Members(Members(thirties, 3), 10));
    EXPECT_EQ(TreeTableView(*tooMuch, 120).RowCount(), 41);
}

TEST(OutlineOpening, KeepsALevelOfExactlyFourTimesTheLimit) {
    // 1 + 1 rows at first; the next level brings them to 40, or to 41.
    const auto exact = JsonOf(L"[[[" + Repeated(L"0", 37) + L"]]]");
    EXPECT_EQ(TreeTableView(*exact, 10).RowCount(), 40);
    const auto over = JsonOf(L"[[[" + Repeated(L"0", 38) + L"]]]");
    EXPECT_EQ(TreeTableView(*over, 10).RowCount(), 3);
}

TEST(OutlineOpening, StopsAtTheLimit) {
    const auto document = JsonOf(L"[[[[[[[[1]]]]]]]]");
    EXPECT_EQ(TreeTableView(*document, 5).RowCount(), 5);
    EXPECT_EQ(TreeTableView(*document, 3).RowCount(), 3);
    EXPECT_EQ(TreeTableView(*document, 120).RowCount(), 9);
}

TEST(OutlineOpening, OpensEverythingWithoutALimit) {
    const auto document = JsonOf(L"[[[[[[[[" + Repeated(L"[0]", 1000) + L"]]]]]]]]");
    EXPECT_EQ(TreeTableView(*document, 0).RowCount(), 2008);
    EXPECT_EQ(TreeTableView(*document, -1).RowCount(), 2008);
}

TEST(OutlineOpening, CountsAttributesAndNoTextsAsRowsOfALevel) {
    // Five rows; with <b> open seven: its attribute and <c>.
    const auto document = XmlOf(L"<r><a><b x='1'>t<c/>u</b></a></r>");
    EXPECT_EQ(TreeTableView(*document, 1).RowCount(), 3);
    EXPECT_EQ(TreeTableView(*document, 4).RowCount(), 4);
    EXPECT_EQ(TreeTableView(*document, 5).RowCount(), 6);
}

TEST(OutlineOpening, StartsWithTheElementsOfAnXmlDocument) {
    const auto document = XmlOf(L"<!--c--><r a='1'><b><c/></b></r>");
    EXPECT_EQ(Shown(TreeTableView(*document, 1)), L"-#document\n .#COMMENT=c\n -r\n  .a=1\n  +b\n");
}

TEST(OutlineOpening, OpensAndClosesOneRow) {
    const auto document = JsonOf(LR"({"a":[1,[2]],"b":3})");
    TreeTableView outline(*document, 1);
    EXPECT_EQ(Shown(outline), L"-<<root>>\n -a\n  .[0]=1\n  +[1]\n .b=3\n");
    EXPECT_TRUE(outline.Toggle(3));
    EXPECT_EQ(Shown(outline), L"-<<root>>\n -a\n  .[0]=1\n  -[1]\n   .[0]=2\n .b=3\n");
    EXPECT_TRUE(outline.Toggle(1));
    EXPECT_EQ(Shown(outline), L"-<<root>>\n +a\n .b=3\n");
    EXPECT_TRUE(outline.Toggle(1));  // what was open below it still is
    EXPECT_EQ(Shown(outline), L"-<<root>>\n -a\n  .[0]=1\n  -[1]\n   .[0]=2\n .b=3\n");
    EXPECT_FALSE(outline.Toggle(2));
    EXPECT_TRUE(outline.Toggle(0));
    EXPECT_EQ(Shown(outline), L"+<<root>>\n");
}

TEST(OutlineOpening, NeverOpensAnAttribute) {
    const auto document = XmlOf(L"<r a='1'><b/></r>");
    TreeTableView outline(*document, 1);
    const int32_t attribute = RowNamed(outline, L"a");
    EXPECT_FALSE(outline.Toggle(attribute));
    outline.ExpandSubtree(attribute);
    EXPECT_EQ(Shown(outline), L"-#document\n -r\n  .a=1\n  .b\n");
}

TEST(OutlineOpening, OpensAWholeSubtreeAndNothingBeside) {
    const auto document = JsonOf(LR"([[[[1]],[2]],[[3]]])");
    TreeTableView outline(*document, 1);
    outline.ExpandSubtree(1);
    EXPECT_EQ(Shown(outline),
              L"-<<root>>\n"
              L" -[0]\n"
              L"  -[0]\n"
              L"   -[0]\n"
              L"    .[0]=1\n"
              L"  -[1]\n"
              L"   .[0]=2\n"
              L" -[1]\n"
              L"  +[0]\n");
}

TEST(OutlineOpening, OpensTheSubtreeOfASalvagedRoot) {
    const auto document = JsonOf(L"x [[[1]],[[2]]]", JsonMode::Recover);
    TreeTableView outline(*document, 1);
    outline.ExpandSubtree(0);
    EXPECT_EQ(outline.RowCount(), 7);
}

TEST(OutlineOpening, ClosesAllButTheRoot) {
    const auto document = JsonOf(L"[[[1]],[2]]");
    TreeTableView outline(*document, 0);
    outline.CollapseAll();
    EXPECT_EQ(Shown(outline), L"-<<root>>\n +[0]\n +[1]\n");
    outline.ExpandAll();
    EXPECT_EQ(outline.RowCount(), 6);
    EXPECT_TRUE(outline.Toggle(0));
    outline.CollapseAll();
    EXPECT_EQ(outline.RowCount(), 3);
}

TEST(OutlineOpening, RevealsANodeByOpeningAllAboveIt) {
    const auto document = JsonOf(LR"({"a":[[{"x":1}]],"b":[[2]]})");
    TreeTableView outline(*document, 1);
    outline.CollapseAll();
    const int32_t last = 4;  // the member x
    EXPECT_EQ(outline.RevealNode(last, -1), 4);
    EXPECT_EQ(Shown(outline), L"-<<root>>\n -a\n  -[0]\n   -[0]\n    .x=1\n +b\n");
    EXPECT_EQ(outline.RevealNode(0, -1), 0);
    EXPECT_EQ(outline.RevealNode(-1, -1), -1);
    EXPECT_EQ(outline.RevealNode(99, -1), -1);
}

TEST(OutlineOpening, RevealsAnAttributeByOpeningItsElement) {
    const auto document = XmlOf(L"<r><a><b x='1' y='2'/></a></r>");
    TreeTableView outline(*document, 1);
    outline.CollapseAll();
    EXPECT_EQ(outline.RevealNode(3, -1), 3);
    EXPECT_EQ(Shown(outline), L"-#document\n -r\n  -a\n   +b\n");
    EXPECT_EQ(outline.RevealNode(3, 1), 5);
    EXPECT_EQ(outline.NameText(5), L"y");
    EXPECT_EQ(outline.RevealNode(2, 1), -1);  // it belongs to another element
    EXPECT_EQ(outline.RevealNode(3, 2), -1);
}

TEST(OutlineOpening, RevealsNoText) {
    const auto document = XmlOf(L"<r><a>t<b/></a></r>");
    TreeTableView outline(*document, 1);
    outline.CollapseAll();
    EXPECT_EQ(outline.RevealNode(3, -1), -1);
    EXPECT_GE(RowNamed(outline, L"b"), 0);
}

TEST(OutlineOpening, FindsTheRowOfEachNode) {
    const auto json = JsonOf(LR"({"a":[1,{"b":[]}],"c":[2,3]})");
    const TreeTableView values(*json, 0);
    const auto xml = XmlOf(L"<r a='1' b='2'>t<c d='3'/><!--e--></r>");
    const TreeTableView nodes(*xml, 0);
    for (const TreeTableView* outline : {&values, &nodes}) {
        for (int32_t row = 0; row < outline->RowCount(); ++row) {
            const OutlineRow& shown = outline->Row(row);
            EXPECT_EQ(outline->RowOf(shown.node, shown.IsAttribute() ? shown.aux : -1), row);
        }
        EXPECT_EQ(outline->RowOf(-1, -1), -1);
        EXPECT_EQ(outline->RowOf(outline->NodeCount(), -1), -1);
    }
    EXPECT_EQ(nodes.RowOf(2, -1), -1);  // a text
    EXPECT_EQ(nodes.RowOf(1, 2), -1);   // another element's attribute
}

std::wstring Chain(int32_t count) {
    std::wstring text;
    for (int32_t i = 0; i < count; ++i) {
        text += L"<a>";
    }
    return text + L"<b c='1'/>";
}

TEST(OutlineOpening, GoesDownAMillionLevelsInOnePass) {
    constexpr int32_t kLevels = 1'000'000;
    const auto document = XmlOf(Chain(kLevels));
    TreeTableView outline(*document, kMaxOutlineRows);
    EXPECT_EQ(outline.RowCount(), kLevels + 3);
    outline.CollapseAll();
    EXPECT_EQ(outline.RowCount(), 2);
    EXPECT_EQ(outline.RevealNode(kLevels + 1, 0), kLevels + 2);
    outline.CollapseAll();
    outline.ExpandSubtree(1);
    EXPECT_EQ(outline.RowCount(), kLevels + 3);
    outline.CollapseAll();
    EXPECT_EQ(outline.RevealMatches(L"a"), kLevels + 1);  // the root says "<<malformed>>"
    EXPECT_GE(outline.RowCount(), kLevels + 1);
    outline.SetFilter(0, L"c", [](std::wstring& text) { return text == L"c"; });
    EXPECT_EQ(outline.RowCount(), kLevels + 3);
}

}  // namespace
}  // namespace rl
