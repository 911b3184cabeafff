// A hash of names for which nobody can prepare a file whose names all collide: it starts from where
// the table happens to stand in memory.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace rl {

/// For the standard's hash tables of names.
template <typename Unit>
class BasicNameHash {
public:
    BasicNameHash() : seed_(std::bit_cast<uintptr_t>(this) * 0x9E3779B97F4A7C15u) {}

    [[nodiscard]] size_t operator()(std::basic_string_view<Unit> name) const {
        uint64_t hash = seed_ ^ name.size();
        for (const Unit unit : name) {
            hash = (hash ^ static_cast<uint64_t>(unit)) * 0xD6E8FEB86659FD93u;
            hash ^= hash >> 32;
        }
        return static_cast<size_t>(hash * 0x9E3779B97F4A7C15u);
    }

private:
    uint64_t seed_;
};

using NameHash = BasicNameHash<wchar_t>;

}  // namespace rl
