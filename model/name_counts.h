// How often each name occurs, for names that are spans of one text.
//
// One flat array: texts can be made of a million names, and an allocation for each would take
// longer than reading them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "model/name_hash.h"

namespace rl {

template <typename Unit>
class NameCounts {
public:
    using Name = std::basic_string_view<Unit>;

    /// Of names in `text`, which has fewer than 2^32 units and outlives the table.
    explicit NameCounts(Name text) : text_(text), seed_(HashSeed(this)) {}
    NameCounts(const NameCounts&) = delete;
    NameCounts& operator=(const NameCounts&) = delete;

    /// The count of a name, 0 when it is new. Valid until the next call.
    [[nodiscard]] uint32_t& CountOf(Name name) {
        if (used_ * 3 >= slots_.size() * 2) {
            Grow();
        }
        const uint32_t hash = Hash(name);
        Slot& slot = slots_[Find(hash, name)];
        if (slot.hash == 0) {
            slot = {.hash = hash,
                    .count = 0,
                    .offset = static_cast<uint32_t>(name.data() - text_.data()),
                    .length = static_cast<uint32_t>(name.size())};
            ++used_;
        }
        return slot.count;
    }

    /// The same, null when the name was never asked for by `CountOf`.
    [[nodiscard]] const uint32_t* FindCount(Name name) const {
        if (slots_.empty()) {
            return nullptr;
        }
        const Slot& slot = slots_[Find(Hash(name), name)];
        return slot.hash == 0 ? nullptr : &slot.count;
    }

private:
    struct Slot {
        uint32_t hash = 0;  // 0: free
        uint32_t count = 0;
        uint32_t offset = 0;
        uint32_t length = 0;
    };

    static constexpr int kHashBits = 32;
    static constexpr int kFirstBits = 6;

    [[nodiscard]] uint32_t Hash(Name name) const {
        return static_cast<uint32_t>(HashName(seed_ ^ name.size(), name) >> kHashBits) | 1;
    }

    /// Where the name is, or the free slot where it would be.
    [[nodiscard]] size_t Find(uint32_t hash, Name name) const {
        size_t at = hash >> (kHashBits - bits_);
        while (slots_[at].hash != 0 && (slots_[at].hash != hash || NameIn(slots_[at]) != name)) {
            at = (at + 1) & (slots_.size() - 1);
        }
        return at;
    }

    [[nodiscard]] Name NameIn(const Slot& slot) const {
        return text_.substr(slot.offset, slot.length);
    }

    void Grow() {
        bits_ = slots_.empty() ? kFirstBits : bits_ + 1;
        const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(size_t{1} << bits_));
        for (const Slot& slot : old) {
            if (slot.hash != 0) {
                size_t at = slot.hash >> (kHashBits - bits_);
                while (slots_[at].hash != 0) {
                    at = (at + 1) & (slots_.size() - 1);
                }
                slots_[at] = slot;
            }
        }
    }

    Name text_;
    uint64_t seed_;
    std::vector<Slot> slots_;
    size_t used_ = 0;
    int bits_ = 0;
};

}  // namespace rl
