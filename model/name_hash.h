// A hash of names for which nobody can prepare a file whose names all collide: it starts from where
// the table happens to stand in memory.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace rl {

/// A start for the hashes of one table, from where it stands.
[[nodiscard]] inline uint64_t HashSeed(const void* table) {
    return std::bit_cast<uintptr_t>(table) * 0x9E3779B97F4A7C15u;
}

/// All bits depend on all units; the highest ones are the best.
template <typename Unit>
[[nodiscard]] uint64_t HashName(uint64_t start, std::basic_string_view<Unit> name) {
    uint64_t hash = start;
    for (const Unit unit : name) {
        hash = (hash ^ static_cast<uint64_t>(unit)) * 0xD6E8FEB86659FD93u;
        hash ^= hash >> 32;
    }
    return hash * 0x9E3779B97F4A7C15u;
}

/// For the standard's hash tables of names.
template <typename Unit>
class BasicNameHash {
public:
    BasicNameHash() : seed_(HashSeed(this)) {}

    [[nodiscard]] size_t operator()(std::basic_string_view<Unit> name) const {
        return static_cast<size_t>(HashName(seed_ ^ name.size(), name));
    }

private:
    uint64_t seed_;
};

using NameHash = BasicNameHash<wchar_t>;

}  // namespace rl
