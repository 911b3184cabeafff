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
#include <vector>

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

    /// Of a node's children the first that many are listed, and one item that tells how many more
    /// there are: each costs the control time and memory, and nobody walks through a million.
    static constexpr size_t kMostChildren = 20'000;

    /// Lists a document's top nodes, opened by one level. It must outlive its being shown.
    void Show(const TreeItems& items);
    /// Nothing is told any more: the control is about to go, and its items with it.
    void Mute() { muted_ = true; }
    /// Before the document goes.
    void Clear();
    /// Selects a node and brings it into view, opening what hides it. False when the tree does not
    /// list it; the nearest item above it is then selected without a word to the listener.
    bool Select(int32_t node);
    /// -1: none.
    [[nodiscard]] int32_t SelectedNode() const;

    /// Answers the notifications of the control; nothing for one that is not ours.
    Answer OnNotify(NMHDR& note);

private:
    HTREEITEM Insert(HTREEITEM parent, HTREEITEM after, int32_t node, int32_t position);
    void InsertAll(HTREEITEM parent, const std::vector<int32_t>& nodes);
    void Fill(HTREEITEM item);
    void Open(HTREEITEM item);
    [[nodiscard]] LRESULT OnDraw(NMTVCUSTOMDRAW& draw) const;
    [[nodiscard]] HTREEITEM Next(UINT relation, HTREEITEM item) const;
    [[nodiscard]] LPARAM DataOf(HTREEITEM item) const;

    HWND window_ = nullptr;
    ITreePaneListener* listener_ = nullptr;
    TreeItems items_;
    std::unordered_map<int32_t, HTREEITEM> itemOf_;  // by node
    ThemeColors colors_;
    bool muted_ = false;
    bool filling_ = false;  // items are opened by us, who see to their children and to drawing
};

}  // namespace rl
