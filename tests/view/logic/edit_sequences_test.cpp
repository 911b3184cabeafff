// Thousands of edits in random order, with filters, sorts, saves and reloads among them, held
// against a table that is nothing but rows of texts.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/csv_model.h"
#include "view/logic/row_sort.h"
#include "view/logic/row_view.h"

namespace rl {
namespace {

using Row = std::vector<std::wstring>;
using Table = std::vector<Row>;

constexpr std::wstring_view kValues[] = {
    L"",
    L"x",
    L"10",
    L"9",
    L"-3.5",
    L"a,b",
    L"say \"a\"",
    L"two\r\nlines",
    L"one\ntwo",
    L" lead",
    L"trail\t",
    L"\"",
    L"\"\"",
    L"tab\there",
    L"a;b|c:d",
    L"zzz",
    L"\x00E4\x20AC",
    L"\xD83D\xDE00",
};

/// The document as anyone would keep it: texts in rows. Row 0 holds the names, and is the widest.
struct Reference {
    Table rows;
    size_t columns = 0;

    [[nodiscard]] const std::wstring& Cell(size_t row, size_t column) const {
        static const std::wstring kNone;
        return column < rows[row].size() ? rows[row][column] : kNone;
    }
    void Set(size_t row, size_t column, std::wstring_view text) {
        rows[row].resize(std::max(rows[row].size(), column + 1));
        rows[row][column] = text;
    }
    void DeleteColumn(size_t column) {
        for (Row& row : rows) {
            if (column < row.size()) {
                row.erase(row.begin() + static_cast<std::ptrdiff_t>(column));
            }
        }
        --columns;
    }
};

class EditSequences : public testing::TestWithParam<uint32_t> {
protected:
    uint32_t Below(size_t count) {
        return std::uniform_int_distribution<uint32_t>(0,
                                                       static_cast<uint32_t>(count) - 1)(random_);
    }
    int32_t AnyRow() { return static_cast<int32_t>(Below(truth_.rows.size())); }
    int32_t AnyColumn() { return static_cast<int32_t>(Below(truth_.columns)); }
    std::wstring_view AnyValue() { return kValues[Below(std::size(kValues))]; }

    std::wstring Quoted(std::wstring_view value) {
        const bool plain = value.find_first_of(L",\"\r\n \t") == value.npos && Below(4) != 0;
        std::wstring out(value);
        for (size_t at = 0; (at = out.find(L'"', at)) != out.npos; at += 2) {
            out.insert(at, 1, L'"');
        }
        return plain ? out : L'"' + out + L'"';
    }

    /// A file of random rows, some of them short, and the table it stands for.
    void MakeFile() {
        static constexpr const wchar_t* kBreaks[] = {L"\n", L"\r\n", L"\r"};
        const std::wstring lineBreak = kBreaks[Below(3)];
        truth_.columns = 1 + Below(6);
        const size_t rows = 1 + Below(12);
        text_.clear();
        for (size_t row = 0; row < rows; ++row) {
            const size_t fields = row == 0 ? truth_.columns : 1 + Below(truth_.columns);
            truth_.rows.emplace_back();
            for (size_t column = 0; column < fields; ++column) {
                truth_.rows.back().emplace_back(row == 0 ? L"n" + std::to_wstring(column)
                                                         : std::wstring(AnyValue()));
                text_ += column > 0 ? L"," : L"";
                text_ += Quoted(truth_.rows.back().back());
            }
            text_ += row + 1 < rows || Below(2) != 0 || fields == 1 ? lineBreak : L"";
        }
        saved_ = truth_;
        Open();
    }

    /// Reads the text as a load does, or the rebuild after a save; in the delimiter in use.
    void Open() {
        rows_.reset();
        auto model = std::make_unique<CsvModel>();
        ASSERT_TRUE(model->Parse(text_, {.delimiter = L','}));
        model_ = std::move(model);
        rows_ = std::make_unique<RowView>(*model_, true);
        filter_.clear();
        filtered_ = 0;
    }

    void Refresh() { rows_->Rebuild(); }

    // --- What the user does.

    void Edit() {
        const int32_t row = AnyRow();
        const int32_t column = AnyColumn();
        const std::wstring value =
            row == 0 ? L"n" + std::to_wstring(Below(99)) : std::wstring(AnyValue());
        ASSERT_TRUE(model_->IsCellEditable(row, column));
        model_->SetCellText(row, column, value);
        truth_.Set(static_cast<size_t>(row), static_cast<size_t>(column), value);
    }
    void Insert() {
        const int32_t row = AnyRow();
        ASSERT_TRUE(model_->InsertRowBelow(row));
        truth_.rows.insert(truth_.rows.begin() + row + 1, Row(truth_.columns));
        Refresh();
    }
    void Delete() {
        std::vector<int32_t> gone;
        for (size_t row = truth_.rows.size(); row-- > 1;) {
            if (Below(4) == 0) {
                gone.push_back(static_cast<int32_t>(row));
                truth_.rows.erase(truth_.rows.begin() + static_cast<std::ptrdiff_t>(row));
            }
        }
        std::ranges::reverse(gone);
        EXPECT_EQ(model_->DeleteRows(gone), !gone.empty());
        Refresh();
    }
    void DeleteOne() {
        const int32_t row = AnyRow();
        if (row > 0) {
            ASSERT_TRUE(model_->DeleteRow(row));
            truth_.rows.erase(truth_.rows.begin() + row);
            Refresh();
        }
    }
    void DeleteColumn() {
        if (truth_.columns > 1) {
            const int32_t column = AnyColumn();
            ASSERT_TRUE(model_->DeleteColumn(column));
            truth_.DeleteColumn(static_cast<size_t>(column));
            rows_ = std::make_unique<RowView>(*model_, true);
            filter_.clear();
        }
    }
    void Filter() {
        rows_->SetFilter(static_cast<int32_t>(filtered_), L"");
        filtered_ = static_cast<size_t>(AnyColumn());
        filter_ = std::wstring(AnyValue()).substr(0, 1);
        rows_->SetFilter(static_cast<int32_t>(filtered_), filter_);
        CheckView();
    }
    void Sort() {
        rows_->SetSort(AnyColumn(), static_cast<int32_t>(Below(3)) - 1);
        CheckView();
    }
    void Save() {
        text_ = model_->Serialize();
        if (!model_->IsModified()) {
            EXPECT_EQ(text_, model_->Text());
        }
        Open();
        // A last row of one empty field without a line break writes nothing: it is none.
        const auto isEmpty = [](const std::wstring& cell) { return cell.empty(); };
        if (static_cast<size_t>(model_->RowCount()) + 1 == truth_.rows.size() &&
            std::ranges::all_of(truth_.rows.back(), isEmpty)) {
            truth_.rows.pop_back();
        }
        saved_ = truth_;
    }
    void Discard() {
        truth_ = saved_;
        Open();
    }

    // --- What must hold.

    void CheckTable() const {
        ASSERT_EQ(static_cast<size_t>(model_->RowCount()), truth_.rows.size());
        ASSERT_EQ(static_cast<size_t>(model_->ColumnCount()), truth_.columns);
        for (size_t row = 0; row < truth_.rows.size(); ++row) {
            const auto modelRow = static_cast<int32_t>(row);
            EXPECT_EQ(model_->RowAt(model_->FileRow(modelRow)), modelRow);
            for (size_t column = 0; column < truth_.columns; ++column) {
                ASSERT_EQ(model_->CellText(modelRow, static_cast<int32_t>(column)),
                          truth_.Cell(row, column))
                    << "row " << row << ", column " << column;
            }
        }
    }

    /// Every row that passes the filter, once; equal cells in the order of the file.
    void CheckView() const {
        std::vector<int32_t> expected;
        for (size_t row = 1; row < truth_.rows.size(); ++row) {
            if (filter_.empty() ||
                truth_.Cell(row, filtered_).find(filter_) != std::wstring::npos) {
                expected.push_back(static_cast<int32_t>(row));
            }
        }
        std::vector<int32_t> seen;
        for (int32_t row = 0; row < rows_->VisibleRowCount(); ++row) {
            seen.push_back(rows_->ModelRow(row));
            if (row > 0 && seen[seen.size() - 2] > seen.back()) {
                ASSERT_GE(rows_->SortColumn(), 0) << "rows left the order of the file unsorted";
                EXPECT_NE(SortedText(seen[seen.size() - 2]), SortedText(seen.back()));
            }
        }
        std::ranges::sort(seen);
        EXPECT_EQ(seen, expected);
    }
    [[nodiscard]] std::wstring SortedText(int32_t modelRow) const {
        return truth_.Cell(static_cast<size_t>(modelRow), static_cast<size_t>(rows_->SortColumn()));
    }

    void Step() {
        static constexpr std::pair<uint32_t, void (EditSequences::*)()> kActions[] = {
            {40, &EditSequences::Edit},        {15, &EditSequences::Insert},
            {6, &EditSequences::Delete},       {8, &EditSequences::DeleteOne},
            {3, &EditSequences::DeleteColumn}, {10, &EditSequences::Filter},
            {10, &EditSequences::Sort},        {5, &EditSequences::Save},
            {3, &EditSequences::Discard},
        };
        uint32_t choice = Below(100);
        for (const auto& [share, action] : kActions) {
            if (choice < share) {
                (this->*action)();
                return;
            }
            choice -= share;
        }
    }

    std::mt19937 random_{GetParam()};
    Reference truth_;
    Reference saved_;
    std::wstring text_;
    std::unique_ptr<CsvModel> model_;
    std::unique_ptr<RowView> rows_;
    std::wstring filter_;
    size_t filtered_ = 0;
};

TEST_P(EditSequences, KeepTheTableThatTheUserMade) {
    for (int file = 0; file < 40; ++file) {
        truth_ = {};
        ASSERT_NO_FATAL_FAILURE(MakeFile());
        ASSERT_NO_FATAL_FAILURE(CheckTable());
        for (int step = 0; step < 80; ++step) {
            const testing::ScopedTrace trace(__FILE__, __LINE__, testing::PrintToString(text_));
            ASSERT_NO_FATAL_FAILURE(Step());
            ASSERT_NO_FATAL_FAILURE(CheckTable());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(FromSeeds, EditSequences, testing::Range(1u, 9u));

}  // namespace
}  // namespace rl
