// A walk over a node and all below it, in document order, along the links and without a stack.
#pragma once

#include <cstdint>
#include <vector>

namespace rl {

/// Calls `enter` for each node, which answers whether the node's children, of which there must be
/// one, come next; then `leave` once they have ended. Stops as soon as `isOver` says so.
template <typename Node, typename Enter, typename Leave, typename IsOver>
void WalkSubtree(const std::vector<Node>& nodes, int32_t top, const Enter& enter,
                 const Leave& leave, const IsOver& isOver) {
    const auto nodeAt = [&](int32_t index) -> const Node& {
        return nodes[static_cast<size_t>(index)];
    };
    for (int32_t at = top; !isOver();) {
        if (enter(at)) {
            at = nodeAt(at).firstChild;
            continue;
        }
        while (at != top && nodeAt(at).nextSibling < 0) {
            at = nodeAt(at).parent;
            leave(at);
        }
        if (at == top) {
            return;
        }
        at = nodeAt(at).nextSibling;
    }
}

}  // namespace rl
