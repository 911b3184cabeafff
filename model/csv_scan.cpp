// The plain scan of records, and the choice of a faster one.
#include "model/csv_scan.h"

#include <algorithm>

#include "load/text/abandon_check.h"
#include "load/text/cpu_features.h"
#include "model/csv_dialect.h"
#include "model/csv_scan_kernel.h"

namespace rl {

namespace {

constexpr size_t kUnitsBetweenQuestions = size_t{1} << 22;

size_t EndOf(const CsvRowSpan& record) {
    return size_t{record.start} + record.length + record.lineBreakLength;
}

/// Reads records one by one, each from its own beginning.
template <typename Unit>
class RecordReader {
public:
    RecordReader(std::basic_string_view<Unit> text, const CsvScanRules& rules,
                 const AbandonCheck& abandoned)
        : text_(text), rules_(rules), abandoned_(abandoned) {}

    /// Appends records from `position` to the end of the text.
    void ReadAll(size_t position, CsvRecordStore& records) {
        while (position < text_.size() && !IsUnwanted(position)) {
            const CsvRowSpan record = Read(position);
            records.Append(record);
            position = EndOf(record);
        }
    }

    CsvRowSpan Read(size_t start) {
        CsvRowSpan record{.start = static_cast<uint32_t>(start),
                          .length = 0,
                          .lineBreakLength = 0,
                          .isComment = IsCommentLine(text_, start),
                          .isHidden = false,
                          .isRaw = false,
                          .fieldCount = 1};
        size_t end = 0;
        if (record.isComment && !rules_.splitComments) {
            record.isRaw = rules_.rawComments;
            end = LineEnd(start);
        } else {
            end = RecordEnd(start, record.fieldCount);
        }
        record.length = static_cast<uint32_t>(end - start);
        record.lineBreakLength = LineBreakLength(end);
        result.columnCount = std::max(result.columnCount, record.fieldCount);
        return record;
    }

    /// Asks now and then whether anybody still waits for the records; remembers the answer no.
    bool IsUnwanted(size_t position) {
        if (position >= nextQuestion_ && !result.abandoned) {
            nextQuestion_ = position + kUnitsBetweenQuestions;
            result.abandoned = IsAbandoned(abandoned_);
        }
        return result.abandoned;
    }
    /// The position from which on it asks again.
    [[nodiscard]] size_t NextQuestion() const noexcept { return nextQuestion_; }

    CsvScanResult result;

private:
    size_t LineEnd(size_t position) {
        while (position < text_.size() && !IsLineBreak(text_[position]) && !IsUnwanted(position)) {
            ++position;
        }
        return position;
    }

    size_t RecordEnd(size_t position, uint32_t& fieldCount) {
        const auto quote = static_cast<Unit>(rules_.quoteChar);
        const auto delimiter = static_cast<Unit>(rules_.delimiter);
        bool quoted = false;
        for (; position < text_.size() && !IsUnwanted(position); ++position) {
            const Unit unit = text_[position];
            if (unit == quote) {
                quoted = !quoted;
            } else if (quoted) {
                continue;
            } else if (IsLineBreak(unit)) {
                break;
            } else if (unit == delimiter) {
                ++fieldCount;
            }
        }
        result.openQuote = result.openQuote || quoted;
        return position;
    }

    [[nodiscard]] uint8_t LineBreakLength(size_t position) const {
        if (position >= text_.size() || !IsLineBreak(text_[position])) {
            return 0;
        }
        const bool pair = text_[position] == Unit{'\r'} && position + 1 < text_.size() &&
                          text_[position + 1] == Unit{'\n'};
        return pair ? 2 : 1;
    }

    std::basic_string_view<Unit> text_;
    const CsvScanRules& rules_;
    const AbandonCheck& abandoned_;
    size_t nextQuestion_ = kUnitsBetweenQuestions;
};

template <typename Unit>
detail::CsvScanRun<Unit> FastRun(const CsvScanRules& rules, CsvScanKernel kernel) {
    const auto isNarrow = [](uint16_t unit) { return unit >= 1 && unit <= 0xFE; };
    const bool fits = isNarrow(rules.delimiter) && isNarrow(rules.quoteChar) &&
                      rules.delimiter != rules.quoteChar && !IsLineBreak(rules.delimiter) &&
                      !IsLineBreak(rules.quoteChar);
    if constexpr (sizeof(Unit) == sizeof(uint16_t)) {
        if (fits && kernel == CsvScanKernel::Avx2) {
            return detail::RunCsvScanAvx2<Unit>;
        }
        if (fits && kernel == CsvScanKernel::Sse2) {
            return detail::RunCsvScanSse2<Unit>;
        }
    }
    return nullptr;
}

/// Drives a fast scan: gives it room, stops it now and then to ask whether anybody still waits, and
/// reads on its behalf what it cannot, the comments that are not split and the end of the text.
template <typename Unit>
class FastScan {
public:
    FastScan(std::basic_string_view<Unit> text, const CsvScanRules& rules, CsvRecordStore& records,
             const AbandonCheck& abandoned)
        : text_(text), rules_(rules), records_(records), reader_(text, rules, abandoned) {}

    CsvScanResult Run(detail::CsvScanRun<Unit> run) {
        constexpr size_t kNeeded = detail::kCsvScanBlock + detail::kCsvScanAhead;
        StartAt(0);
        while (text_.size() - state_.position >= kNeeded && !reader_.IsUnwanted(state_.position)) {
            const size_t limit = reader_.NextQuestion();
            const CsvRecordStore::Room room = records_.OpenRoom();
            records_.Commit(
                run(text_.data(), text_.size(), limit, rules_, state_, room.begin, room.end));
            if (state_.atComment) {
                StartAt(state_.recordStart);
            }
        }
        reader_.ReadAll(state_.recordStart, records_);
        reader_.result.columnCount = std::max(reader_.result.columnCount, state_.columnCount);
        return reader_.result;
    }

private:
    /// Opens the record at `position`, or the first one after the comments that stand there.
    void StartAt(size_t position) {
        bool isComment = IsCommentLine(text_, position);
        while (isComment && !rules_.splitComments && !reader_.IsUnwanted(position)) {
            const CsvRowSpan record = reader_.Read(position);
            records_.Append(record);
            position = EndOf(record);
            isComment = IsCommentLine(text_, position);
        }
        state_ = {.position = position,
                  .recordStart = static_cast<uint32_t>(position),
                  .columnCount = state_.columnCount,
                  .isComment = isComment};
    }

    std::basic_string_view<Unit> text_;
    const CsvScanRules& rules_;
    CsvRecordStore& records_;
    RecordReader<Unit> reader_;
    detail::CsvScanState state_;
};

template <typename Unit>
CsvScanResult Scan(std::basic_string_view<Unit> text, const CsvScanRules& rules,
                   CsvRecordStore& records, const AbandonCheck& abandoned, CsvScanKernel kernel) {
    text = text.substr(0, kMaxCsvUnits);
    if (const detail::CsvScanRun<Unit> run = FastRun<Unit>(rules, kernel); run != nullptr) {
        return FastScan<Unit>(text, rules, records, abandoned).Run(run);
    }
    RecordReader<Unit> reader(text, rules, abandoned);
    reader.ReadAll(0, records);
    return reader.result;
}

}  // namespace

bool detail::CsvCommentBeginsAt(const wchar_t* text, size_t size, size_t position) {
    return IsCommentLine(std::wstring_view(text, size), position);
}

bool detail::CsvCommentBeginsAt(const char16_t* text, size_t size, size_t position) {
    return IsCommentLine(std::u16string_view(text, size), position);
}

CsvScanKernel BestCsvScanKernel() {
    return HasAvx2() ? CsvScanKernel::Avx2 : CsvScanKernel::Sse2;
}

CsvScanResult ScanRecords(std::wstring_view text, const CsvScanRules& rules,
                          CsvRecordStore& records, const AbandonCheck& abandoned,
                          CsvScanKernel kernel) {
    return Scan(text, rules, records, abandoned, kernel);
}

CsvScanResult ScanRecords(std::u16string_view text, const CsvScanRules& rules,
                          CsvRecordStore& records, const AbandonCheck& abandoned,
                          CsvScanKernel kernel) {
    return Scan(text, rules, records, abandoned, kernel);
}

}  // namespace rl
