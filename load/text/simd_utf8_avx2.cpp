// UTF-8 to UTF-16 with 256-bit vectors.
//
// Three gaits. Plain ASCII is widened, 64 bytes at a time. A block with a few other characters is
// widened as if it were ASCII, kept up to the first of them, and goes on behind it. A block dense
// with them is converted without a branch: every byte position computes the unit that would end
// there, from itself and the two bytes before it, and a table then closes the gaps between the
// positions where sequences really end.
#include <immintrin.h>

#include <cstdint>

#include "load/text/simd_utf8.h"

namespace rl::simd {

namespace {

constexpr size_t kBlock = 64;    // bytes looked at together
constexpr size_t kSlack = 16;    // units a store may run ahead of what counts
constexpr int kDenseBlock = 10;  // bytes beyond ASCII from which a block counts as dense

/// For each set of positions among eight, the byte shuffle that moves their units together.
struct alignas(16) GapTable {
    uint8_t shuffle[256][16];
};

constexpr GapTable MakeGapTable() {
    GapTable table{};
    for (unsigned set = 0; set < 256; ++set) {
        unsigned next = 0;
        for (unsigned position = 0; position < 8; ++position) {
            if ((set >> position & 1) != 0) {
                table.shuffle[set][next++] = static_cast<uint8_t>(2 * position);
                table.shuffle[set][next++] = static_cast<uint8_t>(2 * position + 1);
            }
        }
        while (next < 16) {
            table.shuffle[set][next++] = 0x80;
        }
    }
    return table;
}

constexpr GapTable kGaps = MakeGapTable();

__m256i Load(const char* at) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at));
}

uint32_t MaskOf(__m256i vector) {
    return static_cast<uint32_t>(_mm256_movemask_epi8(vector));
}

__m256i Bytes(int value) {
    return _mm256_set1_epi8(static_cast<char>(value));
}

/// All ones where the unsigned byte is `limit` or more; `limit` is above 0.
__m256i AtLeast(__m256i bytes, int limit) {
    const __m256i excess = _mm256_subs_epu8(bytes, Bytes(limit - 1));
    return _mm256_xor_si256(_mm256_cmpeq_epi8(excess, _mm256_setzero_si256()), Bytes(0xFF));
}

template <typename Unit>
void StoreUnits(Unit* out, __m128i units) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), units);
}

template <typename Unit>
void Widen(Unit* out, __m256i bytes) {
    auto* const to = reinterpret_cast<__m256i*>(out);
    _mm256_storeu_si256(to, _mm256_cvtepu8_epi16(_mm256_castsi256_si128(bytes)));
    _mm256_storeu_si256(to + 1, _mm256_cvtepu8_epi16(_mm256_extracti128_si256(bytes, 1)));
}

/// 32 bytes and, at the same positions, the bytes one and two before them.
struct Window {
    __m256i now;
    __m256i before;
    __m256i beforeThat;
};

/// Whether every byte stands where the two before it say: continuations where, and only where, one
/// is due; nothing overlong, no surrogate. Sequences of four bytes are none of ours.
bool IsOrdinary(const Window& in) {
    const __m256i isTail = _mm256_cmpgt_epi8(Bytes(0xC0), in.now);  // signed: 80 to BF
    const __m256i tailDue = _mm256_or_si256(AtLeast(in.before, 0xC0), AtLeast(in.beforeThat, 0xE0));
    const __m256i misplaced = _mm256_xor_si256(isTail, tailDue);
    const __m256i overlong2 = _mm256_cmpeq_epi8(_mm256_and_si256(in.now, Bytes(0xFE)), Bytes(0xC0));
    const __m256i isLowTail = _mm256_cmpgt_epi8(Bytes(0xA0), in.now);  // signed: 80 to 9F
    const __m256i overlong3 =
        _mm256_and_si256(_mm256_cmpeq_epi8(in.before, Bytes(0xE0)), isLowTail);
    const __m256i surrogate =
        _mm256_andnot_si256(isLowTail, _mm256_cmpeq_epi8(in.before, Bytes(0xED)));
    const __m256i fourBytes = AtLeast(in.now, 0xF0);
    const __m256i wrong =
        _mm256_or_si256(_mm256_or_si256(misplaced, fourBytes),
                        _mm256_or_si256(overlong2, _mm256_or_si256(overlong3, surrogate)));
    return _mm256_testz_si256(wrong, wrong) != 0;
}

/// The positions where a sequence ends: no lead byte there, and none of three bytes before it.
uint32_t EndsOf(const Window& in) {
    const __m256i open = _mm256_or_si256(_mm256_subs_epu8(in.now, Bytes(0xBF)),
                                         _mm256_subs_epu8(in.before, Bytes(0xDF)));
    return MaskOf(_mm256_cmpeq_epi8(open, _mm256_setzero_si256()));
}

/// Low and high bytes of the unit that ends at each position.
struct UnitBytes {
    __m256i low;
    __m256i high;
};

UnitBytes UnitsEndingIn(const Window& in) {
    const __m256i isTail = _mm256_cmpgt_epi8(Bytes(0xC0), in.now);
    const __m256i ofThree = AtLeast(in.beforeThat, 0xE0);
    // Shifting in 16-bit lanes moves bits across bytes; the masks drop them again.
    const __m256i upLow = _mm256_and_si256(_mm256_slli_epi16(in.before, 6), Bytes(0xC0));
    const __m256i tailLow = _mm256_or_si256(_mm256_and_si256(in.now, Bytes(0x3F)), upLow);
    const __m256i middle = _mm256_and_si256(_mm256_srli_epi16(in.before, 2), Bytes(0x0F));
    const __m256i top = _mm256_and_si256(
        _mm256_and_si256(_mm256_slli_epi16(in.beforeThat, 4), Bytes(0xF0)), ofThree);
    return {_mm256_blendv_epi8(in.now, tailLow, isTail),
            _mm256_and_si256(_mm256_or_si256(middle, top), isTail)};
}

template <typename Unit>
Unit* StoreEnding(Unit* out, __m128i units, uint32_t ends) {
    const uint32_t set = ends & 0xFF;
    const __m128i shuffle = _mm_load_si128(reinterpret_cast<const __m128i*>(kGaps.shuffle[set]));
    StoreUnits(out, _mm_shuffle_epi8(units, shuffle));
    return out + _mm_popcnt_u32(set);
}

/// Converts 32 bytes: the units that end among them. Sequences may begin before and end after.
template <typename Unit>
Unit* ConvertWindow(const Window& in, Unit* out) {
    const uint32_t ends = EndsOf(in);
    const UnitBytes units = UnitsEndingIn(in);
    const __m256i even = _mm256_unpacklo_epi8(units.low, units.high);  // bytes 0-7 and 16-23
    const __m256i odd = _mm256_unpackhi_epi8(units.low, units.high);   // bytes 8-15 and 24-31
    out = StoreEnding(out, _mm256_castsi256_si128(even), ends);
    out = StoreEnding(out, _mm256_castsi256_si128(odd), ends >> 8);
    out = StoreEnding(out, _mm256_extracti128_si256(even, 1), ends >> 16);
    return StoreEnding(out, _mm256_extracti128_si256(odd, 1), ends >> 24);
}

/// How many bytes before `at` belong to a sequence that ends at or behind it.
size_t CutBefore(const char* bytes, size_t at) {
    const auto lead = [bytes, at](size_t back) { return static_cast<uint8_t>(bytes[at - back]); };
    return lead(1) >= 0xC0 ? 1 : lead(2) >= 0xE0 ? 2 : 0;
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
        return size - read >= kBlock && static_cast<size_t>(end - out) >= kBlock + kSlack;
    }
};

/// Dense text, for as long as it stays dense and ordinary. Needs two bytes before it.
template <typename Unit>
void ConvertDense(Run<Unit>& run) {
    while (run.HasBlock()) {
        const char* const at = run.bytes + run.read;
        FetchAhead(at, run.bytes + run.size);
        FetchAhead<Unit>(run.out, run.end);
        const Window in{Load(at), Load(at - 1), Load(at - 2)};
        if (MaskOf(in.now) == 0 || !IsOrdinary(in)) {
            break;
        }
        run.out = ConvertWindow(in, run.out);
        run.read += sizeof in.now;
    }
    run.read -= CutBefore(run.bytes, run.read);  // nothing of a cut sequence was written
}

bool IsTail(uint8_t byte) {
    return (byte & 0xC0) == 0x80;
}

/// One sequence of two or three bytes; false for anything else. Four bytes can be read.
template <typename Unit>
bool ConvertOne(Run<Unit>& run) {
    const auto byte = [&run](size_t at) { return static_cast<uint8_t>(run.bytes[run.read + at]); };
    const uint8_t lead = byte(0);
    if (lead >= 0xC2 && lead < 0xE0 && IsTail(byte(1))) {
        *run.out++ = static_cast<Unit>((lead & 0x1F) << 6 | (byte(1) & 0x3F));
        run.read += 2;
        return true;
    }
    if (lead < 0xE0 || lead >= 0xF0 || !IsTail(byte(1)) || !IsTail(byte(2))) {
        return false;
    }
    const unsigned unit = (lead & 0x0Fu) << 12 | (byte(1) & 0x3Fu) << 6 | (byte(2) & 0x3Fu);
    if (unit < 0x800 || (unit & 0xF800) == 0xD800) {
        return false;
    }
    *run.out++ = static_cast<Unit>(unit);
    run.read += 3;
    return true;
}

/// A block with few characters beyond ASCII, of which `mask` marks the bytes: everything up to and
/// with the first such run. False when that is not ordinary.
template <typename Unit>
bool ConvertSparse(Run<Unit>& run, uint64_t mask) {
    const auto plain = static_cast<size_t>(_tzcnt_u64(mask));
    run.read += plain;
    run.out += plain;
    bool ordinary = true;
    while (ordinary && run.HasBlock() && run.bytes[run.read] < 0) {
        ordinary = ConvertOne(run);
    }
    return ordinary;
}

}  // namespace

template <typename Unit>
KernelProgress Utf8ToUnitsAvx2(const char* bytes, size_t size, size_t from, Unit* out,
                               size_t room) {
    Run<Unit> run{bytes, size, from, out, out + room};
    bool ordinary = true;
    while (ordinary && run.HasBlock()) {
        FetchAhead(bytes + run.read, bytes + size);
        const __m256i first = Load(bytes + run.read);
        const __m256i second = Load(bytes + run.read + sizeof first);
        const uint64_t mask = MaskOf(first) | static_cast<uint64_t>(MaskOf(second)) << 32;
        if (_mm_popcnt_u64(mask) >= kDenseBlock && run.read >= 2) {
            const size_t before = run.read;
            ConvertDense(run);
            ordinary = run.read != before;
            continue;
        }
        Widen(run.out, first);
        Widen(run.out + sizeof first, second);
        if (mask == 0) {
            run.read += kBlock;
            run.out += kBlock;
        } else {
            ordinary = ConvertSparse(run, mask);
        }
    }
    return {run.read - from, static_cast<size_t>(run.out - out)};
}

template KernelProgress Utf8ToUnitsAvx2<TextUnit>(const char*, size_t, size_t, TextUnit*, size_t);

size_t CountUnitsAvx2(const char* bytes, size_t size) {
    size_t count = 0;
    size_t at = 0;
    for (; size - at >= sizeof(__m256i); at += sizeof(__m256i)) {
        const __m256i now = Load(bytes + at);
        const uint32_t tails = MaskOf(_mm256_cmpgt_epi8(Bytes(0xC0), now));
        const uint32_t pairs = MaskOf(AtLeast(now, 0xF0));
        count += sizeof(__m256i) + static_cast<size_t>(_mm_popcnt_u32(pairs)) -
                 static_cast<size_t>(_mm_popcnt_u32(tails));
    }
    for (; at < size; ++at) {
        const auto byte = static_cast<uint8_t>(bytes[at]);
        count += (IsTail(byte) ? 0u : 1u) + (byte >= 0xF0 ? 1u : 0u);
    }
    return count;
}

}  // namespace rl::simd
