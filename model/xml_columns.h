// The columns of a record table: names in the order of their first appearance, found by a hash.
//
// No name is copied: the text they stand in must outlive the columns. A file may bring as many
// names as it likes, each once: adding one costs a step or two, not an allocation.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace rl::detail {

/// A column: the attributes, or the child elements, of one name.
struct XmlColumn {
    std::wstring_view name;  // without the "@" of an attribute
    bool isAttribute = false;

    bool operator==(const XmlColumn&) const = default;
};

class XmlColumns {
public:
    /// Made for at most `most` columns.
    explicit XmlColumns(size_t most);

    [[nodiscard]] const std::vector<XmlColumn>& All() const { return columns_; }

    /// The number of a column, the next one when it is new.
    int32_t FindOrAdd(const XmlColumn& column);

    /// Gives back what only finding needs; nothing is found or added afterwards.
    void StopFinding() { slots_ = {}; }

private:
    struct Slot {
        uint32_t hash;
        int32_t column;  // -1: free
    };

    [[nodiscard]] uint32_t Hash(const XmlColumn& column) const;
    void Grow();

    uint64_t seed_;  // differs between runs: names that collide cannot be prepared
    std::vector<XmlColumn> columns_;
    std::vector<Slot> slots_;  // a power of two, at most half of them taken
    int shift_;                // of a hash, to its slot
};

}  // namespace rl::detail
