// The record scan for every 64-bit x86 processor.
#include <cwchar>

#include "model/csv_masks_sse2.h"
#include "model/csv_scan_kernel.h"

namespace rl::detail {

template <typename Unit>
CsvRowSpan* RunCsvScanSse2(const Unit* text, size_t size, size_t limit, const CsvScanRules& rules,
                           CsvScanState& state, CsvRowSpan* out, const CsvRowSpan* outEnd) {
    return CsvScanLoop<Unit, Sse2>(text, size, rules, state, out).Run(limit, outEnd);
}

template CsvRowSpan* RunCsvScanSse2(const char16_t*, size_t, size_t, const CsvScanRules&,
                                    CsvScanState&, CsvRowSpan*, const CsvRowSpan*);
#if WCHAR_MAX == 0xFFFF
template CsvRowSpan* RunCsvScanSse2(const wchar_t*, size_t, size_t, const CsvScanRules&,
                                    CsvScanState&, CsvRowSpan*, const CsvRowSpan*);
#endif

}  // namespace rl::detail
