#include "model/json_node_count.h"

#include <algorithm>
#include <limits>
#include <type_traits>

#include "model/json_tokens.h"

namespace rl {

namespace {

/// Counts what begins outside strings and comments: every token that is a value, and strings less
/// those that a colon makes keys of. Unit by unit.
template <typename Unit>
class JsonNodeCounter {
public:
    JsonNodeCounter(const Unit* end, bool lines, const AbandonCheck& abandoned)
        : end_(end), lines_(lines), abandoned_(abandoned) {}

    size_t Count(const Unit* at) {
        for (const Unit* asked = at; at != end_; at = Token(at)) {
            if (at - asked >= kJsonAskEvery) {
                asked = at;
                if (IsAbandoned(abandoned_)) {
                    return 0;
                }
            }
        }
        return starts_ > colons_ ? starts_ - colons_ : 0;
    }

private:
    const Unit* Token(const Unit* at) {
        switch (*at) {
            case ' ':
            case '\t':
            case '\r':
            case '\n':
            case ',':
            case '}':
            case ']': return at + 1;
            case '"': ++starts_; return PastString(at + 1);
            case ':': ++colons_; return at + 1;
            case '/': return PastComment(at);
            case '{':
            case '[': ++starts_; return at + 1;
            default: ++starts_; return detail::PastJsonWord(at, end_);
        }
    }

    const Unit* PastString(const Unit* at) const {
        for (;;) {
            at = detail::JsonScanPlain::PastStringText(at, end_);
            if (at == end_ || *at == '"') {
                return at == end_ ? at : at + 1;
            }
            at += end_ - at < 2 ? 1 : 2;
        }
    }

    const Unit* PastComment(const Unit* at) const {
        using Scan = detail::JsonScanPlain;
        if (!detail::IsJsonComment(at, end_)) {
            return at + 1;
        }
        return detail::PastJsonComment<Scan>(at, end_, lines_);
    }

    const Unit* const end_;
    const bool lines_;
    const AbandonCheck& abandoned_;
    size_t starts_ = 0;
    size_t colons_ = 0;
};

/// The same, 64 units at a time.
template <typename Unit, typename Scan>
size_t CountInBlocks(const Unit* at, const Unit* end, bool lines, const AbandonCheck& abandoned) {
    const detail::JsonIndexKernel<Unit> kernel = detail::ChooseJsonIndex<Unit, Scan>();
    detail::JsonIndexState state;
    uint64_t count = 0;
    for (const Unit* asked = at; at != end;) {
        if (at - asked >= kJsonAskEvery) {
            asked = at;
            if (IsAbandoned(abandoned)) {
                return 0;
            }
        }
        const ptrdiff_t size = std::min(end - at, kJsonAskEvery);
        const Unit* past = at + size / detail::kJsonBlock * detail::kJsonBlock;
        if (past != at) {
            at = kernel.count(at, past, state, count);
        } else {
            const detail::JsonLastBlock<Unit> last(at, end);
            past = end;
            at = last.InText(kernel.count(last.Begin(), last.Past(), state, count));
        }
        if (at != past) {  // a slash
            state = {};
            at = detail::IsJsonComment(at, end) ? detail::PastJsonComments<Scan>(at, end, lines)
                                                : at + 1;
        }
    }
    return count <= std::numeric_limits<int32_t>::max() ? static_cast<size_t>(count) : 0;
}

}  // namespace

template <typename Unit, typename Scan>
size_t CountJsonNodes(const Unit* at, const Unit* end, bool lines, const AbandonCheck& abandoned) {
    if constexpr (std::is_same_v<Scan, detail::JsonScanPlain>) {
        return JsonNodeCounter<Unit>(end, lines, abandoned).Count(at);
    } else {
        return CountInBlocks<Unit, Scan>(at, end, lines, abandoned);
    }
}

template size_t CountJsonNodes<char16_t, detail::JsonScanPlain>(const char16_t*, const char16_t*,
                                                                bool, const AbandonCheck&);
template size_t CountJsonNodes<char16_t, detail::JsonScanSse2>(const char16_t*, const char16_t*,
                                                               bool, const AbandonCheck&);
template size_t CountJsonNodes<char16_t>(const char16_t*, const char16_t*, bool,
                                         const AbandonCheck&);
template size_t CountJsonNodes<wchar_t>(const wchar_t*, const wchar_t*, bool, const AbandonCheck&);

}  // namespace rl
