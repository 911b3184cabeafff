#include "view/logic/edit_place.h"

#include <algorithm>

namespace rl {

namespace {

constexpr int kMostInset = 2;

}  // namespace

Rect PlanEditClient(const Rect& box, int lineHeight, int inset) {
    const int room = std::clamp(inset, 0, kMostInset);
    // Each half rounded by itself, as the system does where it centres a line: the text of a cell
    // and that of the editor over it then stand on one line.
    const int lineTop = box.height / 2 - lineHeight / 2;
    return {box.left, box.top + lineTop - room, box.width, lineHeight + 2 * room};
}

int PlanEditMargin(int wanted, int margin, int left) {
    return std::max(0, margin + wanted - left);
}

}  // namespace rl
