// The host's search: where a text occurs in a cell, and the walk from cell to cell.
//
// Knows nothing of windows: the viewer shows the hit, or beeps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace rl {

struct FindRequest {
    std::wstring_view text = {};
    bool first = false;  // the host asks for a first search
    bool matchCase = false;
    bool wholeWords = false;
    bool backwards = false;
};

/// ASCII letters and digits, the underscore, and everything from code 128 up.
[[nodiscard]] bool IsWordUnit(wchar_t unit);

/// Forward: the first occurrence that starts at or after `position`; backwards: the last one that
/// starts before it. Compares unit by unit: the caller has lowered both texts where case does not
/// count. Nothing for an empty `wanted`.
[[nodiscard]] std::optional<size_t> FindInCell(std::wstring_view cell, std::wstring_view wanted,
                                               size_t position, bool backwards, bool wholeWords);

/// The cells that are searched: view rows, data columns, both from 0.
class ICellSource {
public:
    virtual ~ICellSource() = default;

    [[nodiscard]] virtual int32_t RowCount() const = 0;
    [[nodiscard]] virtual int32_t ColumnCount() const = 0;
    [[nodiscard]] virtual std::wstring CellText(int32_t row, int32_t column) const = 0;

    /// The same, put into `out`, whose room is used again.
    virtual void ReadCell(int32_t row, int32_t column, std::wstring& out) const {
        out = CellText(row, column);
    }

    /// Answers quickly whether some cell of a row may hold the text; an empty function where that
    /// is not known without looking.
    [[nodiscard]] virtual std::function<bool(int32_t row)> MakeProbe(
        [[maybe_unused]] std::wstring_view wanted, [[maybe_unused]] bool matchCase) const {
        return {};
    }

protected:
    ICellSource() = default;
    ICellSource(const ICellSource&) = default;
    ICellSource& operator=(const ICellSource&) = default;
};

enum class FindOutcome {
    Nothing,  // there was nothing to search for or in: no hit, no beep
    AtEnd,    // no further hit: beep
    Hit,
};

struct FindAnswer {
    FindOutcome outcome = FindOutcome::Nothing;
    int32_t row = -1;     // of the hit
    int32_t column = -1;  // data column

    bool operator==(const FindAnswer&) const = default;
};

/// Remembers the last hit between two searches.
class CellFinder {
public:
    [[nodiscard]] FindAnswer Find(const ICellSource& cells, const FindRequest& request);

    /// Whether `Find` would begin anew instead of going on from its last hit. An outline must show
    /// all that a fresh search can find before it runs.
    [[nodiscard]] bool IsFresh(const FindRequest& request) const;

    /// The row of the last hit is another one by now, or -1: none. Without a hit nothing changes.
    void MoveHit(int32_t row) {
        if (row < 0) {
            hit_.reset();
        } else if (hit_) {
            hit_->row = row;
        }
    }

    /// Forgets everything, after another document came.
    void Reset() { *this = CellFinder(); }

private:
    struct Place {
        int32_t row = 0;
        int32_t column = 0;
        size_t position = 0;  // forward: just after the hit; backwards: the hit itself
    };

    [[nodiscard]] Place Start(const ICellSource& cells, const FindRequest& request) const;
    [[nodiscard]] static bool Walk(const ICellSource& cells, const FindRequest& request,
                                   Place& place);

    std::wstring text_;
    bool matchCase_ = false;
    bool wholeWords_ = false;
    bool backwards_ = false;
    bool searched_ = false;
    std::optional<Place> hit_;
};

}  // namespace rl
