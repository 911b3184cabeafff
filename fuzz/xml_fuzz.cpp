// Holds XML to its laws: any text parses to nodes that lie inside it and in its order, both kernels
// find the same, an untouched document is written back unit for unit, an edited one parses again,
// and tables over all nodes answer all cells.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

#include "model/xml_document.h"
#include "model/xml_parser.h"
#include "model/xml_table.h"

namespace {

using rl::XmlDocument;
using rl::XmlNode;
using rl::XmlTableView;
using rl::XmlTree;
using rl::XmlValueRef;

void Require(bool holds, const char* law) {
    if (!holds) {
        (void)std::fprintf(stderr, "broken: %s\n", law);
        std::abort();
    }
}

constexpr std::array<char16_t, 8> kFarUnits = {0x013C, 0x223E, 0x2F3C, 0xD83D,
                                               0xDE00, 0x00FF, 0xFFFF, 0x0000};

char16_t UnitFromByte(uint8_t byte) {
    return byte < 0xF8 ? char16_t{byte} : kFarUnits[byte - 0xF8];
}

bool IsInside(uint32_t offset, uint32_t length, uint32_t start, uint32_t end) {
    return length == 0 || (offset >= start && offset <= end && length <= end - offset);
}

void CheckNode(const XmlTree& tree, size_t index, uint32_t size) {
    const XmlNode& node = tree.nodes[index];
    const auto self = static_cast<int32_t>(index);
    Require(node.sourceStart <= node.sourceEnd && node.sourceEnd <= size,
            "a node lies inside the text");
    Require(IsInside(node.nameOffset, node.nameLength, node.sourceStart, node.sourceEnd) &&
                IsInside(node.valueOffset, node.valueLength, node.sourceStart, node.sourceEnd),
            "name and value lie inside their node");
    Require(index == 0 ? node.parent == -1 : node.parent >= 0 && node.parent < self,
            "parents stand before their children");
    Require(index == 0 || tree.nodes[index - 1].sourceStart <= node.sourceStart,
            "nodes stand in the order of the text");
    uint32_t children = 0;
    for (int32_t child = node.firstChild, last = self; child >= 0; ++children) {
        Require(child > last && static_cast<size_t>(child) < tree.nodes.size(),
                "siblings follow one another");
        Require(tree.nodes[static_cast<size_t>(child)].parent == self,
                "children know their parent");
        last = std::exchange(child, tree.nodes[static_cast<size_t>(child)].nextSibling);
    }
    Require(children == node.childCount, "children are counted");
    Require(size_t{node.firstAttribute} + node.attributeCount <= tree.attributes.size(),
            "attributes exist");
}

void CheckTree(const std::u16string& narrow, const std::wstring& text) {
    const auto tree = rl::ParseXml(text);
    Require(tree.has_value(), "every text parses");
    Require(rl::ParseXml(narrow, {}, rl::XmlScanKernel::Plain) == tree &&
                rl::ParseXml(narrow, {}, rl::XmlScanKernel::Sse2) == tree &&
                rl::ParseXml(narrow) == tree,
            "the kernels find the same");
    // Regular markup before and behind puts the text into the middle of what is read by marks.
    const std::u16string before(narrow.size() % 64, u' ');
    std::u16string framed = u"<a b=\"1\">" + before + narrow;
    while (framed.size() < 512) {
        framed += u"<c d=\"2\"> e <f/></c>";
    }
    const auto plain = rl::ParseXml(framed, {}, rl::XmlScanKernel::Plain);
    Require(
        rl::ParseXml(framed, {}, rl::XmlScanKernel::Sse2) == plain && rl::ParseXml(framed) == plain,
        "the kernels find the same in a frame");
    const auto size = static_cast<uint32_t>(text.size());
    size_t owned = 0;
    for (size_t i = 0; i < tree->nodes.size(); ++i) {
        CheckNode(*tree, i, size);
        owned += tree->nodes[i].attributeCount;
    }
    Require(owned == tree->attributes.size(), "every attribute has one element");
    uint32_t end = 0;
    for (const rl::XmlAttribute& attribute : tree->attributes) {
        Require(attribute.nameOffset >= end && attribute.nameLength > 0 &&
                    attribute.valueOffset > attribute.nameOffset + attribute.nameLength,
                "attributes follow one another");
        end = attribute.valueOffset + attribute.valueLength;
        Require(end <= size, "an attribute lies inside the text");
    }
}

void CheckTables(const XmlDocument& document) {
    std::wstring text;
    const auto count = static_cast<int32_t>(std::min<size_t>(document.nodes.size(), 64));
    for (int32_t node = -1; node < count; ++node) {
        const XmlTableView table(&document, node, L"");
        for (int32_t row = -1; row <= table.RowCount(); ++row) {
            for (int32_t column = -1; column <= table.ColumnCount(); ++column) {
                table.ReadCell(row, column, text);
                const bool isEditable = table.Cell(row, column).ref.kind != XmlValueRef::Kind::None;
                Require(table.IsCellEditable(row, column) == isEditable && (!isEditable || row > 0),
                        "a cell with a value can be edited");
            }
        }
    }
    Require(
        document.InnerText(document.FirstElement()) == document.NodeValue(document.FirstElement()),
        "an element's value is its inner text");
}

/// Whether a comment or the like has an end of its own, rather than that of the text.
bool IsTerminated(const XmlDocument& document, const XmlNode& node) {
    const size_t end = size_t{node.valueOffset} + node.valueLength;
    const std::wstring_view rest =
        std::wstring_view(document.text).substr(end, node.sourceEnd - end);
    switch (node.kind) {
        case rl::XmlKind::Comment: return rest == L"-->";
        case rl::XmlKind::Cdata: return rest == L"]]>";
        case rl::XmlKind::ProcessingInstruction: return rest == L"?>";
        default: return node.kind == rl::XmlKind::Text;
    }
}

/// Whether quotes stand in pairs around values and nowhere else in tags, and all contents have an
/// end: only then does an edit leave the ends of others alone.
bool IsSound(const XmlDocument& document) {
    std::wstring bare = document.text;
    const auto blank = [&bare](size_t from, size_t to) {
        std::fill(bare.begin() + static_cast<std::ptrdiff_t>(from),
                  bare.begin() + static_cast<std::ptrdiff_t>(to), L' ');
    };
    for (const rl::XmlAttribute& attribute : document.attributes) {
        const size_t end = size_t{attribute.valueOffset} + attribute.valueLength;
        if (end >= bare.size() || bare[end] != static_cast<wchar_t>(attribute.quote)) {
            return false;
        }
        blank(attribute.valueOffset - 1, end + 1);
    }
    for (const XmlNode& node : document.nodes) {
        if (node.kind != rl::XmlKind::Element && node.kind != rl::XmlKind::Document) {
            if (!IsTerminated(document, node)) {
                return false;
            }
            blank(node.sourceStart, node.sourceEnd);
        }
    }
    return bare.find_first_of(L"\"'") == bare.npos;
}

size_t ElementCount(const XmlDocument& document) {
    return static_cast<size_t>(
        std::ranges::count(document.nodes, rl::XmlKind::Element, &XmlNode::kind));
}

void CheckEdits(XmlDocument& document, uint8_t choice) {
    static constexpr std::array<std::wstring_view, 8> kValues = {L"x",  L"",  L"<&>'\"", L"]]",
                                                                 L"a-", L"?", L"-->",    L"]]>?>"};
    for (size_t i = 0; i < document.nodes.size(); ++i) {
        const auto node = static_cast<int32_t>(i);
        const std::wstring_view value = kValues[(choice + i) % kValues.size()];
        const XmlValueRef ref = document.ValueRefOf(node);
        if (document.SetValue(ref, value)) {
            Require(document.NodeValue(ref.node) == value, "an edit shows at once");
        }
    }
    for (size_t i = 0; i < document.attributes.size(); ++i) {
        const auto attribute = static_cast<int32_t>(i);
        const std::wstring_view value = kValues[(choice + i) % kValues.size()];
        Require(document.SetValue(XmlDocument::AttributeRef(0, attribute), value) &&
                    document.AttributeValue(attribute) == value,
                "an attribute takes any text");
    }
    XmlDocument again;
    Require(again.Parse(document.Serialize()), "an edited document parses again");
    if (IsSound(document)) {
        Require(ElementCount(again) == ElementCount(document), "no edit makes an element");
        Require(again.attributes.size() == document.attributes.size(),
                "no edit makes an attribute");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::u16string narrow;
    std::transform(data, data + size, std::back_inserter(narrow), UnitFromByte);
    const std::wstring text(narrow.begin(), narrow.end());
    CheckTree(narrow, text);
    Require(rl::DecodeEntities(rl::EscapeText(text)) == text &&
                rl::DecodeEntities(rl::EscapeAttribute(text, L'\'')) == text,
            "what is escaped comes back");
    XmlDocument document;
    const bool parsed = document.Parse(text);
    Require(document.Serialize() == text, "an untouched text is written back as it was");
    if (parsed && size > 0 && size < 4096) {
        CheckTables(document);
        CheckEdits(document, data[size - 1]);
    }
    return 0;
}
