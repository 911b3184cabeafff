// The columns of a record table: keys in the order of their first appearance, found by a hash.
//
// No key is copied: a column is the member that had its key first. Keys are compared as decoded.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/json_document.h"

namespace rl {

class JsonColumns {
public:
    explicit JsonColumns(const JsonDocument* document);

    [[nodiscard]] int32_t Size() const { return static_cast<int32_t>(columns_.size()); }
    /// The member whose key names the column.
    [[nodiscard]] int32_t KeyNode(int32_t column) const {
        return columns_[static_cast<size_t>(column)].node;
    }

    /// The column of a member's key, or -1. `guess` is looked at first.
    [[nodiscard]] int32_t Find(int32_t member, int32_t guess);
    [[nodiscard]] int32_t FindOrAdd(int32_t member, int32_t guess);

private:
    struct Column {
        uint64_t hash;
        int32_t node;
        bool isEscaped;
    };

    [[nodiscard]] std::wstring_view RawKey(int32_t member) const;
    [[nodiscard]] bool IsGuessRight(std::wstring_view raw, int32_t guess) const;
    /// The text of a key between its quotes; `room` holds it when it had to be decoded.
    static std::wstring_view Decoded(std::wstring_view raw, std::wstring& room);
    [[nodiscard]] uint64_t Hash(std::wstring_view key) const;
    [[nodiscard]] size_t Slot(uint64_t hash, std::wstring_view key);
    [[nodiscard]] bool IsKeyOf(const Column& column, std::wstring_view key);
    void Rehash();

    const JsonDocument* document_;
    uint64_t seed_;  // differs between runs: keys that collide cannot be prepared
    std::vector<Column> columns_;
    std::vector<int32_t> slots_;  // a power of two; -1: free
    int shift_ = 64;
    std::wstring sought_;
    std::wstring compared_;
};

}  // namespace rl
