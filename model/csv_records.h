// Records and fields of a delimited text, by position, and the rules of quoting.
//
// Nothing is copied: a record is a span of the text, a field is a span of a record with its quotes.
// The records of a text lie in blocks that are filled once and never moved: their number is known
// only at the end of the scan, and a growing array would copy all of them again and again.
//
// Knows nothing of dialects being found, of hidden rows and of edits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace rl {

/// One record of the text, by position. Kept to 16 bytes: a large file has millions of these. It
/// has no initial values, because a block of records is not written before it is filled.
struct CsvRowSpan {
    uint32_t start;           // units from the beginning of the text
    uint32_t length;          // units, without the line break
    uint8_t lineBreakLength;  // 0 at the end of the text, 1 for CR or LF, 2 for CR LF
    bool isComment;
    bool isHidden;
    bool isRaw;           // a comment that is never split into fields
    uint32_t fieldCount;  // 1 for a comment that was not split, else delimiters outside quotes + 1
};
static_assert(sizeof(CsvRowSpan) == 16);
static_assert(std::is_trivially_default_constructible_v<CsvRowSpan>);

/// The records of one text, in its order.
class CsvRecordStore {
public:
    /// Records that a writer may put behind the end of a block's room before it has to stop.
    static constexpr size_t kSlack = 64;

    [[nodiscard]] size_t Size() const noexcept { return size_; }
    [[nodiscard]] const CsvRowSpan& operator[](size_t index) const noexcept {
        return blocks_[index / kBlock][index % kBlock];
    }
    [[nodiscard]] CsvRowSpan& operator[](size_t index) noexcept {
        return blocks_[index / kBlock][index % kBlock];
    }

    void Append(const CsvRowSpan& record);
    void Clear() noexcept;

    /// Where the next records go: [begin, end), followed by `kSlack` more places.
    struct Room {
        CsvRowSpan* begin;
        CsvRowSpan* end;
    };
    [[nodiscard]] Room OpenRoom();
    /// Takes in what was written from the beginning of the last room up to `end`.
    void Commit(const CsvRowSpan* end);

    /// Bytes held for records, used or not.
    [[nodiscard]] size_t MemoryBytes() const noexcept {
        return blocks_.size() * (kBlock + kSlack) * sizeof(CsvRowSpan);
    }

private:
    static constexpr size_t kBlock = 8192;

    std::vector<std::unique_ptr<CsvRowSpan[]>> blocks_;
    size_t size_ = 0;
};

/// One field of a record, quotes included; units from the beginning of the record.
struct CsvFieldSpan {
    uint32_t start;
    uint32_t length;

    bool operator==(const CsvFieldSpan&) const = default;
};

/// Finds the fields of a record; there is at least one. `fields` keeps its room between calls.
void SplitFields(std::wstring_view record, wchar_t delimiter, wchar_t quoteChar,
                 std::vector<CsvFieldSpan>& fields);
void SplitFields(std::u16string_view record, char16_t delimiter, char16_t quoteChar,
                 std::vector<CsvFieldSpan>& fields);

/// Whether a field begins and ends with a quote: only then are its quotes taken off.
[[nodiscard]] constexpr bool IsQuotedField(std::wstring_view field, wchar_t quoteChar) noexcept {
    return field.size() >= 2 && field.front() == quoteChar && field.back() == quoteChar;
}

/// What the user reads in a field: without its quotes, doubled quotes single again; or, when it is
/// not quoted and `trim` says so, without blanks and TABs at both ends. A view of `field` itself
/// unless a quote had to go from the inside: then `scratch` holds the text.
[[nodiscard]] std::wstring_view FieldText(std::wstring_view field, wchar_t quoteChar, bool trim,
                                          std::wstring& scratch);

/// Adds a value to `out` as it must stand in a text: in quotes when it holds the delimiter, a quote
/// or a line break, when it begins or ends with a blank or a TAB, or when `forceQuotes` says so.
void AppendQuoted(std::wstring_view value, wchar_t delimiter, wchar_t quoteChar, bool forceQuotes,
                  std::wstring& out);

}  // namespace rl
