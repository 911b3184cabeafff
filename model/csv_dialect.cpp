// How a delimited text is asked about itself. See the header for what the answers mean.
#include "model/csv_dialect.h"

#include <algorithm>
#include <array>

namespace rl {

namespace {

constexpr std::wstring_view kCandidates = L",;|\t:";
constexpr size_t kSampledRows = 5;
constexpr size_t kUnitsBetweenQuestions = size_t{1} << 22;

using Counts = std::array<uint32_t, kCandidates.size()>;

/// The number of each candidate plus one, by its code: most units of a text are none of them, and a
/// table of a single column is looked through to its end.
constexpr std::array<uint8_t, 128> kCandidateOf = [] {
    std::array<uint8_t, 128> table{};
    for (size_t k = 0; k < kCandidates.size(); ++k) {
        table[static_cast<char16_t>(kCandidates[k])] = static_cast<uint8_t>(k + 1);
    }
    return table;
}();

constexpr size_t CandidateOf(wchar_t unit) {
    const auto code = static_cast<char16_t>(unit);
    return code < kCandidateOf.size() ? kCandidateOf[code] : 0;
}

template <typename Unit>
bool StartsWithSeparatorName(std::basic_string_view<Unit> line) {
    const auto is = [](Unit unit, char lower) {
        return unit == static_cast<Unit>(lower) || unit == static_cast<Unit>(lower - 'a' + 'A');
    };
    return line.size() >= 4 && is(line[0], 's') && is(line[1], 'e') && is(line[2], 'p') &&
           line[3] == Unit{'='};
}

template <typename Unit>
bool IsLoneSemicolon(std::basic_string_view<Unit> line) {
    const auto* found = std::find_if(line.data() + 1, line.data() + line.size(), [](Unit unit) {
        return unit == Unit{';'} || IsLineBreak(unit);
    });
    return found == line.data() + line.size() || *found != Unit{';'};
}

template <typename Unit>
bool IsComment(std::basic_string_view<Unit> text, size_t position) {
    if (position >= text.size()) {
        return false;
    }
    const std::basic_string_view<Unit> rest = text.substr(position);
    switch (rest[0]) {
        case Unit{'#'}: return true;
        case Unit{';'}: return IsLoneSemicolon(rest);
        default: return StartsWithSeparatorName(rest);
    }
}

/// The delimiter named on a first line such as "sep=;", or 0.
wchar_t NamedDelimiter(std::wstring_view text) {
    if (text.size() < 5 || !StartsWithSeparatorName(text)) {
        return 0;
    }
    const wchar_t named = text[4];
    const bool endsThere = text.size() == 5 || IsLineBreak(text[5]);
    return endsThere && !IsLineBreak(named) ? named : L'\0';
}

/// Walks a text from row to row and counts the candidates that stand outside quotes.
class CandidateCounter {
public:
    CandidateCounter(std::wstring_view text, wchar_t quoteChar, const AbandonCheck& abandoned)
        : text_(text), quoteChar_(quoteChar), abandoned_(abandoned) {}

    /// Goes to the next row in which a candidate stands. False at the end of the text.
    bool Next(Counts& counts) {
        while (position_ < text_.size() && !GivesUp()) {
            if (IsLineBreak(text_[position_])) {
                ++position_;
            } else if (IsCommentLine(text_, position_)) {
                SkipLine();
            } else if (CountRow(counts)) {
                return !gaveUp_;
            }
        }
        return false;
    }

private:
    void SkipLine() {
        while (position_ < text_.size() && !IsLineBreak(text_[position_])) {
            ++position_;
        }
    }

    bool CountRow(Counts& counts) {
        counts.fill(0);
        bool quoted = false;
        bool any = false;
        for (; position_ < text_.size(); ++position_) {
            const wchar_t unit = text_[position_];
            if (GivesUp()) {
                break;
            }
            if (unit == quoteChar_) {
                quoted = !quoted;
            } else if (quoted) {
                continue;
            } else if (IsLineBreak(unit)) {
                break;
            } else if (const size_t candidate = CandidateOf(unit); candidate != 0) {
                ++counts[candidate - 1];
                any = true;
            }
        }
        return any;
    }

    bool GivesUp() {
        if (position_ >= nextQuestion_ && !gaveUp_) {
            nextQuestion_ = position_ + kUnitsBetweenQuestions;
            gaveUp_ = IsAbandoned(abandoned_);
        }
        return gaveUp_;
    }

    std::wstring_view text_;
    wchar_t quoteChar_;
    const AbandonCheck& abandoned_;
    size_t position_ = 0;
    size_t nextQuestion_ = kUnitsBetweenQuestions;
    bool gaveUp_ = false;
};

/// Rows that agree on a candidate's count speak for it, the more so the higher the count.
uint64_t Score(const std::array<Counts, kSampledRows>& rows, size_t rowCount, size_t candidate) {
    uint64_t score = 0;
    for (size_t i = 0; i < rowCount; ++i) {
        const uint64_t count = rows[i][candidate];
        for (size_t j = 0; count > 0 && j < rowCount; ++j) {
            score += rows[j][candidate] == count ? 10 + count : 5;
        }
    }
    return score;
}

}  // namespace

bool IsCommentLine(std::wstring_view text, size_t position) {
    return IsComment(text, position);
}

bool IsCommentLine(std::u16string_view text, size_t position) {
    return IsComment(text, position);
}

wchar_t DetectDelimiter(std::wstring_view text, wchar_t quoteChar, const AbandonCheck& abandoned) {
    if (const wchar_t named = NamedDelimiter(text); named != 0) {
        return named;
    }
    std::array<Counts, kSampledRows> rows{};
    CandidateCounter counter(text, quoteChar, abandoned);
    size_t rowCount = 0;
    while (rowCount < kSampledRows && counter.Next(rows[rowCount])) {
        ++rowCount;
    }
    size_t best = 0;
    uint64_t bestScore = 0;
    for (size_t candidate = 0; candidate < kCandidates.size(); ++candidate) {
        const uint64_t score = Score(rows, rowCount, candidate);
        if (score > bestScore) {
            best = candidate;
            bestScore = score;
        }
    }
    return kCandidates[best];
}

std::wstring_view DetectLineEnding(std::wstring_view text) {
    const auto first = std::ranges::find_if(text, IsLineBreak<wchar_t>);
    if (first == text.end()) {
        return L"\r\n";
    }
    if (*first == L'\n') {
        return L"\n";
    }
    return first + 1 != text.end() && first[1] == L'\n' ? L"\r\n" : L"\r";
}

}  // namespace rl
