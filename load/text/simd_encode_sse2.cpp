// Sixteen units at a time, with what every 64-bit x86 processor has.
#include <emmintrin.h>

#include <bit>
#include <cstdint>

#include "load/text/simd_encode.h"

namespace rl::simd {

namespace {

constexpr size_t kStep = 16;  // units

struct Units {
    __m128i low;
    __m128i high;
};

Units Load(const TextUnit* at) {
    const auto* const from = reinterpret_cast<const __m128i*>(at);
    return {_mm_loadu_si128(from), _mm_loadu_si128(from + 1)};
}

/// All ones in each 16-bit lane that is `limit` at most.
__m128i AtMost(__m128i units, int limit) {
    const __m128i excess = _mm_subs_epu16(units, _mm_set1_epi16(static_cast<short>(limit)));
    return _mm_cmpeq_epi16(excess, _mm_setzero_si128());
}

/// Asks for memory some way ahead, within the buffer: new pages of the output interrupt the
/// processor's own reading ahead, and some virtual machines have none.
template <typename T>
void FetchAhead(const T* at, const T* end) {
    constexpr size_t kAhead = 4096 / sizeof(T);
    const T* const soon = static_cast<size_t>(end - at) > kAhead ? at + kAhead : at;
    _mm_prefetch(reinterpret_cast<const char*>(soon), _MM_HINT_T0);
}

/// One bit for each unit whose lane is all ones.
uint32_t MaskOf(__m128i low, __m128i high) {
    return static_cast<uint32_t>(_mm_movemask_epi8(_mm_packs_epi16(low, high)));
}

bool HasSurrogate(Units units) {
    const __m128i top = _mm_set1_epi16(static_cast<short>(0xF800));
    const __m128i surrogate = _mm_set1_epi16(static_cast<short>(0xD800));
    const __m128i low = _mm_cmpeq_epi16(_mm_and_si128(units.low, top), surrogate);
    const __m128i high = _mm_cmpeq_epi16(_mm_and_si128(units.high, top), surrogate);
    return _mm_movemask_epi8(_mm_or_si128(low, high)) != 0;
}

/// The sum of the signed 16-bit lanes.
int64_t SumOf(__m128i lanes) {
    alignas(16) int16_t values[8];
    _mm_store_si128(reinterpret_cast<__m128i*>(values), lanes);
    int64_t sum = 0;
    for (const int16_t value : values) {
        sum += value;
    }
    return sum;
}

}  // namespace

size_t PackAsciiSse2(const TextUnit* units, size_t size, char* out) {
    size_t at = 0;
    while (size - at >= kStep) {
        FetchAhead(units + at, units + size);
        const Units now = Load(units + at);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + at), _mm_packus_epi16(now.low, now.high));
        const uint32_t ascii = MaskOf(AtMost(now.low, 0x7F), AtMost(now.high, 0x7F));
        if (ascii != 0xFFFF) {
            return at + static_cast<size_t>(std::countr_one(ascii));
        }
        at += kStep;
    }
    return at;
}

KernelProgress CountUtf8Sse2(const TextUnit* units, size_t size) {
    constexpr size_t kFlush = kStep * 4096;  // each lane loses at most 4 at every step
    size_t at = 0;
    size_t bytes = 0;
    bool surrogate = false;
    while (!surrogate && size - at >= kStep) {
        // Three bytes for each unit, less one for each limit that it stays below.
        const size_t start = at;
        __m128i saved = _mm_setzero_si128();
        while (size - at >= kStep && at - start < kFlush) {
            FetchAhead(units + at, units + size);
            const Units now = Load(units + at);
            surrogate = HasSurrogate(now);
            if (surrogate) {
                break;
            }
            const __m128i low = _mm_add_epi16(AtMost(now.low, 0x7F), AtMost(now.low, 0x7FF));
            const __m128i high = _mm_add_epi16(AtMost(now.high, 0x7F), AtMost(now.high, 0x7FF));
            saved = _mm_add_epi16(saved, _mm_add_epi16(low, high));
            at += kStep;
        }
        bytes += static_cast<size_t>(static_cast<int64_t>(3 * (at - start)) + SumOf(saved));
    }
    return {at, bytes};
}

}  // namespace rl::simd
