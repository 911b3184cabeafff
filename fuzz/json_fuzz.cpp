// Holds JSON to its laws: both searches find the same nodes, nodes count exactly, spans nest and
// stay inside the text, what is written is read as the same tree, and tables answer for every cell.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "model/json_document.h"
#include "model/json_parser.h"
#include "model/json_recovery.h"
#include "model/json_table.h"

namespace {

using rl::JsonDocument;
using rl::JsonNode;

void Require(bool holds, const char* law) {
    if (!holds) {
        (void)std::fprintf(stderr, "broken: %s\n", law);
        std::abort();
    }
}

constexpr std::array<char16_t, 8> kFarUnits = {0x015B, 0x0122, 0x305C, 0xD83D,
                                               0xDE00, 0x2020, 0xFFFF, 0x0000};

char16_t UnitFromByte(uint8_t byte) {
    return byte < 0xF8 ? char16_t{byte} : kFarUnits[byte - 0xF8];
}

const JsonNode& At(const JsonDocument& document, int32_t node) {
    return document.nodes.at(static_cast<size_t>(node));
}

void CheckSpans(const JsonDocument& document) {
    const auto count = static_cast<int32_t>(document.nodes.size());
    for (int32_t node = document.root; node < count; ++node) {
        const JsonNode& entry = At(document, node);
        const uint64_t end = uint64_t{entry.valueOffset} + entry.valueLength;
        Require(end <= document.text.size(), "spans stay inside the text");
        Require(uint64_t{entry.keyOffset} + entry.keyLength <= entry.valueOffset,
                "a key stands before its value");
        Require(entry.hasKey == (entry.keyLength != 0 ? 1 : 0), "a key has its quotes");
        uint32_t children = 0;
        int32_t last = node;
        for (int32_t child = entry.firstChild; child >= 0;
             child = At(document, child).nextSibling) {
            const JsonNode& inner = At(document, child);
            Require(child > last && inner.parent == node, "children follow their container");
            Require(
                entry.valueLength == 0 || (inner.valueOffset > entry.valueOffset &&
                                           uint64_t{inner.valueOffset} + inner.valueLength < end),
                "a child lies inside its container");
            Require(inner.hasKey == (entry.kind == rl::JsonKind::Object ? 1 : 0),
                    "members have keys, elements have none");
            last = child;
            ++children;
        }
        Require(children == entry.childCount, "children are counted");
    }
}

/// All of a tree that does not depend on how it is spelled.
std::vector<std::wstring> Tree(const JsonDocument& document) {
    std::vector<std::wstring> tree;
    const auto count = static_cast<int32_t>(document.nodes.size());
    // Of a single salvaged block, the gathering node is not part.
    for (int32_t node = document.root; node < count; ++node) {
        tree.push_back(document.KeyText(node));
        tree.push_back(document.DisplayText(node));
        tree.push_back(std::to_wstring(At(document, node).childCount));
    }
    return tree;
}

void CheckWriters(const JsonDocument& document) {
    const std::vector<std::wstring> tree = Tree(document);
    std::wstring compact;
    document.WriteCompact(document.root, compact);
    JsonDocument again;
    Require(again.Parse(compact, false, false) && Tree(again) == tree,
            "compact text is the same tree");
    Require(again.Parse(document.PrettyText(document.root), false, false) && Tree(again) == tree,
            "indented text is the same tree");
    Require(again.Parse(document.Serialize(), document.lines, false) && Tree(again) == tree,
            "a saved document is the same tree");
    Require(again.Serialize() == document.Serialize(), "saving again changes nothing");
}

void CheckStrings(const std::wstring& text) {
    JsonDocument document;
    document.text = rl::EscapeString(text);
    Require(document.DecodeString(0, static_cast<uint32_t>(document.text.size())) == text,
            "an escaped text decodes to itself");
    document.text = text;
    for (uint32_t offset = 0; offset <= std::min<size_t>(text.size(), 40); ++offset) {
        Require(document.DecodeString(offset, offset * 7 % 50).size() <= 50,
                "a text is no longer than its token");
    }
}

void CheckTables(const JsonDocument& document) {
    const auto count = static_cast<int32_t>(document.nodes.size());
    for (int32_t node = 0; node < std::min(count, 40); ++node) {
        const rl::JsonTableView table(&document, node, L"?", node % 3 == 0);
        for (int32_t row = -1; row <= table.RowCount(); ++row) {
            for (int32_t column = -1; column <= table.ColumnCount(); ++column) {
                const int32_t cell = table.CellNode(row, column);
                const std::wstring text = table.CellText(row, column);
                Require(cell < 0 || text == document.DisplayText(cell), "a cell shows its node");
                Require(!table.IsCellEditable(row, column) || !At(document, cell).IsContainer(),
                        "containers are not edited");
            }
        }
    }
}

template <typename Scan>
struct Reading {
    std::vector<JsonNode> nodes;
    int32_t root = -1;
    size_t counted = 0;

    explicit Reading(const std::u16string& text) {
        const rl::AbandonCheck never;
        rl::JsonParser<char16_t, Scan> parser(text, false, nodes, never);
        root = parser.Parse(0, text.size(), -1);
        const char16_t* const end = text.data() + text.size();
        counted = rl::CountJsonNodes<char16_t, Scan>(text.data(), end, false);
    }
};

void CheckKernels(const std::u16string& text) {
    const rl::AbandonCheck never;
    const Reading<rl::detail::JsonScanPlain> plain(text);
    const Reading<rl::detail::JsonScanSse2> steps(text);
    const Reading<rl::detail::JsonScanBest> best(text);
    Require(plain.root == steps.root && plain.nodes == steps.nodes && plain.root == best.root &&
                plain.nodes == best.nodes,
            "all searches find the same nodes");
    Require(plain.counted == steps.counted && plain.counted == best.counted,
            "all searches count the same");
    Require(plain.root < 0 || plain.counted == plain.nodes.size(),
            "the nodes of a valid text are counted exactly");
    const char16_t* const end = text.data() + text.size();
    std::vector<JsonNode> lines;
    if (rl::ParseJsonLines<char16_t>(text, lines, never) >= 0) {
        Require(rl::CountJsonNodes<char16_t>(text.data(), end, true) + 1 == lines.size(),
                "the nodes of valid lines are counted exactly");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::u16string units(size, u'\0');
    std::transform(data, data + size, units.begin(), UnitFromByte);
    const std::wstring text(units.begin(), units.end());
    CheckKernels(units);
    CheckStrings(text);
    for (const int mode : {0, 1, 2}) {
        JsonDocument document;
        const bool parsed = document.Parse(text, mode == 2, mode == 1);
        Require(parsed == (document.root >= 0), "a root is what was read");
        Require(document.text == text, "the text stays");
        if (parsed) {
            CheckSpans(document);
            CheckWriters(document);
            CheckTables(document);
        }
    }
    return 0;
}
