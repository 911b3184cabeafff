// Where JSON tokens begin, for processors with AVX2 and BMI; compiled for them, called only on
// them.
#include <immintrin.h>

#include <cwchar>

#include "model/json_index_kernel.h"

namespace rl::detail {

namespace {

class Avx2 {
public:
    template <typename Unit>
    explicit Avx2(const Unit* units) : low_(Narrow(units)), high_(Narrow(units + 32)) {
        static_assert(sizeof(Unit) == 2);
    }

    uint64_t Quotes() const { return Equal('"'); }
    uint64_t Backslashes() const { return Equal('\\'); }
    uint64_t Slashes() const { return Equal('/'); }
    uint64_t UnicodeMarks() const { return Equal('u'); }
    uint64_t Colons() const { return Equal(':'); }
    uint64_t LineFeeds() const { return Equal('\n'); }
    uint64_t Opens() const { return Mask(IsOpen(low_), IsOpen(high_)); }
    uint64_t Blanks() const { return Mask(IsBlank(low_), IsBlank(high_)); }
    /// Brackets and commas.
    uint64_t Operators() const { return Mask(IsOperator(low_), IsOperator(high_)); }
    /// All that ends a word but is not counted.
    uint64_t Separators() const { return Mask(IsSeparator(low_), IsSeparator(high_)); }
    bool HasBackslashes() const {
        const __m256i found = _mm256_or_si256(Is(low_, '\\'), Is(high_, '\\'));
        return _mm256_testz_si256(found, found) == 0;
    }

    static unsigned LowestBit(uint64_t bits) { return static_cast<unsigned>(_tzcnt_u64(bits)); }
    static uint64_t Count(uint64_t bits) { return static_cast<uint64_t>(_mm_popcnt_u64(bits)); }

    /// Eight at a time, needed or not: how many there are is harder to foresee.
    static uint32_t* Write(uint64_t bits, uint32_t offset, uint32_t* out) {
        uint32_t* const past = out + Count(bits);
        do {
            volatile uint32_t* const to = out;  // or GCC would gather them in vectors first: slower
            for (int i = 0; i < 8; ++i) {
                to[i] = offset + LowestBit(bits);
                bits = _blsr_u64(bits);
            }
            out += 8;
        } while (bits != 0);
        return past;
    }

    template <typename Unit>
    static void Prefetch(const Unit* at) {
        const auto* const line = reinterpret_cast<const char*>(at);
        _mm_prefetch(line, _MM_HINT_T0);
        _mm_prefetch(line + 64, _MM_HINT_T0);
    }

private:
    /// 32 units as bytes. Those beyond U+00FF become 255 or 0, neither of which is looked for.
    template <typename Unit>
    static __m256i Narrow(const Unit* units) {
        const auto* from = reinterpret_cast<const __m256i*>(units);
        const __m256i mixed =
            _mm256_packus_epi16(_mm256_loadu_si256(from), _mm256_loadu_si256(from + 1));
        return _mm256_permute4x64_epi64(mixed, 0xD8);  // packing works in halves: sort them
    }

    static __m256i Is(__m256i bytes, char unit) {
        return _mm256_cmpeq_epi8(bytes, _mm256_set1_epi8(unit));
    }
    /// Brackets and braces differ in one bit.
    static __m256i IsOpen(__m256i bytes) {
        return Is(_mm256_or_si256(bytes, _mm256_set1_epi8(0x20)), '{');
    }
    static __m256i IsClose(__m256i bytes) {
        return Is(_mm256_or_si256(bytes, _mm256_set1_epi8(0x20)), '}');
    }
    /// Looked up by the low four bits, which blanks do not share; high units find a zero.
    static __m256i IsBlank(__m256i bytes) {
        const __m256i table =
            _mm256_setr_epi8(' ', -1, -1, -1, -1, -1, -1, -1, -1, '\t', '\n', -1, -1, '\r', -1, -1,
                             ' ', -1, -1, -1, -1, -1, -1, -1, -1, '\t', '\n', -1, -1, '\r', -1, -1);
        return _mm256_cmpeq_epi8(_mm256_shuffle_epi8(table, bytes), bytes);
    }
    static __m256i IsOperator(__m256i bytes) {
        return _mm256_or_si256(Is(bytes, ','), _mm256_or_si256(IsOpen(bytes), IsClose(bytes)));
    }
    static __m256i IsSeparator(__m256i bytes) {
        return _mm256_or_si256(_mm256_or_si256(IsBlank(bytes), Is(bytes, ',')), IsClose(bytes));
    }
    static uint64_t Mask(__m256i low, __m256i high) {
        const auto bits = static_cast<uint32_t>(_mm256_movemask_epi8(low));
        return uint64_t{static_cast<uint32_t>(_mm256_movemask_epi8(high))} << 32 | bits;
    }
    uint64_t Equal(char unit) const { return Mask(Is(low_, unit), Is(high_, unit)); }

    __m256i low_;
    __m256i high_;
};

}  // namespace

template <typename Unit>
JsonIndexKernel<Unit> JsonIndexAvx2() {
    return {&JsonIndexLoop<Unit, Avx2>::template Index<false>,
            &JsonIndexLoop<Unit, Avx2>::template Index<true>, &JsonIndexLoop<Unit, Avx2>::Count};
}

template JsonIndexKernel<char16_t> JsonIndexAvx2();
#if WCHAR_MAX == 0xFFFF
template JsonIndexKernel<wchar_t> JsonIndexAvx2();
#endif

}  // namespace rl::detail
