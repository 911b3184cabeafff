#include "model/node_paths.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/outline_text.h"

namespace rl {
namespace {

using test::JsonMode;
using test::JsonOf;
using test::XmlOf;

/// The path of the last node, both ways of asking for it.
std::wstring LastPath(const std::wstring& text) {
    const auto document = JsonOf(text);
    const auto last = static_cast<int32_t>(document->nodes.size()) - 1;
    EXPECT_EQ(JsonPaths(*document).Of(last), JsonPathOf(*document, last));
    return JsonPathOf(*document, last);
}

TEST(JsonPath, LeadsThroughKeysAndPositions) {
    EXPECT_EQ(LastPath(LR"({"a":{"b c":[1,2]}})"), L"$.a['b c'][1]");
    EXPECT_EQ(LastPath(L"[]"), L"$");
    EXPECT_EQ(LastPath(L"[0,[1,2,[3]]]"), L"$[1][2][0]");
}

TEST(JsonPath, QuotesKeysThatAreNoIdentifiers) {
    EXPECT_EQ(LastPath(LR"({"it's":1})"), L"$['it\\'s']");
    EXPECT_EQ(LastPath(LR"({"a\\b":1})"), L"$['a\\\\b']");
    EXPECT_EQ(LastPath(LR"({"_x1":1})"), L"$._x1");
    EXPECT_EQ(LastPath(LR"({"1x":1})"), L"$['1x']");
    EXPECT_EQ(LastPath(LR"({"":1})"), L"$['']");
    EXPECT_EQ(LastPath(LR"({"a-b":1})"), L"$['a-b']");
    EXPECT_EQ(LastPath(LR"({"a.b":1})"), L"$['a.b']");
    EXPECT_EQ(LastPath(L"{\"\\u00e9t\\u00e9\":1}"), L"$.\x00E9t\x00E9");
    EXPECT_EQ(LastPath(L"{\"\xD83D\xDE00\":1}"), L"$['\xD83D\xDE00']");
    EXPECT_EQ(LastPath(L"{\"a\\tb\":1}"), L"$['a\tb']");
}

TEST(JsonPath, StartsAtTheRootOfLinesAndOfSalvagedDocuments) {
    const auto lines = JsonOf(L"1\n{\"a\":2}\n", JsonMode::Lines);
    EXPECT_EQ(JsonPathOf(*lines, 3), L"$[1].a");
    const auto one = JsonOf(L"x {\"a\":2}", JsonMode::Recover);
    EXPECT_EQ(JsonPathOf(*one, 1), L"$");
    EXPECT_EQ(JsonPathOf(*one, 2), L"$.a");
}

TEST(JsonPath, IsTheSameForManyNodesAsForEach) {
    const auto document = JsonOf(LR"({"a":[1,[2,{"b":[3,4]}],5],"c":[6]})");
    JsonPaths paths(*document);
    for (auto node = static_cast<int32_t>(document->nodes.size()) - 1; node >= 0; --node) {
        EXPECT_EQ(paths.Of(node), JsonPathOf(*document, node));
    }
}

TEST(XPath, CountsOnlySiblingsOfTheSameName) {
    const auto document =
        XmlOf(L"<r><item/>t<item/><name/><!--c--><item><item/></item><Item/></r>");
    EXPECT_EQ(XPathOf(*document, 0), L"");
    EXPECT_EQ(XPathOf(*document, 1), L"/r");
    EXPECT_EQ(XPathOf(*document, 2), L"/r/item[1]");
    EXPECT_EQ(XPathOf(*document, 4), L"/r/item[2]");
    EXPECT_EQ(XPathOf(*document, 5), L"/r/name");
    EXPECT_EQ(XPathOf(*document, 7), L"/r/item[3]");
    EXPECT_EQ(XPathOf(*document, 8), L"/r/item[3]/item");
    EXPECT_EQ(XPathOf(*document, 9), L"/r/Item");
}

TEST(XPath, NamesTextsAndLeavesOutWhatHasNoName) {
    const auto document =
        XmlOf(L"<!DOCTYPE a><!--x--><?p?><a>hi<b/>ho<!--c--><![CDATA[d]]><?q?></a>");
    EXPECT_EQ(XPathOf(*document, 1), L"");
    EXPECT_EQ(XPathOf(*document, 2), L"");
    EXPECT_EQ(XPathOf(*document, 3), L"");
    EXPECT_EQ(XPathOf(*document, 5), L"/a/text()");
    EXPECT_EQ(XPathOf(*document, 7), L"/a/text()");
    for (int32_t node = 8; node < 11; ++node) {
        EXPECT_EQ(XPathOf(*document, node), L"/a") << node;
    }
}

TEST(XPath, ReachesAttributes) {
    const auto document = XmlOf(L"<r id='1'><s/><s x:y='2'/></r>");
    EXPECT_EQ(XPathOfAttribute(*document, 1, 0), L"/r/@id");
    EXPECT_EQ(XPathOfAttribute(*document, 3, 1), L"/r/s[2]/@x:y");
    EXPECT_EQ(XmlPaths(*document).OfAttribute(3, 1), L"/r/s[2]/@x:y");
}

TEST(XPath, CountsTopElementsToo) {
    const auto document = XmlOf(L"<r/><s/><r/>");
    EXPECT_EQ(XPathOf(*document, 1), L"/r[1]");
    EXPECT_EQ(XPathOf(*document, 2), L"/s");
    EXPECT_EQ(XPathOf(*document, 3), L"/r[2]");
}

TEST(XPath, IsTheSameForManyNodesAsForEach) {
    const auto document = XmlOf(L"<r><a/><b/>t<a><a/><c/><c/></a><!--d--><b>u</b><e/></r>");
    XmlPaths paths(*document);
    for (auto node = static_cast<int32_t>(document->nodes.size()) - 1; node >= 0; --node) {
        EXPECT_EQ(paths.Of(node), XPathOf(*document, node));
    }
}

}  // namespace
}  // namespace rl
