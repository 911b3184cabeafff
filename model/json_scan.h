// The short searches that reading JSON is made of: past blanks, digits and the inside of strings.
//
// Each exists twice, unit by unit and in steps of eight with what every 64-bit x86 processor has;
// both give the same answers. The second kind is for 16-bit units only.
#pragma once

#include <emmintrin.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace rl::detail {

template <typename Unit>
[[nodiscard]] constexpr bool IsJsonBlank(Unit unit) {
    return unit == ' ' || unit == '\n' || unit == '\r' || unit == '\t';
}

template <typename Unit>
[[nodiscard]] constexpr bool IsJsonDigit(Unit unit) {
    return unit >= '0' && unit <= '9';
}

/// Each answers with the first unit that is not skipped, or with `end`.
struct JsonScanPlain {
    template <typename Unit>
    static const Unit* PastBlanks(const Unit* at, const Unit* end) {
        while (at != end && IsJsonBlank(*at)) {
            ++at;
        }
        return at;
    }

    template <typename Unit>
    static const Unit* PastDigits(const Unit* at, const Unit* end) {
        while (at != end && IsJsonDigit(*at)) {
            ++at;
        }
        return at;
    }

    /// To the next quote or backslash.
    template <typename Unit>
    static const Unit* PastStringText(const Unit* at, const Unit* end) {
        while (at != end && *at != '"' && *at != '\\') {
            ++at;
        }
        return at;
    }

    /// To the next unit that a literal writes as an escape.
    template <typename Unit>
    static const Unit* PastUnescaped(const Unit* at, const Unit* end) {
        while (at != end && *at >= ' ' && *at != '"' && *at != '\\') {
            ++at;
        }
        return at;
    }

    template <typename Unit>
    static const Unit* PastLine(const Unit* at, const Unit* end) {
        while (at != end && *at != '\n') {
            ++at;
        }
        return at;
    }
};

struct JsonScanSse2 {
    template <typename Unit>
    static const Unit* PastBlanks(const Unit* at, const Unit* end) {
        return Skip<&JsonScanPlain::PastBlanks<Unit>>(at, end, [](__m128i units) {
            const __m128i breaks = _mm_or_si128(Equal(units, '\n'), Equal(units, '\r'));
            const __m128i gaps = _mm_or_si128(Equal(units, ' '), Equal(units, '\t'));
            return ~Bits(_mm_or_si128(breaks, gaps)) & 0xFFFF;
        });
    }

    template <typename Unit>
    static const Unit* PastDigits(const Unit* at, const Unit* end) {
        return Skip<&JsonScanPlain::PastDigits<Unit>>(at, end, [](__m128i units) {
            const __m128i above =
                _mm_subs_epu16(_mm_sub_epi16(units, _mm_set1_epi16('0')), _mm_set1_epi16(9));
            return ~Bits(_mm_cmpeq_epi16(above, _mm_setzero_si128())) & 0xFFFF;
        });
    }

    template <typename Unit>
    static const Unit* PastStringText(const Unit* at, const Unit* end) {
        return Skip<&JsonScanPlain::PastStringText<Unit>>(at, end, [](__m128i units) {
            return Bits(_mm_or_si128(Equal(units, '"'), Equal(units, '\\')));
        });
    }

    template <typename Unit>
    static const Unit* PastUnescaped(const Unit* at, const Unit* end) {
        return Skip<&JsonScanPlain::PastUnescaped<Unit>>(at, end, [](__m128i units) {
            const __m128i control =
                _mm_cmpeq_epi16(_mm_subs_epu16(units, _mm_set1_epi16(0x1F)), _mm_setzero_si128());
            const __m128i marks = _mm_or_si128(Equal(units, '"'), Equal(units, '\\'));
            return Bits(_mm_or_si128(control, marks));
        });
    }

    template <typename Unit>
    static const Unit* PastLine(const Unit* at, const Unit* end) {
        return Skip<&JsonScanPlain::PastLine<Unit>>(
            at, end, [](__m128i units) { return Bits(Equal(units, '\n')); });
    }

private:
    static __m128i Equal(__m128i units, short unit) {
        return _mm_cmpeq_epi16(units, _mm_set1_epi16(unit));
    }

    static uint32_t Bits(__m128i units) { return static_cast<uint32_t>(_mm_movemask_epi8(units)); }

    template <auto plain, typename Unit, typename Stops>
    static const Unit* Skip(const Unit* at, const Unit* end, Stops stops) {
        static_assert(sizeof(Unit) == 2);
        for (; end - at >= 8; at += 8) {
            const uint32_t bits = stops(_mm_loadu_si128(reinterpret_cast<const __m128i*>(at)));
            if (bits != 0) {
                return at + std::countr_zero(bits) / 2;
            }
        }
        return plain(at, end);
    }
};

/// Where longer searches may use whatever the processor has.
struct JsonScanBest : JsonScanSse2 {};

/// What is used for units of this size.
template <typename Unit>
using JsonScan = std::conditional_t<sizeof(Unit) == 2, JsonScanBest, JsonScanPlain>;

/// Past the number at `at`; null when there is none.
template <typename Scan, typename Unit>
[[nodiscard]] inline const Unit* PastNumber(const Unit* at, const Unit* end) {
    const auto digits = [end](const Unit* from) -> const Unit* {
        const Unit* past = Scan::PastDigits(from, end);
        return past == from ? nullptr : past;
    };
    at += at != end && *at == '-' ? 1 : 0;
    at = at != end && *at == '0' ? at + 1 : digits(at);
    if (at != nullptr && at != end && *at == '.') {
        at = digits(at + 1);
    }
    if (at != nullptr && at != end && (*at == 'e' || *at == 'E')) {
        ++at;
        at += at != end && (*at == '+' || *at == '-') ? 1 : 0;
        at = digits(at);
    }
    return at;
}

/// The same. Numbers of up to 15 units without exponent are looked at as a whole: where digits end
/// is hard to foresee, so nothing branches on it.
template <typename Scan, typename Unit>
[[nodiscard]] inline const Unit* PastAnyNumber(const Unit* at, const Unit* end) {
    if constexpr (!std::is_same_v<Scan, JsonScanPlain>) {
        if (end - at > 16) {
            const auto* from = reinterpret_cast<const __m128i*>(at);
            const __m128i bytes =
                _mm_packus_epi16(_mm_loadu_si128(from), _mm_loadu_si128(from + 1));
            const __m128i above =
                _mm_subs_epu8(_mm_sub_epi8(bytes, _mm_set1_epi8('0')), _mm_set1_epi8(9));
            const __m128i digits = _mm_cmpeq_epi8(above, _mm_setzero_si128());
            const uint32_t sign = *at == '-' ? 1 : 0;
            // Bit 16 stands for whatever follows.
            const uint32_t others = ~static_cast<uint32_t>(_mm_movemask_epi8(digits)) & ~sign;
            const auto bit = [](uint32_t bits) {
                return static_cast<uint32_t>(std::countr_zero(bits));
            };
            const uint32_t whole = bit(others);
            const uint32_t past = at[whole] == '.' ? bit(others & (others - 1)) : whole;
            const bool hasWhole = whole == sign + 1 || (whole > sign && at[sign] != '0');
            if (past < 16 && hasWhole && past != whole + 1 && (at[past] | 0x20) != 'e') {
                return at + past;
            }
        }
    }
    return PastNumber<Scan>(at, end);
}

}  // namespace rl::detail
