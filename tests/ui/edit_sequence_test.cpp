// Random edits, inserted and deleted rows, filters, sorts, saves and reloads through the real
// window, held against a table that is nothing but rows of texts.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "tests/ui/support/editing.h"
#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr int kSteps = 40;
constexpr const wchar_t* kValues[] = {L"x", L"a,b", L"say \"o\"", L" lead", L"10", L"9.5", L"zoo"};

/// Rows are told by their first cell, which is given once and never again.
class EditSequence : public testing::TestWithParam<uint32_t> {
protected:
    EditSequence() {
        for (; next_ < 8; ++next_) {
            rows_.push_back({Key(next_), L"o" + std::to_wstring(next_), L"v"});
        }
        saved_ = rows_;
        file_ = host_.Write(L"a.csv", Bytes(rows_));
        viewer_ = host_.Open(file_);
        RowsRead();
    }

    static std::wstring Key(int number) { return L"k" + std::to_wstring(number); }

    static std::string Bytes(const std::vector<Texts>& rows) {
        std::string bytes = "key,one,two\n";
        for (const Texts& row : rows) {
            for (size_t column = 0; column < row.size(); ++column) {
                const std::wstring& cell = row[column];
                std::string text(cell.begin(), cell.end());
                if (text.find_first_of(",\"") != std::string::npos || text.starts_with(' ')) {
                    for (size_t at = 0; (at = text.find('"', at)) != std::string::npos; at += 2) {
                        text.insert(at, 1, '"');
                    }
                    text = '"' + text + '"';
                }
                bytes += (column > 0 ? "," : "") + text;
            }
            bytes += '\n';
        }
        return bytes;
    }

    int Below(size_t count) {
        return std::uniform_int_distribution<int>(0, static_cast<int>(count) - 1)(random_);
    }
    int AnyViewRow() { return Below(static_cast<size_t>(viewer_.RowCount())); }
    size_t Find(const std::wstring& key) {
        const auto found = std::ranges::find(rows_, key, [](const Texts& row) { return row[0]; });
        EXPECT_NE(found, rows_.end()) << "a row nobody knows";
        return static_cast<size_t>(found - rows_.begin());
    }
    size_t RowBehind(int viewRow) { return Find(viewer_.Cell(viewRow, 0)); }

    /// The view was made anew: what it shows now stays until it is made anew again.
    void RowsRead() {
        visible_.clear();
        for (const Texts& row : rows_) {
            if (row[1].find(filter_) != std::wstring::npos) {
                visible_.insert(row[0]);
            }
        }
    }

    void SetFilter(const std::wstring& text) {
        filter_ = text;
        SetWindowTextW(GetDlgItem(viewer_.Window(), 2001), text.c_str());
        PumpIdle();
        RowsRead();
    }

    void Edit() {
        if (viewer_.RowCount() > 0) {
            const int viewRow = AnyViewRow();
            const int column = 1 + Below(2);
            const wchar_t* value = kValues[Below(std::size(kValues))];
            rows_[RowBehind(viewRow)][static_cast<size_t>(column)] = value;
            EditCell(viewer_, viewRow, column, value);
        }
    }
    void Insert() {
        SetFilter(L"");
        if (viewer_.RowCount() == 0 || viewer_.RowCount() > 12) {
            return;
        }
        const int viewRow = AnyViewRow();
        const size_t row = RowBehind(viewRow);
        ClickCell(viewer_, viewRow, 1);
        Choose(viewer_, 5034);
        const std::wstring key = Key(next_++);
        rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(row) + 1, {key, L"", L""});
        EditCell(viewer_, viewer_.FocusedRow(), 0, key);
        RowsRead();
    }
    void Delete() {
        if (viewer_.RowCount() > 2) {
            const int first = AnyViewRow();
            const int last = AnyViewRow();
            std::set<std::wstring> gone{viewer_.Cell(first, 0), viewer_.Cell(last, 0)};
            ClickCell(viewer_, first, 1);
            if (first != last) {
                Click(viewer_.Grid(), viewer_.CellCenter(last, 1), {VK_CONTROL});
            }
            test::Key('X', {VK_CONTROL});
            std::erase_if(rows_, [&](const Texts& row) { return gone.contains(row[0]); });
            std::erase_if(visible_, [&](const std::wstring& key) { return gone.contains(key); });
        }
    }
    void Filter() { SetFilter(Below(3) == 0 ? L"" : L"o"); }
    void Sort() { Click(viewer_.Header(), viewer_.HeaderCenter(Below(3))); }
    void Save() {
        const bool writes = rows_ != saved_ || viewer_.Status(4).ends_with(L"*");
        test::Key('S', {VK_CONTROL});
        EXPECT_FALSE(viewer_.Status(4).ends_with(L"*"));
        saved_ = rows_;
        // What was inserted last has no line break of its own.
        std::string bytes = BytesOf(file_);
        bytes += bytes.ends_with('\n') ? "" : "\n";
        EXPECT_EQ(bytes, Bytes(rows_));
        filter_ = writes ? L"" : filter_;
        if (writes) {
            RowsRead();
        }
    }
    void Discard() {
        TheFakes().boxAnswer = IDNO;
        Choose(viewer_, 5020);
        PumpIdle();
        rows_ = saved_;
        filter_.clear();
        RowsRead();
    }

    void Step() {
        static constexpr void (EditSequence::*kActions[])() = {
            &EditSequence::Edit,   &EditSequence::Edit,   &EditSequence::Edit,
            &EditSequence::Insert, &EditSequence::Insert, &EditSequence::Delete,
            &EditSequence::Filter, &EditSequence::Sort,   &EditSequence::Save,
            &EditSequence::Discard};
        const int action = Below(std::size(kActions));
        const testing::ScopedTrace trace(__FILE__, __LINE__, "action " + std::to_string(action));
        (this->*kActions[action])();
    }

    void Check() {
        ASSERT_EQ(static_cast<size_t>(viewer_.RowCount()), visible_.size());
        std::set<std::wstring> seen;
        for (int viewRow = 0; viewRow < viewer_.RowCount(); ++viewRow) {
            const Texts row = viewer_.Row(viewRow);
            EXPECT_EQ(row, rows_[Find(row[0])]);
            seen.insert(row[0]);
        }
        EXPECT_EQ(seen, visible_);
        EXPECT_TRUE(TheFakes().beeps.empty());
    }

    UiHost host_{{.ini = "start-mode=edit\nvalue-pane=0\n"}};
    std::mt19937 random_{GetParam()};
    std::filesystem::path file_;
    Viewer viewer_{nullptr};
    int next_ = 0;
    std::vector<Texts> rows_;
    std::vector<Texts> saved_;
    std::wstring filter_;
    std::set<std::wstring> visible_;
};

TEST_P(EditSequence, KeepsTheTableThatTheUserMade) {
    for (int step = 0; step < kSteps && !HasFailure(); ++step) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, "step " + std::to_string(step));
        Step();
        ASSERT_NO_FATAL_FAILURE(Check());
    }
}

INSTANTIATE_TEST_SUITE_P(FromSeeds, EditSequence, testing::Values(1u, 2u));

}  // namespace

}  // namespace rl::test
