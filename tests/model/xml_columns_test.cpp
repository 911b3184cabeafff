#include "model/xml_columns.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/xml_document.h"
#include "model/xml_table_cells.h"

namespace rl::detail {
namespace {

std::vector<std::wstring> Names(int count) {
    std::vector<std::wstring> names;
    for (int i = 0; i < count; ++i) {
        names.push_back(L"n" + std::to_wstring(i));
    }
    return names;
}

TEST(XmlColumns, NumbersNamesAsTheyFirstAppear) {
    XmlColumns columns(4);
    EXPECT_EQ(columns.FindOrAdd({.name = L"a"}), 0);
    EXPECT_EQ(columns.FindOrAdd({.name = L"b"}), 1);
    EXPECT_EQ(columns.FindOrAdd({.name = L"a"}), 0);
    EXPECT_EQ(columns.FindOrAdd({.name = L""}), 2);
    EXPECT_EQ(columns.All()[1], (XmlColumn{.name = L"b"}));
}

TEST(XmlColumns, TellAttributesFromElements) {
    XmlColumns columns(4);
    EXPECT_EQ(columns.FindOrAdd({.name = L"a"}), 0);
    EXPECT_EQ(columns.FindOrAdd({.name = L"a", .isAttribute = true}), 1);
    EXPECT_EQ(columns.FindOrAdd({.name = L"a"}), 0);
}

TEST(XmlColumns, FindAllNamesHoweverManyThereAre) {
    for (const int most : {1, 2, 63, 64, 65, 255, 256, 257, 100'000}) {
        const std::vector<std::wstring> names = Names(most);
        XmlColumns columns(names.size());
        for (int round = 0; round < 2; ++round) {
            for (int i = 0; i < most; ++i) {
                ASSERT_EQ(columns.FindOrAdd({.name = names[static_cast<size_t>(i)]}), i);
            }
        }
        EXPECT_EQ(columns.All().size(), names.size());
    }
}

TEST(XmlRecordCells, FindSparseCellsThatComeInAnotherOrder) {
    std::wstring text = L"<r><i><a/><b/></i>";
    std::vector<int32_t> records;
    for (const std::wstring& name : Names(40)) {
        text += L"<i><" + name + L"/></i>";
    }
    text += L"<i><b/><n7/><a/></i></r>";
    XmlDocument document;
    ASSERT_TRUE(document.Parse(text));
    for (int32_t node = document.nodes[1].firstChild; node >= 0;
         node = document.nodes[static_cast<size_t>(node)].nextSibling) {
        records.push_back(node);
    }
    const XmlRecordCells cells(document, records);
    const int32_t first = records.back() + 1;
    EXPECT_EQ(cells.At(41, 0), first + 2);
    EXPECT_EQ(cells.At(41, 1), first);
    EXPECT_EQ(cells.At(41, 9), first + 1);
    EXPECT_EQ(cells.At(41, 2), XmlRecordCells::kEmpty);
}

}  // namespace
}  // namespace rl::detail
