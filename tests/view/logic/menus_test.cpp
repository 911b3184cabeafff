#include "view/logic/menus.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace rl {
namespace {

// 0 for a separator, 1 for a submenu.
std::vector<uint32_t> Shape(MenuId menu) {
    std::vector<uint32_t> shape;
    for (const MenuRow& row : MenuRows(menu)) {
        shape.push_back(row.kind == MenuRowKind::Item      ? static_cast<uint32_t>(row.command)
                        : row.kind == MenuRowKind::Submenu ? 1U
                                                           : 0U);
    }
    return shape;
}

using Ids = std::vector<uint32_t>;

TEST(Menus, HoldTheContextMenuInItsOrder) {
    EXPECT_EQ(Shape(MenuId::Context),
              (Ids{5000, 5001, 5002, 1,    5034, 5007, 5042, 0, 5008, 5009, 0, 5003, 5070, 5004,
                   5040, 5041, 0,    5050, 5053, 5051, 5052, 0, 5043, 5006, 1, 5071, 5072}));
    EXPECT_EQ(MenuRows(MenuId::Context)[3].title, L"Copy node as");
    EXPECT_EQ(MenuRows(MenuId::Context)[3].submenu, MenuId::CopyNode);
    EXPECT_EQ(MenuRows(MenuId::Context)[24].title, L"Theme");
    EXPECT_EQ(MenuRows(MenuId::Context)[24].submenu, MenuId::Theme);
}

TEST(Menus, HoldTheSubmenusAndPopups) {
    EXPECT_EQ(Shape(MenuId::CopyNode), (Ids{5060, 5061, 0, 5062}));
    EXPECT_EQ(Shape(MenuId::Theme), (Ids{5100, 5101, 5102, 5103, 5104}));
    EXPECT_EQ(Shape(MenuId::Encoding), (Ids{5010, 5011, 5012, 5013}));
    EXPECT_EQ(Shape(MenuId::Delimiter), (Ids{5025, 5020, 5021, 5022, 5023, 5024}));
    EXPECT_EQ(Shape(MenuId::Comments), (Ids{5033, 5030, 5031, 5032}));
}

TEST(Menus, HoldEveryCommandExactlyOnce) {
    Ids ids;
    for (const MenuId menu : {MenuId::Context, MenuId::CopyNode, MenuId::Theme, MenuId::Encoding,
                              MenuId::Delimiter, MenuId::Comments}) {
        for (const uint32_t id : Shape(menu)) {
            if (id > 1) {
                ids.push_back(id);
                EXPECT_NE(FindCommand(id), nullptr) << id;
            }
        }
    }
    std::sort(ids.begin(), ids.end());
    EXPECT_EQ(std::adjacent_find(ids.begin(), ids.end()), ids.end());
    EXPECT_EQ(ids.size(), AllCommands().size());
}

TEST(Menus, OpenTheCopySubmenuForTreesOnly) {
    EXPECT_FALSE(IsMenuEnabled(MenuId::CopyNode, {.kind = DocumentKind::Csv}));
    EXPECT_TRUE(IsMenuEnabled(MenuId::CopyNode, {.kind = DocumentKind::Json}));
    EXPECT_TRUE(IsMenuEnabled(MenuId::CopyNode, {.kind = DocumentKind::Xml}));
    EXPECT_TRUE(IsMenuEnabled(MenuId::Theme, {.kind = DocumentKind::Csv}));
}

TEST(StatusPopup, OpensEncodingsForAllAndTheOthersForDelimitedText) {
    ASSERT_NE(StatusPopup(2, DocumentKind::Csv), nullptr);
    EXPECT_EQ(*StatusPopup(0, DocumentKind::Csv), MenuId::Encoding);
    EXPECT_EQ(*StatusPopup(1, DocumentKind::Csv), MenuId::Delimiter);
    EXPECT_EQ(*StatusPopup(2, DocumentKind::Csv), MenuId::Comments);
    EXPECT_EQ(StatusPopup(3, DocumentKind::Csv), nullptr);
    EXPECT_EQ(StatusPopup(-1, DocumentKind::Csv), nullptr);
    EXPECT_EQ(*StatusPopup(0, DocumentKind::Xml), MenuId::Encoding);
    EXPECT_EQ(StatusPopup(1, DocumentKind::Json), nullptr);
    EXPECT_EQ(StatusPopup(2, DocumentKind::Xml), nullptr);
}

}  // namespace
}  // namespace rl
