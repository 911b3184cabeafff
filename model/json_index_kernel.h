// Finds where the tokens of JSON begin, 64 units at a time, once for every instruction set.
//
// Sixty-four units become masks of 64 bits. Quotes that no backslash escapes, summed without carry,
// tell what stands inside strings; opening quotes are written down, and of what is left brackets,
// commas, the first unit of every other run of visible units, and colons but for those directly
// behind a string, which is where nearly all are. Comments may hold anything, so a slash outside
// strings stops the search and is left to the caller.
//
// An instruction set is a class of an unnamed namespace: whatever is made from it has internal
// linkage, so that code for one set of instructions can never be linked into the path of another.
// Private to the json_index*.cpp files and json_tokens.h.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/prefix_xor.h"

namespace rl::detail {

inline constexpr std::ptrdiff_t kJsonBlock = 64;
/// Units that are asked for while others are looked at. Between two stretches the parser does other
/// things, so the processor does not notice by itself that all is read in order.
inline constexpr std::ptrdiff_t kJsonAhead = 3072;
/// More positions than a block can have may be written, by this many.
inline constexpr std::size_t kJsonIndexSlack = 8;

/// A search between two blocks.
struct JsonIndexState {
    uint64_t inside = 0;   // all bits set: within a string
    uint64_t escaped = 0;  // 1: a backslash stands before
    uint64_t word = 0;     // 1: so does a unit of a number, literal or the like
    uint64_t closed = 0;   // 1: so does a closing quote
};

/// What a search writes to.
struct JsonIndexOutput {
    uint32_t* next;         // where the next position goes
    uint32_t offset;        // position of the first unit
    bool isBroken = false;  // stopped: "\u" without four digits behind it
};

template <typename Unit>
struct JsonIndexKernel {
    using Index = const Unit* (*)(const Unit* at, const Unit* past, const Unit* end,
                                  JsonIndexState& state, JsonIndexOutput& out);
    /// Looks at whole blocks from `at` to `past`. Answers with `past`, or with what ended the
    /// search: a slash outside strings, or what broke one. The text goes on to `end`.
    Index index;
    /// The same, but every line feed is a token and ends strings, too.
    Index indexLines;
    /// Adds the values that begin there to `count`, strings less colons. Ends like `index`, but
    /// looks at no escape.
    const Unit* (*count)(const Unit* at, const Unit* past, JsonIndexState& state, uint64_t& count);
};

template <typename Unit>
[[nodiscard]] JsonIndexKernel<Unit> JsonIndexSse2();
template <typename Unit>
[[nodiscard]] JsonIndexKernel<Unit> JsonIndexAvx2();

template <typename Unit>
static inline bool IsJsonHexDigit(Unit unit) {
    const auto letter = static_cast<Unit>(unit | 0x20);
    return (unit >= '0' && unit <= '9') || (letter >= 'a' && letter <= 'f');
}

/// `Set` turns 64 units into bytes, those beyond U+00FF into 0 or 255, compares them with one of
/// them and makes a mask of the answers.
template <typename Unit, typename Set>
class JsonIndexLoop {
public:
    template <bool lines>
    static const Unit* Index(const Unit* at, const Unit* past, const Unit* end,
                             JsonIndexState& outer, JsonIndexOutput& out) {
        JsonIndexState state = outer;
        uint32_t* next = out.next;
        uint32_t offset = out.offset;
        for (; at != past; at += kJsonBlock, offset += static_cast<uint32_t>(kJsonBlock)) {
            if (end - at > kJsonAhead) {
                Set::Prefetch(at + (kJsonAhead - kJsonBlock));
            }
            const Set set(at);
            Strings strings = FindStrings(set, state);
            const uint64_t outside = ~strings.inside;
            const uint64_t closed = strings.quotes & outside;
            const uint64_t colons = set.Colons() & outside;
            const uint64_t operators = set.Operators() & outside;
            const uint64_t words = outside & ~(operators | colons | set.Blanks() | closed);
            const uint64_t breaks = lines ? set.LineFeeds() : 0;
            const uint64_t tokens =
                (breaks & outside) | operators | (strings.quotes & strings.inside) |
                (colons & ~(closed << 1 | state.closed)) | (words & ~(words << 1 | state.word));
            state.word = words >> 63;
            state.closed = closed >> 63;
            const uint64_t broken = breaks & strings.inside;
            if (strings.slashes | strings.unicodes | broken) [[unlikely]] {
                uint64_t stop = strings.slashes | broken;
                stop &= uint64_t{0} - stop;
                out.isBroken = (stop & broken) != 0;
                uint64_t codes = strings.unicodes & (stop - 1);
                for (; codes != 0; codes &= codes - 1) {
                    const uint64_t bit = Set::LowestBit(codes);
                    if (!FourDigitsFollow(at + bit, end)) {
                        stop = uint64_t{1} << bit;
                        out.isBroken = true;
                        break;
                    }
                }
                if (stop != 0) {
                    out.next = Set::Write(tokens & (stop - 1), offset, next);
                    return at + Set::LowestBit(stop);
                }
            }
            next = Set::Write(tokens, offset, next);
        }
        outer = state;
        out.next = next;
        out.offset = offset;
        return at;
    }

    static const Unit* Count(const Unit* at, const Unit* past, JsonIndexState& outer,
                             uint64_t& count) {
        JsonIndexState state = outer;
        for (; at != past; at += kJsonBlock) {
            const Set set(at);
            const Strings strings = FindStrings(set, state);
            const uint64_t colons = set.Colons() & ~strings.inside;
            const uint64_t opens = set.Opens() & ~strings.inside;
            const uint64_t others =
                set.Separators() | colons | opens | strings.inside | strings.quotes;
            const uint64_t words = ~others;
            uint64_t starts =
                (words & ~(words << 1 | state.word)) | opens | (strings.quotes & strings.inside);
            uint64_t wanted = ~uint64_t{0};
            state.word = words >> 63;
            if (strings.slashes != 0) [[unlikely]] {
                wanted = (strings.slashes & (uint64_t{0} - strings.slashes)) - 1;
            }
            count += Set::Count(starts & wanted) - Set::Count(colons & wanted);
            if (strings.slashes != 0) [[unlikely]] {
                return at + Set::LowestBit(strings.slashes);
            }
        }
        outer = state;
        return at;
    }

private:
    struct Strings {
        uint64_t quotes;    // that begin or end a string
        uint64_t inside;    // the opening quote included
        uint64_t slashes;   // outside
        uint64_t unicodes;  // "u" behind a backslash inside
    };

    static Strings FindStrings(const Set& set, JsonIndexState& state) {
        Strings strings{set.Quotes(), 0, 0, 0};
        uint64_t escaped = 0;
        if (set.HasBackslashes() || state.escaped != 0) [[unlikely]] {
            escaped = Escaped(set.Backslashes(), state);
            strings.quotes &= ~escaped;
        }
        strings.inside = PrefixXor(strings.quotes) ^ state.inside;
        state.inside = uint64_t{0} - (strings.inside >> 63);
        strings.slashes = set.Slashes() & ~strings.inside;
        if (escaped != 0) [[unlikely]] {
            strings.unicodes = set.UnicodeMarks() & escaped & strings.inside;
        }
        return strings;
    }

    /// Units behind an odd run of backslashes. Borrowing in the subtraction ends the runs; those
    /// that begin at even and odd places come out apart.
    static uint64_t Escaped(uint64_t backslashes, JsonIndexState& state) {
        constexpr uint64_t kOdd = 0xAAAAAAAAAAAAAAAA;
        const uint64_t begins = backslashes & ~state.escaped;
        const uint64_t ends = ((begins << 1 | kOdd) - begins) ^ kOdd;
        const uint64_t escaped = ends ^ (backslashes | state.escaped);
        state.escaped = (ends & backslashes) >> 63;
        return escaped;
    }

    static bool FourDigitsFollow(const Unit* at, const Unit* end) {
        return end - at > 4 && IsJsonHexDigit(at[1]) && IsJsonHexDigit(at[2]) &&
               IsJsonHexDigit(at[3]) && IsJsonHexDigit(at[4]);
    }
};

}  // namespace rl::detail
