// Where one token of JSON begins after the other: brackets, commas, strings, and words, which is
// what all other runs of visible units are called here. Blanks and comments are passed over, and so
// is a colon directly behind a string: any other is a token.
//
// A few thousand units ahead are looked at together: unit by unit, or 64 at a time. Both ways give
// the same answers. Private to the parser.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "load/text/cpu_features.h"
#include "model/json_index_kernel.h"
#include "model/json_scan.h"

namespace rl::detail {

template <typename Unit>
[[nodiscard]] bool IsJsonComment(const Unit* at, const Unit* end) {
    return end - at >= 2 && at[0] == '/' && (at[1] == '/' || at[1] == '*');
}

/// Past the comment that begins at `at`: a line's end is left, an open block takes all, or what is
/// left of its line when no comment goes on behind it.
template <typename Scan, typename Unit>
[[nodiscard]] const Unit* PastJsonComment(const Unit* at, const Unit* end, bool lines) {
    if (at[1] == '/') {
        return Scan::PastLine(at + 2, end);
    }
    for (at += 2; at != end; ++at) {
        if (at[0] == '*' && end - at >= 2 && at[1] == '/') {
            return at + 2;
        }
        if (lines && at[0] == '\n') {
            return at;
        }
    }
    return end;
}

/// Past that comment and those that follow it at once: comments come in groups. The blanks between
/// them matter where text is read line by line, so there it is one at a time.
template <typename Scan, typename Unit>
[[nodiscard]] const Unit* PastJsonComments(const Unit* at, const Unit* end, bool lines) {
    at = PastJsonComment<Scan>(at, end, lines);
    if (lines) {
        return at;
    }
    const Unit* next = Scan::PastBlanks(at, end);
    while (IsJsonComment(next, end)) {
        at = PastJsonComment<Scan>(next, end, lines);
        next = Scan::PastBlanks(at, end);
    }
    return at;
}

/// Past the units of a word, the first of which is at `at`. A backslash keeps a quote from being
/// one here, too.
template <typename Unit>
[[nodiscard]] const Unit* PastJsonWord(const Unit* at, const Unit* end) {
    while (at != end) {
        switch (*at) {
            case ' ':
            case '\t':
            case '\r':
            case '\n':
            case '{':
            case '}':
            case '[':
            case ']':
            case ',':
            case ':':
            case '"':
            case '/': return at;
            case '\\': at += end - at >= 2 && (at[1] == '"' || at[1] == '\\') ? 2 : 1; break;
            default: ++at; break;
        }
    }
    return at;
}

/// Past the string whose opening quote is at `at`; null when it does not end or has a broken "\u".
template <typename Scan, typename Unit>
[[nodiscard]] const Unit* PastJsonString(const Unit* at, const Unit* end) {
    for (++at;;) {
        at = Scan::PastStringText(at, end);
        if (at == end) {
            return nullptr;
        }
        if (*at == '"') {
            return at + 1;
        }
        if (end - at < 2) {
            return nullptr;
        }
        if (at[1] == 'u') {
            if (end - at < 6 || !std::all_of(at + 2, at + 6, IsJsonHexDigit<Unit>)) {
                return nullptr;
            }
            at += 4;
        }
        at += 2;
    }
}

/// The same for a string that ends on its line.
template <typename Scan, typename Unit>
[[nodiscard]] const Unit* PastJsonString(const Unit* at, const Unit* end, bool lines) {
    const Unit* const past = PastJsonString<Scan>(at, end);
    return past != nullptr && lines && Scan::PastLine(at, past) != past ? nullptr : past;
}

/// The last units of a text, filled up with blanks to a block: nothing behind them may be read.
template <typename Unit>
class JsonLastBlock {
public:
    JsonLastBlock(const Unit* at, const Unit* end) : at_(at), size_(end - at) {
        std::fill(std::copy(at, end, units_.begin()), units_.end(), Unit{' '});
    }

    [[nodiscard]] const Unit* Begin() const { return units_.data(); }
    [[nodiscard]] const Unit* Past() const { return units_.data() + kJsonBlock; }
    [[nodiscard]] const Unit* End() const { return units_.data() + size_; }
    /// The same place in the text.
    [[nodiscard]] const Unit* InText(const Unit* place) const {
        return at_ + std::min(place - units_.data(), size_);
    }

private:
    const Unit* const at_;
    const std::ptrdiff_t size_;
    std::array<Unit, kJsonBlock> units_;
};

template <typename Unit, typename Scan>
[[nodiscard]] JsonIndexKernel<Unit> ChooseJsonIndex() {
    if (std::is_same_v<Scan, JsonScanBest> && HasAvx2()) {
        return JsonIndexAvx2<Unit>();
    }
    return JsonIndexSse2<Unit>();
}

template <typename Unit, typename Scan>
class JsonTokens {
public:
    /// Positions count from `base`. `lines`: each line feed is a token, and neither strings nor
    /// comments go on behind it.
    JsonTokens(const Unit* base, bool lines) : base_(base), lines_(lines) {
        if constexpr (!kIsPlain) {
            const JsonIndexKernel<Unit> kernel = ChooseJsonIndex<Unit, Scan>();
            index_ = lines ? kernel.indexLines : kernel.index;
        }
    }

    /// How many positions can be read before `Refill` must be called again.
    static constexpr std::ptrdiff_t kAhead = 8;

    /// The first positions of the tokens between two places.
    const uint32_t* Start(const Unit* at, const Unit* end) {
        at_ = at;
        end_ = end;
        state_ = {};
        past_ = positions_.data();
        isShort_ = end - at < kJsonBlock;
        return Refill(past_);
    }

    [[nodiscard]] bool IsLow(const uint32_t* next) const { return past_ - next < kAhead; }

    /// The same and further positions, `next` being the first that is still wanted. Behind the last
    /// token comes the end of the text, again and again; so it does in an open string and in one
    /// with a broken "\u" escape.
    const uint32_t* Refill(const uint32_t* next) {
        JsonIndexOutput out{std::copy(next, past_, positions_.data()), 0};
        const uint32_t* const enough = positions_.data() + kAhead;
        while (at_ != end_ && out.next < enough) {
            if constexpr (kIsPlain) {
                at_ = Step(out);
            } else {
                at_ = isShort_ ? Step(out) : Search(out);
            }
        }
        if (out.next < enough) {
            out.next = std::fill_n(out.next, kAhead, PositionOf(end_));
        }
        past_ = out.next;
        return positions_.data();
    }

    /// The position of the end, as if there were no more tokens.
    const uint32_t* End() {
        at_ = end_;
        past_ = positions_.data();
        return Refill(past_);
    }

private:
    static constexpr bool kIsPlain = std::is_same_v<Scan, JsonScanPlain>;
    static constexpr std::ptrdiff_t kBlocks = 32;  // at a time: both text and index stay near

    uint32_t PositionOf(const Unit* at) const { return static_cast<uint32_t>(at - base_); }

    /// Past the token, comment or blank at `at_`.
    const Unit* Step(JsonIndexOutput& out) {
        const Unit* const at = at_;
        if (IsJsonBlank(*at) && !(lines_ && *at == '\n')) {
            return at + 1;
        }
        if (IsJsonComment(at, end_)) {
            return PastJsonComment<Scan>(at, end_, lines_);
        }
        *out.next++ = PositionOf(at);
        if (*at != '"') {
            return std::max(at + 1, PastJsonWord(at, end_));
        }
        const Unit* const past = PastJsonString<Scan>(at, end_, lines_);
        return past == nullptr ? end_ : past != end_ && *past == ':' ? past + 1 : past;
    }

    /// Past the blocks that were looked at, or past the slash outside strings that stopped it.
    const Unit* Search(JsonIndexOutput& out) {
        const std::ptrdiff_t blocks = std::min((end_ - at_) / kJsonBlock, kBlocks);
        const Unit* past = at_ + blocks * kJsonBlock;
        const Unit* stop = nullptr;
        out.offset = PositionOf(at_);
        if (blocks != 0) {
            stop = index_(at_, past, end_, state_, out);
        } else {
            const JsonLastBlock<Unit> last(at_, end_);
            past = end_;
            stop = last.InText(index_(last.Begin(), last.Past(), last.End(), state_, out));
        }
        return out.isBroken ? end_ : stop == past ? past : PastSlash(stop, out);
    }

    /// Past a comment, or a slash that is none and becomes a token.
    const Unit* PastSlash(const Unit* at, JsonIndexOutput& out) {
        state_ = {};
        if (IsJsonComment(at, end_)) {
            return PastJsonComments<Scan>(at, end_, lines_);
        }
        *out.next++ = PositionOf(at);
        return at + 1;
    }

    const Unit* const base_;
    const bool lines_;
    typename JsonIndexKernel<Unit>::Index index_ = nullptr;
    const Unit* at_ = nullptr;  // the tokens behind are not known yet
    const Unit* end_ = nullptr;
    bool isShort_ = false;  // a block would be blanks for the most part
    JsonIndexState state_;
    const uint32_t* past_ = nullptr;
    std::array<uint32_t, kBlocks * kJsonBlock + kAhead * 2 + kJsonIndexSlack> positions_;
};

}  // namespace rl::detail
