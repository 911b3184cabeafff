// From a file on disk to the first row on screen, and what stays in memory afterwards.
#include <exception>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "bench/support/csv_peer.h"
#include "bench/support/inputs.h"
#include "bench/support/process.h"
#include "bench/support/task.h"
#include "load/document_loaders.h"

namespace {

using rl::bench::Outcome;
using rl::bench::Stopwatch;

/// Written once a process and read by all of them; nobody but this program writes there.
const std::filesystem::path& TablePath() {
    static const std::filesystem::path path = [] {
        std::filesystem::path file =
            std::filesystem::temp_directory_path() / "rowlark_bench_table.csv";
        std::error_code missing;
        const std::string bytes = rl::bench::CsvBytes(rl::bench::kLarge);
        if (std::filesystem::file_size(file, missing) != bytes.size()) {
            std::ofstream(file, std::ios::binary)
                .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        }
        return file;
    }();
    return path;
}

Outcome LoadFile() {
    const std::wstring path = TablePath().wstring();
    const auto before = static_cast<double>(rl::bench::MemoryNow());
    const Stopwatch watch;
    std::wstring error;
    const std::unique_ptr<rl::CsvModel> model = rl::LoadCsv(path, 0, {}, {}, error);
    if (model == nullptr || model->CellText(1, 0).empty()) {
        std::terminate();
    }
    const auto after = static_cast<double>(rl::bench::MemoryNow());
    return watch.Stop((after - before) / static_cast<double>(rl::bench::kLarge));
}

Outcome ReadFileWithPeer() {
    const std::string path = TablePath().string();
    const Stopwatch watch;
    const size_t rows = rl::bench::CountRowsInFile(path);
    rl::bench::Keep(&rows);
    return watch.Stop();
}

constexpr rl::bench::Task kTasks[] = {{"load_file", LoadFile}, {"read_file", ReadFileWithPeer}};

// Growth at the peak, and what is left after the load: both in bytes for each byte of the file.
constexpr rl::bench::Row kRows[] = {
    {"csv: file to first row against fast-cpp-csv-parser, cold", "load_file", "read_file",
     rl::bench::Warmth::Cold, rl::bench::kLarge, 1.7, 3.1, 2.4},
};

}  // namespace

int main(int argc, char** argv) {
    return rl::bench::Main({argv, static_cast<size_t>(argc)}, kTasks, kRows);
}
