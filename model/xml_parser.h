// Cuts an XML text into nodes and attributes.
//
// Forgiving: whatever the text, the parse ends, in time proportional to its length, and tags that
// do not balance only set a flag. The text is read twice, first to count: nodes and attributes of a
// large file fill gigabytes, and growing arrays would hold them twice.
//
// Knows nothing of values, edits and entities. Safe on any thread.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "load/text/abandon_check.h"
#include "model/xml_node.h"

namespace rl {

struct XmlTree {
    std::vector<XmlNode> nodes;  // the document node first
    std::vector<XmlAttribute> attributes;
    bool malformed = false;  // tags did not balance

    bool operator==(const XmlTree&) const = default;
};

/// Texts of more units than this are not parsed: node indices have 31 bits.
inline constexpr size_t kMaxXmlUnits = 0x7FFFFFF0;

enum class XmlScanKernel { Plain, Sse2, Avx2 };

/// The fastest this processor offers.
[[nodiscard]] XmlScanKernel BestXmlScanKernel();

/// The nodes of `text`; nothing when it is too long or when `abandoned`, asked every few million
/// units, said so. Units wider than 16 bits are always scanned by the plain kernel.
[[nodiscard]] std::optional<XmlTree> ParseXml(std::wstring_view text,
                                              const AbandonCheck& abandoned = {},
                                              XmlScanKernel kernel = BestXmlScanKernel());
[[nodiscard]] std::optional<XmlTree> ParseXml(std::u16string_view text,
                                              const AbandonCheck& abandoned = {},
                                              XmlScanKernel kernel = BestXmlScanKernel());

}  // namespace rl
