// An outline lists what a plain listing of the tree lists, whatever is opened, filtered or sought;
// and whatever is copied of it, parsers of others accept.
//
// The first line holds commands, one byte and its operand each; the rest is the document. Bytes are
// units, so that everything up to 0xFF occurs; escapes bring the rest.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "load/text/platform.h"
#include "model/node_copy.h"
#include "model/node_paths.h"
#include "model/record_set.h"
#include "tests/support/parse_back.h"

namespace {

using rl::OutlineRow;
using rl::OutlineRowType;
using rl::TreeTableView;

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

/// A row as the listing below expects it: node, attribute or position, depth.
struct Listed {
    int32_t node;
    int32_t aux;
    int32_t depth;
    bool operator==(const Listed&) const = default;
};

/// Which nodes are open, seen from outside: what the rows say, and nothing of what is hidden.
class PlainListing {
public:
    explicit PlainListing(const TreeTableView& outline) : outline_(outline) {
        open_.resize(static_cast<size_t>(outline.NodeCount()));
        for (int32_t row = 0; row < outline.RowCount(); ++row) {
            const OutlineRow& shown = outline.Row(row);
            if (shown.expanded) {
                open_[static_cast<size_t>(shown.node)] = true;
            }
        }
    }

    std::vector<Listed> List() {
        const bool isJson = outline_.Json() != nullptr;
        const int32_t root = isJson ? outline_.Json()->root : outline_.Xml()->root;
        ListBelow({.node = root, .aux = -1, .depth = 0});
        return std::move(rows_);
    }

private:
    void ListBelow(const Listed& row) {
        rows_.push_back(row);
        if (!open_[static_cast<size_t>(row.node)]) {
            return;
        }
        if (const rl::JsonDocument* json = outline_.Json()) {
            int32_t position = 0;
            for (const int32_t child : json->ChildIndices(row.node)) {
                const bool keyed = json->nodes[static_cast<size_t>(child)].hasKey != 0;
                ListBelow({child, keyed ? -1 : position, row.depth + 1});
                ++position;
            }
            return;
        }
        const rl::XmlDocument& xml = *outline_.Xml();
        const rl::XmlNode& node = xml.nodes[static_cast<size_t>(row.node)];
        for (uint32_t i = 0; i < node.attributeCount; ++i) {
            rows_.push_back(
                {row.node, static_cast<int32_t>(node.firstAttribute + i), row.depth + 1});
        }
        for (int32_t at = node.firstChild; at >= 0;
             at = xml.nodes[static_cast<size_t>(at)].nextSibling) {
            if (xml.nodes[static_cast<size_t>(at)].kind != rl::XmlKind::Text) {
                ListBelow({at, -1, row.depth + 1});
            }
        }
    }

    const TreeTableView& outline_;
    std::vector<bool> open_;
    std::vector<Listed> rows_;
};

std::vector<Listed> RowsOf(const TreeTableView& outline) {
    std::vector<Listed> rows;
    for (int32_t row = 0; row < outline.RowCount(); ++row) {
        const OutlineRow& shown = outline.Row(row);
        rows.push_back({shown.node, shown.aux, shown.depth});
        Require(!shown.expanded || shown.hasChildren);
        Require(outline.RowOf(shown.node, shown.IsAttribute() ? shown.aux : -1) == row);
        const auto source = outline.SourceOf(row);
        const size_t units =
            outline.Json() != nullptr ? outline.Json()->text.size() : outline.Xml()->text.size();
        Require(source.start <= source.end && source.end <= units);
    }
    return rows;
}

bool Contains(std::wstring text, const std::wstring& wanted) {
    rl::platform::FoldCase(text);
    return text.find(wanted) != std::wstring::npos;
}

/// Every row that shows the text is counted, and every node of the tree can be brought into view.
void CheckSearch(TreeTableView& outline, std::wstring wanted) {
    const int32_t count = outline.RevealMatches(wanted);
    rl::platform::FoldCase(wanted);
    int32_t last = -1;
    int32_t seen = 0;
    for (int32_t row = 0; row < outline.RowCount(); ++row) {
        if (outline.Row(row).node != last &&
            (Contains(outline.NameText(row), wanted) || Contains(outline.ValueText(row), wanted))) {
            last = outline.Row(row).node;
            ++seen;
        }
    }
    Require(wanted.empty() || seen <= count);
    Require(!wanted.empty() || count == 0);
}

/// With a filter there are exactly the passing rows and those above them; without it, those before.
void CheckFilter(TreeTableView& outline, int32_t column, const std::wstring& wanted) {
    const std::vector<Listed> before = RowsOf(outline);
    TreeTableView all = outline.Json() != nullptr ? TreeTableView(*outline.Json(), 0)
                                                  : TreeTableView(*outline.Xml(), 0);
    std::vector<Listed> expected;
    std::vector<bool> listedBelow(2100);  // by depth: a row since the last one less deep
    for (int32_t row = all.RowCount() - 1; row >= 0; --row) {
        const OutlineRow& shown = all.Row(row);
        const bool passes = all.CellText(row, column).find(wanted) != std::wstring::npos;
        if (passes || listedBelow[shown.depth + size_t{1}]) {
            expected.push_back({shown.node, shown.aux, shown.depth});
            listedBelow[shown.depth] = true;
        }
        listedBelow[shown.depth + size_t{1}] = false;
    }
    std::ranges::reverse(expected);
    outline.SetFilter(column, wanted,
                      [&](std::wstring& text) { return text.find(wanted) != std::wstring::npos; });
    if (!wanted.empty()) {
        Require(RowsOf(outline) == expected);
        outline.ExpandAll();
        outline.CollapseAll();
    }
    outline.SetFilter(column, L"", {});
    Require(RowsOf(outline) == before);
}

void CheckCopies(const TreeTableView& outline, int32_t row) {
    using rl::CopyFormat;
    const OutlineRow& shown = outline.Row(row);
    const auto copied = [&](CopyFormat format) {
        return rl::NodeTextAs(outline, row, format).value();
    };
    const std::wstring json = copied(CopyFormat::Json);
    Require(rl::test::IsJson(json));
    std::wstring xml = copied(CopyFormat::Xml);
    if (shown.IsAttribute()) {
        xml = L"<r " + xml + L"/>";
    } else if (shown.rowType == OutlineRowType::XmlDoctype) {
        xml += L"<r/>";
    } else if (outline.Xml() != nullptr && shown.rowType != OutlineRowType::XmlDocument) {
        xml = L"<r>" + xml + L"</r>";
    }
    Require(rl::test::IsXml(xml));
    const std::wstring path = copied(CopyFormat::Path);
    if (const rl::JsonDocument* values = outline.Json()) {
        Require(rl::JsonPaths(*values).Of(shown.node) == path);
    } else if (!shown.IsAttribute()) {
        Require(rl::XmlPaths(*outline.Xml()).Of(shown.node) == path);
    }
    Require(!rl::NodeTextAs(outline, row, CopyFormat::Json, json.size() - 1).has_value());
}

void Obey(TreeTableView& outline, uint8_t command, int32_t operand, const std::wstring& word) {
    const int32_t row = outline.RowCount() > 0 ? operand % outline.RowCount() : 0;
    switch (command % 9) {
        case 0: outline.Toggle(row); break;
        case 1: outline.ExpandSubtree(row); break;
        case 2: outline.CollapseAll(); break;
        case 3: outline.OpenLevelsToFit(operand); break;
        case 4: {
            const int32_t node = operand % outline.NodeCount();
            const int32_t found = outline.RevealNode(node, -1);
            Require(found < 0 || outline.Row(found).node == node);
            break;
        }
        case 5: CheckSearch(outline, word); break;
        case 6: CheckFilter(outline, operand % 2, word); break;
        case 7: CheckCopies(outline, row); break;
        default: outline.ExpandAll(); break;
    }
    Require(PlainListing(outline).List() == RowsOf(outline));
}

/// Some units of the document itself, so that something is found.
std::wstring WordOf(std::wstring_view text, int32_t operand) {
    const size_t at = text.empty() ? 0 : static_cast<size_t>(operand) * 7 % text.size();
    return std::wstring(text.substr(at, static_cast<size_t>(operand) % 4));
}

void Run(TreeTableView outline, std::wstring_view commands, std::wstring_view text) {
    Require(PlainListing(outline).List() == RowsOf(outline));
    CheckCopies(outline, 0);
    for (size_t i = 0; i + 1 < std::min<size_t>(commands.size(), 32); i += 2) {
        const auto operand = static_cast<int32_t>(commands[i + 1]);
        Obey(outline, static_cast<uint8_t>(commands[i]), operand, WordOf(text, operand));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > 2048) {
        return 0;
    }
    const std::wstring input(data, data + size);
    const size_t lineEnd = std::min(input.find(L'\n'), input.size());
    const std::wstring commands = input.substr(0, lineEnd);
    const std::wstring text = input.substr(std::min(lineEnd + 1, input.size()));
    const int32_t limit = commands.empty() ? 0 : static_cast<int32_t>(commands[0]) % 20;
    rl::JsonDocument json;
    if (json.Parse(text, false, true) || json.Parse(text, true, false)) {
        Run(TreeTableView(json, limit), commands, text);
        Require(rl::FindRecordSet(json).node < static_cast<int32_t>(json.nodes.size()));
    }
    rl::XmlDocument xml;
    if (xml.Parse(text)) {
        Run(TreeTableView(xml, limit), commands, text);
        Require(rl::FindRecordSet(xml).node < static_cast<int32_t>(xml.nodes.size()));
    }
    return 0;
}
