#include "view/logic/tree_items.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

/// The labels of some nodes in order; "+" behind those that open.
std::wstring Labels(const TreeItems& items, const std::vector<int32_t>& nodes) {
    std::wstring all;
    for (size_t i = 0; i < nodes.size(); ++i) {
        all.append(items.Label(nodes[i], static_cast<int32_t>(i)));
        all.append(items.HasChildren(nodes[i]) ? L"+ " : L" ");
    }
    return all;
}

TEST(TreeItems, OfXmlAreElementsAndOnlyElementsLetThemOpen) {
    XmlDocument document;
    ASSERT_TRUE(
        document.Parse(L"<?xml version='1.0'?><!--c--><r><a>text</a><b><c/></b><!--x--></r>"));
    const TreeItems items(document);
    ASSERT_EQ(Labels(items, items.TopNodes()), L"r+ ");
    EXPECT_EQ(Labels(items, items.Children(items.TopNodes().front())), L"a b+ ");
}

TEST(TreeItems, OfXmlListEveryElementAtTheTop) {
    XmlDocument document;
    ASSERT_TRUE(document.Parse(L"<a/><b/>"));
    const TreeItems items(document);
    EXPECT_EQ(Labels(items, items.TopNodes()), L"a b ");
}

TEST(TreeItems, OfJsonAreMembersByKeyAndElementsByPosition) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"{\"k\\u0041\": [10, {}, [1]], \"\": null}", false, false));
    const TreeItems items(document);
    ASSERT_EQ(Labels(items, items.TopNodes()), L"<<root>>+ ");
    const std::vector<int32_t> members = items.Children(items.TopNodes().front());
    ASSERT_EQ(Labels(items, members), L"kA+  ");
    EXPECT_EQ(Labels(items, items.Children(members.front())), L"[0] [1] [2]+ ");
}

TEST(TreeItems, MarkASalvagedDocument) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"{\"a\": 1} } {\"b\": 2} ]", false, true));
    ASSERT_TRUE(document.salvaged);
    const TreeItems items(document);
    EXPECT_EQ(items.Label(items.TopNodes().front(), 0), L"<<malformed>>");
}

TEST(TreeItems, PathLeadsFromTheTopToTheNode) {
    XmlDocument document;
    ASSERT_TRUE(document.Parse(L"<r><b><c/>text</b></r>"));
    const TreeItems items(document);
    const int32_t top = items.TopNodes().front();
    const int32_t inner = items.Children(top).front();
    const int32_t deep = items.Children(inner).front();
    EXPECT_EQ(items.PathTo(deep), (std::vector<int32_t>{top, inner, deep}));
    EXPECT_EQ(items.PathTo(top), std::vector<int32_t>{top});
}

TEST(TreeItems, PathToWhatIsNeverListedIsEmpty) {
    XmlDocument document;
    ASSERT_TRUE(document.Parse(L"<r>text</r>"));
    const TreeItems items(document);
    EXPECT_TRUE(items.PathTo(document.root).empty());
    EXPECT_TRUE(items.PathTo(-1).empty());
    EXPECT_TRUE(items.PathTo(document.nodes[1].firstChild).empty());
}

TEST(TreeItems, OfNothingAreNone) {
    EXPECT_TRUE(TreeItems().TopNodes().empty());
    const XmlDocument none;
    EXPECT_TRUE(TreeItems(none).TopNodes().empty());
}

}  // namespace
}  // namespace rl
