// How fast every row of a table is split into its fields, against a parser that hands out each
// field, and the whole way from bytes to records against the same parser.
#include <csv.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "bench/support/inputs.h"
#include "bench/support/task.h"
#include "load/text/cpu_features.h"
#include "load/text/decode_text.h"
#include "load/text/simd_utf8.h"
#include "load/text/utf_kernels.h"
#include "model/csv_scan.h"

namespace {

using rl::bench::Outcome;
using rl::bench::Stopwatch;

const std::string& Bytes() {
    static const std::string bytes = rl::bench::CsvBytes(rl::bench::kLarge);
    return bytes;
}

const std::u16string& Units() {
    static const std::u16string units = [] {
        rl::TextEncoding encoding;
        const std::wstring text = rl::DecodeText(Bytes(), {}, encoding);
        return std::u16string(text.begin(), text.end());
    }();
    return units;
}

/// Splits every row, and says how often that had to make room for more fields.
Outcome SplitAll() {
    const std::u16string_view text = Units();
    rl::CsvRecordStore records;
    const rl::CsvScanResult scanned = ScanRecords(text, {}, records);
    rl::bench::Keep(&scanned);
    std::vector<rl::CsvFieldSpan> fields;
    const Stopwatch watch;
    size_t total = 0;
    size_t growths = 0;
    for (size_t i = 0; i < records.Size(); ++i) {
        const size_t before = fields.capacity();
        rl::SplitFields(text.substr(records[i].start, records[i].length), u',', u'"', fields);
        total += fields.size();
        growths += fields.capacity() != before ? 1 : 0;
    }
    rl::bench::Keep(&total);
    return watch.Stop(static_cast<double>(growths) / static_cast<double>(records.Size()));
}

Outcome ParseWithPeer() {
    const std::string& bytes = Bytes();
    csv_parser parser;
    csv_init(&parser, 0);
    size_t fields = 0;
    const Stopwatch watch;
    const auto onField = [](void*, size_t, void* count) { ++*static_cast<size_t*>(count); };
    csv_parse(&parser, bytes.data(), bytes.size(), onField, nullptr, &fields);
    csv_fini(&parser, onField, nullptr, &fields);
    rl::bench::Keep(&fields);
    const Outcome outcome = watch.Stop();
    csv_free(&parser);
    return outcome;
}

/// As the module does it, with its 16-bit units, whatever wchar_t is here.
Outcome DecodeAndScan() {
    const std::string& bytes = Bytes();
    const Stopwatch watch;
    std::u16string text;
    text.resize_and_overwrite(bytes.size(), [&bytes](char16_t* out, size_t room) {
        const auto kernel = rl::HasAvx2() ? rl::simd::Utf8ToUnitsAvx2<char16_t>
                                          : rl::simd::Utf8ToUnitsSse2<char16_t>;
        return rl::utf::Utf8ToUnitsWith<char16_t>(kernel, bytes, {out, room}).written;
    });
    rl::CsvRecordStore records;
    const rl::CsvScanResult result = ScanRecords(text, {}, records);
    rl::bench::Keep(&result);
    return watch.Stop();
}

constexpr rl::bench::Task kTasks[] = {
    {"split_rows", SplitAll}, {"decode_scan", DecodeAndScan}, {"libcsv", ParseWithPeer}};

// The last figure: allocations for each row.
constexpr rl::bench::Row kRows[] = {
    {"csv: column split of every row against libcsv, warm", "split_rows", "libcsv",
     rl::bench::Warmth::Warm, rl::bench::kLarge, 2.0, 0, 0.001},
    {"csv: decode + scan against libcsv, cold", "decode_scan", "libcsv", rl::bench::Warmth::Cold,
     rl::bench::kLarge, 2.3},
};

}  // namespace

int main(int argc, char** argv) {
    return rl::bench::Main({argv, static_cast<size_t>(argc)}, kTasks, kRows);
}
