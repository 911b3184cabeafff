#include "model/json_columns.h"

#include "model/json_text.h"
#include "model/name_hash.h"

namespace rl {

JsonColumns::JsonColumns(const JsonDocument* document)
    : document_(document), seed_(HashSeed(this)) {}

int32_t JsonColumns::Find(int32_t member, int32_t guess) {
    const std::wstring_view raw = RawKey(member);
    if (IsGuessRight(raw, guess)) {
        return guess;
    }
    if (slots_.empty()) {
        return -1;
    }
    const std::wstring_view key = Decoded(raw, sought_);
    return slots_[Slot(Hash(key), key)];
}

int32_t JsonColumns::FindOrAdd(int32_t member, int32_t guess) {
    const std::wstring_view raw = RawKey(member);
    if (IsGuessRight(raw, guess)) {
        return guess;
    }
    if (columns_.size() * 2 >= slots_.size()) {
        Rehash();
    }
    const std::wstring_view key = Decoded(raw, sought_);
    const uint64_t hash = Hash(key);
    int32_t& slot = slots_[Slot(hash, key)];
    if (slot < 0) {
        slot = Size();
        columns_.push_back({hash, member, raw.find(L'\\') != std::wstring_view::npos});
    }
    return slot;
}

std::wstring_view JsonColumns::RawKey(int32_t member) const {
    const JsonNode& node = document_->nodes[static_cast<size_t>(member)];
    return std::wstring_view(document_->text).substr(node.keyOffset + 1, node.keyLength - 2);
}

bool JsonColumns::IsGuessRight(std::wstring_view raw, int32_t guess) const {
    return guess < Size() && raw == RawKey(KeyNode(guess));
}

std::wstring_view JsonColumns::Decoded(std::wstring_view raw, std::wstring& room) {
    if (raw.find(L'\\') == std::wstring_view::npos) {
        return raw;
    }
    room.clear();
    AppendDecoded({raw.data() - 1, raw.size() + 2}, room);
    return room;
}

uint64_t JsonColumns::Hash(std::wstring_view key) const {
    return HashName(seed_ ^ key.size(), key);
}

/// Where the key is, or the free slot where it would be.
size_t JsonColumns::Slot(uint64_t hash, std::wstring_view key) {
    size_t slot = static_cast<size_t>(hash >> shift_);
    while (slots_[slot] >= 0) {
        const Column& column = columns_[static_cast<size_t>(slots_[slot])];
        if (column.hash == hash && IsKeyOf(column, key)) {
            break;
        }
        slot = (slot + 1) & (slots_.size() - 1);
    }
    return slot;
}

bool JsonColumns::IsKeyOf(const Column& column, std::wstring_view key) {
    const std::wstring_view raw = RawKey(column.node);
    return (column.isEscaped ? Decoded(raw, compared_) : raw) == key;
}

void JsonColumns::Rehash() {
    shift_ = slots_.empty() ? 60 : shift_ - 1;
    slots_.assign(size_t{1} << (64 - shift_), -1);
    for (size_t column = 0; column < columns_.size(); ++column) {
        size_t slot = static_cast<size_t>(columns_[column].hash >> shift_);
        while (slots_[slot] >= 0) {
            slot = (slot + 1) & (slots_.size() - 1);
        }
        slots_[slot] = static_cast<int32_t>(column);
    }
}

}  // namespace rl
