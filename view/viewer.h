// The viewer: one window inside the host's, with every control of the user interface.
//
// It composes parts that own their controls (grid, tabs, value pane, ...) and passes messages
// between them; what a message means is decided in view/logic where it can be. Its window owns it.
// Whoever calls into it holds a reference for as long as the call lasts: the window, and with it
// the document, may be gone when a call returns that showed a message box or a menu, but the object
// is not. `IsGone()` then says so.
//
// Belongs to the thread of its window, which is the host's.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/config/themes.h"
#include "load/load_options.h"
#include "load/load_worker.h"
#include "load/loaded_doc.h"
#include "load/text/document_kind.h"
#include "model/node_copy.h"
#include "view/cell_editor.h"
#include "view/document.h"
#include "view/filter_row.h"
#include "view/fonts.h"
#include "view/gdi_handles.h"
#include "view/grid.h"
#include "view/help_window.h"
#include "view/logic/find_text.h"
#include "view/logic/keys.h"
#include "view/logic/locate_node.h"
#include "view/logic/row_view.h"
#include "view/logic/status_cells.h"
#include "view/logic/viewer_layout.h"
#include "view/menu_builder.h"
#include "view/message.h"
#include "view/save_question.h"
#include "view/source_view.h"
#include "view/status_bar.h"
#include "view/subclass.h"
#include "view/tab_strip.h"
#include "view/tree_pane.h"
#include "view/value_pane.h"
#include "view/view_settings.h"

namespace rl {

/// Posted by the viewer to itself when a document has been laid out: the focus may go to it.
inline constexpr UINT kFocusRequest = WM_APP + 101;

/// Posted when memory ended over telling what is on view: it is tried once more.
inline constexpr UINT kTellAgain = WM_APP + 103;

class Viewer final : public std::enable_shared_from_this<Viewer>,
                     private IGridListener,
                     private IFilterRowListener,
                     private ICellEditorListener,
                     private ITreePaneListener {
public:
    /// Opens a viewer for `path` inside `host`; `showFlags` as the host gave them. Returns at once:
    /// the document is read later. Null when the window cannot be made.
    [[nodiscard]] static HWND Open(HWND host, const std::wstring& path, int showFlags);
    /// The viewer behind a window; null for any other window.
    [[nodiscard]] static std::shared_ptr<Viewer> Of(HWND window);
    /// Takes the window classes back; for the module's end, when no viewer is left.
    static void UnregisterClasses() noexcept;

    Viewer(const Viewer&) = delete;
    Viewer& operator=(const Viewer&) = delete;
    ~Viewer() = default;

    /// Asks about unsaved changes; destroys the window unless the user decides otherwise.
    void Close();
    /// The host's search, with the host's flags; false when nothing was found.
    bool Find(std::wstring_view text, int flags);

private:
    enum class TimerId : UINT_PTR { StartLoad = 1, PendingFilter = 2 };

    struct Brushes {
        UniqueBrush back, filterBack, paneBack;
    };

    struct Menus {
        UniqueMenu context, encoding, delimiter, comments;
    };

    /// The cell whose text is being edited, and its value when that began.
    struct EditedCell {
        int viewRow = -1;
        int dataColumn = -1;
        std::wstring value;
    };

    /// Where the user is, whatever happens to the rows; -1 where there is nothing.
    struct UserPlace {
        int modelRow = -1;
        int dataColumn = -1;
        bool onLineNumbers = false;
        int topModelRow = -1;
    };

    Viewer(HWND host, const std::wstring& path, int showFlags);

    // viewer_create.cpp
    bool CreateWindows(HWND host);
    bool CreateControls();
    void WatchChildren();
    void TearDown() noexcept;
    [[nodiscard]] bool IsGone() const { return window_ == nullptr; }

    // viewer_messages.cpp
    static LRESULT CALLBACK WindowProc(HWND window, UINT id, WPARAM wparam, LPARAM lparam);
    Answer Handle(const Message& in);
    Answer HandlePointer(const Message& in);
    Answer OnTimer(TimerId timer);
    Answer OnNotify(NMHDR& note);
    Answer OnTabChange(NMHDR& note);
    Answer OnCommand(WPARAM wparam, LPARAM lparam);
    Answer OnContextMenu();
    Answer OnEraseBackground(HDC dc);
    Answer OnStaticColors(HDC dc, HWND control);
    Answer OnDrawItem(const DRAWITEMSTRUCT& item);
    Answer OnWheel(WPARAM wparam);
    Answer OnFocus();
    Answer OnFocusRequest();
    Answer OnDpiChanged();
    Answer OnChildMessage(HWND child, const Message& in);

    // viewer_filter.cpp
    [[nodiscard]] FilterRow::Look FilterLook() const;
    void RebuildFilterRow();
    void LayoutFilterRow();
    [[nodiscard]] int FilteredRowCount() const;
    Answer OnEditColors(HDC dc, HWND control);
    void ApplyPendingFilter();
    void ApplyFilter(int gridColumn);
    void SortBy(int gridColumn, int32_t direction);
    void MoveFocus(HWND from, bool backwards);

    // viewer_load.cpp
    void StartLoad();
    Answer OnLoadFinished();
    void Adopt(detail::LoadedDoc& doc);
    void FailLoad(const std::wstring& error);

    // viewer_save.cpp
    bool AskToSave(SaveReason reason);
    bool MayOverwrite();
    bool SaveDocument();
    void RereadSaved(std::wstring text);

    // viewer_edit.cpp
    void BeginCellEdit(GridCell cell);
    bool EndCellEdit(bool commit);
    bool EndCellEdit(bool commit, bool takeFocus, std::wstring& reason);
    void CloseCellEdit();
    bool StoreTyped(std::wstring& reason);
    bool KeepsGridFrom(const Message& in);
    [[nodiscard]] Answer OnEditorColors(const Message& in);
    void PlaceEditor();
    void InsertRowBelow(Command command);
    void DeleteSelectedRows(Command command);
    void DeleteCurrentColumn(Command command);
    void ShowWithoutColumn(int column, std::unique_ptr<RowView> rows, const UserPlace& place);
    void RefreshRows();

    // viewer_reload.cpp
    [[nodiscard]] UserPlace RememberPlace() const;
    void ReturnTo(const UserPlace& place);
    void ShowRows(const UserPlace& place);
    void ShowInstead(const UserPlace& place, const std::function<void()>& exchange);
    void ReplaceRows(std::unique_ptr<RowView> rows);
    [[nodiscard]] LoadOptions CurrentLoadOptions() const;
    bool Reload(const LoadOptions& options);
    void ReloadAs(Command command);

    void KeepNodes(UserPlace& place, Document& fresh) const;

    // viewer_tree.cpp
    [[nodiscard]] std::unique_ptr<RowView> MakeRows(const ITableModel& model, bool header) const;
    void MakeContent(Document& document) const;
    void MakeOutline(const Document& of, Document& into) const;
    void MakeTable(const Document& of, Document& into, int32_t node) const;
    void FillTree();
    void SelectFirstOutlineRow();
    void OnToggleOutline(Command command);
    void ShowOutline(bool outline);
    void ShowContent(Document& made);
    void OnTreeNodeSelected(int32_t node) override;
    Answer OnTreeNotify(NMHDR& note);

    // viewer_outline.cpp
    [[nodiscard]] int CurrentViewRow() const;
    [[nodiscard]] OutlineRow CurrentOutlineRow() const;
    [[nodiscard]] OutlineRow ChosenOutlineRow() const;
    bool OnOutlineKey(WPARAM key);
    [[nodiscard]] int OutlineParentOf(int viewRow) const;
    void GoToOutlineRow(int viewRow);
    void OutlineChanged(int modelRow);
    void ToggleOutlineRow(int viewRow);
    void OnExpandNode(Command command);
    void OnExpandAll(Command command);
    void OnCollapseAll(Command command);
    void OnExpanderClicked(int viewRow) override;
    void FitOutline();
    void FilterOutline(int column, const std::wstring& text);
    void RevealMatches(std::wstring_view text);
    void ReturnToHit();
    void OnCopyNodes(Command command);

    // viewer_menus.cpp
    void BuildMenus();
    [[nodiscard]] HMENU MenuOf(MenuId menu) const;
    [[nodiscard]] CommandState DescribeCommands() const;
    void ShowMenu(MenuId menu, POINT at, UINT flags);
    void ShowContextMenu();
    Answer OnStatusClick(NMHDR& note);

    // command_actions.cpp
    bool RunCommand(UINT id);
    void OnCopyCell(Command command);
    void OnCopyRows(Command command);
    void OnCopyColumn(Command command);
    void CopyByKey(bool ctrl, bool shift);
    void OnHideColumn(Command command);
    void OnShowAllColumns(Command command);
    void OnToggleFilters(Command command);
    void OnToggleHeaderRow(Command command);
    void OnToggleLineNumbers(Command command);
    void OnToggleValuePane(Command command);
    void OnToggleEdit(Command command);
    void OnSave(Command command);
    void OnChooseFont(Command command);
    void ChooseTheme(int index);

    // apply_layout.cpp
    void Relayout();
    [[nodiscard]] LayoutInput MeasureLayout();
    void ApplyLayout(const ViewerLayout& layout);
    void RescueFocus();

    // splitter_input.cpp
    [[nodiscard]] bool IsOverSplitter(POINT client) const;
    Answer OnSetCursor(const Message& in);
    Answer OnPress(POINT client);
    Answer OnDrag(POINT client);
    Answer OnRelease();
    void SetValuePaneShown(bool shown);

    // theme_apply.cpp
    void LoadTheme(const Theme& theme);
    void ApplyTheme();
    void RebuildFonts();
    void SetFontSize(int points);
    void RefitAfterFonts();

    // viewer_source.cpp
    void FillSourceView();
    void RefreshSource();
    [[nodiscard]] std::optional<LocatedRange> LocateFocusedRow() const;
    void OnLocateInSource(Command command);

    // key_input.cpp
    [[nodiscard]] bool HasFocusInside() const;
    bool PassKeyToHost(WPARAM key);
    bool HandleKey(WPARAM key, KeyFocus focus);
    bool RunKey(const KeyBinding& binding, const KeyPress& press);
    Answer OnKeyDown(WPARAM key);
    Answer OnPartKey(const Message& in, KeyFocus focus);

    // viewer_show.cpp
    void SwitchTab(ViewerTab tab);
    void FocusContent();
    [[nodiscard]] std::wstring FullCellText(GridCell cell) const;
    [[nodiscard]] bool TogglesByDoubleClick(GridCell cell) const;
    void UpdateValuePane();
    void UpdateStatusBar();
    void ShowValue();
    void ShowStatus();
    Answer OnTellAgain();
    [[nodiscard]] StatusState DescribeStatus() const;
    [[nodiscard]] Grid::Style GridStyle() const;

    // IGridListener, viewer_show.cpp and key_input.cpp
    void OnCurrentCellChanged() override;
    void OnColumnsMoved() override;
    void OnFontStep(int direction) override;
    Answer OnGridMessage(const Message& in) override;
    void OnHeaderClick(int gridColumn) override;
    void OnHeaderMenu() override;
    bool OnCellPressed(GridClick click, GridCell cell) override;
    void OnCellClicked(GridClick click, GridCell cell) override;

    // IFilterRowListener, viewer_filter.cpp
    void OnFilterTyped(int gridColumn) override;
    Answer OnFilterBoxMessage(HWND box, const Message& in) override;
    std::shared_ptr<void> KeepAlive() override;

    // ICellEditorListener, viewer_edit.cpp
    void OnEditorLeft(EditorLeft how, HWND focus) override;
    bool OnEditorCtrlKey(WPARAM key) override;
    std::shared_ptr<void> KeepEditorAlive() override { return KeepAlive(); }

    HWND window_ = nullptr;         // null before its creation and after its end
    std::shared_ptr<Viewer> self_;  // the window's own reference
    std::wstring path_;
    DocumentKind kind_ = DocumentKind::Csv;
    bool mayTakeFocus_ = false;
    uint64_t createdAt_ = 0;  // GetTickCount64
    ViewSettings settings_;
    int dpi_ = kBaseDpi;

    ViewerFonts fonts_;
    ThemeColors colors_;
    SourceColors sourceColors_;
    int themeIndex_ = 0;  // into the built-in themes
    Brushes brushes_;

    HWND placeholder_ = nullptr;
    Grid grid_;
    FilterRow filters_;
    TabStrip tabs_;
    ValuePane pane_;
    SourceView source_;
    StatusBar status_;
    Menus menus_;
    HelpWindow help_;
    std::vector<Subclass> watches_;  // one for each child, see WatchChildren

    Document document_;
    CellEditor editor_;
    TreePane tree_;
    EditedCell edited_;        // while the editor is open
    bool endingEdit_ = false;  // closing the editor takes its focus: that must not end it again
    bool asking_ = false;      // a question of saving is on screen
    CellFinder finder_;
    OutlineRow foundRow_;     // of the last hit in an outline
    int pendingFilter_ = -1;  // grid column whose filter waits for the typing to pause
    bool loaded_ = false;
    bool editMode_ = false;
    ViewerTab tab_ = ViewerTab::Data;
    bool sourceIsStale_ = true;  // the source view shows something else than the document
    ViewerLayout layout_;
    int paneHeight_ = 0;  // pixels; 0: not yet set
    bool draggingSplitter_ = false;
    int dragBottom_ = 0;              // where the dragged pane ends, client pixels
    bool swallowCharacters_ = false;  // those of a key that was already used

    // Last, so that a worker has ended before anything else goes.
    std::shared_ptr<detail::LoadedDoc> pending_;
    bool delimiterDetected_ = false;  // of the load that runs
    LoadWorker worker_;
};

}  // namespace rl
