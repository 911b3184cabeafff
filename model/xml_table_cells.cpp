#include "model/xml_table_cells.h"

#include <algorithm>

namespace rl::detail {

namespace {

constexpr size_t kDenseCellsPerMember = 4;

size_t MemberCount(const XmlDocument& document, const std::vector<int32_t>& records) {
    size_t members = 0;
    for (const int32_t record : records) {
        const XmlNode& node = document.nodes[static_cast<size_t>(record)];
        members += size_t{node.attributeCount} + node.childCount;
    }
    return members;
}

}  // namespace

XmlRecordCells::XmlRecordCells(const XmlDocument& document, const std::vector<int32_t>& records)
    : document_(&document), columns_(MemberCount(document, records)) {
    rowStarts_.reserve(records.size() + 1);
    filled_.reserve(MemberCount(document, records));
    for (const int32_t record : records) {
        rowStarts_.push_back(filled_.size());
        AddRecord(record);
    }
    rowStarts_.push_back(filled_.size());
    columns_.StopFinding();
    lastRowOf_ = {};
    const size_t perRecord = filled_.size() / std::max<size_t>(1, records.size());
    isDense_ = Columns().size() <= kDenseCellsPerMember * perRecord;
    if (isDense_) {
        Spread();
        return;
    }
    if (!isInOrder_) {
        SortRows();
    }
}

int32_t XmlRecordCells::At(size_t row, int32_t column) const {
    if (isDense_) {
        return dense_[row * Columns().size() + static_cast<size_t>(column)];
    }
    const auto from = filled_.begin() + static_cast<std::ptrdiff_t>(rowStarts_[row]);
    const auto to = filled_.begin() + static_cast<std::ptrdiff_t>(rowStarts_[row + 1]);
    const auto found = std::lower_bound(
        from, to, column, [](const Filled& cell, int32_t wanted) { return cell.column < wanted; });
    return found != to && found->column == column ? found->index : kEmpty;
}

void XmlRecordCells::AddRecord(int32_t record) {
    const XmlNode& node = document_->nodes[static_cast<size_t>(record)];
    for (uint32_t i = 0; i < node.attributeCount; ++i) {
        const auto attribute = static_cast<int32_t>(node.firstAttribute + i);
        Fill(ColumnOf({.name = document_->AttributeName(attribute), .isAttribute = true}),
             attribute);
    }
    for (int32_t child = node.firstChild; child >= 0;) {
        const XmlNode& below = document_->nodes[static_cast<size_t>(child)];
        if (below.kind == XmlKind::Element) {
            const std::wstring_view name = document_->NodeName(child);
            if (name.starts_with(L'@')) {  // its column is that of an attribute, and shows those
                ColumnOf({.name = name.substr(1), .isAttribute = true});
            } else {
                Fill(ColumnOf({.name = name}), child);
            }
        }
        child = below.nextSibling;
    }
}

int32_t XmlRecordCells::ColumnOf(const XmlColumn& column) {
    const auto count = static_cast<int32_t>(Columns().size());
    const int32_t guess = lastColumn_ + 1 < count ? lastColumn_ + 1 : 0;
    if (count > 0 && Columns()[static_cast<size_t>(guess)] == column) {
        lastColumn_ = guess;
        return guess;
    }
    lastColumn_ = columns_.FindOrAdd(column);
    if (lastColumn_ == count) {
        lastRowOf_.push_back(-1);
    }
    return lastColumn_;
}

/// The first of a name in a record wins.
void XmlRecordCells::Fill(int32_t column, int32_t index) {
    const auto row = static_cast<int32_t>(rowStarts_.size()) - 1;
    int32_t& last = lastRowOf_[static_cast<size_t>(column)];
    if (last != row) {
        last = row;
        isInOrder_ &= filled_.size() == rowStarts_.back() || filled_.back().column < column;
        filled_.push_back({column, index});
    }
}

void XmlRecordCells::SortRows() {
    for (size_t row = 0; row + 1 < rowStarts_.size(); ++row) {
        std::sort(filled_.begin() + static_cast<std::ptrdiff_t>(rowStarts_[row]),
                  filled_.begin() + static_cast<std::ptrdiff_t>(rowStarts_[row + 1]),
                  [](const Filled& a, const Filled& b) { return a.column < b.column; });
    }
}

void XmlRecordCells::Spread() {
    dense_.assign((rowStarts_.size() - 1) * Columns().size(), kEmpty);
    for (size_t row = 0; row + 1 < rowStarts_.size(); ++row) {
        for (size_t i = rowStarts_[row]; i < rowStarts_[row + 1]; ++i) {
            dense_[row * Columns().size() + static_cast<size_t>(filled_[i].column)] =
                filled_[i].index;
        }
    }
    filled_ = {};
    rowStarts_ = {};
}

}  // namespace rl::detail
