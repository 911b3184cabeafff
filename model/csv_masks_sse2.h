// Masks of 64 units with what every 64-bit x86 processor has. Private to the csv_*_sse2.cpp files.
#pragma once

#include <emmintrin.h>

#include <bit>
#include <cstdint>

#include "model/csv_scan_kernel.h"

namespace rl::detail {

class Sse2 {
public:
    Sse2(uint8_t quote, uint8_t delimiter)
        : quote_(_mm_set1_epi8(static_cast<char>(quote))),
          delimiter_(_mm_set1_epi8(static_cast<char>(delimiter))) {}

    static unsigned LowestBit(uint64_t bits) {
        return static_cast<unsigned>(std::countr_zero(bits));
    }
    static uint32_t Count(uint64_t bits) { return static_cast<uint32_t>(std::popcount(bits)); }

    template <typename Unit>
    CsvBlockMasks Classify(const Unit* units) const {
        CsvBlockMasks masks{0, 0, 0};
        for (int part = 0; part < 4; ++part) {
            // Units beyond U+00FF become 255 or 0, neither of which is looked for.
            const auto* from = reinterpret_cast<const __m128i*>(units + part * 16);
            const __m128i bytes =
                _mm_packus_epi16(_mm_loadu_si128(from), _mm_loadu_si128(from + 1));
            const __m128i breaks = _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n')),
                                                _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\r')));
            masks.quotes |= Bits(_mm_cmpeq_epi8(bytes, quote_)) << (part * 16);
            masks.delimiters |= Bits(_mm_cmpeq_epi8(bytes, delimiter_)) << (part * 16);
            masks.breaks |= Bits(breaks) << (part * 16);
        }
        return masks;
    }

private:
    static uint64_t Bits(__m128i bytes) {
        return static_cast<uint64_t>(static_cast<uint32_t>(_mm_movemask_epi8(bytes)));
    }

    __m128i quote_;
    __m128i delimiter_;
};

}  // namespace rl::detail
