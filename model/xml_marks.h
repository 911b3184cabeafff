// Where in a stretch of XML something begins or ends, and how many nodes and attributes that makes:
// what is found without knowing the grammar, 64 units at a time. Private to the parser.
#pragma once

#include <cstddef>
#include <cstdint>

namespace rl::detail {

inline constexpr uint32_t kXmlBlock = 64;        // units
inline constexpr uint32_t kXmlMarksInVain = 12;  // that may be written behind the last one

/// What an XML text holds, as far as marks tell. Exact for texts in which "<" and ">" stand for
/// nothing but markup; else a guess, mostly too high.
struct XmlMarkCounts {
    size_t nodes = 0;
    size_t attributes = 0;
    // Whether the block before ended with one of these; blanks behind the ">" do not matter.
    uint64_t afterClose = 1;
    uint64_t afterOpen = 0;
    uint64_t afterEquals = 0;
};

template <typename Unit>
struct XmlMarkKernel {
    /// Finds the marks of `blocks` blocks that begin with a text or a tag, or of those before the
    /// first in which "<" and ">" do not take turns outside quotes; how many blocks that were.
    /// Marks are counted from `first`:
    ///   - each "<" and ">",
    ///   - the first visible unit of a text,
    ///   - in a tag: the end of each name, the beginning of each but the first, closing quotes, and
    ///     quotes that stand elsewhere than around values.
    /// What follows a "<" at once counts as part of a name. Only `quote` is a quote; the other kind
    /// is a mark wherever it stands in a tag outside values.
    size_t (*find)(const Unit* units, size_t blocks, uint32_t first, char quote, uint32_t* marks,
                   size_t& count);

    /// Counts on through `blocks` blocks up to their end or the first "<!"; how many units that is:
    /// -1 when the block before ended with that "<".
    std::ptrdiff_t (*count)(const Unit* units, size_t blocks, XmlMarkCounts& counts);
};

template <typename Unit>
XmlMarkKernel<Unit> XmlMarksSse2();
template <typename Unit>
XmlMarkKernel<Unit> XmlMarksAvx2();

}  // namespace rl::detail
