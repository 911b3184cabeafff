// How fast a table of delimited text is scanned and written back.
//
// The peer reads the same rows from memory, as bytes; ours reads decoded text, twice as large.
#include <emmintrin.h>

#include <exception>
#include <string>
#include <string_view>
#include <type_traits>

#include "bench/support/csv_peer.h"
#include "bench/support/inputs.h"
#include "bench/support/task.h"
#include "load/text/decode_text.h"
#include "model/csv_model.h"
#include "model/csv_scan.h"

namespace {

using rl::bench::Outcome;
using rl::bench::Stopwatch;

/// What the fast scan works on: wchar_t where it has 16 bits.
using Unit = std::conditional_t<sizeof(wchar_t) == 2, wchar_t, char16_t>;

const std::string& Bytes() {
    static const std::string bytes = rl::bench::CsvBytes(rl::bench::kLarge);
    return bytes;
}

std::wstring Decoded() {
    rl::TextEncoding encoding;
    return rl::DecodeText(Bytes(), {}, encoding);
}

const std::basic_string<Unit>& Units() {
    static const std::basic_string<Unit> units = [] {
        const std::wstring text = Decoded();
        return std::basic_string<Unit>(text.begin(), text.end());
    }();
    return units;
}

Outcome Scan(rl::CsvScanKernel kernel) {
    const std::basic_string_view<Unit> text = Units();
    const Stopwatch watch;
    rl::CsvRecordStore records;
    const rl::CsvScanResult result = ScanRecords(text, {}, records, {}, kernel);
    rl::bench::Keep(&result);
    const auto count = static_cast<double>(records.Size());
    return watch.Stop(static_cast<double>(records.MemoryBytes()) / count);
}

Outcome ScanBest() {
    return Scan(rl::BestCsvScanKernel());
}

Outcome ScanSse2() {
    return Scan(rl::CsvScanKernel::Sse2);
}

Outcome ReadUnits() {
    const std::basic_string<Unit>& text = Units();
    const Stopwatch watch;
    const auto* from = reinterpret_cast<const __m128i*>(text.data());
    __m128i sum = _mm_setzero_si128();
    for (size_t i = 0; i < text.size() / 8; ++i) {
        sum = _mm_xor_si128(sum, _mm_loadu_si128(from + i));
    }
    const int kept = _mm_cvtsi128_si32(sum);
    rl::bench::Keep(&kept);
    return watch.Stop();
}

Outcome ReadWithPeer() {
    const std::string& bytes = Bytes();
    const Stopwatch watch;
    const size_t rows = rl::bench::CountRowsInMemory(bytes);
    rl::bench::Keep(&rows);
    return watch.Stop();
}

Outcome DecodeAndScan() {
    const std::string& bytes = Bytes();
    const Stopwatch watch;
    rl::TextEncoding encoding;
    const std::wstring text = rl::DecodeText(bytes, {}, encoding);
    rl::CsvRecordStore records;
    const rl::CsvScanResult result = rl::ScanRecords(text, {}, records);
    rl::bench::Keep(&result);
    return watch.Stop();
}

const rl::CsvModel& Model() {
    static rl::CsvModel model;
    if (model.RowCount() == 0 && !model.Parse(Decoded(), {})) {
        std::terminate();
    }
    return model;
}

Outcome Serialise() {
    const rl::CsvModel& model = Model();
    const Stopwatch watch;
    const std::wstring text = model.Serialize();
    rl::bench::Keep(text.data());
    return watch.Stop();
}

Outcome CopyText() {
    const rl::CsvModel& model = Model();
    const Stopwatch watch;
    const std::wstring text = model.Text();
    rl::bench::Keep(text.data());
    return watch.Stop();
}

constexpr rl::bench::Task kTasks[] = {
    {"scan_best", ScanBest},        {"scan_sse2", ScanSse2},
    {"read_units", ReadUnits},      {"fast_cpp_csv_parser", ReadWithPeer},
    {"decode_scan", DecodeAndScan}, {"serialise", Serialise},
    {"copy_text", CopyText},
};

using rl::bench::kLarge;
using rl::bench::Warmth;

// A record store holds its 16 bytes a record and little more: the last figure.
constexpr rl::bench::Row kRows[] = {
    {"csv: record scan, best kernel, against fast-cpp-csv-parser, cold", "scan_best",
     "fast_cpp_csv_parser", Warmth::Cold, kLarge, 6.0, 0, 16.8},
    {"csv: record scan, SSE2, against fast-cpp-csv-parser, cold", "scan_sse2",
     "fast_cpp_csv_parser", Warmth::Cold, kLarge, 4.8, 0, 16.8},
    {"csv: record scan, best kernel, against one read pass, warm", "scan_best", "read_units",
     Warmth::Warm, kLarge, 0.30},
    {"csv: record scan, SSE2, against one read pass, warm", "scan_sse2", "read_units", Warmth::Warm,
     kLarge, 0.25},
#ifdef _WIN32
    // Where wchar_t has 32 bits this would measure a text twice as large.
    {"csv: decode + scan against fast-cpp-csv-parser, cold", "decode_scan", "fast_cpp_csv_parser",
     Warmth::Cold, kLarge, 1.5},
#endif
    {"csv: serialise unchanged against a copy of the text, cold", "serialise", "copy_text",
     Warmth::Cold, kLarge, 0.9},
};

}  // namespace

int main(int argc, char** argv) {
    return rl::bench::Main({argv, static_cast<size_t>(argc)}, kTasks, kRows);
}
