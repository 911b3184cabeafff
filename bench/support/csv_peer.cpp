// A file of its own, because the peer's header does not compile without warnings.
#include "bench/support/csv_peer.h"

#include <libfccp/csv.h>

#include <array>

namespace rl::bench {

namespace {

using Reader = io::CSVReader<12, io::trim_chars<' ', '\t'>, io::double_quote_escape<',', '"'>>;

size_t CountRows(Reader& reader) {
    std::array<char*, 12> c{};
    size_t rows = 0;
    while (
        reader.read_row(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8], c[9], c[10], c[11])) {
        ++rows;
    }
    return rows;
}

}  // namespace

size_t CountRowsInMemory(const std::string& bytes) {
    Reader reader("table", bytes.data(), bytes.data() + bytes.size());
    return CountRows(reader);
}

size_t CountRowsInFile(const std::string& path) {
    Reader reader(path);
    return CountRows(reader);
}

}  // namespace rl::bench
