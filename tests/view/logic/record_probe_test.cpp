#include "view/logic/record_probe.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support/memory_table.h"
#include "view/logic/row_cells.h"
#include "view/logic/row_view.h"

namespace rl {
namespace {

using test::MemoryTable;

void Parse(CsvModel& model, const std::wstring& text) {
    (void)model.Parse(text, {.delimiter = L','});
}

TEST(RecordProbe, RulesOutRowsWhoseRecordLacksTheText) {
    CsvModel model;
    Parse(model, L"a,Bern\nb,Basel\n");
    const RecordProbe probe(model, L"BERN", false);

    ASSERT_TRUE(probe.IsUseful());
    EXPECT_TRUE(probe.MayHold(0));
    EXPECT_FALSE(probe.MayHold(1));
}

TEST(RecordProbe, KnowsNothingOfATextWithAQuoteInIt) {
    CsvModel model;
    Parse(model, L"\"say \"\"hi\"\"\",x\n");

    EXPECT_FALSE(RecordProbe(model, L"say \"hi\"", false).IsUseful());
    EXPECT_TRUE(RecordProbe(model, L"say \"hi\"", false).MayHold(0));
}

TEST(RecordProbe, KnowsNothingOnceACellWasEdited) {
    CsvModel model;
    Parse(model, L"a,b\nc,d\n");
    model.SetCellText(0, 0, L"new");
    model.ClearModified();

    EXPECT_FALSE(RecordProbe(model, L"new", false).IsUseful());
}

TEST(RecordProbe, TakesAnInsertedRowAsPossible) {
    CsvModel model;
    Parse(model, L"a,b\nc,d\n");
    ASSERT_TRUE(model.InsertRowBelow(0));
    const RecordProbe probe(model, L"c", false);

    EXPECT_FALSE(probe.MayHold(0));
    EXPECT_TRUE(probe.MayHold(1));
    EXPECT_TRUE(probe.MayHold(2));
}

TEST(RecordProbe, KnowsNothingOfOtherTables) {
    const MemoryTable table = MemoryTable::Row({L"a"});

    EXPECT_FALSE(RecordProbe(table, L"z", false).IsUseful());
    EXPECT_TRUE(RecordProbe(table, L"z", false).MayHold(0));
}

/// A random text of delimited cells: quotes, blanks, letters with odd cases, ragged rows.
std::wstring RandomText(std::mt19937& random) {
    constexpr std::wstring_view kUnits = L"aAbBkK\u212A\u00E4\u00C4 \t\"\",,\n5.";
    std::wstring text;
    for (size_t n = random() % 120; n > 0; --n) {
        text.push_back(kUnits[random() % kUnits.size()]);
    }
    return text;
}

std::wstring RandomFilter(std::mt19937& random) {
    constexpr std::wstring_view kUnits = L"aAbkK\u00C4 5\"";
    constexpr std::wstring_view kOperators = L"=!<>";
    std::wstring filter;
    if (random() % 2 == 0) {
        filter.push_back(kOperators[random() % kOperators.size()]);
    }
    for (size_t n = random() % 3; n > 0; --n) {
        filter.push_back(kUnits[random() % kUnits.size()]);
    }
    return filter;
}

MemoryTable CopyOf(const CsvModel& model) {
    MemoryTable::Rows rows;
    for (int32_t row = 0; row < model.RowCount(); ++row) {
        rows.emplace_back();
        for (int32_t column = 0; column < model.ColumnCount(); ++column) {
            rows.back().push_back(model.CellText(row, column));
        }
    }
    return MemoryTable(std::move(rows));
}

TEST(RecordProbe, ChangesNoFilterOnRandomTables) {
    std::mt19937 random(3);
    for (int round = 0; round < 1500; ++round) {
        CsvModel model;
        Parse(model, RandomText(random));
        const MemoryTable copy = CopyOf(model);
        RowView fast(model, false);
        RowView plain(copy, false);
        for (RowView* view : {&fast, &plain}) {
            view->SetCaseSensitive(round % 3 == 0);
        }
        for (int32_t column = 0; column < 2; ++column) {
            const std::wstring filter = RandomFilter(random);
            fast.SetFilter(column, filter);
            plain.SetFilter(column, filter);
        }
        ASSERT_EQ(fast.VisibleRowCount(), plain.VisibleRowCount());
        for (int32_t row = 0; row < fast.VisibleRowCount(); ++row) {
            ASSERT_EQ(fast.ModelRow(row), plain.ModelRow(row));
        }
    }
}

TEST(RecordProbe, ChangesNoSearchOnRandomTables) {
    std::mt19937 random(5);
    for (int round = 0; round < 1500; ++round) {
        CsvModel model;
        Parse(model, RandomText(random));
        const MemoryTable copy = CopyOf(model);
        const RowView fast(model, false);
        const RowView plain(copy, false);
        const std::wstring wanted = RandomFilter(random);
        const FindRequest request{.text = wanted,
                                  .matchCase = random() % 2 == 0,
                                  .wholeWords = random() % 3 == 0,
                                  .backwards = random() % 2 == 0};
        CellFinder fastFinder;
        CellFinder plainFinder;
        for (int step = 0; step < 6; ++step) {
            ASSERT_EQ(fastFinder.Find(RowCells(fast), request),
                      plainFinder.Find(RowCells(plain), request));
        }
    }
}

}  // namespace
}  // namespace rl
