#include "model/xml_columns.h"

#include <algorithm>
#include <bit>

#include "model/name_hash.h"

namespace rl::detail {

namespace {

constexpr int kHashBits = 32;
constexpr int kGrowthBits = 2;

/// So many that fourfold growth ends with twice as many slots as columns can come.
int FirstSlotBits(size_t most) {
    constexpr int kMostFirstBits = 7;
    const int bits = static_cast<int>(std::bit_width(most)) + 1;
    const int steps = std::max(0, (bits - kMostFirstBits + kGrowthBits - 1) / kGrowthBits);
    return bits - steps * kGrowthBits;
}

}  // namespace

XmlColumns::XmlColumns(size_t most)
    : seed_(HashSeed(this)),
      slots_(size_t{1} << FirstSlotBits(most), Slot{.hash = 0, .column = -1}),
      shift_(kHashBits - FirstSlotBits(most)) {}

int32_t XmlColumns::FindOrAdd(const XmlColumn& column) {
    if (columns_.size() * 2 > slots_.size()) {
        Grow();
    }
    const uint32_t hash = Hash(column);
    size_t at = hash >> shift_;
    for (; slots_[at].column >= 0; at = (at + 1) & (slots_.size() - 1)) {
        const Slot& slot = slots_[at];
        if (slot.hash == hash && columns_[static_cast<size_t>(slot.column)] == column) {
            return slot.column;
        }
    }
    const auto added = static_cast<int32_t>(columns_.size());
    slots_[at] = {.hash = hash, .column = added};
    columns_.push_back(column);
    return added;
}

uint32_t XmlColumns::Hash(const XmlColumn& column) const {
    const uint64_t start = seed_ ^ (column.name.size() * 2 + (column.isAttribute ? 1 : 0));
    return static_cast<uint32_t>(HashName(start, column.name) >> kHashBits);
}

/// Both tables are walked in order: where a hash goes follows from its highest bits.
void XmlColumns::Grow() {
    shift_ -= kGrowthBits;
    std::vector<Slot> slots(slots_.size() << kGrowthBits, Slot{.hash = 0, .column = -1});
    columns_.reserve(slots.size() / 2);
    for (const Slot& slot : slots_) {
        if (slot.column >= 0) {
            size_t at = slot.hash >> shift_;
            while (slots[at].column >= 0) {
                at = (at + 1) & (slots.size() - 1);
            }
            slots[at] = slot;
        }
    }
    slots_.swap(slots);
}

}  // namespace rl::detail
