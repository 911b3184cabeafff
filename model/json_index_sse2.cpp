// Where JSON tokens begin, for every 64-bit x86 processor.
#include <emmintrin.h>

#include <bit>
#include <cwchar>

#include "model/json_index_kernel.h"

namespace rl::detail {

namespace {

class Sse2 {
public:
    template <typename Unit>
    explicit Sse2(const Unit* units) {
        static_assert(sizeof(Unit) == 2);
        const auto* from = reinterpret_cast<const __m128i*>(units);
        for (__m128i& part : parts_) {
            part = _mm_packus_epi16(_mm_loadu_si128(from), _mm_loadu_si128(from + 1));
            from += 2;
        }
    }

    uint64_t Quotes() const {
        return Mask([](__m128i bytes) { return Equal(bytes, '"'); });
    }
    uint64_t Backslashes() const {
        return Mask([](__m128i bytes) { return Equal(bytes, '\\'); });
    }
    uint64_t Slashes() const {
        return Mask([](__m128i bytes) { return Equal(bytes, '/'); });
    }
    uint64_t UnicodeMarks() const {
        return Mask([](__m128i bytes) { return Equal(bytes, 'u'); });
    }
    uint64_t Colons() const {
        return Mask([](__m128i bytes) { return Equal(bytes, ':'); });
    }
    uint64_t LineFeeds() const {
        return Mask([](__m128i bytes) { return Equal(bytes, '\n'); });
    }
    uint64_t Opens() const { return Mask(&IsOpen); }
    uint64_t Blanks() const { return Mask(&IsBlank); }
    /// Brackets and commas.
    uint64_t Operators() const {
        return Mask([](__m128i bytes) {
            return _mm_or_si128(Equal(bytes, ','), _mm_or_si128(IsOpen(bytes), IsClose(bytes)));
        });
    }
    /// All that ends a word but is not counted.
    uint64_t Separators() const {
        return Mask([](__m128i bytes) {
            return _mm_or_si128(IsBlank(bytes), _mm_or_si128(Equal(bytes, ','), IsClose(bytes)));
        });
    }
    bool HasBackslashes() const {
        __m128i found = _mm_setzero_si128();
        for (const __m128i& bytes : parts_) {
            found = _mm_or_si128(found, Equal(bytes, '\\'));
        }
        return _mm_movemask_epi8(found) != 0;
    }

    static unsigned LowestBit(uint64_t bits) {
        return static_cast<unsigned>(std::countr_zero(bits));
    }

    /// In sums of ever wider groups: not every 64-bit processor has an instruction for it.
    static uint64_t Count(uint64_t bits) {
        bits -= bits >> 1 & 0x5555555555555555;
        bits = (bits & 0x3333333333333333) + (bits >> 2 & 0x3333333333333333);
        bits = (bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0F;
        return bits * 0x0101010101010101 >> 56;
    }

    static uint32_t* Write(uint64_t bits, uint32_t offset, uint32_t* out) {
        for (; bits != 0; bits &= bits - 1) {
            *out++ = offset + LowestBit(bits);
        }
        return out;
    }

    template <typename Unit>
    static void Prefetch(const Unit* at) {
        const auto* const line = reinterpret_cast<const char*>(at);
        _mm_prefetch(line, _MM_HINT_T0);
        _mm_prefetch(line + 64, _MM_HINT_T0);
    }

private:
    static __m128i Equal(__m128i bytes, char unit) {
        return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(unit));
    }
    /// Brackets and braces differ in one bit.
    static __m128i IsOpen(__m128i bytes) {
        return Equal(_mm_or_si128(bytes, _mm_set1_epi8(0x20)), '{');
    }
    static __m128i IsClose(__m128i bytes) {
        return Equal(_mm_or_si128(bytes, _mm_set1_epi8(0x20)), '}');
    }
    static __m128i IsBlank(__m128i bytes) {
        const __m128i breaks = _mm_or_si128(Equal(bytes, '\n'), Equal(bytes, '\r'));
        return _mm_or_si128(breaks, _mm_or_si128(Equal(bytes, ' '), Equal(bytes, '\t')));
    }

    template <typename Test>
    uint64_t Mask(Test test) const {
        uint64_t mask = 0;
        for (int part = 3; part >= 0; --part) {
            mask = mask << 16 | static_cast<uint32_t>(_mm_movemask_epi8(test(parts_[part])));
        }
        return mask;
    }

    __m128i parts_[4];
};

}  // namespace

template <typename Unit>
JsonIndexKernel<Unit> JsonIndexSse2() {
    return {&JsonIndexLoop<Unit, Sse2>::template Index<false>,
            &JsonIndexLoop<Unit, Sse2>::template Index<true>, &JsonIndexLoop<Unit, Sse2>::Count};
}

template JsonIndexKernel<char16_t> JsonIndexSse2();
#if WCHAR_MAX == 0xFFFF
template JsonIndexKernel<wchar_t> JsonIndexSse2();
#endif

}  // namespace rl::detail
