// A text to look for in many texts, with or without regard to case.
//
// Looks at two units of the text in eight places at once and compares the rest only where both fit.
// Nothing is copied or lowered: each unit is folded as it is compared.
#pragma once

#include <emmintrin.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "view/logic/case_fold.h"

namespace rl {

/// The units that may stand at one place of a match: one, or its two cases.
template <typename Unit>
using UnitPair = std::array<Unit, 2>;

/// The first of the places from `from` to `count` - 1 where a unit of `first` stands, and one of
/// `last` stands `distance` units further on; `count` when there is none. `text` must hold
/// `count` + `distance` units.
template <typename Unit>
[[nodiscard]] size_t FindPlace(const Unit* text, size_t from, size_t count, size_t distance,
                               const UnitPair<Unit>& first, const UnitPair<Unit>& last) {
    size_t at = from;
    if constexpr (sizeof(Unit) == 2) {
        const auto spread = [](Unit unit) { return _mm_set1_epi16(static_cast<int16_t>(unit)); };
        const __m128i first0 = spread(first[0]);
        const __m128i first1 = spread(first[1]);
        const __m128i last0 = spread(last[0]);
        const __m128i last1 = spread(last[1]);
        for (; at + 8 <= count; at += 8) {
            const auto load = [](const Unit* place) {
                return _mm_loadu_si128(reinterpret_cast<const __m128i*>(place));
            };
            const __m128i a = load(text + at);
            const __m128i b = load(text + at + distance);
            const __m128i both =
                _mm_and_si128(_mm_or_si128(_mm_cmpeq_epi16(a, first0), _mm_cmpeq_epi16(a, first1)),
                              _mm_or_si128(_mm_cmpeq_epi16(b, last0), _mm_cmpeq_epi16(b, last1)));
            const auto mask = static_cast<uint32_t>(_mm_movemask_epi8(both));
            if (mask != 0) {
                return at + static_cast<size_t>(std::countr_zero(mask)) / 2;
            }
        }
    }
    for (; at < count; ++at) {
        const Unit a = text[at];
        const Unit b = text[at + distance];
        if ((a == first[0] || a == first[1]) && (b == last[0] || b == last[1])) {
            return at;
        }
    }
    return count;
}

class TextNeedle {
public:
    /// `wanted` is folded here where case does not count.
    TextNeedle(std::wstring_view wanted, bool caseSensitive);

    /// False for an empty text and for one that cannot be compared unit by unit: then `IsIn` must
    /// not be asked.
    [[nodiscard]] bool IsUsable() const { return usable_; }

    /// Whether the text occurs, in any letter case unless case counts.
    [[nodiscard]] bool IsIn(std::wstring_view text) const;

    /// Where the text stands next, `from` or behind it; npos when it does not.
    [[nodiscard]] size_t FindIn(std::wstring_view text, size_t from) const;

    /// Whether a unit, in any letter case unless case counts, is part of the text.
    [[nodiscard]] bool Holds(wchar_t unit) const;

private:
    void ChooseUnits();
    [[nodiscard]] bool MatchesAt(const wchar_t* place) const;

    std::wstring wanted_;
    UnitPair<wchar_t> first_{};  // the two units looked at, in their two cases
    UnitPair<wchar_t> last_{};
    size_t firstAt_ = 0;  // where they stand in the text
    size_t lastAt_ = 0;
    const CaseFold* fold_ = nullptr;  // null: case counts
    bool usable_ = false;
};

}  // namespace rl
