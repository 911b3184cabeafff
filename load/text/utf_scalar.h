// UTF-8 to UTF-16 one sequence at a time: the reference that every faster kernel must agree with,
// and what finishes where a kernel stops.
//
// A template over the unit, because units are 16 bits in the module and may be wider elsewhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "load/text/utf.h"

namespace rl::utf {

/// What leads a well-formed sequence, and where its second byte may lie. That range alone rules out
/// overlong forms, surrogates and everything beyond U+10FFFF.
struct LeadByte {
    uint8_t length = 0;  // of the sequence; 0 for a byte that cannot lead
    uint8_t secondFrom = 0x80;
    uint8_t secondTo = 0xBF;
};

[[nodiscard]] constexpr LeadByte LeadByteOf(uint8_t byte) noexcept {
    if (byte < 0x80) {
        return {.length = 1};
    }
    if (byte < 0xC2 || byte > 0xF4) {
        return {};
    }
    if (byte < 0xE0) {
        return {.length = 2};
    }
    if (byte < 0xF0) {
        return {.length = 3,
                .secondFrom = static_cast<uint8_t>(byte == 0xE0 ? 0xA0 : 0x80),
                .secondTo = static_cast<uint8_t>(byte == 0xED ? 0x9F : 0xBF)};
    }
    return {.length = 4,
            .secondFrom = static_cast<uint8_t>(byte == 0xF0 ? 0x90 : 0x80),
            .secondTo = static_cast<uint8_t>(byte == 0xF4 ? 0x8F : 0xBF)};
}

/// One decoded sequence; `length` 0 when the bytes do not begin with a well-formed one.
struct Sequence {
    uint32_t point = 0;
    size_t length = 0;
};

[[nodiscard]] constexpr Sequence SequenceAt(std::string_view bytes) noexcept {
    if (bytes.empty()) {
        return {};
    }
    const auto first = static_cast<uint8_t>(bytes[0]);
    const LeadByte lead = LeadByteOf(first);
    if (lead.length <= 1) {
        return {first, lead.length};
    }
    if (bytes.size() < lead.length) {
        return {};
    }
    const auto second = static_cast<uint8_t>(bytes[1]);
    if (second < lead.secondFrom || second > lead.secondTo) {
        return {};
    }
    uint32_t point = first & (0x7Fu >> lead.length);
    point = point << 6 | (second & 0x3F);
    for (size_t at = 2; at < lead.length; ++at) {
        const auto next = static_cast<uint8_t>(bytes[at]);
        if ((next & 0xC0) != 0x80) {
            return {};
        }
        point = point << 6 | (next & 0x3F);
    }
    return {point, lead.length};
}

/// `Utf8ToUnits` for any unit type.
template <typename Unit>
[[nodiscard]] Progress Utf8ToUnitsScalar(std::string_view bytes, std::span<Unit> out) {
    Progress done;
    while (done.read < bytes.size()) {
        const Sequence next = SequenceAt(bytes.substr(done.read));
        const size_t units = next.length == 4 ? 2 : 1;
        if (next.length == 0 || units > out.size() - done.written) {
            break;
        }
        if (units == 2) {
            const uint32_t offset = next.point - 0x10000;
            out[done.written] = static_cast<Unit>(0xD800 + (offset >> 10));
            out[done.written + 1] = static_cast<Unit>(0xDC00 + (offset & 0x3FF));
        } else {
            out[done.written] = static_cast<Unit>(next.point);
        }
        done.read += next.length;
        done.written += units;
    }
    return done;
}

}  // namespace rl::utf
