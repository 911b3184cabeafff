// One row of an outline: which node it shows, how deep it stands, whether it opens; and the list of
// all rows.
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace rl {

/// What a row is, and so how it is coloured.
enum class OutlineRowType : uint8_t {
    XmlDocument = 0,
    XmlElement,
    XmlAttribute,
    XmlText,
    XmlComment,
    XmlCdata,
    XmlInstruction,
    XmlDoctype,
    JsonObject,
    JsonArray,
    JsonString,
    JsonNumber,
    JsonBoolean,
    JsonNull,
};

struct OutlineRow {
    int32_t node = -1;
    int32_t aux = -1;  // XML: the attribute's index; JSON: the position in the parent array; or -1
    uint16_t depth = 0;  // 0 for the root; stops at 65,535
    OutlineRowType rowType = OutlineRowType::XmlDocument;
    bool hasChildren = false;
    bool expanded = false;

    [[nodiscard]] bool IsAttribute() const { return rowType == OutlineRowType::XmlAttribute; }
};
static_assert(sizeof(OutlineRow) == 16);

/// No walk lists or opens more than this.
inline constexpr int32_t kMaxOutlineRows = 2'000'000;

/// The rows in display order, written anew from the front each time the outline changes.
///
/// Has its own room, because that of a vector is either filled before it is written or moved again
/// and again while it grows: 2,000,000 rows take one allocation after a small one.
class OutlineRowList {
public:
    /// Forgets all rows; no more than `most` will come, nor more than kMaxOutlineRows.
    void Restart(size_t most);

    /// False when there is no room for one more and never will be.
    [[nodiscard]] bool HasRoom() { return size_ < room_ || Grow(); }
    /// Only after `HasRoom`.
    void Append(const OutlineRow& row) {
        assert(size_ < room_);
        std::construct_at(Rows() + size_, row);
        ++size_;
    }

    [[nodiscard]] std::span<const OutlineRow> Get() const { return {Rows(), size_}; }

private:
    [[nodiscard]] bool Grow();
    [[nodiscard]] OutlineRow* Rows() const { return reinterpret_cast<OutlineRow*>(bytes_.get()); }

    std::unique_ptr<std::byte[]> bytes_;
    size_t room_ = 0;  // rows that fit
    size_t size_ = 0;
    size_t most_ = 0;
};

}  // namespace rl
