// The grid: a virtual list view that asks for each visible cell as it paints.
//
// It holds no text, only a row count; rows come from a RowView. What a cell shows, how wide a
// column is and where a key leads is decided in view/logic; this class carries it out. It knows
// nothing of documents, menus or the clipboard: what goes beyond a cell is told to its listener.
//
// Belongs to the thread of its window.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <string>
#include <vector>

#include "host/config/themes.h"
#include "view/logic/column_widths.h"
#include "view/logic/grid_columns.h"
#include "view/logic/row_view.h"
#include "view/logic/type_ahead.h"
#include "view/message.h"
#include "view/subclass.h"

namespace rl {

class TreeTableView;
struct OutlineRow;

inline constexpr int kGridId = 1001;

/// The list view takes time by the square of its columns: a table of more shows its first ones.
inline constexpr int kMaxShownColumns = 10'000;

/// A cell of the grid, by its place on screen; -1 where there is none.
struct GridCell {
    int viewRow = -1;
    int gridColumn = -1;

    [[nodiscard]] bool IsCell() const { return viewRow >= 0 && gridColumn >= 0; }
    bool operator==(const GridCell&) const = default;
};

enum class GridClick { Single, Double, Right };

/// What the grid tells its owner. A call may end the window; the owner sees to it that the grid's
/// object outlives the message at hand.
class IGridListener {
public:
    /// The current cell is another one, or none. Its text and position may be shown anew.
    virtual void OnCurrentCellChanged() {}
    /// Columns have moved on screen or changed their width: what stands above them must follow.
    virtual void OnColumnsMoved() {}
    /// Ctrl and the wheel: 1 for larger, -1 for smaller.
    virtual void OnFontStep(int /*direction*/) {}
    /// A message of the list view window before the list view sees it (keys, characters, mouse); an
    /// answer keeps it from there.
    virtual Answer OnGridMessage(const Message& /*in*/) { return std::nullopt; }
    /// A click is about to make a cell current; true keeps it from doing so.
    virtual bool OnCellPressed(GridClick /*click*/, GridCell /*cell*/) { return false; }
    /// A click has made a cell current.
    virtual void OnCellClicked(GridClick /*click*/, GridCell /*cell*/) {}
    /// A click on a column's header without Ctrl.
    virtual void OnHeaderClick(int /*gridColumn*/) {}
    /// A right click on a column's header; the column is current by now, without a row.
    virtual void OnHeaderMenu() {}
    /// A left click, single or double, on the box that opens and closes a row of an outline. No
    /// cell is pressed or clicked by it.
    virtual void OnExpanderClicked(int /*viewRow*/) {}

protected:
    ~IGridListener() = default;
};

class Grid {
public:
    /// The settings the grid shows its table with, captured by its owner.
    struct Style {
        bool lineNumbers = false;     // grid column 0 counts the rows
        bool decimalAlign = true;     // the separators of a column stand below each other
        int maxColumnWidth = 300;     // at 96 dpi, pixels; below 1: no limit
        int maxColumnSamples = 1000;  // rows measured for the widths
        // The outline that the view's model is: shown with guide lines and boxes instead of grid
        // lines. Null for a table.
        const TreeTableView* outline = nullptr;
    };

    Grid() = default;
    Grid(const Grid&) = delete;
    Grid& operator=(const Grid&) = delete;
    ~Grid();

    /// Makes the list view, without rows and hidden, as a child of `parent`, which must pass the
    /// notifications of Window() and Header() to OnNotify. False when the system refuses.
    [[nodiscard]] bool Create(HWND parent, bool gridLines, IGridListener& listener);
    [[nodiscard]] HWND Window() const { return window_; }
    [[nodiscard]] HWND Header() const { return header_; }

    /// Fonts are borrowed. Call RecomputeWidths once everything else has the new fonts too.
    void SetFonts(HFONT normal, HFONT bold, int dpi);
    void SetColors(const ThemeColors& colors);
    /// The colours by which an outline tells its rows' types apart.
    void SetOutlineColors(const SourceColors& colors);

    /// Shows a table, which must outlive its being shown: columns, widths, rows, no current cell.
    /// The hidden columns of the table before stay hidden. Null empties the grid.
    void ShowTable(const RowView* view, const Style& style);
    /// The rows of the view are others, or in another order. The current cell is left as it is:
    /// the caller knows where it went. Without `keepScroll` the first row comes into view.
    void RowsChanged(bool keepScroll);
    /// Cells have other texts; rows and columns are the same.
    void TextsChanged();
    /// Measures the columns again: after a change of font, dpi or content.
    void RecomputeWidths();
    /// Gives the names of an outline their share of the window, unless the user has chosen a width
    /// for them, and the value column what is left. Done by itself when the window's size, the
    /// table or the fonts change.
    void FitValueColumn();
    [[nodiscard]] const RowView* View() const { return view_; }

    [[nodiscard]] GridCell Current() const { return current_; }
    /// Makes a cell current and repaints; either half may be -1. The selection stays.
    void SetCurrent(GridCell cell);
    /// Selects and focuses one row and no other; with -1 nothing is selected.
    void SelectOnly(int viewRow);
    /// Scrolls no further than needed: the row into view, then the column's left or right edge.
    void BringIntoView(GridCell cell);
    /// All three for one cell: current, alone selected, in view.
    void GoTo(GridCell cell);
    /// Moves the current cell for an arrow key; false when the key means nothing here.
    bool Navigate(WPARAM key, bool ctrl);

    /// The cell at a point of the client area; the row alone right of the last column.
    [[nodiscard]] GridCell HitTest(POINT client) const;
    /// The header column at a point of the header's client area, or -1.
    [[nodiscard]] int HitTestHeader(POINT client) const;
    /// The cell's bounds in client pixels, as painted.
    [[nodiscard]] RECT CellBounds(GridCell cell) const;

    [[nodiscard]] int RowCount() const;
    /// The first row in view.
    [[nodiscard]] int TopRow() const;
    [[nodiscard]] int ColumnCount() const;
    [[nodiscard]] bool HasLineNumbers() const {
        return view_ != nullptr && columns_.HasLineNumbers();
    }
    [[nodiscard]] bool HasGridLines() const;
    /// The model's column behind a grid column; -1 for the line numbers and outside the grid.
    [[nodiscard]] int DataColumn(int gridColumn) const;
    /// The grid column that shows a data column; -1 outside the grid.
    [[nodiscard]] int GridColumnOf(int dataColumn) const;
    /// What the grid shows; empty outside it.
    [[nodiscard]] std::wstring CellText(int viewRow, int gridColumn) const;
    [[nodiscard]] std::wstring HeaderText(int gridColumn) const;
    [[nodiscard]] int ColumnWidth(int gridColumn) const;
    /// How grid columns and data columns are numbered, and which are hidden.
    [[nodiscard]] const GridColumns& Columns() const { return columns_; }
    /// The left edges of all columns and the last one's right edge, client pixels.
    [[nodiscard]] std::vector<int> ColumnEdges() const;
    /// The selected view rows, in order.
    [[nodiscard]] std::vector<int> SelectedRows() const;
    /// The row that the list view's focus is on, or -1.
    [[nodiscard]] int FocusedRow() const { return NextItem(-1, LVNI_FOCUSED); }

    /// Hides a data column; ignored for the line numbers.
    void HideColumn(int gridColumn);
    void ShowAllColumns();
    [[nodiscard]] bool IsHidden(int dataColumn) const;
    /// The model has lost a column; to be followed by ShowTable.
    void ForgetColumn(int dataColumn) { columns_.Remove(dataColumn); }
    /// What Columns() was before another table was shown: before that of then is shown again.
    void RestoreColumns(GridColumns columns) noexcept;

    /// The mark beside a header text: 1 up, -1 down; any other direction takes the mark away.
    void SetSortMark(int gridColumn, int direction);
    /// What was typed to find a row no longer counts.
    void ClearTypeAhead();

    /// Answers a notification of the list view or its header; nothing for one that is not ours.
    Answer OnNotify(NMHDR& note);

private:
    /// One cell's text, kept because it is asked for again: by the painter and by the list view.
    struct KeptText {
        GridCell cell;
        std::wstring text;
    };

    Answer OnMessage(HWND window, const Message& in);
    Answer OnHeaderMessage(HWND window, const Message& in);
    void OnHeaderItemChanged(const NMHEADERW& note);
    Answer OnHeaderDraw(NMCUSTOMDRAW& draw);
    Answer OnHeaderRightClick();
    Answer OnCellDraw(NMLVCUSTOMDRAW& draw);
    void FillAboveRows() const;
    /// The first pixels of a row: some list views begin their rows to the right of them.
    [[nodiscard]] Rect MarginOfRow(int viewRow) const;
    LRESULT OnRowDraw(NMLVCUSTOMDRAW& draw);
    LRESULT OnSubitemDraw(NMLVCUSTOMDRAW& draw);
    LRESULT OnOutlineNameDraw(HDC dc, GridCell cell, const Rect& rect);
    Answer OnCellText(NMLVDISPINFOW& note);
    Answer OnFindItem(const NMLVFINDITEMW& note);
    Answer OnItemChanged(const NMLISTVIEW& note);
    Answer OnColumnClick(const NMLISTVIEW& note);
    Answer OnClick(GridClick click, const NMITEMACTIVATE& note);

    [[nodiscard]] int NextItem(int after, UINT flags) const;
    [[nodiscard]] int SearchedColumn() const;
    const std::wstring& KeepText(GridCell cell);
    void ForgetTexts();
    [[nodiscard]] std::vector<int> Measure();
    void ApplyColumns(const std::vector<int>& widths);
    [[nodiscard]] Rect HeaderItemRect(int gridColumn) const;

    [[nodiscard]] const TreeTableView* Outline() const {
        return view_ != nullptr ? style_.outline : nullptr;
    }
    [[nodiscard]] bool IsOutlineName(int gridColumn) const {
        return Outline() != nullptr && DataColumn(gridColumn) == 0;
    }
    [[nodiscard]] const OutlineRow& RowOfOutline(int viewRow) const;
    [[nodiscard]] OutlineSizing SizeOfOutline() const;
    void ApplyLines();
    void ApplyRowHeight();
    bool FitNameColumnOnce();
    bool FitValueColumnOnce();
    bool SetWidth(int gridColumn, int width);
    [[nodiscard]] int BoxAt(POINT client) const;
    bool OnOutlineClick(GridClick click, POINT client);
    Answer OnOutlineMessage(const Message& in);
    void SetHotRow(int viewRow);
    void FindHotRow();

    void RedrawRow(int viewRow);
    void RedrawMargin(int viewRow);
    void DeselectAll();
    void FitColumn(int gridColumn);
    void TellColumnsMoved();

    HWND window_ = nullptr;
    HWND header_ = nullptr;
    IGridListener* listener_ = nullptr;
    Subclass subclass_;

    HFONT normalFont_ = nullptr;
    HFONT boldFont_ = nullptr;
    int dpi_ = kBaseDpi;
    ThemeColors colors_;
    SourceColors outlineColors_;
    bool gridLines_ = true;  // wanted for tables

    const RowView* view_ = nullptr;
    Style style_;
    GridColumns columns_;
    ColumnMetrics metrics_;
    std::vector<std::wstring> headerTexts_;
    GridCell current_;
    TypeAhead typeAhead_;
    std::array<KeptText, 2> keptTexts_;  // the list view asks for a row's first cell in between

    bool settingWidths_ = false;  // many columns change: told to the listener once, at the end
    bool movingFocus_ = false;    // the list view's focus moves because we say so
    bool fitting_ = false;        // a new width may show the scroll bar and so change the size
    bool drawnRowIsSelected_ = false;
    int hotRow_ = -1;  // the row of an outline whose box the mouse is over
};

}  // namespace rl
