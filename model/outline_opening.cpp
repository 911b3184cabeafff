// What opens and closes the nodes of an outline: one by one, level by level, or down to a node.
#include <algorithm>

#include "model/outline_model.h"

namespace rl {

void TreeTableView::OpenFirstLevels() {
    state_.flags.assign(static_cast<size_t>(tree_.Size()), 0);
    const int32_t root = tree_.Root();
    if (root >= 0) {
        state_.Set(root, kOutlineOpen);
        for (int32_t child = tree_.FirstChild(root); child >= 0; child = tree_.NextSibling(child)) {
            state_.Set(child, kOutlineOpen);
        }
    }
    Rebuild();
}

bool TreeTableView::Toggle(int32_t row) {
    const OutlineRow& shown = Row(row);
    if (!shown.hasChildren) {
        return false;
    }
    if (shown.expanded) {
        state_.Clear(shown.node, kOutlineOpen);
    } else {
        state_.Set(shown.node, kOutlineOpen);
    }
    Rebuild();
    return true;
}

void TreeTableView::ExpandSubtree(int32_t row) {
    const int32_t top = Row(row).node;
    if (!Row(row).hasChildren) {
        return;
    }
    // What stands below a node follows it, and all of that has a parent no smaller than the node.
    int32_t budget = kMaxOutlineRows;
    for (int32_t node = top; budget > 0 && node < tree_.Size(); ++node) {
        if (node > top && tree_.Parent(node) < top) {
            break;
        }
        if (tree_.HasChildren(node)) {
            state_.Set(node, kOutlineOpen);
            --budget;
        }
    }
    Rebuild();
}

void TreeTableView::CollapseAll() {
    for (int32_t node = 0; node < tree_.Size(); ++node) {
        state_.Clear(node, kOutlineOpen);
    }
    if (tree_.Root() >= 0) {
        state_.Set(tree_.Root(), kOutlineOpen);
    }
    Rebuild();
}

void TreeTableView::ExpandAll() {
    OpenLevelsToFit(0);
}

// The rows are counted level by level without listing them: a deep chain would be listed once for
// each of its levels.
void TreeTableView::OpenLevelsToFit(int32_t limit) {
    if (limit < 1) {
        for (int32_t node = 0; node < tree_.Size(); ++node) {
            state_.Set(node, kOutlineOpen);
        }
        Rebuild();
        return;
    }
    const int64_t wanted = std::min(limit, kMaxOutlineRows);
    const int64_t most = std::min<int64_t>(4 * wanted, kMaxOutlineRows);
    int64_t count = RowCount();
    std::vector<int32_t> closed;
    if (count < wanted) {
        CollectClosed(closed);
    }
    const bool changes = !closed.empty();
    while (count < wanted && !closed.empty()) {
        for (const int32_t node : closed) {
            state_.Set(node, kOutlineOpen);
        }
        std::vector<int32_t> next;
        int64_t added = 0;
        for (size_t i = 0; i < closed.size() && count + added <= most; ++i) {
            added += CountBelow(closed[i], most - count - added, next);
        }
        if (count + added > most && most < kMaxOutlineRows) {
            for (const int32_t node : closed) {
                state_.Clear(node, kOutlineOpen);
            }
            break;
        }
        if (added == 0) {
            break;
        }
        count += added;
        closed = std::move(next);
    }
    if (changes) {
        Rebuild();
    }
}

void TreeTableView::CollectClosed(std::vector<int32_t>& closed) const {
    for (const OutlineRow& row : rows_.Get()) {
        if (row.hasChildren && !row.expanded) {
            closed.push_back(row.node);
        }
    }
}

bool TreeTableView::IsListed(int32_t node) const {
    return state_.filtered ? state_.Is(node, kOutlineListed) : tree_.IsRow(node);
}

int64_t TreeTableView::ListedAttributes(int32_t node) const {
    const int32_t count = tree_.AttributeCount(node);
    if (!state_.filtered || count == 0) {
        return count;
    }
    const auto first = state_.listedAttributes.begin() + tree_.FirstAttribute(node);
    return std::count(first, first + count, uint8_t{1});
}

/// The rows that stand below an open node, and, appended to `closed`, those of them that could be
/// opened. Ends early once there are more than `most`.
int64_t TreeTableView::CountBelow(int32_t node, int64_t most, std::vector<int32_t>& closed) const {
    int64_t count = ListedAttributes(node);
    int32_t parent = node;
    for (int32_t at = tree_.FirstChild(node); count <= most;) {
        if (at < 0) {
            if (parent == node) {
                break;
            }
            at = tree_.NextSibling(parent);
            parent = tree_.Parent(parent);
            continue;
        }
        int32_t next = tree_.NextSibling(at);
        if (IsListed(at)) {
            ++count;
            if (tree_.HasChildren(at)) {
                if (state_.Is(at, kOutlineOpen)) {
                    count += ListedAttributes(at);
                    parent = at;
                    next = tree_.FirstChild(at);
                } else {
                    closed.push_back(at);
                }
            }
        }
        at = next;
    }
    return count;
}

int32_t TreeTableView::RevealNode(int32_t node, int32_t attribute) {
    if (!tree_.Contains(node)) {
        return -1;
    }
    bool changed = false;
    const auto open = [&](int32_t at) {
        if (!state_.Is(at, kOutlineOpen)) {
            state_.Set(at, kOutlineOpen);
            changed = true;
        }
    };
    for (int32_t at = tree_.Parent(node); at >= 0; at = tree_.Parent(at)) {
        open(at);
    }
    const int32_t ofNode = attribute - tree_.FirstAttribute(node);
    if (attribute >= 0 && ofNode >= 0 && ofNode < tree_.AttributeCount(node)) {
        open(node);
    }
    if (changed) {
        Rebuild();
    }
    return RowOf(node, attribute);
}

}  // namespace rl
