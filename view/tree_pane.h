// The tree beside a record table: the nodes of a JSON or XML document, listed as they are opened.
//
// Owns its control and knows nothing of tables: which node is selected is told to its listener.
// Belongs to the thread of its window.
#pragma once

#include <windows.h>
// Needs the types above.
#include <commctrl.h>

#include <cstdint>
#include <unordered_map>

#include "host/config/themes.h"
#include "view/logic/tree_items.h"
#include "view/message.h"

namespace rl {

class ITreePaneListener {
public:
    /// Another node is selected, by the user or by `Select`.
    virtual void OnTreeNodeSelected(int32_t node) = 0;

protected:
    ~ITreePaneListener() = default;
};

class TreePane {
public:
    TreePane() = default;
    TreePane(const TreePane&) = delete;
    TreePane& operator=(const TreePane&) = delete;

    /// Hidden and empty. False when the system refuses.
    [[nodiscard]] bool Create(HWND parent, ITreePaneListener& listener);
    [[nodiscard]] HWND Window() const { return window_; }

    /// The font is borrowed.
    void SetFont(HFONT font, int dpi);
    void SetColors(const ThemeColors& colors);

    /// Lists a document's top nodes, opened by one level. It must outlive its being shown.
    void Show(const TreeItems& items);
    /// Before the document goes.
    void Clear();
    /// Selects a node and brings it into view, opening what hides it. False when the tree never
    /// lists it, or only too deep.
    bool Select(int32_t node);
    /// -1: none.
    [[nodiscard]] int32_t SelectedNode() const;

    /// Answers the notifications of the control; nothing for one that is not ours.
    Answer OnNotify(NMHDR& note);

private:
    LRESULT OnDraw(NMTVCUSTOMDRAW& draw) const;
    HTREEITEM Insert(HTREEITEM parent, HTREEITEM after, const TreeItem& item);
    void InsertAll(HTREEITEM parent, int32_t node);
    /// Makes an item's children in place of its placeholder, unless they are there.
    void Populate(HTREEITEM item);
    [[nodiscard]] HTREEITEM Next(UINT relation, HTREEITEM item) const;
    [[nodiscard]] int32_t NodeOf(HTREEITEM item) const;
    [[nodiscard]] HTREEITEM FindAmong(HTREEITEM first, int32_t node) const;

    HWND window_ = nullptr;
    Color selectionText_ = 0;
    Color selectionBack_ = 0;
    ItemsBelow below_;
    OnSelect onSelect_;
    bool selecting_ = false;  // the selection moves because we say so
};

}  // namespace rl
