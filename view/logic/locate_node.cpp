#include "view/logic/locate_node.h"

namespace rl {

namespace {

std::optional<LocatedRange> Between(uint32_t start, uint32_t end) {
    return start < end ? std::optional(LocatedRange{.start = start, .length = end - start})
                       : std::nullopt;
}

template <typename Nodes>
bool Holds(const Nodes& nodes, int32_t node) {
    return node >= 0 && static_cast<size_t>(node) < nodes.size();
}

}  // namespace

std::optional<LocatedRange> LocateRow(const CsvModel& model, int32_t modelRow) {
    const std::wstring_view record = model.RawRow(modelRow);
    if (record.data() == nullptr) {
        return std::nullopt;
    }
    const auto start = static_cast<uint64_t>(record.data() - model.Text().data());
    return LocatedRange{.start = start, .length = record.size()};
}

std::optional<LocatedRange> LocateRow(const TreeTableView& outline, int32_t modelRow) {
    const TreeTableView::SourceRange range = outline.SourceOf(modelRow);
    return Between(range.start, range.end);
}

std::optional<LocatedRange> LocateRow(const JsonTableView& table, const JsonDocument& document,
                                      int32_t modelRow, int32_t tableNode) {
    const int32_t rowNode = table.RowNode(modelRow);
    const int32_t node = rowNode >= 0 ? rowNode : tableNode;
    if (!Holds(document.nodes, node)) {
        return std::nullopt;
    }
    const JsonNode& found = document.nodes[static_cast<size_t>(node)];
    return Between(found.valueOffset, found.valueOffset + found.valueLength);
}

std::optional<LocatedRange> LocateRow(const XmlTableView& table, const XmlDocument& document,
                                      int32_t modelRow, int32_t tableNode) {
    const int32_t rowNode = table.RowNode(modelRow);
    const int32_t node = rowNode >= 0 ? rowNode : tableNode;
    if (!Holds(document.nodes, node)) {
        return std::nullopt;
    }
    const XmlNode& found = document.nodes[static_cast<size_t>(node)];
    return Between(found.sourceStart, found.sourceEnd);
}

}  // namespace rl
