// UTF-8 to UTF-16 with what every 64-bit x86 processor has.
//
// The same gaits as with 256-bit vectors. What is missing here is a shuffle by table, so a dense
// block stores all its units one by one and moves on only past those where a sequence ends.
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

__m128i Bytes(int value) {
    return _mm_set1_epi8(static_cast<char>(value));
}

/// All ones where the unsigned byte is `limit` or more.
__m128i AtLeast(__m128i bytes, int limit) {
    return _mm_cmpeq_epi8(_mm_max_epu8(bytes, Bytes(limit)), bytes);
}

/// All ones where the byte is 80 to BF, read as signed.
__m128i TailsIn(__m128i bytes) {
    return _mm_cmplt_epi8(bytes, Bytes(0xC0));
}

/// 16 bytes and, at the same positions, the bytes one and two before them.
struct Window {
    __m128i now;
    __m128i before;
    __m128i beforeThat;
};

/// Whether every byte stands where the two before it say: continuations where, and only where, one
/// is due; nothing overlong, no surrogate. Sequences of four bytes are none of ours.
bool IsOrdinary(const Window& in) {
    const __m128i tailDue = _mm_or_si128(AtLeast(in.before, 0xC0), AtLeast(in.beforeThat, 0xE0));
    const __m128i misplaced = _mm_xor_si128(TailsIn(in.now), tailDue);
    const __m128i overlong2 = _mm_cmpeq_epi8(_mm_and_si128(in.now, Bytes(0xFE)), Bytes(0xC0));
    const __m128i isLowTail = _mm_cmplt_epi8(in.now, Bytes(0xA0));  // signed: 80 to 9F
    const __m128i overlong3 = _mm_and_si128(_mm_cmpeq_epi8(in.before, Bytes(0xE0)), isLowTail);
    const __m128i surrogate = _mm_andnot_si128(isLowTail, _mm_cmpeq_epi8(in.before, Bytes(0xED)));
    const __m128i wrong = _mm_or_si128(_mm_or_si128(misplaced, AtLeast(in.now, 0xF0)),
                                       _mm_or_si128(overlong2, _mm_or_si128(overlong3, surrogate)));
    return MaskOf(wrong) == 0;
}

/// The positions where a sequence ends: no lead byte there, and none of three bytes before it.
uint32_t EndsOf(const Window& in) {
    return ~MaskOf(_mm_or_si128(AtLeast(in.now, 0xC0), AtLeast(in.before, 0xE0)));
}

/// Stores, low and high byte together, the unit that would end at each of the 16 positions.
void StoreUnits(const Window& in, uint16_t* units) {
    const __m128i isTail = TailsIn(in.now);
    // Shifting in 16-bit lanes moves bits across bytes; the masks drop them again.
    const __m128i upLow = _mm_and_si128(_mm_slli_epi16(in.before, 6), Bytes(0xC0));
    const __m128i tailLow = _mm_or_si128(_mm_and_si128(in.now, Bytes(0x3F)), upLow);
    const __m128i middle = _mm_and_si128(_mm_srli_epi16(in.before, 2), Bytes(0x0F));
    const __m128i top = _mm_and_si128(_mm_and_si128(_mm_slli_epi16(in.beforeThat, 4), Bytes(0xF0)),
                                      AtLeast(in.beforeThat, 0xE0));
    const __m128i low =
        _mm_or_si128(_mm_and_si128(isTail, tailLow), _mm_andnot_si128(isTail, in.now));
    const __m128i high = _mm_and_si128(_mm_or_si128(middle, top), isTail);
    auto* const to = reinterpret_cast<__m128i*>(units);
    _mm_store_si128(to, _mm_unpacklo_epi8(low, high));
    _mm_store_si128(to + 1, _mm_unpackhi_epi8(low, high));
}

/// How many bytes before `at` belong to a sequence that ends at or behind it.
size_t CutBefore(const char* bytes, size_t at) {
    const auto lead = [bytes, at](size_t back) { return static_cast<uint8_t>(bytes[at - back]); };
    return lead(1) >= 0xC0 ? 1 : lead(2) >= 0xE0 ? 2 : 0;
}

bool IsTail(uint8_t byte) {
    return (byte & 0xC0) == 0x80;
}

/// Asks for memory some way ahead, within the buffer: new pages of the output interrupt the
/// processor's own reading ahead, and some virtual machines have none.
template <typename T>
void FetchAhead(const T* at, const T* end) {
    constexpr size_t kAhead = 4096 / sizeof(T);
    const T* const soon = static_cast<size_t>(end - at) > kAhead ? at + kAhead : at;
    _mm_prefetch(reinterpret_cast<const char*>(soon), _MM_HINT_T0);
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

/// One sequence of two or three bytes; false for anything else. Three bytes can be read.
template <typename Unit>
bool ConvertOne(Run<Unit>& run) {
    const auto* const at = reinterpret_cast<const uint8_t*>(run.bytes + run.read);
    const unsigned lead = at[0];
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

/// Dense text, for as long as it stays dense and ordinary. Needs two bytes before it.
template <typename Unit>
void ConvertDense(Run<Unit>& run) {
    alignas(16) uint16_t units[kVector];
    while (run.HasBlock()) {
        const char* const at = run.bytes + run.read;
        FetchAhead(at, run.bytes + run.size);
        FetchAhead<Unit>(run.out, run.end);
        const Window in{Load(at), Load(at - 1), Load(at - 2)};
        if (MaskOf(in.now) == 0 || !IsOrdinary(in)) {
            break;
        }
        StoreUnits(in, units);
        uint32_t ends = EndsOf(in);
        for (const uint16_t unit : units) {
            *run.out = static_cast<Unit>(unit);
            run.out += ends & 1;
            ends >>= 1;
        }
        run.read += kVector;
    }
    run.read -= CutBefore(run.bytes, run.read);  // nothing of a cut sequence was written
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

/// Whether more than a few of the next 16 bytes are beyond ASCII.
template <typename Unit>
bool IsDense(const Run<Unit>& run) {
    return std::popcount(MaskOf(Load(run.bytes + run.read))) >= 4;
}

}  // namespace

template <typename Unit>
KernelProgress Utf8ToUnitsSse2(const char* bytes, size_t size, size_t from, Unit* out,
                               size_t room) {
    Run<Unit> run{bytes, size, from, out, out + room};
    bool ordinary = true;
    while (ordinary && run.HasBlock()) {
        FetchAhead(bytes + run.read, bytes + size);
        const size_t plain = WidenBlock(run);
        run.read += plain;
        run.out += plain;
        if (plain < kBlock && run.HasBlock()) {
            ordinary = ConvertOne(run);
            if (ordinary && run.HasBlock() && IsDense(run)) {
                ConvertDense(run);
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
        count += kVector + static_cast<size_t>(std::popcount(MaskOf(AtLeast(now, 0xF0)))) -
                 static_cast<size_t>(std::popcount(MaskOf(TailsIn(now))));
    }
    for (; at < size; ++at) {
        const auto byte = static_cast<uint8_t>(bytes[at]);
        count += (IsTail(byte) ? 0u : 1u) + (byte >= 0xF0 ? 1u : 0u);
    }
    return count;
}

}  // namespace rl::simd
