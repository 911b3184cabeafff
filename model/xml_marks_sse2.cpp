// The marks of XML with what every 64-bit x86 processor has.
#include <emmintrin.h>

#include <array>
#include <bit>
#include <cwchar>

#include "model/xml_marks_kernel.h"

namespace rl::detail {

namespace {

class Sse2 {
public:
    template <typename Unit>
    explicit Sse2(const Unit* units)
        : parts_{Narrow(units), Narrow(units + 16), Narrow(units + 32), Narrow(units + 48)} {}

    [[nodiscard]] uint64_t Equal(char unit) const {
        const __m128i wanted = _mm_set1_epi8(unit);
        return Masks([wanted](__m128i bytes) { return _mm_cmpeq_epi8(bytes, wanted); });
    }
    [[nodiscard]] uint64_t Either(char one, char other) const {
        const __m128i first = _mm_set1_epi8(one);
        const __m128i second = _mm_set1_epi8(other);
        return Masks([first, second](__m128i bytes) {
            return _mm_or_si128(_mm_cmpeq_epi8(bytes, first), _mm_cmpeq_epi8(bytes, second));
        });
    }
    [[nodiscard]] uint64_t Blanks() const {
        return Masks([](__m128i bytes) {
            // TAB and CR differ in the bit that is set here.
            const __m128i tabs =
                _mm_cmpeq_epi8(_mm_or_si128(bytes, _mm_set1_epi8(4)), _mm_set1_epi8('\r'));
            return _mm_or_si128(tabs, _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(' ')),
                                                   _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n'))));
        });
    }

    static uint32_t LowestBit(uint64_t bits) {
        return static_cast<uint32_t>(std::countr_zero(bits | uint64_t{1} << 63));
    }
    /// In sums of ever wider groups: not every 64-bit processor has an instruction for it.
    static size_t CountOf(uint64_t bits) {
        bits -= bits >> 1 & 0x5555555555555555;
        bits = (bits & 0x3333333333333333) + (bits >> 2 & 0x3333333333333333);
        bits = (bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0F;
        return static_cast<size_t>(bits * 0x0101010101010101 >> 56);
    }

private:
    /// 16 units as bytes. Those beyond U+00FF become 255 or 0, neither of which is looked for.
    template <typename Unit>
    static __m128i Narrow(const Unit* units) {
        static_assert(sizeof(Unit) == 2);
        const auto* from = reinterpret_cast<const __m128i*>(units);
        return _mm_packus_epi16(_mm_loadu_si128(from), _mm_loadu_si128(from + 1));
    }

    template <typename Test>
    [[nodiscard]] uint64_t Masks(Test test) const {
        const auto bits = [this, test](size_t part) {
            return uint64_t{static_cast<uint32_t>(_mm_movemask_epi8(test(parts_[part])))};
        };
        return bits(0) | bits(1) << 16 | (bits(2) | bits(3) << 16) << 32;
    }

    __m128i parts_[4];
};

}  // namespace

template <typename Unit>
XmlMarkKernel<Unit> XmlMarksSse2() {
    return {FindXmlMarks<Sse2, Unit>, CountXmlMarks<Sse2, Unit>};
}

template XmlMarkKernel<char16_t> XmlMarksSse2();
#if WCHAR_MAX == 0xFFFF
template XmlMarkKernel<wchar_t> XmlMarksSse2();
#endif

}  // namespace rl::detail
