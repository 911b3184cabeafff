// What narrows an outline to the nodes that pass its filters, and what opens the way to every node
// that holds a text.
#include <algorithm>

#include "load/text/platform.h"
#include "model/outline_model.h"

namespace rl {

namespace {

/// Looks for one text in many short ones, ignoring case. The short texts are gathered and lowered
/// together: a call of the system for each would cost more than all the rest.
class FoldedSearch {
public:
    struct Piece {
        size_t start = 0;
        int32_t node = -1;
        bool isAttribute = false;
    };

    explicit FoldedSearch(std::wstring_view wanted) : wanted_(wanted) {
        platform::FoldCase(wanted_);
    }

    void Add(const std::wstring& text, int32_t node, bool isAttribute) {
        pieces_.push_back({.start = gathered_.size(), .node = node, .isAttribute = isAttribute});
        gathered_ += text;
        gathered_ += L'\0';  // keeps the halves of a pair in two texts apart
    }
    [[nodiscard]] bool IsFull() const { return gathered_.size() >= kGathered; }

    /// Hands every gathered text that holds the wanted one to `found`, and forgets them all.
    template <typename Found>
    void Search(const Found& found) {
        platform::FoldCase(gathered_);
        size_t piece = 0;
        for (size_t at = gathered_.find(wanted_); at != std::wstring::npos;
             at = gathered_.find(wanted_, at)) {
            while (piece + 1 < pieces_.size() && pieces_[piece + 1].start <= at) {
                ++piece;
            }
            const size_t end =
                piece + 1 < pieces_.size() ? pieces_[piece + 1].start : gathered_.size();
            if (at + wanted_.size() < end) {
                found(pieces_[piece]);
            }
            at = end;
        }
        gathered_.clear();
        pieces_.clear();
    }

private:
    static constexpr size_t kGathered = 65'536;  // units

    std::wstring wanted_;
    std::wstring gathered_;
    std::vector<Piece> pieces_;
};

bool HasXmlRowsBelow(const OutlineTree& tree, int32_t node) {
    const XmlDocument* xml = tree.Xml();
    return xml != nullptr && xml->nodes[static_cast<size_t>(node)].kind == XmlKind::Element &&
           xml->HasNonTextChild(node);
}

}  // namespace

void TreeTableView::SetFilter(int32_t column, std::wstring_view text, OutlineFilter filter,
                              OutlineSearch search) {
    if (column < 0 || column >= ColumnCount()) {
        return;
    }
    filters_[static_cast<size_t>(column)] = {
        .text = std::wstring(text), .passes = std::move(filter), .search = std::move(search)};
    const bool wasFiltered = state_.filtered;
    const bool filtered = IsFiltered();
    if (!wasFiltered && !filtered) {
        return;
    }
    const XmlDocument* xml = tree_.Xml();
    std::vector<uint8_t> attributes(filtered && xml != nullptr ? xml->attributes.size() : 0);
    state_.listedAttributes = std::move(attributes);
    state_.filtered = filtered;
    const int before = wasFiltered ? kOutlineOpenBefore : kOutlineOpen;
    const int opened = filtered ? kOutlineOpen | kOutlineOpenBefore : kOutlineOpen;
    for (uint8_t& flags : state_.flags) {
        flags = static_cast<uint8_t>((flags & before) != 0 ? opened : 0);
    }
    if (filtered) {
        MarkMatches();
    }
    Rebuild();
}

std::wstring_view TreeTableView::FilterText(int32_t column) const {
    return column >= 0 && column < ColumnCount() ? filters_[static_cast<size_t>(column)].text
                                                 : std::wstring_view();
}

bool TreeTableView::IsFiltered() const {
    return std::ranges::any_of(filters_, [](const Filter& filter) { return !filter.text.empty(); });
}

/// Whether a value can only pass where the document's text holds what is wanted, or an escape. Line
/// breaks and tabs within a value are shown as blanks, which such a text must not have.
bool TreeTableView::CanSearchWholeText() const {
    const auto& [names, values] = filters_;
    return tree_.Json() != nullptr && tree_.Json()->edits.empty() && names.text.empty() &&
           values.search && values.text.find(L' ') == std::wstring::npos;
}

// One pass over the text finds the values worth looking at; all others are passed over unseen.
void TreeTableView::MarkHitsInText() {
    const JsonDocument& json = *tree_.Json();
    const OutlineSearch& search = filters_[1].search;
    size_t hit = 0;
    size_t escape = 0;
    std::wstring text;
    bool begins = true;
    for (int32_t node = tree_.Root(); node < tree_.Size(); ++node) {
        const JsonNode& at = json.nodes[static_cast<size_t>(node)];
        if (at.IsContainer()) {
            continue;
        }
        if (begins || hit < at.valueOffset) {
            hit = search(json.text, at.valueOffset);
        }
        if (begins || escape < at.valueOffset) {
            escape = FindUnit(json.text, at.valueOffset, L'\\');
        }
        begins = false;
        const size_t end = size_t{at.valueOffset} + at.valueLength;
        if ((hit < end || escape < end) && ValuePasses(node, text)) {
            MarkListed(node);
        }
    }
}

void TreeTableView::MarkMatches() {
    if (tree_.Root() < 0) {
        return;
    }
    if (CanSearchWholeText()) {
        MarkHitsInText();
        return;
    }
    ArrayPositions positions(tree_);
    std::wstring text;
    const auto& [names, values] = filters_;
    for (int32_t node = tree_.Root(); node < tree_.Size(); ++node) {
        const int32_t position = names.text.empty() ? -1 : positions.Next(node);
        if (!tree_.IsRow(node)) {
            continue;
        }
        bool passes = true;
        if (!names.text.empty()) {
            tree_.ReadName(node, position, text);
            passes = names.Passes(text);
        }
        if (passes && !values.text.empty()) {
            passes = ValuePasses(node, text);
        }
        if (tree_.Xml() != nullptr && MarkAttributes(node, text)) {
            state_.Set(node, kOutlineOpen);
            passes = true;
        }
        if (passes) {
            MarkListed(node);
        }
    }
}

/// `text` lends its room.
bool TreeTableView::ValuePasses(int32_t node, std::wstring& text) const {
    const Filter& values = filters_[1];
    if (values.search) {
        if (const std::optional<std::wstring_view> plain = tree_.PlainValue(node)) {
            return values.search(*plain, 0) != std::wstring_view::npos;
        }
    }
    tree_.ReadValue(node, text);
    FoldOntoOneLine(text);
    return values.Passes(text);
}

bool TreeTableView::AttributeValuePasses(int32_t attribute, std::wstring& text) const {
    const Filter& values = filters_[1];
    if (values.search) {
        if (const std::optional<std::wstring_view> plain = tree_.PlainAttributeValue(attribute)) {
            return values.search(*plain, 0) != std::wstring_view::npos;
        }
    }
    tree_.ReadAttributeValue(attribute, text);
    FoldOntoOneLine(text);
    return values.Passes(text);
}

/// Whether some attribute of the node passes; `text` lends its room.
bool TreeTableView::MarkAttributes(int32_t node, std::wstring& text) {
    bool any = false;
    const int32_t first = tree_.FirstAttribute(node);
    const auto& [names, values] = filters_;
    for (int32_t i = first; i < first + tree_.AttributeCount(node); ++i) {
        bool passes = true;
        if (!names.text.empty()) {
            tree_.ReadAttributeName(i, text);
            passes = names.Passes(text);
        }
        if (passes && !values.text.empty()) {
            passes = AttributeValuePasses(i, text);
        }
        state_.listedAttributes[static_cast<size_t>(i)] = passes ? 1 : 0;
        any = any || passes;
    }
    return any;
}

void TreeTableView::MarkListed(int32_t node) {
    state_.Set(node, kOutlineListed);
    for (int32_t at = tree_.Parent(node); at >= 0; at = tree_.Parent(at)) {
        const bool known = state_.Is(at, kOutlineListed);  // and so is all above it
        state_.Set(at, kOutlineListed | kOutlineOpen);
        if (known) {
            return;
        }
    }
}

void TreeTableView::OpenAllAbove(int32_t node) {
    for (int32_t at = tree_.Parent(node); at >= 0; at = tree_.Parent(at)) {
        if (state_.Is(at, kOutlineReached)) {
            return;
        }
        state_.Set(at, kOutlineReached | kOutlineOpen);
    }
}

int32_t TreeTableView::RevealMatches(std::wstring_view text) {
    if (text.empty() || tree_.Root() < 0) {
        return 0;
    }
    FoldedSearch search(text);
    int32_t count = 0;
    int32_t last = -1;
    const auto found = [&](const FoldedSearch::Piece& piece) {
        count += piece.node != last ? 1 : 0;
        last = piece.node;
        OpenAllAbove(piece.node);
        if (piece.isAttribute || HasXmlRowsBelow(tree_, piece.node)) {
            state_.Set(piece.node, kOutlineOpen);
        }
    };
    for (int32_t node = 0; node < tree_.Size(); ++node) {
        state_.Clear(node, kOutlineReached);  // of a search that memory ended
    }
    ArrayPositions positions(tree_);
    std::wstring shown;
    for (int32_t node = tree_.Root(); node < tree_.Size(); ++node) {
        tree_.ReadName(node, positions.Next(node), shown);
        search.Add(shown, node, false);
        tree_.ReadValue(node, shown);
        FoldOntoOneLine(shown);
        search.Add(shown, node, false);
        const int32_t first = tree_.FirstAttribute(node);
        for (int32_t i = first; i < first + tree_.AttributeCount(node); ++i) {
            tree_.ReadAttributeName(i, shown);
            search.Add(shown, node, true);
            tree_.ReadAttributeValue(i, shown);
            FoldOntoOneLine(shown);
            search.Add(shown, node, true);
        }
        if (search.IsFull()) {
            search.Search(found);
        }
    }
    search.Search(found);
    for (int32_t node = 0; node < tree_.Size(); ++node) {
        state_.Clear(node, kOutlineReached);
    }
    if (count > 0) {
        Rebuild();
    }
    return count;
}

}  // namespace rl
