// The searches that a parse of XML spends its time in: one unit, and the marks that matter in a
// tag.
//
// Two sets of the same functions: unit by unit, which is the law, and 8 units at a time with what
// every 64-bit x86 processor has. All search [at, end) and answer `end` when nothing is found;
// nothing is read behind `end`.
#pragma once

#include <emmintrin.h>

#include <bit>
#include <cstdint>

#include "model/xml_text.h"

namespace rl::detail {

/// Units from the beginning of the text, end exclusive.
struct XmlExtent {
    uint32_t start;
    uint32_t end;
};

struct XmlScanPlain {
    template <typename Unit>
    static const Unit* FindUnit(const Unit* at, const Unit* end, char wanted) {
        while (at < end && *at != static_cast<Unit>(wanted)) {
            ++at;
        }
        return at;
    }

    /// The first ">" or quote.
    template <typename Unit>
    static const Unit* FindTagMark(const Unit* at, const Unit* end) {
        return FindIn(kXmlQuotes | UnitSet('>'), at, end);
    }
};

struct XmlScanSse2 {
    template <typename Unit>
    static const Unit* FindUnit(const Unit* at, const Unit* end, char wanted) {
        static_assert(sizeof(Unit) == 2);
        const __m128i sought = _mm_set1_epi16(wanted);
        for (; end - at >= 8; at += 8) {
            const uint32_t hits = Hits(_mm_cmpeq_epi16(Load(at), sought));
            if (hits != 0) {
                return at + std::countr_zero(hits) / 2;
            }
        }
        return XmlScanPlain::FindUnit(at, end, wanted);
    }

    template <typename Unit>
    static const Unit* FindTagMark(const Unit* at, const Unit* end) {
        static_assert(sizeof(Unit) == 2);
        for (; end - at >= 8; at += 8) {
            const __m128i units = Load(at);
            const __m128i quotes = _mm_or_si128(_mm_cmpeq_epi16(units, _mm_set1_epi16('"')),
                                                _mm_cmpeq_epi16(units, _mm_set1_epi16('\'')));
            const uint32_t hits =
                Hits(_mm_or_si128(quotes, _mm_cmpeq_epi16(units, _mm_set1_epi16('>'))));
            if (hits != 0) {
                return at + std::countr_zero(hits) / 2;
            }
        }
        return XmlScanPlain::FindTagMark(at, end);
    }

private:
    template <typename Unit>
    static __m128i Load(const Unit* at) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    }
    /// Two bits for each unit.
    static uint32_t Hits(__m128i units) { return static_cast<uint32_t>(_mm_movemask_epi8(units)); }
};

}  // namespace rl::detail
