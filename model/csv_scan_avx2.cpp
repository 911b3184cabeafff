// The record scan for processors with AVX2 and BMI; compiled for them, called only on them.
#include <immintrin.h>

#include <cwchar>

#include "model/csv_scan_kernel.h"

namespace rl::detail {

namespace {

class Avx2 {
public:
    Avx2(uint8_t quote, uint8_t delimiter)
        : quote_(_mm256_set1_epi8(static_cast<char>(quote))),
          delimiter_(_mm256_set1_epi8(static_cast<char>(delimiter))) {}

    static unsigned LowestBit(uint64_t bits) { return static_cast<unsigned>(_tzcnt_u64(bits)); }
    static uint32_t Count(uint64_t bits) { return static_cast<uint32_t>(_mm_popcnt_u64(bits)); }

    template <typename Unit>
    CsvBlockMasks Classify(const Unit* units) const {
        const __m256i low = Narrow(units);
        const __m256i high = Narrow(units + 32);
        return {Both(_mm256_cmpeq_epi8(low, quote_), _mm256_cmpeq_epi8(high, quote_)),
                Both(_mm256_cmpeq_epi8(low, delimiter_), _mm256_cmpeq_epi8(high, delimiter_)),
                Both(Breaks(low), Breaks(high))};
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

    static __m256i Breaks(__m256i bytes) {
        return _mm256_or_si256(_mm256_cmpeq_epi8(bytes, _mm256_set1_epi8('\n')),
                               _mm256_cmpeq_epi8(bytes, _mm256_set1_epi8('\r')));
    }

    static uint64_t Both(__m256i low, __m256i high) {
        const auto bits = static_cast<uint32_t>(_mm256_movemask_epi8(low));
        return uint64_t{static_cast<uint32_t>(_mm256_movemask_epi8(high))} << 32 | bits;
    }

    __m256i quote_;
    __m256i delimiter_;
};

}  // namespace

template <typename Unit>
CsvRowSpan* RunCsvScanAvx2(const Unit* text, size_t size, size_t limit, const CsvScanRules& rules,
                           CsvScanState& state, CsvRowSpan* out, const CsvRowSpan* outEnd) {
    return CsvScanLoop<Unit, Avx2>(text, size, rules, state, out).Run(limit, outEnd);
}

template CsvRowSpan* RunCsvScanAvx2(const char16_t*, size_t, size_t, const CsvScanRules&,
                                    CsvScanState&, CsvRowSpan*, const CsvRowSpan*);
#if WCHAR_MAX == 0xFFFF
template CsvRowSpan* RunCsvScanAvx2(const wchar_t*, size_t, size_t, const CsvScanRules&,
                                    CsvScanState&, CsvRowSpan*, const CsvRowSpan*);
#endif

}  // namespace rl::detail
