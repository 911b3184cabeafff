// What a key does in an outline: the row it leads to, or what it opens and closes.
#pragma once

#include <cstdint>

#include "view/logic/key_codes.h"

namespace rl {

/// The current row of an outline, as far as keys look at it.
struct OutlineKeyRow {
    bool exists = false;
    bool hasChildren = false;
    bool isOpen = false;
    bool isLast = false;
};

enum class OutlineStep : uint8_t {
    NotOurs,        // other handlers are asked
    Nothing,        // used, and without effect
    ToParent,       // the nearest row above that stands less deep
    ToNext,         // the first child of an open row
    Toggle,         // open a closed row, close an open one
    ExpandAll,      // every node of the document
    ExpandSubtree,  // the current row and all below it
    CollapseAll,
};

/// Ctrl is not held and no cell is being edited.
[[nodiscard]] OutlineStep PlanOutlineKey(VirtualKey key, bool shift, const OutlineKeyRow& row);

}  // namespace rl
