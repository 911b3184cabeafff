// Memory that ends in the middle of an edit: the document is as it was, and not half changed.
//
// Each edit is tried with every amount of memory, from none on, until it comes through.
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/csv_model.h"
#include "model/json_document.h"
#include "model/xml_document.h"
#include "tests/support/allocation_limit.h"

namespace rl {
namespace {

constexpr size_t kStep = 4;         // bytes; no allocation is smaller
constexpr size_t kEnough = 65'536;  // bytes, for any edit here

/// True when the edit came through with that much memory.
bool ComesThrough(size_t bytes, const std::function<void()>& edit) {
    const test::AllocationLimit limit(bytes);
    try {
        edit();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

/// A document as its reader sees it.
struct Seen {
    std::vector<std::wstring> cells;
    std::wstring saved;
    bool modified = false;

    bool operator==(const Seen&) const = default;
};

Seen Look(const CsvModel& model) {
    Seen seen{.cells = {}, .saved = model.Serialize(), .modified = model.IsModified()};
    for (int32_t row = 0; row < model.RowCount(); ++row) {
        for (int32_t column = 0; column < model.ColumnCount(); ++column) {
            seen.cells.push_back(model.CellText(row, column));
        }
    }
    return seen;
}

// Rows are hidden at the top and further down; where they are, eight others are listed, which fill
// the list's room.
constexpr std::wstring_view kTable =
    L"# remark\n\nname,city\nann,rome\n# another\nbob,oslo\n\ncid,bern\ndan,riga\n"
    L"eva,ulm\nfay,nice\ngus,bonn\n";
// In memory of its own, not in the string itself.
constexpr std::wstring_view kLong = L"a longer text, with a comma in it";

void Load(CsvModel& model, CommentMode mode, bool edited) {
    ASSERT_TRUE(model.Parse(std::wstring(kTable), {.commentMode = mode}));
    if (edited) {
        model.SetCellText(model.RowCount() - 1, 1, kLong);
        ASSERT_TRUE(model.InsertRowBelow(model.RowCount() - 2));
        model.SetCellText(model.RowCount() - 2, 0, kLong);
        model.ClearModified();
    }
}

using CsvEdit = std::function<void(CsvModel&)>;

/// True when the edit came through, as it does with all the memory there is.
bool TryEdit(size_t bytes, CommentMode mode, bool edited, const CsvEdit& edit, const Seen& after) {
    CsvModel model;
    Load(model, mode, edited);
    const Seen before = Look(model);
    EXPECT_FALSE(before.modified);
    const bool done = ComesThrough(bytes, [&] { edit(model); });
    if (!done) {
        EXPECT_EQ(Look(model), before) << "half done with " << bytes << " bytes";
        edit(model);
    }
    EXPECT_EQ(Look(model), after) << "with " << bytes << " bytes";
    return done;
}

/// Returns with how many amounts of memory the edit failed.
int ExpectAllOrNothing(CommentMode mode, bool edited, const CsvEdit& edit) {
    CsvModel model;
    Load(model, mode, edited);
    edit(model);
    const Seen after = Look(model);
    EXPECT_TRUE(after.modified);
    int failures = 0;
    for (size_t bytes = 0; bytes < kEnough; bytes += kStep) {
        if (TryEdit(bytes, mode, edited, edit, after) || testing::Test::HasFailure()) {
            return failures;
        }
        ++failures;
    }
    ADD_FAILURE() << "never enough memory";
    return failures;
}

/// The same for every way to hide rows, on a table as loaded and on an edited one.
void ExpectAllOrNothing(const CsvEdit& edit) {
    int failures = 0;
    for (const CommentMode mode :
         {CommentMode::Parse, CommentMode::DoNotParse, CommentMode::Hide, CommentMode::Auto}) {
        for (const bool edited : {false, true}) {
            SCOPED_TRACE(testing::Message()
                         << "mode " << static_cast<int>(mode) << (edited ? ", edited" : ""));
            failures += ExpectAllOrNothing(mode, edited, edit);
        }
    }
    EXPECT_GT(failures, 0) << "the edit never asked for memory";
}

TEST(EditsWithoutMemory, KeepAllRowsThatWereToGo) {
    static constexpr int32_t kRows[] = {0, 2, 3};
    ExpectAllOrNothing([](CsvModel& model) { ASSERT_TRUE(model.DeleteRows(kRows)); });
}

TEST(EditsWithoutMemory, KeepTheOneRowThatWasToGo) {
    ExpectAllOrNothing([](CsvModel& model) { ASSERT_TRUE(model.DeleteRow(2)); });
}

TEST(EditsWithoutMemory, InsertNoRow) {
    ExpectAllOrNothing([](CsvModel& model) { ASSERT_TRUE(model.InsertRowBelow(1)); });
}

TEST(EditsWithoutMemory, KeepTheColumnThatWasToGo) {
    ExpectAllOrNothing([](CsvModel& model) { ASSERT_TRUE(model.DeleteColumn(0)); });
}

TEST(EditsWithoutMemory, KeepTheTextOfACell) {
    ExpectAllOrNothing([](CsvModel& model) { model.SetCellText(model.RowCount() - 1, 0, kLong); });
}

TEST(EditsWithoutMemory, KeepTheTextOfACellThatWasEditedBefore) {
    ExpectAllOrNothing([](CsvModel& model) {
        model.SetCellText(model.RowCount() - 1, 1, std::wstring(200, L'x'));
    });
}

TEST(EditsWithoutMemory, KeepTheTextOfACellInAnInsertedRow) {
    ExpectAllOrNothing([](CsvModel& model) {
        model.SetCellText(model.RowCount() - 2, 1, std::wstring(200, L'x'));
    });
}

/// `edit` changes what `read` makes of it, all at once or not at all.
void ExpectAllOrNothing(const std::function<void()>& edit,
                        const std::function<std::pair<std::wstring, bool>()>& read) {
    const auto before = read();
    ASSERT_FALSE(before.second);
    int failures = 0;
    for (size_t bytes = 0; bytes < kEnough && !ComesThrough(bytes, edit); bytes += kStep) {
        ++failures;
        ASSERT_EQ(read(), before) << "half done with " << bytes << " bytes";
    }
    EXPECT_GT(failures, 0);
    EXPECT_NE(read().first, before.first);
    EXPECT_TRUE(read().second);
}

TEST(EditsWithoutMemory, KeepTheValueOfAJsonNode) {
    JsonDocument document;
    ASSERT_TRUE(document.Parse(L"{\"a\": 1, \"b\": \"text\"}", false, false));
    ExpectAllOrNothing([&] { ASSERT_TRUE(document.SetValue(2, kLong)); },
                       [&] { return std::pair(document.Serialize(), document.modified); });
}

TEST(EditsWithoutMemory, KeepTheValueOfAnXmlAttribute) {
    XmlDocument document;
    ASSERT_TRUE(document.Parse(L"<r a='1'/>"));
    ExpectAllOrNothing(
        [&] { ASSERT_TRUE(document.SetValue(XmlDocument::AttributeRef(1, 0), kLong)); },
        [&] { return std::pair(document.Serialize(), document.modified); });
}

}  // namespace
}  // namespace rl
