// UTF-8 to UTF-16 with what every 64-bit x86 processor has.
//
// ASCII is widened 64 bytes at a time; a block with other characters is widened as if it were
// ASCII, kept up to the first of them, and their run is converted one by one.
#include <emmintrin.h>

#include <bit>
#include <cstdint>

#include "load/text/simd_utf8.h"

namespace rl::simd {

namespace {

constexpr size_t kVector = sizeof(__m128i);
constexpr size_t kBlock = 4 * kVector;

__m128i Load(const char* at) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
}

uint32_t MaskOf(__m128i vector) {
    return static_cast<uint32_t>(_mm_movemask_epi8(vector));
}

template <typename Unit>
void Widen(Unit* out, __m128i bytes) {
    const __m128i zero = _mm_setzero_si128();
    auto* const to = reinterpret_cast<__m128i*>(out);
    _mm_storeu_si128(to, _mm_unpacklo_epi8(bytes, zero));
    _mm_storeu_si128(to + 1, _mm_unpackhi_epi8(bytes, zero));
}

bool IsTail(uint8_t byte) {
    return (byte & 0xC0) == 0x80;
}

/// Reading and writing positions of one conversion.
template <typename Unit>
struct Run {
    const char* bytes;
    size_t size;
    size_t read;
    Unit* out;
    const Unit* end;

    [[nodiscard]] bool HasBlock() const {
        return size - read >= kBlock && static_cast<size_t>(end - out) >= kBlock;
    }
};

/// One sequence of at most three bytes; false for anything else. Three bytes can be read.
template <typename Unit>
bool ConvertOne(Run<Unit>& run) {
    const auto* const at = reinterpret_cast<const uint8_t*>(run.bytes + run.read);
    const unsigned lead = at[0];
    if (lead < 0x80) {
        *run.out++ = static_cast<Unit>(lead);
        run.read += 1;
        return true;
    }
    if (lead >= 0xC2 && lead < 0xE0 && IsTail(at[1])) {
        *run.out++ = static_cast<Unit>((lead & 0x1F) << 6 | (at[1] & 0x3Fu));
        run.read += 2;
        return true;
    }
    if (lead < 0xE0 || lead >= 0xF0 || !IsTail(at[1]) || !IsTail(at[2])) {
        return false;
    }
    const unsigned unit = (lead & 0x0F) << 12 | (at[1] & 0x3Fu) << 6 | (at[2] & 0x3Fu);
    if (unit < 0x800 || (unit & 0xF800) == 0xD800) {
        return false;
    }
    *run.out++ = static_cast<Unit>(unit);
    run.read += 3;
    return true;
}

/// Characters one by one until sixteen bytes of ASCII come next. False at anything unusual.
template <typename Unit>
bool ConvertDense(Run<Unit>& run) {
    while (run.HasBlock()) {
        if (run.bytes[run.read] >= 0 && MaskOf(Load(run.bytes + run.read)) == 0) {
            return true;
        }
        for (int characters = 0; characters < 8; ++characters) {
            if (!ConvertOne(run)) {
                return false;
            }
        }
    }
    return true;
}

/// Widens a block; returns how much of its beginning was ASCII.
template <typename Unit>
size_t WidenBlock(const Run<Unit>& run) {
    uint64_t beyond = 0;
    for (size_t at = 0; at < kBlock; at += kVector) {
        const __m128i bytes = Load(run.bytes + run.read + at);
        Widen(run.out + at, bytes);
        beyond |= static_cast<uint64_t>(MaskOf(bytes)) << at;
    }
    return beyond == 0 ? kBlock : static_cast<size_t>(std::countr_zero(beyond));
}

}  // namespace

template <typename Unit>
KernelProgress Utf8ToUnitsSse2(const char* bytes, size_t size, size_t from, Unit* out,
                               size_t room) {
    Run<Unit> run{bytes, size, from, out, out + room};
    bool ordinary = true;
    while (ordinary && run.HasBlock()) {
        const size_t plain = WidenBlock(run);
        run.read += plain;
        run.out += plain;
        if (plain < kBlock && run.HasBlock()) {
            ordinary = ConvertOne(run);
            if (ordinary && run.HasBlock() && run.bytes[run.read] < 0) {
                ordinary = ConvertDense(run);
            }
        }
    }
    return {run.read - from, static_cast<size_t>(run.out - out)};
}

template KernelProgress Utf8ToUnitsSse2<TextUnit>(const char*, size_t, size_t, TextUnit*, size_t);

size_t CountUnitsSse2(const char* bytes, size_t size) {
    size_t count = 0;
    size_t at = 0;
    for (; size - at >= kVector; at += kVector) {
        const __m128i now = Load(bytes + at);
        const __m128i tails = _mm_cmplt_epi8(now, _mm_set1_epi8(-64));  // signed: 80 to BF
        const __m128i fours = _mm_cmpeq_epi8(_mm_max_epu8(now, _mm_set1_epi8(-16)), now);
        count += kVector + static_cast<size_t>(std::popcount(MaskOf(fours))) -
                 static_cast<size_t>(std::popcount(MaskOf(tails)));
    }
    for (; at < size; ++at) {
        const auto byte = static_cast<uint8_t>(bytes[at]);
        count += (IsTail(byte) ? 0u : 1u) + (byte >= 0xF0 ? 1u : 0u);
    }
    return count;
}

}  // namespace rl::simd
