// Lists the rows of an outline: one walk along the links of the tree, into whatever is open.
//
// Linear and without a stack that grows with the depth of a document.
#pragma once

#include <cstdint>
#include <vector>

#include "model/outline_rows.h"
#include "model/outline_tree.h"

namespace rl {

/// What the outline remembers of each node: a set of these.
enum OutlineFlag : uint8_t {
    kOutlineOpen = 1,
    kOutlineOpenBefore = 2,  // was open before the first filter
    kOutlineListed = 4,      // passes the filters, or something below it does
    kOutlineReached = 8,     // for the time of one search: all above it is open
};

struct OutlineState {
    std::vector<uint8_t> flags;             // by node: OutlineFlag
    std::vector<uint8_t> listedAttributes;  // by attribute: 1 when it passes the filters
    bool filtered = false;                  // only listed nodes and attributes are rows

    [[nodiscard]] bool Is(int32_t node, OutlineFlag flag) const {
        return (flags[static_cast<size_t>(node)] & flag) != 0;
    }
    void Set(int32_t node, int flags_) {
        uint8_t& own = flags[static_cast<size_t>(node)];
        own = static_cast<uint8_t>(own | flags_);
    }
    void Clear(int32_t node, int flags_) {
        uint8_t& own = flags[static_cast<size_t>(node)];
        own = static_cast<uint8_t>(own & ~flags_);
    }
};

/// Fills `rows`; false when there were more than fit.
[[nodiscard]] bool ListOutlineRows(const OutlineTree& tree, const OutlineState& state,
                                   OutlineRowList& rows);

}  // namespace rl
