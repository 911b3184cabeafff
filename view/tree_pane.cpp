// An item's data is its node's index + 1; 0 marks the child that stands for those not yet listed.
#include "view/tree_pane.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "view/control.h"
#include "view/flag_scope.h"
#include "view/logic/geometry.h"

namespace rl {

namespace {

constexpr int kIndent = 18;  // at 96 dpi

/// The control deletes and measures its items by recursion: it must not be led as deep as a file
/// may be nested.
constexpr size_t kDeepestSelection = 1000;

/// Takes the window for hidden as long as the block lasts, without a flicker: whatever the control
/// scrolls or paints all the same while its redrawing is off, it does not then.
class UnseenScope {
public:
    explicit UnseenScope(HWND window) noexcept
        : redraw_(window), window_(IsWindowVisible(window) != FALSE ? window : nullptr) {
        Tell(FALSE);
    }
    UnseenScope(const UnseenScope&) = delete;
    UnseenScope& operator=(const UnseenScope&) = delete;
    ~UnseenScope() { Tell(TRUE); }

private:
    void Tell(BOOL seen) const noexcept {
        if (window_ != nullptr) {
            DefWindowProcW(window_, WM_SETREDRAW, static_cast<WPARAM>(seen), 0);
        }
    }

    RedrawScope redraw_;
    HWND window_;
};

/// The data of an item that stands for no node and is no placeholder either.
constexpr LPARAM kNoNode = -1;

}  // namespace

bool TreePane::Create(HWND parent, ITreePaneListener& listener) {
    constexpr DWORD kStyle =
        WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS;
    listener_ = &listener;
    window_ = CreateControl(parent, WC_TREEVIEWW, L"Tree", kStyle, kTreePaneId);
    return window_ != nullptr;
}

void TreePane::SetFont(HFONT font, int dpi) {
    if (window_ == nullptr) {
        return;
    }
    SetControlFont(window_, font);
    SendMessageW(window_, TVM_SETITEMHEIGHT, static_cast<WPARAM>(-1), 0);  // by the font again
    SendMessageW(window_, TVM_SETINDENT, static_cast<WPARAM>(Scale(kIndent, dpi)), 0);
}

void TreePane::SetColors(const ThemeColors& colors) {
    if (window_ == nullptr) {
        return;
    }
    colors_ = colors;
    SetControlDark(window_, colors.dark);
    SendMessageW(window_, TVM_SETBKCOLOR, 0, static_cast<LPARAM>(colors.back));
    SendMessageW(window_, TVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(colors.text));
    SendMessageW(window_, TVM_SETLINECOLOR, 0, static_cast<LPARAM>(colors.lineNumberText));
}

void TreePane::Show(const TreeItems& items) {
    Clear();
    items_ = items;
    const RedrawScope still(window_);
    InsertAll(TVI_ROOT, items_.TopNodes());
    for (HTREEITEM item = Next(TVGN_ROOT, nullptr); item != nullptr; item = Next(TVGN_NEXT, item)) {
        Open(item);
    }
}

void TreePane::Clear() {
    const FlagScope quiet(muted_);
    const RedrawScope still(window_);
    itemOf_.clear();
    SendMessageW(window_, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
    items_ = {};
}

// A node that is not listed leaves the selection to what hides it, which nobody is told: its table
// is not meant.
bool TreePane::Select(int32_t node) {
    const std::vector<int32_t> path = items_.PathTo(node);
    bool isListed = path.size() <= kDeepestSelection;
    HTREEITEM item = nullptr;
    {
        // Each opened level would scroll and paint the pane: that alone takes seconds when deep.
        const FlagScope own(filling_);
        const UnseenScope unseen(window_);
        for (size_t level = 0; level < std::min(path.size(), kDeepestSelection); ++level) {
            if (item != nullptr) {
                Open(item);
            }
            const auto found = itemOf_.find(path[level]);
            if (found == itemOf_.end()) {
                isListed = false;
                break;
            }
            item = found->second;
        }
    }
    if (item == nullptr) {
        return false;
    }
    const bool wasMuted = std::exchange(muted_, muted_ || !isListed);
    SendMessageW(window_, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
    muted_ = wasMuted;
    return isListed;
}

int32_t TreePane::SelectedNode() const {
    const HTREEITEM item = Next(TVGN_CARET, nullptr);
    return item == nullptr || DataOf(item) <= 0 ? -1 : static_cast<int32_t>(DataOf(item)) - 1;
}

Answer TreePane::OnNotify(NMHDR& note) {
    const auto& tree = reinterpret_cast<const NMTREEVIEWW&>(note);
    switch (note.code) {
        case TVN_ITEMEXPANDINGW:
            if ((tree.action & TVE_EXPAND) != 0 && !filling_) {
                const RedrawScope still(window_);
                Fill(tree.itemNew.hItem);
            }
            return FALSE;
        case TVN_SELCHANGEDW:
            if (!muted_ && tree.itemNew.hItem != nullptr && DataOf(tree.itemNew.hItem) > 0) {
                listener_->OnTreeNodeSelected(static_cast<int32_t>(DataOf(tree.itemNew.hItem)) - 1);
            }
            return 0;
        case NM_CUSTOMDRAW: return OnDraw(reinterpret_cast<NMTVCUSTOMDRAW&>(note));
        default: return std::nullopt;
    }
}

// The system's own colours of a selected item are made for its own background.
LRESULT TreePane::OnDraw(NMTVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
        return CDRF_NOTIFYITEMDRAW;
    }
    if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && (draw.nmcd.uItemState & CDIS_SELECTED) != 0) {
        draw.clrText = colors_.selectionText;
        draw.clrTextBk = colors_.selectionBack;
    }
    return CDRF_DODEFAULT;
}

HTREEITEM TreePane::Insert(HTREEITEM parent, HTREEITEM after, int32_t node, int32_t position) {
    std::wstring label = items_.Label(node, position);
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent;
    insert.hInsertAfter = after;
    insert.itemex.mask = TVIF_TEXT | TVIF_PARAM;
    insert.itemex.pszText = label.data();
    insert.itemex.lParam = LPARAM{node} + 1;
    const auto item = reinterpret_cast<HTREEITEM>(
        SendMessageW(window_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
    if (item == nullptr) {
        return nullptr;
    }
    itemOf_[node] = item;
    if (items_.HasChildren(node)) {
        TVINSERTSTRUCTW more{};
        more.hParent = item;
        more.hInsertAfter = TVI_FIRST;
        more.itemex.mask = TVIF_PARAM;
        SendMessageW(window_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&more));
    }
    return item;
}

// Each is put behind the one before: where the control would look for the last one, many children
// would take it long.
void TreePane::InsertAll(HTREEITEM parent, const std::vector<int32_t>& nodes) {
    const size_t shown = std::min(nodes.size(), kMostChildren);
    HTREEITEM last = TVI_FIRST;
    for (size_t i = 0; i < shown; ++i) {
        last = Insert(parent, last, nodes[i], static_cast<int32_t>(i));
        if (last == nullptr) {
            return;
        }
    }
    if (shown < nodes.size()) {
        std::wstring label = L"\x2026 " + std::to_wstring(nodes.size() - shown) + L" more";
        TVINSERTSTRUCTW more{};
        more.hParent = parent;
        more.hInsertAfter = last;
        more.itemex.mask = TVIF_TEXT | TVIF_PARAM;
        more.itemex.pszText = label.data();
        more.itemex.lParam = kNoNode;
        SendMessageW(window_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&more));
    }
}

void TreePane::Fill(HTREEITEM item) {
    const HTREEITEM first = Next(TVGN_CHILD, item);
    if (first == nullptr || DataOf(first) != 0) {
        return;
    }
    const std::vector<int32_t> children = items_.Children(static_cast<int32_t>(DataOf(item)) - 1);
    SendMessageW(window_, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(first));
    InsertAll(item, children);
}

// The control does not ask for the children when it is told to open an item.
void TreePane::Open(HTREEITEM item) {
    Fill(item);
    SendMessageW(window_, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(item));
}

HTREEITEM TreePane::Next(UINT relation, HTREEITEM item) const {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(window_, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

LPARAM TreePane::DataOf(HTREEITEM item) const {
    TVITEMEXW found{};
    found.mask = TVIF_PARAM | TVIF_HANDLE;
    found.hItem = item;
    return SendMessageW(window_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&found)) != 0
               ? found.lParam
               : 0;
}

}  // namespace rl
