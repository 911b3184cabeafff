// Where in a stretch of XML something begins or ends, found 64 units at a time.
//
// Bits alone decide: no grammar is known here, and whatever the bits cannot decide either ends the
// stretch or shows as a mark where none should be. Private to the parser.
#pragma once

#include <emmintrin.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace rl::detail {

/// The marks of a stretch that begins with a text or a tag and has "<" and ">" in turns, the latter
/// outside quotes:
///   - each "<" and ">",
///   - the first visible unit of a text,
///   - in a tag: the end of each name, the beginning of each but the first, closing quotes, and
///     quotes that stand elsewhere than around values.
/// What follows a "<" at once counts as part of a name. A quote is `quote`; the other kind is a mark
/// wherever it stands in a tag outside values.
class XmlMarks {
public:
    static constexpr size_t kBlock = 64;   // units
    static constexpr size_t kBlocks = 32;  // at most, in one stretch

    /// Finds the marks of the `blocks` blocks at `units`, or of those before the first that is
    /// irregular; how many. Marks are counted from `first`.
    template <typename Unit>
    size_t Find(const Unit* units, size_t blocks, uint32_t first, char quote) {
        State state;
        size_ = 0;
        for (size_t block = 0; block < blocks; ++block) {
            uint64_t marks = 0;
            if (!FindMarks(Sort(units + block * kBlock, quote), state, marks)) {
                return block;
            }
            Append(marks, first + static_cast<uint32_t>(block * kBlock));
        }
        return blocks;
    }

    [[nodiscard]] size_t Size() const { return size_; }
    [[nodiscard]] uint32_t operator[](size_t index) const { return marks_[index]; }

private:
    /// Which units of a block are what, one bit for each.
    struct Units {
        uint64_t opens = 0;   // "<"
        uint64_t closes = 0;  // ">"
        uint64_t blanks = 0;
        uint64_t nameEnds = 0;  // without ">"
        uint64_t quotes = 0;
        uint64_t otherQuotes = 0;
    };
    /// What the block before ended with, each in bit 0.
    struct State {
        uint64_t inTag = 0;
        uint64_t inName = 0;
        uint64_t afterOpen = 0;
        uint64_t afterNameEnd = 0;
        uint64_t beforeText = 1;  // ">" and nothing but blanks
        uint64_t inQuotes = 0;    // all bits
    };

    template <typename Unit>
    static Units Sort(const Unit* units, char quote) {
        static_assert(sizeof(Unit) == 2);
        const __m128i wanted = _mm_set1_epi8(quote);
        const __m128i other = _mm_set1_epi8(static_cast<char>(quote ^ '"' ^ '\''));
        Units sorted;
        for (int part = 0; part < 4; ++part) {
            // Units beyond U+00FF become 255 or 0, neither of which is looked for.
            const auto* from = reinterpret_cast<const __m128i*>(units + part * 16);
            const __m128i bytes =
                _mm_packus_epi16(_mm_loadu_si128(from), _mm_loadu_si128(from + 1));
            const auto equal = [bytes](char unit) {
                return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(unit));
            };
            const auto bits = [part](__m128i found) {
                return uint64_t{static_cast<uint32_t>(_mm_movemask_epi8(found))} << (part * 16);
            };
            // TAB and CR differ in the bit that is set here.
            const __m128i controls = _mm_or_si128(
                equal('\n'),
                _mm_cmpeq_epi8(_mm_or_si128(bytes, _mm_set1_epi8(4)), _mm_set1_epi8('\r')));
            const __m128i blanks = _mm_or_si128(equal(' '), controls);
            sorted.opens |= bits(equal('<'));
            sorted.closes |= bits(equal('>'));
            sorted.blanks |= bits(blanks);
            sorted.nameEnds |=
                bits(_mm_or_si128(blanks, _mm_or_si128(equal('/'), equal('='))));
            sorted.quotes |= bits(_mm_cmpeq_epi8(bytes, wanted));
            sorted.otherQuotes |= bits(_mm_cmpeq_epi8(bytes, other));
        }
        return sorted;
    }

    /// For each bit, whether the number of bits up to it is odd.
    static uint64_t Parity(uint64_t bits) {
        bits ^= bits << 1;
        bits ^= bits << 2;
        bits ^= bits << 4;
        bits ^= bits << 8;
        bits ^= bits << 16;
        bits ^= bits << 32;
        return bits;
    }

    /// False when the block is irregular.
    static bool FindMarks(const Units& units, State& state, uint64_t& marks) {
        // From each "<" to the unit before the next ">".
        const uint64_t tags = units.closes - units.opens - state.inTag;
        const uint64_t tagsBefore = tags << 1 | state.inTag;
        const uint64_t quotes = units.quotes & tags;
        // From each opening quote to the unit before the closing one.
        const uint64_t quoted = Parity(quotes) ^ state.inQuotes;
        if (((tags & ~tagsBefore) ^ units.opens) != 0 ||
            ((tagsBefore & ~tags) ^ units.closes) != 0 || (units.opens & quoted) != 0) {
            return false;
        }
        const uint64_t bare = tags & ~(quoted | quotes);
        const uint64_t firsts = units.opens << 1 | state.afterOpen;
        const uint64_t names = bare & ~units.opens & (~units.nameEnds | firsts);
        const uint64_t namesBefore = names << 1 | state.inName;
        const uint64_t nameEnds = namesBefore & ~names;
        const uint64_t strayQuotes = quotes & quoted & ~(nameEnds << 1 | state.afterNameEnd);
        // Adding the place behind a ">" to the blanks carries it past them.
        const uint64_t texts = units.closes << 1 | state.beforeText;
        const uint64_t sum = units.blanks + (texts & units.blanks);
        const uint64_t visible = (texts | sum) & ~units.blanks;
        marks = units.opens | units.closes | nameEnds | (names & ~namesBefore & ~firsts) |
                (quotes & ~quoted) | strayQuotes | (bare & units.otherQuotes) | visible;
        state.inTag = tags >> 63;
        state.inName = names >> 63;
        state.afterOpen = units.opens >> 63;
        state.afterNameEnd = nameEnds >> 63;
        state.beforeText = (units.closes >> 63) | (sum < units.blanks ? 1 : 0);
        state.inQuotes = uint64_t{0} - (quoted >> 63);
        return true;
    }

    /// Twelve at a time: most blocks have fewer, so that there is nothing to foretell.
    void Append(uint64_t marks, uint32_t first) {
        constexpr size_t kAtATime = 12;
        uint32_t* at = marks_.data() + size_;
        size_ += CountOf(marks);
        for (; marks != 0; at += kAtATime) {
            for (size_t i = 0; i < kAtATime; ++i) {
                at[i] = first + static_cast<uint32_t>(std::countr_zero(marks | kLast));
                marks &= marks - 1;
            }
        }
    }

    /// In sums of ever wider groups: not every 64-bit processor has an instruction for it.
    static size_t CountOf(uint64_t bits) {
        bits -= bits >> 1 & 0x5555555555555555;
        bits = (bits & 0x3333333333333333) + (bits >> 2 & 0x3333333333333333);
        bits = (bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0F;
        return static_cast<size_t>(bits * 0x0101010101010101 >> 56);
    }

    static constexpr uint64_t kLast = uint64_t{1} << 63;

    size_t size_ = 0;
    std::array<uint32_t, kBlock * kBlocks + 16> marks_;  // some are written in vain
};

}  // namespace rl::detail
