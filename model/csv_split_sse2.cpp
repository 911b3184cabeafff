// The split of a record into fields, 64 units at a time. Every 64-bit x86 processor can do this,
// and records are short: a wider instruction set gains nothing here.
#include <algorithm>
#include <array>
#include <cwchar>

#include "model/csv_masks_sse2.h"
#include "model/csv_split.h"
#include "model/prefix_xor.h"

namespace rl::detail {

namespace {

class FieldCollector {
public:
    explicit FieldCollector(std::vector<CsvFieldSpan>& fields) : fields_(fields) {}

    void Add(uint64_t quotes, uint64_t delimiters, uint32_t position) {
        const uint64_t inside = PrefixXor(quotes) ^ inside_;
        inside_ = uint64_t{0} - (inside >> 63);
        for (uint64_t ends = delimiters & ~inside; ends != 0; ends &= ends - 1) {
            EndField(position + Sse2::LowestBit(ends));
        }
    }

    void EndField(uint32_t end) {
        fields_.push_back({start_, end - start_});
        start_ = end + 1;
    }

private:
    std::vector<CsvFieldSpan>& fields_;
    uint32_t start_ = 0;
    uint64_t inside_ = 0;
};

}  // namespace

template <typename Unit>
void SplitFieldsSse2(const Unit* record, uint32_t size, uint8_t delimiter, uint8_t quoteChar,
                     std::vector<CsvFieldSpan>& fields) {
    const Sse2 set(quoteChar, delimiter);
    fields.clear();
    FieldCollector collector(fields);
    uint32_t position = 0;
    for (; size - position >= kCsvScanBlock; position += kCsvScanBlock) {
        const CsvBlockMasks masks = set.Classify(record + position);
        collector.Add(masks.quotes, masks.delimiters, position);
    }
    if (position < size) {
        std::array<Unit, kCsvScanBlock> rest{};  // nothing may be read behind the record
        std::copy(record + position, record + size, rest.begin());
        const CsvBlockMasks masks = set.Classify(rest.data());
        collector.Add(masks.quotes, masks.delimiters, position);
    }
    collector.EndField(size);
}

template void SplitFieldsSse2(const char16_t*, uint32_t, uint8_t, uint8_t,
                              std::vector<CsvFieldSpan>&);
#if WCHAR_MAX == 0xFFFF
template void SplitFieldsSse2(const wchar_t*, uint32_t, uint8_t, uint8_t,
                              std::vector<CsvFieldSpan>&);
#endif

}  // namespace rl::detail
