// The filter row: one edit box above each data column of the grid.
//
// It owns the boxes and their places; what a typed text does to the table is its listener's
// business. When to apply it and where the boxes stand is decided in view/logic/filter_plan.h.
//
// Belongs to the thread of its windows.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "host/config/themes.h"
#include "view/accessible_name.h"
#include "view/edit_line.h"
#include "view/grid.h"
#include "view/logic/filter_plan.h"
#include "view/message.h"
#include "view/subclass.h"

namespace rl {

inline constexpr int kFirstFilterBoxId = 2000;  // and the grid column

class IFilterRowListener {
public:
    /// The user changed the text of a box.
    virtual void OnFilterTyped(int gridColumn) = 0;
    /// A message of a box before the box sees it; an answer keeps it from there.
    virtual Answer OnFilterBoxMessage(HWND box, const Message& in) = 0;
    /// Held while a message of a box is worked on, which may end the owner's window.
    virtual std::shared_ptr<void> KeepAlive() = 0;

protected:
    ~IFilterRowListener() = default;
};

class FilterRow {
public:
    /// What the boxes look like. Fonts are borrowed.
    struct Look {
        HFONT normal = nullptr;
        HFONT italic = nullptr;
        int dpi = kBaseDpi;
        Color text = 0;
        Color back = 0;
        Color accent = 0;  // the frame of the box that is typed into
    };

    FilterRow() = default;
    FilterRow(const FilterRow&) = delete;
    FilterRow& operator=(const FilterRow&) = delete;
    ~FilterRow() = default;

    /// `parent` is the grid's too; it must pass the commands of the boxes to OnCommand.
    void Attach(HWND parent, IFilterRowListener& listener);
    void SetLook(const Look& look);

    /// A column's filter in force, by its data column.
    using FilterTextOf = std::function<std::wstring(int dataColumn)>;

    /// Makes the boxes anew for the grid's columns; they hold the filters in force, which a new
    /// table does not have: those of the grid's rows, or what `textOf` says. `hint` stands in empty
    /// boxes.
    void Rebuild(const Grid& grid, FilterAlign align, std::wstring hint,
                 const FilterTextOf& textOf = {});
    /// Puts the boxes above their columns; an empty `row` hides them all.
    void Layout(const Grid& grid, const Rect& row);

    /// True for an EN_CHANGE of one of the boxes, which has been told to the listener by then.
    bool OnCommand(WPARAM wparam, LPARAM lparam);

    /// The grid column of a box; -1 for any other window.
    [[nodiscard]] int ColumnOf(HWND box) const;
    /// The box of a column; null where there is none (now).
    [[nodiscard]] HWND BoxOf(int gridColumn) const;
    /// What stands in a column's box, also while the box itself does not exist.
    [[nodiscard]] std::wstring TextOf(int gridColumn) const;
    /// One for each grid column, the line numbers' included.
    [[nodiscard]] int SlotCount() const { return static_cast<int>(slots_.size()); }

private:
    struct Slot {
        bool isFilter = false;  // false for the line numbers
        HWND box = nullptr;     // null also while the column is out of view, see kLazyBoxColumn
        Rect place;             // empty: hidden
        std::wstring text;      // only while there is no box
        std::wstring name;      // of the column
        Subclass subclass;
    };

    void MakeBox(int gridColumn);
    void DropBox(Slot& slot);
    void DropAll();
    void UpdateLazyBoxes(const std::vector<Rect>& places);
    Answer OnBoxMessage(HWND box, const Message& in);
    void PaintHint(HWND box) const;

    AccessibleNames names_;
    HWND parent_ = nullptr;
    IFilterRowListener* listener_ = nullptr;
    Look look_;
    EditLineLook line_;
    FilterAlign align_ = FilterAlign::Center;
    std::wstring hint_;
    HWND grid_ = nullptr;  // the boxes follow it in the order of Tab
    std::deque<Slot> slots_;
    bool quiet_ = false;  // boxes change because we say so
};

}  // namespace rl
