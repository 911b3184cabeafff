// Counts the nodes and attributes of an XML text, 64 units at a time. Private to the parser.
//
// Exact for texts in which "<" and ">" stand for nothing but markup; else a guess, mostly too high:
// only the room reserved for nodes depends on it. Comments and the like may hold anything, so they
// are left to the grammar, one by one.
#pragma once

#include <emmintrin.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace rl::detail {

/// Where a block of 64 units has what, one bit for each unit.
struct XmlMarkMasks {
    uint64_t opens = 0;   // "<"
    uint64_t closes = 0;  // ">"
    uint64_t slashes = 0;
    uint64_t bangs = 0;
    uint64_t equals = 0;
    uint64_t quotes = 0;
    uint64_t blanks = 0;  // and vertical tabs, form feeds: nobody else writes those
};

template <typename Unit>
XmlMarkMasks FindXmlMarks(const Unit* units) {
    static_assert(sizeof(Unit) == 2);
    XmlMarkMasks masks;
    for (int part = 0; part < 4; ++part) {
        // Units beyond U+00FF become 255 or 0, neither of which is looked for.
        const auto* from = reinterpret_cast<const __m128i*>(units + part * 16);
        const __m128i bytes = _mm_packus_epi16(_mm_loadu_si128(from), _mm_loadu_si128(from + 1));
        const auto bits = [part](__m128i found) {
            return uint64_t{static_cast<uint32_t>(_mm_movemask_epi8(found))} << (part * 16);
        };
        const auto equal = [bytes](char unit) {
            return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(unit));
        };
        const __m128i fromTab = _mm_sub_epi8(bytes, _mm_set1_epi8('\t'));
        const __m128i controls = _mm_cmpeq_epi8(_mm_min_epu8(fromTab, _mm_set1_epi8(4)), fromTab);
        masks.opens |= bits(equal('<'));
        masks.closes |= bits(equal('>'));
        masks.slashes |= bits(equal('/'));
        masks.bangs |= bits(equal('!'));
        masks.equals |= bits(equal('='));
        masks.quotes |= bits(_mm_or_si128(equal('"'), equal('\'')));
        masks.blanks |= bits(_mm_or_si128(equal(' '), controls));
    }
    return masks;
}

class XmlMarkCounter {
public:
    /// Counts up to the next "<!" or the end; where that is. Goes on where it ended before.
    template <typename Unit>
    const Unit* Count(const Unit* at, const Unit* end) {
        while (at != end) {
            const std::ptrdiff_t size = std::min<std::ptrdiff_t>(64, end - at);
            XmlMarkMasks masks;
            if (size == 64) {
                masks = FindXmlMarks(at);
            } else {
                std::array<Unit, 64> rest;  // nothing may be read behind the text
                std::fill(std::copy(at, end, rest.begin()), rest.end(), Unit{' '});
                masks = FindXmlMarks(rest.data());
            }
            const uint64_t sections = masks.opens & (masks.bangs >> 1);
            if (sections != 0) {
                const int length = std::countr_zero(sections);
                Add(masks, (uint64_t{1} << length) - 1);
                return at + length;
            }
            if (at + size != end && at[size] == '!' && at[size - 1] == '<') {
                Add(masks, ~uint64_t{0} >> 1);
                return at + size - 1;
            }
            Add(masks, ~uint64_t{0});
            at += size;
        }
        return end;
    }

    /// Goes on behind something that others have read.
    void Restart() {
        afterClose_ = 1;
        afterOpen_ = afterEquals_ = 0;
    }

    [[nodiscard]] size_t Nodes() const { return tags_ + texts_; }
    [[nodiscard]] size_t Attributes() const { return attributes_; }

private:
    /// In sums of ever wider groups: not every 64-bit processor has an instruction for it.
    static size_t CountOf(uint64_t bits) {
        bits -= bits >> 1 & 0x5555555555555555;
        bits = (bits & 0x3333333333333333) + (bits >> 2 & 0x3333333333333333);
        bits = (bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0F;
        return static_cast<size_t>(bits * 0x0101010101010101 >> 56);
    }

    void Add(const XmlMarkMasks& masks, uint64_t wanted) {
        const uint64_t opens = masks.opens & wanted;
        const uint64_t endTags = masks.slashes & wanted & (opens << 1 | afterOpen_);
        tags_ += CountOf(opens) - CountOf(endTags);
        const uint64_t values =
            (masks.quotes | masks.blanks) & wanted & (masks.equals << 1 | afterEquals_);
        attributes_ += CountOf(values);
        // A text begins behind a tag. Adding the place behind it to the blanks carries it past
        // them.
        const uint64_t starts = masks.closes << 1 | afterClose_;
        const uint64_t sum = masks.blanks + (starts & masks.blanks);
        const uint64_t visible = ((starts | sum) & ~masks.blanks) & wanted;
        texts_ += CountOf(visible & ~opens);
        afterClose_ = (masks.closes >> 63) | (sum < masks.blanks ? 1 : 0);
        afterOpen_ = opens >> 63;
        afterEquals_ = masks.equals >> 63;
    }

    size_t tags_ = 0;
    size_t texts_ = 0;
    size_t attributes_ = 0;
    // Whether the block before ended with one of these; blanks behind the ">" do not matter.
    uint64_t afterClose_ = 1;
    uint64_t afterOpen_ = 0;
    uint64_t afterEquals_ = 0;
};

}  // namespace rl::detail
