// The store of records, the split of one record, and quoting both ways.
#include "model/csv_records.h"

#include <algorithm>

#include "model/csv_dialect.h"
#include "model/csv_split.h"

namespace rl {

namespace {

constexpr std::wstring_view kBlanks = L" \t";

template <typename Unit>
void Split(std::basic_string_view<Unit> record, Unit delimiter, Unit quoteChar,
           std::vector<CsvFieldSpan>& fields) {
    const auto size = static_cast<uint32_t>(record.size());
    if constexpr (sizeof(Unit) == sizeof(uint16_t)) {
        const auto isNarrow = [](Unit unit) { return unit >= 1 && unit <= 0xFE; };
        if (isNarrow(delimiter) && isNarrow(quoteChar) && delimiter != quoteChar) {
            detail::SplitFieldsSse2(record.data(), size, static_cast<uint8_t>(delimiter),
                                    static_cast<uint8_t>(quoteChar), fields);
            return;
        }
    }
    fields.clear();
    uint32_t start = 0;
    bool quoted = false;
    for (uint32_t i = 0; i < size; ++i) {
        if (record[i] == quoteChar) {
            quoted = !quoted;
        } else if (record[i] == delimiter && !quoted) {
            fields.push_back({start, i - start});
            start = i + 1;
        }
    }
    fields.push_back({start, size - start});
}

std::wstring_view Trimmed(std::wstring_view text) {
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool NeedsQuotes(std::wstring_view value, wchar_t delimiter, wchar_t quoteChar) {
    if (value.empty()) {
        return false;
    }
    return kBlanks.find(value.front()) != kBlanks.npos ||
           kBlanks.find(value.back()) != kBlanks.npos ||
           std::ranges::any_of(value, [=](wchar_t unit) {
               return unit == delimiter || unit == quoteChar || IsLineBreak(unit);
           });
}

}  // namespace

void CsvRecordStore::Append(const CsvRowSpan& record) {
    const Room room = OpenRoom();
    *room.begin = record;
    Commit(room.begin + 1);
}

void CsvRecordStore::Clear() noexcept {
    blocks_.clear();
    size_ = 0;
}

CsvRecordStore::Room CsvRecordStore::OpenRoom() {
    if (size_ == blocks_.size() * kBlock) {
        blocks_.push_back(std::make_unique_for_overwrite<CsvRowSpan[]>(kBlock + kSlack));
    }
    CsvRowSpan* const block = blocks_.back().get();
    return {block + size_ % kBlock, block + kBlock};
}

void CsvRecordStore::Commit(const CsvRowSpan* end) {
    const CsvRowSpan* const block = blocks_.back().get();
    const auto filled = static_cast<size_t>(end - block);
    size_ = (blocks_.size() - 1) * kBlock + std::min(filled, kBlock);
    if (filled > kBlock) {
        const Room next = OpenRoom();
        Commit(std::copy(block + kBlock, end, next.begin));
    }
}

void SplitFields(std::wstring_view record, wchar_t delimiter, wchar_t quoteChar,
                 std::vector<CsvFieldSpan>& fields) {
    Split(record, delimiter, quoteChar, fields);
}

void SplitFields(std::u16string_view record, char16_t delimiter, char16_t quoteChar,
                 std::vector<CsvFieldSpan>& fields) {
    Split(record, delimiter, quoteChar, fields);
}

std::wstring_view FieldText(std::wstring_view field, wchar_t quoteChar, bool trim,
                            std::wstring& scratch) {
    if (!IsQuotedField(field, quoteChar)) {
        return trim ? Trimmed(field) : field;
    }
    const std::wstring_view inside = field.substr(1, field.size() - 2);
    size_t quote = inside.find(quoteChar);
    if (quote == inside.npos) {
        return inside;
    }
    scratch.clear();
    size_t copied = 0;
    while (quote != inside.npos) {
        const bool doubled = quote + 1 < inside.size() && inside[quote + 1] == quoteChar;
        scratch.append(inside, copied, quote + 1 - copied);
        copied = quote + (doubled ? 2 : 1);
        quote = inside.find(quoteChar, copied);
    }
    scratch.append(inside, copied);
    return scratch;
}

void AppendQuoted(std::wstring_view value, wchar_t delimiter, wchar_t quoteChar, bool forceQuotes,
                  std::wstring& out) {
    if (!forceQuotes && !NeedsQuotes(value, delimiter, quoteChar)) {
        out.append(value);
        return;
    }
    out.push_back(quoteChar);
    for (const wchar_t unit : value) {
        out.append(unit == quoteChar ? 2 : 1, unit);
    }
    out.push_back(quoteChar);
}

}  // namespace rl
