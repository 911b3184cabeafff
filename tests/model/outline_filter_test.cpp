#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/support/outline_text.h"

namespace rl {
namespace {

using test::JsonMode;
using test::JsonOf;
using test::RowNamed;
using test::Shown;
using test::XmlOf;

OutlineFilter Contains(std::wstring wanted) {
    return [wanted = std::move(wanted)](std::wstring& text) {
        return text.find(wanted) != std::wstring::npos;
    };
}

void Filter(TreeTableView& outline, int32_t column, const std::wstring& wanted) {
    outline.SetFilter(column, wanted, Contains(wanted));
}

TEST(OutlineFilter, ListsMatchesWithAllAboveThemOpened) {
    const auto document = JsonOf(LR"({"a":{"b":[{"wanted":1},2]},"c":[3]})");
    TreeTableView outline(*document, 1);
    outline.CollapseAll();
    Filter(outline, 0, L"wanted");
    EXPECT_EQ(Shown(outline), L"-<<root>>\n -a\n  -b\n   -[0]\n    .wanted=1\n");
    EXPECT_EQ(outline.FilterText(0), L"wanted");
    EXPECT_EQ(outline.FilterText(1), L"");
    EXPECT_EQ(outline.FilterText(2), L"");
}

TEST(OutlineFilter, KeepsThePositionsOfElementsInTheirArrays) {
    const auto document = JsonOf(LR"([10,[0,21],"x",[31]])");
    TreeTableView outline(*document, 0);
    Filter(outline, 1, L"1");
    EXPECT_EQ(Shown(outline), L"-<<root>>\n .[0]=10\n -[1]\n  .[1]=21\n -[3]\n  .[0]=31\n");
    EXPECT_EQ(outline.Row(3).aux, 1);
    Filter(outline, 0, L"[3]");
    EXPECT_EQ(outline.RowCount(), 0);
    Filter(outline, 1, L"");
    EXPECT_EQ(Shown(outline), L"-<<root>>\n -[3]\n");
}

TEST(OutlineFilter, WantsNameAndValueOfTheSameNode) {
    const auto document = JsonOf(LR"([{"a":"x"},{"a":"y"},{"b":"x"}])");
    TreeTableView outline(*document, 0);
    Filter(outline, 0, L"a");
    Filter(outline, 1, L"x");
    EXPECT_EQ(Shown(outline), L"-<<root>>\n -[0]\n  .a=x\n");
    Filter(outline, 0, L"");
    EXPECT_EQ(Shown(outline), L"-<<root>>\n -[0]\n  .a=x\n -[2]\n  .b=x\n");
}

TEST(OutlineFilter, ListsNothingWithoutAMatch) {
    const auto document = JsonOf(LR"({"a":1})");
    TreeTableView outline(*document, 0);
    Filter(outline, 0, L"nowhere");
    EXPECT_EQ(outline.RowCount(), 0);
    EXPECT_FALSE(outline.Toggle(0));
    EXPECT_EQ(outline.RevealNode(1, -1), -1);
    Filter(outline, 0, L"");
    EXPECT_EQ(outline.RowCount(), 2);
}

TEST(OutlineFilter, TestsAttributesByThemselves) {
    const auto document =
        XmlOf(L"<r><i id='1' n='x'>v</i><i id='2' n='y'>x</i><j id='x'><k/></j></r>");
    TreeTableView outline(*document, 1);
    outline.CollapseAll();
    Filter(outline, 1, L"x");
    EXPECT_EQ(Shown(outline),
              L"-#document\n"
              L" -r\n"
              L"  -i=v\n"
              L"   .n=x\n"
              L"  +i=x\n"
              L"  -j\n"
              L"   .id=x\n");
    Filter(outline, 0, L"id");
    EXPECT_EQ(Shown(outline), L"-#document\n -r\n  -j\n   .id=x\n");
    EXPECT_EQ(outline.RevealNode(2, 1), -1);
    EXPECT_EQ(outline.RowOf(outline.Row(3).node, outline.Row(3).aux), 3);
}

TEST(OutlineFilter, NeverListsTexts) {
    const auto document = XmlOf(L"<r>wanted<b/>wanted</r>");
    TreeTableView outline(*document, 0);
    Filter(outline, 1, L"wanted");
    EXPECT_EQ(outline.RowCount(), 0);
    Filter(outline, 1, L"");
    Filter(outline, 0, L"#TEXT");
    EXPECT_EQ(outline.RowCount(), 0);
}

TEST(OutlineFilter, TestsTheTextsThatAreShown) {
    const auto json = JsonOf(L"[\"a\\n\\tb\",\"a\\u0020b\"]");
    TreeTableView values(*json, 0);
    values.SetFilter(1, L"=a b", [](std::wstring& text) { return text == L"a b"; });
    EXPECT_EQ(values.RowCount(), 3);
    const auto xml = XmlOf(L"<r a='1\r\n2'>x&amp;\ny</r>");
    TreeTableView nodes(*xml, 0);
    nodes.SetFilter(1, L"1 2", [](std::wstring& text) { return text == L"1 2"; });
    EXPECT_EQ(Shown(nodes), L"-#document\n -r=x& y\n  .a=1 2\n");
    nodes.SetFilter(1, L"x& y", [](std::wstring& text) { return text == L"x& y"; });
    EXPECT_EQ(Shown(nodes), L"-#document\n -r=x& y\n");
}

TEST(OutlineFilter, SearchesTextsWhereTheyStandWithTheSameAnswer) {
    const auto json = JsonOf(
        L"{\"a\":\"x long enough for eight and more z\",\"b\":\"x\\u007a\",\"xz\":[[],{}],"
        L"\"c\":\"x\nz\",\"d\":\"x\tz\",\"e\":123456789,\"f\":[true,\"trux\",null],\"g\":\"\","
        L"\"h\":\"\\\\ 9z\",\"z9\":-9}");
    const auto xml = XmlOf(
        L"<r a='xz' b='x&#122;' c='x\nz'><e>x z</e><f>x&#122;</f><g>x<![CDATA[z]]></g>"
        L"<h>x\nz</h><i/><j>x<k/>z</j></r>");
    for (const std::wstring wanted :
         {L"z", L"x z", L"xz", L"9", L"tru", L"&", L"\\", L"122", L"u007a", L"\"", L"-9", L"n"}) {
        const auto rowsOf = [&](TreeTableView outline, bool fast) {
            OutlineSearch search;
            if (fast) {
                search = [wanted](std::wstring_view text, size_t from) {
                    return text.find(wanted, from);
                };
            }
            outline.SetFilter(1, wanted, Contains(wanted), std::move(search));
            std::wstring all;
            for (int32_t row = 0; row < outline.RowCount(); ++row) {
                all += outline.NameText(row) + L"=" + outline.ValueText(row) + L";";
            }
            return all;
        };
        EXPECT_EQ(rowsOf(TreeTableView(*json, 0), true), rowsOf(TreeTableView(*json, 0), false));
        EXPECT_EQ(rowsOf(TreeTableView(*xml, 0), true), rowsOf(TreeTableView(*xml, 0), false));
    }
}

TEST(OutlineFilter, TestsEditedValues) {
    const auto document = JsonOf(LR"({"a":"old"})");
    TreeTableView outline(*document, 0);
    ASSERT_TRUE(document->SetValue(1, L"new"));
    Filter(outline, 1, L"new");
    EXPECT_EQ(outline.RowCount(), 2);
    Filter(outline, 1, L"old");
    EXPECT_EQ(outline.RowCount(), 0);
}

TEST(OutlineFilter, MayChangeTheTextItIsGiven) {
    const auto document = JsonOf(LR"(["Abc","xyz"])");
    TreeTableView outline(*document, 0);
    outline.SetFilter(1, L"q", [](std::wstring& text) {
        const bool passes = text.starts_with(L'A');
        text.assign(1000, L'?');
        return passes;
    });
    EXPECT_EQ(Shown(outline), L"-<<root>>\n .[0]=Abc\n");
}

TEST(OutlineFilter, BringsBackWhatWasOpenBeforeTheFirstOne) {
    const auto document = JsonOf(LR"([{"a":[1]},{"a":[2]},{"b":[[3]]}])");
    TreeTableView outline(*document, 1);
    ASSERT_TRUE(outline.Toggle(RowNamed(outline, L"[1]")));
    const std::wstring before = Shown(outline);
    Filter(outline, 1, L"2");
    EXPECT_EQ(Shown(outline), L"-<<root>>\n -[1]\n  -a\n   .[0]=2\n");
    Filter(outline, 0, L"[0]");
    ASSERT_TRUE(outline.Toggle(0));
    outline.ExpandAll();
    Filter(outline, 1, L"3");
    EXPECT_EQ(Shown(outline), L"-<<root>>\n -[2]\n  -b\n   -[0]\n    .[0]=3\n");
    Filter(outline, 1, L"");
    Filter(outline, 0, L"");
    EXPECT_EQ(Shown(outline), before);
    Filter(outline, 0, L"");
    EXPECT_EQ(Shown(outline), before);
}

TEST(OutlineFilter, LetsItsRowsBeClosedAndOpened) {
    const auto document = JsonOf(LR"({"a":{"x":1},"b":{"x":2,"y":3}})");
    TreeTableView outline(*document, 0);
    Filter(outline, 0, L"x");
    const std::wstring filtered = L"-<<root>>\n -a\n  .x=1\n -b\n  .x=2\n";
    EXPECT_EQ(Shown(outline), filtered);
    ASSERT_TRUE(outline.Toggle(1));
    EXPECT_EQ(Shown(outline), L"-<<root>>\n +a\n -b\n  .x=2\n");
    Filter(outline, 0, L"x");  // every match is seen again
    EXPECT_EQ(Shown(outline), filtered);
    outline.CollapseAll();
    EXPECT_EQ(Shown(outline), L"-<<root>>\n +a\n +b\n");
    outline.OpenLevelsToFit(100);
    EXPECT_EQ(Shown(outline), filtered);
}

TEST(OutlineFilter, IgnoresColumnsThatAreNotThere) {
    const auto document = JsonOf(L"[1]");
    TreeTableView outline(*document, 0);
    Filter(outline, 2, L"x");
    Filter(outline, -1, L"x");
    EXPECT_EQ(outline.RowCount(), 2);
}

TEST(OutlineFilter, PassesOverTheUnusedNodeOfASalvagedDocument) {
    const auto document = JsonOf(L"x {\"a\":[1,2]}", JsonMode::Recover);
    TreeTableView outline(*document, 0);
    Filter(outline, 1, L"2");
    EXPECT_EQ(Shown(outline), L"-<<malformed>>\n -a\n  .[1]=2\n");
    EXPECT_EQ(outline.RevealNode(0, -1), -1);
}

TEST(OutlineReveal, FindsNamesAndValuesInAnyCase) {
    const auto document = JsonOf(LR"({"a":{"Key":1},"b":[["KEY"]],"c":{"x":2}})");
    TreeTableView outline(*document, 1);
    outline.CollapseAll();
    EXPECT_EQ(outline.RevealMatches(L"kEy"), 2);
    EXPECT_EQ(Shown(outline), L"-<<root>>\n -a\n  .Key=1\n -b\n  -[0]\n   .[0]=KEY\n +c\n");
    EXPECT_EQ(outline.RevealMatches(L""), 0);
    EXPECT_EQ(outline.RevealMatches(L"nowhere"), 0);
}

TEST(OutlineReveal, CountsANodeOnceHoweverOftenItMatches) {
    const auto document = JsonOf(LR"({"aa":"aa a"})");
    TreeTableView outline(*document, 0);
    EXPECT_EQ(outline.RevealMatches(L"a"), 1);
    EXPECT_EQ(outline.RevealMatches(L"root"), 1);
}

TEST(OutlineReveal, FindsThePositionsOfElements) {
    const auto document = JsonOf(LR"([[0,0],[0]])");
    TreeTableView outline(*document, 1);
    outline.CollapseAll();
    EXPECT_EQ(outline.RevealMatches(L"[1]"), 2);
    EXPECT_EQ(Shown(outline), L"-<<root>>\n -[0]\n  .[0]=0\n  .[1]=0\n +[1]\n");
}

TEST(OutlineReveal, OpensElementsThatMatchThroughAnAttribute) {
    const auto document = XmlOf(L"<r><i Id='7'>t</i><i><j name='seVen'/></i><i x='1'/></r>");
    TreeTableView outline(*document, 1);
    outline.CollapseAll();
    EXPECT_EQ(outline.RevealMatches(L"ID"), 1);
    EXPECT_EQ(Shown(outline), L"-#document\n -r\n  -i=t\n   .Id=7\n  +i\n  +i\n");
    outline.CollapseAll();
    EXPECT_EQ(outline.RevealMatches(L"seven"), 1);
    EXPECT_EQ(Shown(outline), L"-#document\n -r\n  +i=t\n  -i\n   -j\n    .name=seVen\n  +i\n");
}

TEST(OutlineReveal, OpensMatchingElementsThatHoldMoreThanText) {
    const auto document = XmlOf(L"<r><hit><k/></hit><hit a='1'/><hit>t</hit></r>");
    TreeTableView outline(*document, 1);
    outline.CollapseAll();
    EXPECT_EQ(outline.RevealMatches(L"hit"), 3);
    EXPECT_EQ(Shown(outline), L"-#document\n -r\n  -hit\n   .k\n  +hit\n  .hit=t\n");
}

TEST(OutlineReveal, FindsNothingAcrossTwoTexts) {
    const auto document = JsonOf(LR"({"ab":"cd","ef":"gh"})");
    TreeTableView outline(*document, 0);
    for (const wchar_t* text : {L"abcd", L"bc", L"de", L"cdef"}) {
        EXPECT_EQ(outline.RevealMatches(text), 0) << text;
    }
    EXPECT_EQ(outline.RevealMatches(std::wstring(L"b\0c", 3)), 0);
    EXPECT_EQ(outline.RevealMatches(std::wstring(L"\0", 1)), 0);
}

TEST(OutlineReveal, FindsTheSameAmongVeryManyTexts) {
    std::wstring text = L"[";
    for (int32_t i = 0; i < 50'000; ++i) {
        text += L"\"word " + std::to_wstring(i) + L"\",";
    }
    const auto document = JsonOf(text + L"\"" + std::wstring(200'000, L'x') + L"end\"]");
    TreeTableView outline(*document, 0);
    EXPECT_EQ(outline.RevealMatches(L"WORD"), 50'000);
    EXPECT_EQ(outline.RevealMatches(L"word 49999"), 1);
    EXPECT_EQ(outline.RevealMatches(L"xEnd"), 1);
}

}  // namespace
}  // namespace rl
