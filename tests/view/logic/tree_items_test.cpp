#include "view/logic/tree_items.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

std::wstring Labels(const std::vector<TreeItem>& items) {
    std::wstring all;
    for (const TreeItem& item : items) {
        all.append(item.label).append(item.hasChildren ? L"+ " : L" ");
    }
    return all;
}

TEST(TreeItems, OfXmlAreElementsAndOnlyElementsMakeThemOpen) {
    XmlDocument document;
    ASSERT_TRUE(
        document.Parse(L"<?xml version='1.0'?><!--c--><r><a>text</a><b><c/></b><!--x--></r>"));
    const std::vector<TreeItem> top = TreeItemsBelow(document, -1);
    EXPECT_EQ(Labels(top), L"r+ ");
    EXPECT_EQ(Labels(TreeItemsBelow(document, top.front().node)), L"a b+ ");
}

TEST(TreeItems, PathLeadsFromTheTopElementToTheNode) {
    XmlDocument document;
    ASSERT_TRUE(document.Parse(L"<r><b><c/></b></r>"));
    const int32_t top = TreeItemsBelow(document, -1).front().node;
    const int32_t inner = TreeItemsBelow(document, top).front().node;
    const int32_t deep = TreeItemsBelow(document, inner).front().node;
    EXPECT_EQ(TreePathTo(document, deep), (std::vector<int32_t>{top, inner, deep}));
    EXPECT_EQ(TreePathTo(document, document.root), std::vector<int32_t>{});
    EXPECT_EQ(TreePathTo(document, -1), std::vector<int32_t>{});
}

TEST(TreeItems, OfNothingAreNone) {
    EXPECT_TRUE(TreeItemsBelow(XmlDocument(), -1).empty());
    EXPECT_TRUE(TreeItemsBelow(JsonDocument(), -1).empty());
    EXPECT_TRUE(TreePathTo(JsonDocument(), -1).empty());
}

}  // namespace
}  // namespace rl
