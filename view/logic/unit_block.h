// 64 units of text at once, as bit masks: what the fast passes over a source text are made of.
//
// Every 64-bit x86 processor can do this. Private to the source_*.cpp and *_lexer.cpp files.
#pragma once

#include <emmintrin.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace rl::detail {

class UnitBlock {
public:
    static constexpr size_t kUnits = 64;

    /// The units from `at` on; behind the end of the text there are none that could be found.
    UnitBlock(std::wstring_view text, size_t at) {
        if (text.size() - at >= kUnits) {
            Pack(text.data() + at);
            return;
        }
        std::array<wchar_t, kUnits> rest{};
        std::copy(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), rest.begin());
        Pack(rest.data());
    }

    /// One bit for each unit that is `unit`, a character in 1 .. 127.
    [[nodiscard]] uint64_t Where(char unit) const {
        const __m128i wanted = _mm_set1_epi8(unit);
        uint64_t bits = 0;
        for (size_t part = 0; part < 4; ++part) {
            const int found = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes_[part], wanted));
            bits |= static_cast<uint64_t>(static_cast<uint32_t>(found)) << (part * 16);
        }
        return bits;
    }

    /// One bit for each unit from `first` to `last`, both in 1 .. 127.
    [[nodiscard]] uint64_t WhereFrom(char first, char last) const {
        const __m128i base = _mm_set1_epi8(first);
        const __m128i span = _mm_set1_epi8(static_cast<char>(last - first));
        uint64_t bits = 0;
        for (size_t part = 0; part < 4; ++part) {
            const __m128i above = _mm_sub_epi8(bytes_[part], base);
            const int found = _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_min_epu8(above, span), above));
            bits |= static_cast<uint64_t>(static_cast<uint32_t>(found)) << (part * 16);
        }
        return bits;
    }

private:
    // Units beyond U+00FF become 255 or 0, neither of which is looked for.
    void Pack(const wchar_t* units) {
        for (size_t part = 0; part < 4; ++part) {
            const auto* from = reinterpret_cast<const __m128i*>(units + part * 16);
            if constexpr (sizeof(wchar_t) == 2) {
                bytes_[part] = _mm_packus_epi16(_mm_loadu_si128(from), _mm_loadu_si128(from + 1));
            } else {
                bytes_[part] = _mm_packus_epi16(
                    _mm_packs_epi32(_mm_loadu_si128(from), _mm_loadu_si128(from + 1)),
                    _mm_packs_epi32(_mm_loadu_si128(from + 2), _mm_loadu_si128(from + 3)));
            }
        }
    }

    __m128i bytes_[4];
};

[[nodiscard]] inline unsigned LowestBit(uint64_t bits) {
    return static_cast<unsigned>(std::countr_zero(bits));
}

/// The first `unit` (a character in 1 .. 127) in from .. end; `end` when there is none.
[[nodiscard]] inline size_t FindUnit(std::wstring_view text, size_t from, size_t end, char unit) {
    const std::wstring_view part = text.substr(0, end);
    for (size_t at = from; at < end; at += UnitBlock::kUnits) {
        if (const uint64_t found = UnitBlock(part, at).Where(unit); found != 0) {
            return at + LowestBit(found);
        }
    }
    return end;
}

/// The same for two units in a row, answering where the first stands.
[[nodiscard]] inline size_t FindPair(std::wstring_view text, size_t from, char first, char second) {
    for (size_t at = from; at < text.size(); at += UnitBlock::kUnits) {
        const UnitBlock block(text, at);
        const uint64_t firsts = block.Where(first);
        if (firsts == 0) {
            continue;
        }
        const size_t behind = at + UnitBlock::kUnits;
        const bool crosses = behind < text.size() && text[behind] == static_cast<wchar_t>(second);
        const uint64_t seconds =
            (block.Where(second) >> 1) | (crosses ? uint64_t{1} << 63 : uint64_t{0});
        if (const uint64_t found = firsts & seconds; found != 0) {
            return at + LowestBit(found);
        }
    }
    return text.size();
}

}  // namespace rl::detail
