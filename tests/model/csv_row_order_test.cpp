#include "model/csv_row_order.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace rl {
namespace {

/// Records, one for each letter: 'h' is hidden.
CsvRecordStore Records(std::string_view letters) {
    CsvRecordStore records;
    for (const char letter : letters) {
        records.Append({.start = 0,
                        .length = 1,
                        .lineBreakLength = 1,
                        .isComment = false,
                        .isHidden = letter == 'h',
                        .isRaw = false,
                        .fieldCount = 1});
    }
    return records;
}

std::vector<int32_t> Visible(const CsvRowOrder& order) {
    std::vector<int32_t> ids;
    for (int32_t row = 0; row < order.VisibleCount(); ++row) {
        ids.push_back(order.VisibleId(row));
    }
    return ids;
}

std::vector<int32_t> All(const CsvRowOrder& order) {
    std::vector<int32_t> ids;
    for (int32_t place = 0; place < order.Size(); ++place) {
        ids.push_back(order.Id(place));
    }
    return ids;
}

using Ids = std::vector<int32_t>;

TEST(CsvRowOrder, IsThatOfTheTextAtFirst) {
    CsvRowOrder order;
    order.Reset(Records("sss"), false);
    EXPECT_EQ(Visible(order), (Ids{0, 1, 2}));
    EXPECT_TRUE(order.IsTextOrder());
}

TEST(CsvRowOrder, LeavesHiddenRowsOutWhereverTheyStand) {
    CsvRowOrder order;
    order.Reset(Records("hhss"), true);
    EXPECT_EQ(Visible(order), (Ids{2, 3}));
    order.Reset(Records("shsh"), true);
    EXPECT_EQ(Visible(order), (Ids{0, 2}));
    order.Reset(Records("hsh"), true);
    EXPECT_EQ(Visible(order), (Ids{1}));
    order.Reset(Records("hh"), true);
    EXPECT_EQ(Visible(order), Ids{});
    EXPECT_EQ(All(order), (Ids{0, 1}));
}

TEST(CsvRowOrder, PutsARowDirectlyBelowAShownOne) {
    for (const char* letters : {"hss", "shs"}) {
        const CsvRecordStore records = Records(letters);
        CsvRowOrder order;
        order.Reset(records, true);
        order.InsertBelow(0, -1, records);
        EXPECT_EQ(Visible(order)[1], -1) << letters;
        EXPECT_EQ(order.VisibleCount(), 3);
        EXPECT_FALSE(order.IsTextOrder());
        order.InsertBelow(1, -2, records);
        EXPECT_EQ(Visible(order)[2], -2) << letters;
        order.Erase(1, records);
        EXPECT_EQ(Visible(order)[1], -2) << letters;
    }
}

TEST(CsvRowOrder, KeepsHiddenRowsInTheirPlace) {
    const CsvRecordStore records = Records("shs");
    CsvRowOrder order;
    order.Reset(records, true);
    order.InsertBelow(0, -1, records);
    EXPECT_EQ(All(order), (Ids{0, -1, 1, 2}));
    order.Erase(0, records);
    EXPECT_EQ(All(order), (Ids{-1, 1, 2}));
    EXPECT_EQ(Visible(order), (Ids{-1, 2}));
}

TEST(CsvRowOrder, ForgetsEditsWhenReset) {
    const CsvRecordStore records = Records("shs");
    CsvRowOrder order;
    order.Reset(records, true);
    order.Erase(0, records);
    order.Reset(records, true);
    EXPECT_EQ(Visible(order), (Ids{0, 2}));
}

}  // namespace
}  // namespace rl
