// The fast record scan, written once for every instruction set.
//
// Sixty-four units become three masks of 64 bits: quotes, delimiters, line breaks. The running sum
// of the quotes without carry says which units stand inside quotes; what is left of the other two
// masks is counted and walked bit by bit. An instruction set brings the masks and the counting.
//
// An instruction set is a class of an unnamed namespace: whatever is made from it has internal
// linkage, so that code for one set of instructions can never be linked into the path of another.
// Private to the csv_*.cpp files.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/csv_scan.h"
#include "model/prefix_xor.h"

namespace rl::detail {

/// A scan between two blocks of 64 units.
struct CsvScanState {
    size_t position = 0;         // the next unit to look at
    uint32_t recordStart = 0;    // of the record that is open there
    uint32_t delimiters = 0;     // counted in it so far
    uint32_t columnCount = 0;    // the largest number of fields so far
    uint64_t inside = 0;         // all bits set: `position` stands inside quotes
    bool isComment = false;      // the open record begins like a comment
    bool skipsLineFeed = false;  // a CR stands before `position`: an LF there belongs to it
    bool atComment = false;      // stopped: at `recordStart` begins a comment that is not split
};

/// Units that must follow the block a kernel looks at: the second half of a line break, and the
/// first unit of the next record.
inline constexpr size_t kCsvScanAhead = 2;
inline constexpr size_t kCsvScanBlock = 64;

/// A kernel scans block after block until `limit` is reached, `out` comes to `outEnd` (it may pass
/// it by `CsvRecordStore::kSlack`), too little of the text is left, or a comment must be read in
/// another way. It returns where the next record goes. Delimiter and quote must lie in 1 .. 254
/// and differ from each other and from CR and LF.
template <typename Unit>
using CsvScanRun = CsvRowSpan* (*)(const Unit* text, size_t size, size_t limit,
                                   const CsvScanRules& rules, CsvScanState& state, CsvRowSpan* out,
                                   const CsvRowSpan* outEnd);

template <typename Unit>
CsvRowSpan* RunCsvScanSse2(const Unit* text, size_t size, size_t limit, const CsvScanRules& rules,
                           CsvScanState& state, CsvRowSpan* out, const CsvRowSpan* outEnd);
template <typename Unit>
CsvRowSpan* RunCsvScanAvx2(const Unit* text, size_t size, size_t limit, const CsvScanRules& rules,
                           CsvScanState& state, CsvRowSpan* out, const CsvRowSpan* outEnd);

/// Whether a comment begins at a position inside the text. Rarely asked, hence not a template of
/// the kernel's own instruction set.
bool CsvCommentBeginsAt(const wchar_t* text, size_t size, size_t position);
bool CsvCommentBeginsAt(const char16_t* text, size_t size, size_t position);

/// One bit for each of 64 units.
struct CsvBlockMasks {
    uint64_t quotes;
    uint64_t delimiters;
    uint64_t breaks;
};

template <typename Unit, typename InstructionSet>
class CsvScanLoop {
public:
    CsvScanLoop(const Unit* text, size_t size, const CsvScanRules& rules, CsvScanState& state,
                CsvRowSpan* out)
        : text_(text),
          size_(size),
          splitComments_(rules.splitComments),
          out_(out),
          state_(state),
          set_(static_cast<uint8_t>(rules.quoteChar), static_cast<uint8_t>(rules.delimiter)) {}

    CsvRowSpan* Run(size_t limit, const CsvRowSpan* outEnd) {
        if (size_ < kCsvScanBlock + kCsvScanAhead) {
            return out_;
        }
        const size_t last = size_ - kCsvScanBlock - kCsvScanAhead;
        CsvScanState state = state_;
        while (state.position <= last && state.position < limit && out_ < outEnd &&
               ScanBlock(state)) {
            state.position += kCsvScanBlock;
        }
        state_ = state;
        return out_;
    }

private:
    /// False when the block holds the beginning of a comment that must be read in another way.
    bool ScanBlock(CsvScanState& state) {
        const CsvBlockMasks masks = set_.Classify(text_ + state.position);
        const uint64_t inside = PrefixXor(masks.quotes) ^ state.inside;
        state.inside = uint64_t{0} - (inside >> 63);
        const uint64_t delimiters = masks.delimiters & ~inside;
        uint64_t breaks = masks.breaks & ~inside & ~uint64_t{state.skipsLineFeed};
        state.skipsLineFeed = false;
        while (breaks != 0) {
            const unsigned bit = InstructionSet::LowestBit(breaks);
            const uint64_t below = (uint64_t{1} << bit) - 1;
            const uint32_t before = InstructionSet::Count(delimiters & below);
            breaks &= breaks - 1;
            const size_t end = state.position + bit;
            const bool pair = text_[end] == Unit{'\r'} && text_[end + 1] == Unit{'\n'};
            const uint64_t lineFeed = uint64_t{pair} << bit;
            breaks &= ~(lineFeed << 1);
            state.skipsLineFeed = (lineFeed >> 63) != 0;
            EndRecord(state, end, state.delimiters + before + 1, pair);
            state.delimiters = uint32_t{0} - before;
            if (state.isComment && !splitComments_) {
                state.atComment = true;
                return false;
            }
        }
        state.delimiters += InstructionSet::Count(delimiters);
        return true;
    }

    void EndRecord(CsvScanState& state, size_t end, uint32_t fieldCount, bool pair) {
        *out_++ = {.start = state.recordStart,
                   .length = static_cast<uint32_t>(end) - state.recordStart,
                   .lineBreakLength = static_cast<uint8_t>(1 + pair),
                   .isComment = state.isComment,
                   .isHidden = false,
                   .isRaw = false,
                   .fieldCount = fieldCount};
        state.columnCount = fieldCount > state.columnCount ? fieldCount : state.columnCount;
        const size_t next = end + 1 + pair;
        state.recordStart = static_cast<uint32_t>(next);
        state.isComment = MayBeginComment(text_[next]) && CsvCommentBeginsAt(text_, size_, next);
    }

    static bool MayBeginComment(Unit unit) {
        return (unit == Unit{'#'}) | (unit == Unit{';'}) | ((unit | 0x20) == 's');
    }

    const Unit* text_;
    size_t size_;
    bool splitComments_;
    CsvRowSpan* out_;
    CsvScanState& state_;
    InstructionSet set_;
};

}  // namespace rl::detail
