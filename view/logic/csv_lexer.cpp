// Colours of delimited text. Every quote switches between inside and outside, so the state at a
// line's start is a matter of counting quotes.
#include <bit>

#include "view/logic/source_lexer.h"
#include "view/logic/unit_block.h"

namespace rl::detail {

namespace {

constexpr LineState kInsideQuotes = 1;

constexpr bool IsBlank(wchar_t unit) {
    return unit == L' ' || unit == L'\t';
}

constexpr bool IsDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

std::wstring_view Trimmed(std::wstring_view run) {
    while (!run.empty() && IsBlank(run.front())) {
        run.remove_prefix(1);
    }
    while (!run.empty() && IsBlank(run.back())) {
        run.remove_suffix(1);
    }
    return run;
}

/// A sign or none, then digits with at most one point or comma anywhere among them, blanks around.
bool LooksLikeNumber(std::wstring_view run) {
    std::wstring_view rest = Trimmed(run);
    if (!rest.empty() && (rest.front() == L'+' || rest.front() == L'-')) {
        rest.remove_prefix(1);
    }
    size_t digits = 0;
    size_t marks = 0;
    for (const wchar_t unit : rest) {
        if (IsDigit(unit)) {
            ++digits;
        } else if (unit == L'.' || unit == L',') {
            ++marks;
        } else {
            return false;
        }
    }
    return digits > 0 && marks <= 1;
}

}  // namespace

LineState LexCsvLine(std::wstring_view line, wchar_t delimiter, LineContext context,
                     ClassSink classes) {
    bool inside = context.state == kInsideQuotes;
    size_t at = 0;
    while (at < line.size()) {
        const size_t start = at;
        if (inside) {
            const bool quote = line[at] == L'"';
            const bool escaped = quote && at + 1 < line.size() && line[at + 1] == L'"';
            at += escaped ? 2 : 1;
            inside = !quote || escaped;
            classes.Put(start, at, SourceClass::String);
        } else if (line[at] == delimiter) {
            classes.Put(start, ++at, SourceClass::Punctuation);
        } else if (line[at] == L'"') {
            inside = true;
            classes.Put(start, ++at, SourceClass::String);
        } else {
            while (at < line.size() && line[at] != delimiter && line[at] != L'"') {
                ++at;
            }
            const bool number = !context.isFirst && LooksLikeNumber(line.substr(start, at - start));
            const SourceClass plain = context.isFirst ? SourceClass::Attribute : SourceClass::Text;
            classes.Put(start, at, number ? SourceClass::Number : plain);
        }
    }
    return inside ? kInsideQuotes : LineState{0};
}

void ScanCsvStates(std::wstring_view text, wchar_t delimiter, std::span<const uint32_t> starts,
                   std::span<LineState> states) {
    if (delimiter == L'"') {
        return;  // then a quote never opens a field
    }
    size_t line = 0;
    int quotesBefore = 0;  // odd or even
    for (size_t base = 0; base < text.size(); base += UnitBlock::kUnits) {
        const uint64_t quotes = UnitBlock(text, base).Where('"');
        for (; line < starts.size() && starts[line] < base + UnitBlock::kUnits; ++line) {
            const uint64_t before = (uint64_t{1} << (starts[line] - base)) - 1;
            states[line] =
                static_cast<LineState>((quotesBefore + std::popcount(quotes & before)) & 1);
        }
        quotesBefore ^= std::popcount(quotes) & 1;
    }
    for (; line < starts.size(); ++line) {  // an empty last line
        states[line] = static_cast<LineState>(quotesBefore);
    }
}

}  // namespace rl::detail
