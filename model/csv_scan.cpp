// The plain scan of records, and the choice of a faster one.
#include "model/csv_scan.h"

#include <algorithm>

#include "model/csv_dialect.h"

namespace rl {

namespace {

constexpr size_t kUnitsBetweenQuestions = size_t{1} << 22;

/// Reads records one by one, each from its own beginning.
template <typename Unit>
class RecordReader {
public:
    RecordReader(std::basic_string_view<Unit> text, const CsvScanRules& rules,
                 const std::function<bool()>& abandoned)
        : text_(text), rules_(rules), abandoned_(abandoned) {}

    /// Appends records from `position` to the end of the text.
    void ReadAll(size_t position, CsvRecordStore& records) {
        while (position < text_.size() && !result.abandoned) {
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

    CsvScanResult result;

private:
    static size_t EndOf(const CsvRowSpan& record) {
        return size_t{record.start} + record.length + record.lineBreakLength;
    }

    bool IsUnwanted(size_t position) {
        if (position < nextQuestion_) {
            return false;
        }
        nextQuestion_ = position + kUnitsBetweenQuestions;
        result.abandoned = result.abandoned || (abandoned_ && abandoned_());
        return result.abandoned;
    }

    size_t LineEnd(size_t position) {
        while (position < text_.size() && !IsLineBreak(text_[position])) {
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
    const std::function<bool()>& abandoned_;
    size_t nextQuestion_ = kUnitsBetweenQuestions;
};

template <typename Unit>
CsvScanResult Scan(std::basic_string_view<Unit> text, const CsvScanRules& rules,
                   CsvRecordStore& records, const std::function<bool()>& abandoned,
                   CsvScanKernel kernel) {
    RecordReader<Unit> reader(text.substr(0, kMaxCsvUnits), rules, abandoned);
    (void)kernel;
    reader.ReadAll(0, records);
    return reader.result;
}

}  // namespace

CsvScanKernel BestCsvScanKernel() {
    return CsvScanKernel::Plain;
}

CsvScanResult ScanRecords(std::wstring_view text, const CsvScanRules& rules,
                          CsvRecordStore& records, const std::function<bool()>& abandoned,
                          CsvScanKernel kernel) {
    return Scan(text, rules, records, abandoned, kernel);
}

CsvScanResult ScanRecords(std::u16string_view text, const CsvScanRules& rules,
                          CsvRecordStore& records, const std::function<bool()>& abandoned,
                          CsvScanKernel kernel) {
    return Scan(text, rules, records, abandoned, kernel);
}

}  // namespace rl
