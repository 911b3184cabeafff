#include "model/outline_rows.h"

#include <algorithm>
#include <cstring>

namespace rl {

namespace {

// Most outlines open with a few hundred rows; the room for millions can wait until they are seen.
constexpr size_t kFirstRoom = 16'384;

}  // namespace

void OutlineRowList::Restart(size_t most) {
    most_ = std::min(most, size_t{kMaxOutlineRows});
    size_ = 0;
}

bool OutlineRowList::Grow() {
    const size_t wanted = size_ < kFirstRoom ? std::min(most_, kFirstRoom) : most_;
    if (wanted <= size_) {
        return false;
    }
    auto bytes = std::make_unique_for_overwrite<std::byte[]>(wanted * sizeof(OutlineRow));
    if (size_ > 0) {
        std::memcpy(bytes.get(), bytes_.get(), size_ * sizeof(OutlineRow));
    }
    bytes_ = std::move(bytes);
    room_ = wanted;
    return true;
}

}  // namespace rl
