#include "view/logic/outline_keys.h"

#include <algorithm>
#include <iterator>

namespace rl {

namespace {

using Plan = OutlineStep (*)(const OutlineKeyRow& row);

constexpr Plan kLeft = [](const OutlineKeyRow& row) {
    return row.hasChildren && row.isOpen ? OutlineStep::Toggle : OutlineStep::ToParent;
};
constexpr Plan kRight = [](const OutlineKeyRow& row) {
    if (!row.hasChildren) {
        return OutlineStep::NotOurs;
    }
    if (!row.isOpen) {
        return OutlineStep::Toggle;
    }
    return row.isLast ? OutlineStep::Nothing : OutlineStep::ToNext;
};
constexpr Plan kOpen = [](const OutlineKeyRow& row) {
    return row.hasChildren && !row.isOpen ? OutlineStep::Toggle : OutlineStep::Nothing;
};
constexpr Plan kClose = [](const OutlineKeyRow& row) {
    return row.hasChildren && row.isOpen ? OutlineStep::Toggle : OutlineStep::Nothing;
};
constexpr Plan kExpandAll = [](const OutlineKeyRow&) { return OutlineStep::ExpandAll; };
constexpr Plan kSubtree = [](const OutlineKeyRow&) { return OutlineStep::ExpandSubtree; };
constexpr Plan kCollapse = [](const OutlineKeyRow&) { return OutlineStep::CollapseAll; };

struct KeyRow {
    VirtualKey key;
    bool needsRow;
    Plan plan;
    Plan withShift;
};

constexpr KeyRow kKeys[] = {
    {key::kLeft, true, kLeft, kLeft},
    {key::kRight, true, kRight, kRight},
    {key::kNumAdd, true, kOpen, kOpen},
    {key::kPlus, true, kOpen, kOpen},
    {key::kNumSubtract, true, kClose, kClose},
    {key::kMinus, true, kClose, kClose},
    {key::kNumMultiply, false, kExpandAll, kSubtree},
    {key::kNumDivide, true, kCollapse, kCollapse},
};

}  // namespace

OutlineStep PlanOutlineKey(VirtualKey key, bool shift, const OutlineKeyRow& row) {
    const auto* found = std::ranges::find(kKeys, key, &KeyRow::key);
    if (found == std::end(kKeys) || (!row.exists && (found->needsRow || shift))) {
        return OutlineStep::NotOurs;
    }
    return (shift ? found->withShift : found->plan)(row);
}

}  // namespace rl
