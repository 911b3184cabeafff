// See the header. Sizes that are no multiple of 32 lose their tail: it is a limit, not a decoder.
#include <immintrin.h>

#include "bench/support/widen.h"

namespace rl::bench {

void WidenAvx2(const char* bytes, size_t size, simd::TextUnit* out) {
    for (size_t at = 0; at + 32 <= size; at += 32) {
        const auto* const from = reinterpret_cast<const __m128i*>(bytes + at);
        auto* const to = reinterpret_cast<__m256i*>(out + at);
        _mm256_storeu_si256(to, _mm256_cvtepu8_epi16(_mm_loadu_si128(from)));
        _mm256_storeu_si256(to + 1, _mm256_cvtepu8_epi16(_mm_loadu_si128(from + 1)));
    }
}

}  // namespace rl::bench
