// The marks of XML for processors with AVX2 and BMI; compiled for them, called only on them.
#include <immintrin.h>

#include <cwchar>

#include "model/xml_marks_kernel.h"

namespace rl::detail {

namespace {

class Avx2 {
public:
    template <typename Unit>
    explicit Avx2(const Unit* units) : low_(Narrow(units)), high_(Narrow(units + 32)) {}

    [[nodiscard]] uint64_t Equal(char unit) const {
        const __m256i wanted = _mm256_set1_epi8(unit);
        return Both(_mm256_cmpeq_epi8(low_, wanted), _mm256_cmpeq_epi8(high_, wanted));
    }
    [[nodiscard]] uint64_t Either(char one, char other) const {
        const __m256i first = _mm256_set1_epi8(one);
        const __m256i second = _mm256_set1_epi8(other);
        return Both(
            _mm256_or_si256(_mm256_cmpeq_epi8(low_, first), _mm256_cmpeq_epi8(low_, second)),
            _mm256_or_si256(_mm256_cmpeq_epi8(high_, first), _mm256_cmpeq_epi8(high_, second)));
    }
    [[nodiscard]] uint64_t Blanks() const { return Both(Blanks(low_), Blanks(high_)); }

    static uint32_t LowestBit(uint64_t bits) { return static_cast<uint32_t>(_tzcnt_u64(bits)); }
    static size_t CountOf(uint64_t bits) { return static_cast<size_t>(_mm_popcnt_u64(bits)); }

private:
    /// 32 units as bytes. Those beyond U+00FF become 255 or 0, neither of which is looked for.
    template <typename Unit>
    static __m256i Narrow(const Unit* units) {
        static_assert(sizeof(Unit) == 2);
        const auto* from = reinterpret_cast<const __m256i*>(units);
        const __m256i mixed =
            _mm256_packus_epi16(_mm256_loadu_si256(from), _mm256_loadu_si256(from + 1));
        return _mm256_permute4x64_epi64(mixed, 0xD8);  // packing works in halves: sort them
    }

    /// A table by the low four bits: each holds the one blank that ends with them.
    static __m256i Blanks(__m256i bytes) {
        const __m256i table =
            _mm256_setr_epi8(' ', 0, 0, 0, 0, 0, 0, 0, 0, '\t', '\n', 0, 0, '\r', 0, 0, ' ', 0, 0,
                             0, 0, 0, 0, 0, 0, '\t', '\n', 0, 0, '\r', 0, 0);
        return _mm256_cmpeq_epi8(_mm256_shuffle_epi8(table, bytes), bytes);
    }

    static uint64_t Both(__m256i low, __m256i high) {
        const auto bits = static_cast<uint32_t>(_mm256_movemask_epi8(low));
        return uint64_t{static_cast<uint32_t>(_mm256_movemask_epi8(high))} << 32 | bits;
    }

    __m256i low_;
    __m256i high_;
};

}  // namespace

template <typename Unit>
XmlMarkKernel<Unit> XmlMarksAvx2() {
    return {FindXmlMarks<Avx2, Unit>, CountXmlMarks<Avx2, Unit>};
}

template XmlMarkKernel<char16_t> XmlMarksAvx2();
#if WCHAR_MAX == 0xFFFF
template XmlMarkKernel<wchar_t> XmlMarksAvx2();
#endif

}  // namespace rl::detail
