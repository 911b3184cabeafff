// Finds the records of a delimited text in one pass.
//
// Quotes cancel out in pairs, so a unit stands inside quotes exactly when an odd number of quotes
// stands before it in its record. That makes the search a matter of bit masks, 64 units at a time;
// the plain loop beside it says the same unit by unit and is the law for the fast ones.
//
// Knows nothing of titles, hidden rows and edits. Safe on any thread.
#pragma once

#include <cstdint>
#include <string_view>

#include "load/text/abandon_check.h"
#include "model/csv_records.h"

namespace rl {

/// What the scan must know of the dialect.
struct CsvScanRules {
    uint16_t delimiter = ',';
    uint16_t quoteChar = '"';
    bool splitComments = true;  // comment lines are records like others
    bool rawComments = false;   // comments not split are never split: they are marked so
};

struct CsvScanResult {
    uint32_t columnCount = 0;  // the largest number of fields
    bool openQuote = false;    // the text ends inside a quoted run
    bool abandoned = false;    // the caller lost interest; the records are incomplete

    bool operator==(const CsvScanResult&) const = default;
};

/// Texts of more units than this are not scanned: positions and row numbers have 31
/// bits, and one more than the last of them must have as well.
inline constexpr size_t kMaxCsvUnits = 0x7FFFFFFE;

enum class CsvScanKernel { Plain, Sse2, Avx2 };

/// The fastest this processor offers.
[[nodiscard]] CsvScanKernel BestCsvScanKernel();

/// Appends all records of `text` to `records`. `abandoned`, when given, is asked every few million
/// units. Units wider than 16 bits, and delimiters or quotes beyond U+00FE, take the plain loop.
CsvScanResult ScanRecords(std::wstring_view text, const CsvScanRules& rules,
                          CsvRecordStore& records, const AbandonCheck& abandoned = {},
                          CsvScanKernel kernel = BestCsvScanKernel());
CsvScanResult ScanRecords(std::u16string_view text, const CsvScanRules& rules,
                          CsvRecordStore& records, const AbandonCheck& abandoned = {},
                          CsvScanKernel kernel = BestCsvScanKernel());

}  // namespace rl
