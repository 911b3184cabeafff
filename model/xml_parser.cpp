#include "model/xml_parser.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <string>
#include <unordered_map>

namespace rl {

namespace {

constexpr size_t kNone = std::wstring_view::npos;
constexpr size_t kMaxNodes = static_cast<size_t>(std::numeric_limits<int32_t>::max());
constexpr size_t kUnitsBetweenQuestions = size_t{2} << 20;

bool IsBlank(wchar_t unit) {
    return unit == L' ' || unit == L'\t' || unit == L'\n' || unit == L'\r';
}

bool EndsName(wchar_t unit) {
    return IsBlank(unit) || unit == L'/' || unit == L'=' || unit == L'>';
}

bool IsXmlTarget(std::wstring_view target) {
    return target.size() == 3 && (target[0] | 0x20) == L'x' && (target[1] | 0x20) == L'm' &&
           (target[2] | 0x20) == L'l';
}

struct Span {
    size_t begin = 0;
    size_t end = 0;

    [[nodiscard]] uint32_t Offset() const { return static_cast<uint32_t>(begin); }
    [[nodiscard]] uint32_t Length() const { return static_cast<uint32_t>(end - begin); }
};

class Parser {
public:
    Parser(std::wstring_view text, std::vector<XmlNode>& nodes,
           std::vector<XmlAttribute>& attributes, const AbandonCheck& abandoned)
        : text_(text), nodes_(nodes), attributes_(attributes), abandoned_(abandoned) {}

    XmlParseResult Parse() {
        nodes_.push_back({});
        open_.push_back({.node = 0, .lastChild = -1});
        while (at_ < text_.size()) {
            if (at_ >= nextQuestion_) {
                nextQuestion_ = at_ + kUnitsBetweenQuestions;
                if (IsAbandoned(abandoned_)) {
                    return {};
                }
            }
            ParseOne();
        }
        CloseRest();
        return result_;
    }

private:
    /// An open element, or the document at the bottom.
    struct Level {
        int32_t node;
        int32_t lastChild;
    };

    [[nodiscard]] std::wstring_view Rest() const { return text_.substr(at_); }
    [[nodiscard]] std::wstring_view Part(Span span) const {
        return text_.substr(span.begin, span.end - span.begin);
    }

    void ParseOne() {
        if (text_[at_] != L'<') {
            ParseText();
        } else if (Rest().starts_with(L"<!--")) {
            ParseSection(XmlKind::Comment, 4, L"-->");
        } else if (Rest().starts_with(L"<![CDATA[")) {
            ParseSection(XmlKind::Cdata, 9, L"]]>");
        } else if (Rest().starts_with(L"<?")) {
            ParseInstruction();
        } else if (Rest().starts_with(L"<!")) {
            ParseDeclaration();
        } else if (Rest().starts_with(L"</")) {
            ParseClosingTag();
        } else {
            ParseOpeningTag();
        }
    }

    /// Appends a node as the last child of the innermost open element.
    int32_t Append(XmlKind kind, Span source) {
        if (nodes_.size() >= kMaxNodes) {
            throw std::bad_alloc();
        }
        const auto index = static_cast<int32_t>(nodes_.size());
        Level& above = open_.back();
        XmlNode& parent = nodes_[static_cast<size_t>(above.node)];
        ++parent.childCount;
        (above.lastChild < 0 ? parent.firstChild
                             : nodes_[static_cast<size_t>(above.lastChild)].nextSibling) = index;
        above.lastChild = index;
        XmlNode node;
        node.kind = kind;
        node.parent = above.node;
        node.sourceStart = static_cast<uint32_t>(source.begin);
        node.sourceEnd = static_cast<uint32_t>(source.end);
        nodes_.push_back(node);
        return index;
    }

    XmlNode& NodeAt(int32_t index) { return nodes_[static_cast<size_t>(index)]; }

    void ParseText() {
        const size_t begin = at_;
        at_ = std::min(text_.find(L'<', at_), text_.size());
        const std::wstring_view run = text_.substr(begin, at_ - begin);
        if (!std::ranges::all_of(run, IsBlank)) {
            XmlNode& node = NodeAt(Append(XmlKind::Text, {begin, at_}));
            node.valueOffset = node.sourceStart;
            node.valueLength = static_cast<uint32_t>(run.size());
        }
    }

    /// The end of what begins at the cursor, behind `closing`, else the end of the text.
    [[nodiscard]] size_t EndBehind(std::wstring_view closing, size_t from) const {
        const size_t found = text_.find(closing, from);
        return found == kNone ? text_.size() : found + closing.size();
    }

    // One that is not closed loses as much of its content as its closing mark would take.
    void ParseSection(XmlKind kind, size_t opening, std::wstring_view closing) {
        const size_t begin = at_;
        const size_t content = begin + opening;
        at_ = EndBehind(closing, content);
        XmlNode& node = NodeAt(Append(kind, {begin, at_}));
        node.valueOffset = static_cast<uint32_t>(content);
        node.valueLength = static_cast<uint32_t>(
            at_ - content > closing.size() ? at_ - content - closing.size() : 0);
    }

    [[nodiscard]] size_t NameEnd(size_t from, size_t limit) const {
        while (from < limit && !EndsName(text_[from])) {
            ++from;
        }
        return from;
    }

    [[nodiscard]] size_t SkipBlanks(size_t from, size_t limit) const {
        while (from < limit && IsBlank(text_[from])) {
            ++from;
        }
        return from;
    }

    void ParseInstruction() {
        const size_t begin = at_;
        const size_t mark = std::min(text_.find(L"?>", begin + 2), text_.size());
        at_ = std::min(mark + 2, text_.size());
        const Span target{begin + 2, NameEnd(begin + 2, mark)};
        if (IsXmlTarget(Part(target))) {
            return;
        }
        // One that is not closed loses as much of its data as its closing mark would take.
        const size_t value = SkipBlanks(target.end, mark);
        XmlNode& node = NodeAt(Append(XmlKind::ProcessingInstruction, {begin, at_}));
        node.nameOffset = target.Offset();
        node.nameLength = target.Length();
        node.valueOffset = static_cast<uint32_t>(value);
        node.valueLength = static_cast<uint32_t>(at_ > value + 2 ? at_ - 2 - value : 0);
    }

    void ParseDeclaration() {
        const size_t begin = at_;
        const bool isDoctype = Rest().starts_with(L"<!DOCTYPE");
        int64_t depth = 0;
        wchar_t quote = 0;
        for (at_ += 2; at_ < text_.size(); ++at_) {
            const wchar_t unit = text_[at_];
            if (quote != 0) {
                quote = unit == quote ? L'\0' : quote;
            } else if (unit == L'"' || unit == L'\'') {
                quote = unit;
            } else if (unit == L'[') {
                ++depth;
            } else if (unit == L']') {
                --depth;
            } else if (unit == L'>' && depth < 1) {
                ++at_;
                break;
            }
        }
        if (isDoctype) {
            Append(XmlKind::Doctype, {begin, at_});
        }
    }

    /// The first ">" outside quotes, else the end of the text.
    [[nodiscard]] size_t TagClose(size_t at) const {
        wchar_t quote = 0;
        for (; at < text_.size(); ++at) {
            const wchar_t unit = text_[at];
            if (quote != 0) {
                quote = unit == quote ? L'\0' : quote;
            } else if (unit == L'>') {
                return at;
            } else if (unit == L'"' || unit == L'\'') {
                quote = unit;
            }
        }
        return at;
    }

    void ParseClosingTag() {
        const size_t nameBegin = SkipBlanks(at_ + 2, text_.size());
        const Span name{nameBegin, NameEnd(nameBegin, text_.size())};
        at_ = std::min(TagClose(name.end) + 1, text_.size());
        const auto open = openNames_.find(Part(name));
        if (open == openNames_.end() || open->second == 0) {
            result_.malformed = true;
            return;
        }
        while (true) {
            XmlNode& node = NodeAt(open_.back().node);
            const std::wstring_view closed = text_.substr(node.nameOffset, node.nameLength);
            open_.pop_back();
            if (closed == open->first) {
                node.sourceEnd = static_cast<uint32_t>(at_);
                --open->second;
                return;
            }
            --openNames_.find(closed)->second;
        }
    }

    void ParseOpeningTag() {
        const size_t begin = at_;
        const Span name{begin + 1, NameEnd(begin + 1, text_.size())};
        const size_t limit = TagClose(name.end);
        at_ = std::min(limit + 1, text_.size());
        size_t last = limit;
        while (last > name.end && IsBlank(text_[last - 1])) {
            --last;
        }
        const bool selfClosing = limit < text_.size() && last > name.end && text_[last - 1] == L'/';
        const int32_t index = Append(XmlKind::Element, {begin, at_});
        const size_t firstAttribute = attributes_.size();
        ParseAttributes(name.end, limit);
        XmlNode& node = NodeAt(index);
        node.nameOffset = name.Offset();
        node.nameLength = name.Length();
        node.attributeCount = static_cast<uint32_t>(attributes_.size() - firstAttribute);
        node.firstAttribute = node.attributeCount == 0 ? 0 : static_cast<uint32_t>(firstAttribute);
        result_.hasElement = result_.hasElement || node.parent == 0;
        if (!selfClosing) {
            open_.push_back({.node = index, .lastChild = -1});
            ++openNames_[Part(name)];
        }
    }

    void ParseAttributes(size_t at, size_t limit) {
        while (true) {
            while (at < limit && (IsBlank(text_[at]) || text_[at] == L'/')) {
                ++at;
            }
            if (at >= limit) {
                return;
            }
            const Span name{at, NameEnd(at, limit)};
            if (name.begin == name.end) {
                ++at;
                continue;
            }
            at = SkipBlanks(name.end, limit);
            if (at >= limit || text_[at] != L'=') {
                continue;
            }
            at = SkipBlanks(at + 1, limit);
            if (at >= limit || (text_[at] != L'"' && text_[at] != L'\'')) {
                continue;
            }
            const wchar_t quote = text_[at];
            const Span value{at + 1, std::min(text_.find(quote, at + 1), limit)};
            attributes_.push_back({.nameOffset = name.Offset(),
                                   .nameLength = name.Length(),
                                   .valueOffset = value.Offset(),
                                   .valueLength = value.Length(),
                                   .quote = static_cast<uint16_t>(quote)});
            at = value.end + 1;
        }
    }

    void CloseRest() {
        result_.malformed = result_.malformed || open_.size() > 1;
        for (const Level& level : open_) {
            NodeAt(level.node).sourceEnd = static_cast<uint32_t>(text_.size());
        }
    }

    std::wstring_view text_;
    std::vector<XmlNode>& nodes_;
    std::vector<XmlAttribute>& attributes_;
    const AbandonCheck& abandoned_;
    size_t at_ = 0;
    size_t nextQuestion_ = 0;
    std::vector<Level> open_;
    // How many open elements have each name: a stray closing tag must not search them all.
    std::unordered_map<std::wstring_view, size_t> openNames_;
    XmlParseResult result_;
};

}  // namespace

XmlParseResult ParseXml(std::wstring_view text, std::vector<XmlNode>& nodes,
                        std::vector<XmlAttribute>& attributes, const AbandonCheck& abandoned) {
    return Parser(text, nodes, attributes, abandoned).Parse();
}

}  // namespace rl
