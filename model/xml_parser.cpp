#include "model/xml_parser.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <utility>

#include "load/memory/prepared_room.h"
#include "load/text/cpu_features.h"
#include "model/name_counts.h"
#include "model/xml_marks.h"
#include "model/xml_reader.h"
#include "model/xml_run.h"

namespace rl {

namespace {

using detail::XmlExtent;

/// Counts what the builder below will store.
class NodeCounter {
public:
    void Text(XmlExtent) { ++nodes; }
    void Section(XmlKind, XmlExtent, XmlExtent) { ++nodes; }
    void Instruction(XmlExtent, XmlExtent, XmlExtent) { ++nodes; }
    void Doctype(XmlExtent) { ++nodes; }
    void EndTag(XmlExtent, uint32_t) {}
    void BeginAttributes() { before_ = attributes; }
    void Attribute(XmlExtent, XmlExtent, uint16_t) { ++attributes; }
    void ForgetAttributes() { attributes = before_; }
    void Element(uint32_t, XmlExtent, uint32_t, bool) { ++nodes; }

    size_t nodes = 1;
    size_t attributes = 0;

private:
    size_t before_ = 0;
};

/// The innermost open element, and which names are open.
///
/// There is no stack: an element knows its parent, whose last child it is when it ends. A stray end
/// tag must not look at all that are open: their names are counted as soon as an end tag meets
/// another name than the innermost one's, those of each element once.
template <typename Unit>
class OpenElements {
public:
    OpenElements(std::basic_string_view<Unit> text, const std::vector<XmlNode>& nodes)
        : text_(text), nodes_(nodes), names_(text) {}

    /// The document node when no element is open.
    [[nodiscard]] int32_t Innermost() const { return innermost_; }
    /// The last child of the innermost element so far, or -1.
    [[nodiscard]] int32_t LastChild() const { return lastChild_; }
    void SetLastChild(int32_t node) { lastChild_ = node; }
    [[nodiscard]] bool IsEmpty() const { return depth_ == 0; }

    void Push(int32_t node) {
        innermost_ = node;
        lastChild_ = -1;
        ++depth_;
    }

    void Pop() {
        if (depth_ == counted_) {
            --names_.CountOf(NameOf(innermost_));
            --counted_;
        }
        lastChild_ = innermost_;
        innermost_ = NodeAt(innermost_).parent;
        --depth_;
    }

    /// Whether an element of this name is open; afterwards it is the innermost one.
    bool CloseDownTo(std::basic_string_view<Unit> name) {
        if (IsEmpty()) {
            return false;
        }
        if (NameOf(innermost_) == name) {
            return true;
        }
        CountNames();
        const uint32_t* const count = names_.FindCount(name);
        if (count == nullptr || *count == 0) {
            return false;
        }
        while (NameOf(innermost_) != name) {
            Pop();
        }
        return true;
    }

private:
    [[nodiscard]] const XmlNode& NodeAt(int32_t node) const {
        return nodes_[static_cast<size_t>(node)];
    }
    [[nodiscard]] std::basic_string_view<Unit> NameOf(int32_t node) const {
        return text_.substr(NodeAt(node).nameOffset, NodeAt(node).nameLength);
    }

    void CountNames() {
        int32_t node = innermost_;
        std::basic_string_view<Unit> last;
        uint32_t* count = nullptr;  // of elements with that name, which often follow one another
        for (size_t depth = depth_; depth > counted_; --depth) {
            if (const auto name = NameOf(node); count == nullptr || name != last) {
                count = &names_.CountOf(name);
                last = name;
            }
            ++*count;
            node = NodeAt(node).parent;
        }
        counted_ = depth_;
    }

    std::basic_string_view<Unit> text_;
    const std::vector<XmlNode>& nodes_;
    int32_t innermost_ = 0;
    int32_t lastChild_ = -1;
    size_t depth_ = 0;    // open elements
    size_t counted_ = 0;  // of them, the outermost ones whose names are in `names_`
    NameCounts<Unit> names_;
};

/// How much a text asks for.
struct Room {
    size_t nodes;
    size_t attributes;
};

template <typename Unit>
class NodeBuilder {
public:
    NodeBuilder(std::basic_string_view<Unit> text, XmlTree& tree, const Room& room)
        : text_(text),
          tree_(tree),
          nodeRoom_(tree.nodes),
          attributeRoom_(tree.attributes),
          open_(text, tree.nodes) {
        nodeRoom_.Reserve(room.nodes);
        attributeRoom_.Reserve(room.attributes);
        tree.nodes.push_back({.sourceEnd = static_cast<uint32_t>(text.size())});
    }

    void Text(XmlExtent source) { AddNode(XmlKind::Text, source, {0, 0}, source); }
    void Section(XmlKind kind, XmlExtent source, XmlExtent content) {
        AddNode(kind, source, {0, 0}, content);
    }
    void Instruction(XmlExtent source, XmlExtent target, XmlExtent data) {
        AddNode(XmlKind::ProcessingInstruction, source, target, data);
    }
    void Doctype(XmlExtent source) { AddNode(XmlKind::Doctype, source, {0, 0}, {0, 0}); }

    void EndTag(XmlExtent name, uint32_t end) {
        if (open_.CloseDownTo(text_.substr(name.start, name.end - name.start))) {
            NodeAt(open_.Innermost()).sourceEnd = end;
            open_.Pop();
        } else {
            tree_.malformed = true;
        }
    }

    void BeginAttributes() { firstAttribute_ = tree_.attributes.size(); }
    void Attribute(XmlExtent name, XmlExtent value, uint16_t quote) {
        if (!attributeRoom_.HasRoom()) [[unlikely]] {
            attributeRoom_.MakeRoom();
        }
        tree_.attributes.push_back({.nameOffset = name.start,
                                    .nameLength = name.end - name.start,
                                    .valueOffset = value.start,
                                    .valueLength = value.end - value.start,
                                    .quote = quote});
    }
    void ForgetAttributes() { tree_.attributes.resize(firstAttribute_); }
    /// The one whose attributes were told before.
    void Element(uint32_t start, XmlExtent name, uint32_t end, bool isEmpty) {
        AddNode(XmlKind::Element, {start, end}, name, {0, 0});
        XmlNode& element = tree_.nodes.back();
        const size_t count = tree_.attributes.size() - firstAttribute_;
        element.firstAttribute = count > 0 ? static_cast<uint32_t>(firstAttribute_) : 0;
        element.attributeCount = static_cast<uint32_t>(count);
        if (!isEmpty) {
            open_.Push(static_cast<int32_t>(tree_.nodes.size() - 1));
        }
    }

    /// Elements left open reach to the end of the text.
    void Finish() {
        for (; !open_.IsEmpty(); open_.Pop()) {
            NodeAt(open_.Innermost()).sourceEnd = static_cast<uint32_t>(text_.size());
            tree_.malformed = true;
        }
    }

private:
    XmlNode& NodeAt(int32_t index) { return tree_.nodes[static_cast<size_t>(index)]; }

    void AddNode(XmlKind kind, XmlExtent source, XmlExtent name, XmlExtent value) {
        if (!nodeRoom_.HasRoom()) [[unlikely]] {
            nodeRoom_.MakeRoom();
        }
        const auto index = static_cast<int32_t>(tree_.nodes.size());
        const int32_t last = open_.LastChild();
        XmlNode& above = NodeAt(open_.Innermost());
        ++above.childCount;
        (last < 0 ? above.firstChild : NodeAt(last).nextSibling) = index;
        open_.SetLastChild(index);
        tree_.nodes.push_back({.kind = kind,
                               .nameOffset = name.start,
                               .nameLength = name.end - name.start,
                               .valueOffset = value.start,
                               .valueLength = value.end - value.start,
                               .sourceStart = source.start,
                               .sourceEnd = source.end,
                               .parent = open_.Innermost()});
    }

    std::basic_string_view<Unit> text_;
    XmlTree& tree_;
    PreparedRoom<XmlNode> nodeRoom_;
    PreparedRoom<XmlAttribute> attributeRoom_;
    OpenElements<Unit> open_;
    size_t firstAttribute_ = 0;
};

/// Nothing when abandoned.
template <typename Scan, typename Unit>
std::optional<Room> CountExactly(std::basic_string_view<Unit> text, const AbandonCheck& abandoned) {
    NodeCounter counter;
    if (!detail::XmlReader<Unit, Scan, NodeCounter>(text, counter).Read(abandoned)) {
        return std::nullopt;
    }
    return Room{.nodes = counter.nodes, .attributes = counter.attributes};
}

/// Counts [at, end) up to the first "<!"; where that is.
template <typename Unit>
const Unit* CountTo(const Unit* at, const Unit* end, const detail::XmlMarkKernel<Unit>& kernel,
                    detail::XmlMarkCounts& counts) {
    const auto blocks = static_cast<size_t>(end - at) / detail::kXmlBlock;
    const Unit* const found = at + kernel.count(at, blocks, counts);
    const Unit* const whole = at + blocks * detail::kXmlBlock;
    if (found != whole || whole == end) {
        return found;
    }
    std::array<Unit, detail::kXmlBlock> rest;  // nothing may be read behind the text
    std::fill(std::copy(whole, end, rest.begin()), rest.end(), Unit{' '});
    return whole + std::min(kernel.count(rest.data(), 1, counts), end - whole);
}

/// The marks counted where that is enough: comments and the like may hold anything, so they are
/// left to the grammar, one by one. A text that would ask for far more room than texts do, for
/// instance one of nothing but "<", is read exactly instead.
template <typename Unit>
std::optional<Room> CountMarks(std::basic_string_view<Unit> text,
                               const detail::XmlMarkKernel<Unit>& kernel,
                               const AbandonCheck& abandoned) {
    constexpr size_t kUsualBytesPerUnit = 4;
    constexpr size_t kUnitsBetweenQuestions = size_t{1} << 21;
    NodeCounter sections;
    detail::XmlReader<Unit, detail::XmlScanSse2, NodeCounter> grammar(text, sections);
    detail::XmlMarkCounts marks;
    size_t questions = 0;
    while (!grammar.AtEnd()) {
        if (questions++ % 1024 == 0 && IsAbandoned(abandoned)) {
            return std::nullopt;
        }
        size_t ahead = std::min(grammar.Left(), kUnitsBetweenQuestions);
        while (ahead < grammar.Left() && grammar.At()[ahead - 1] == '<') {
            ++ahead;  // a "<!" stays in one piece
        }
        const Unit* const pause = grammar.At() + ahead;
        const Unit* const section = CountTo(grammar.At(), pause, kernel, marks);
        grammar.SkipTo(section);
        if (section != pause) {
            grammar.Step();
            marks = {.nodes = marks.nodes, .attributes = marks.attributes};
        }
    }
    const Room room{.nodes = sections.nodes + marks.nodes, .attributes = marks.attributes};
    const size_t bytes = room.nodes * sizeof(XmlNode) + room.attributes * sizeof(XmlAttribute);
    if (bytes / kUsualBytesPerUnit > text.size()) {
        return CountExactly<detail::XmlScanSse2>(text, abandoned);
    }
    return room;
}

/// Regular markup by its marks, all else by the grammar. False when abandoned.
template <typename Unit, typename Sink>
bool ReadByMarks(std::basic_string_view<Unit> text, const detail::XmlMarkKernel<Unit>& kernel,
                 Sink& sink, const AbandonCheck& abandoned) {
    constexpr size_t kUnitsBetweenQuestions = size_t{1} << 21;
    detail::XmlReader<Unit, detail::XmlScanSse2, Sink> grammar(text, sink);
    detail::XmlRunReader<Unit, Sink> regular(text, kernel, sink);
    while (!grammar.AtEnd()) {
        if (IsAbandoned(abandoned)) {
            return false;
        }
        const auto pause = static_cast<uint32_t>(grammar.Position() +
                                                 std::min(grammar.Left(), kUnitsBetweenQuestions));
        while (grammar.Position() < pause) {
            grammar.SkipTo(text.data() + regular.Read(grammar.Position(), pause));
            if (grammar.Position() < pause) {
                grammar.Step();
            }
        }
    }
    return true;
}

/// Counts, makes room and reads, each in the way the kernel offers.
template <typename Unit, typename Count, typename Read>
std::optional<XmlTree> Build(std::basic_string_view<Unit> text, Count count, Read read) {
    if (text.size() > kMaxXmlUnits) {
        return std::nullopt;
    }
    const std::optional<Room> room = count();
    if (!room) {
        return std::nullopt;
    }
    std::optional<XmlTree> tree(std::in_place);
    NodeBuilder<Unit> builder(text, *tree, *room);
    if (!read(builder)) {
        return std::nullopt;
    }
    builder.Finish();
    return tree;
}

template <typename Unit>
std::optional<XmlTree> ParsePlainly(std::basic_string_view<Unit> text,
                                    const AbandonCheck& abandoned) {
    using Plain = detail::XmlScanPlain;
    return Build(
        text, [&] { return CountExactly<Plain>(text, abandoned); },
        [&](NodeBuilder<Unit>& builder) {
            return detail::XmlReader<Unit, Plain, NodeBuilder<Unit>>(text, builder).Read(abandoned);
        });
}

template <typename Unit>
std::optional<XmlTree> Parse(std::basic_string_view<Unit> text, const AbandonCheck& abandoned,
                             XmlScanKernel kernel) {
    if (kernel == XmlScanKernel::Plain) {
        return ParsePlainly(text, abandoned);
    }
    const auto marks =
        kernel == XmlScanKernel::Avx2 ? detail::XmlMarksAvx2<Unit>() : detail::XmlMarksSse2<Unit>();
    return Build(
        text, [&] { return CountMarks(text, marks, abandoned); },
        [&](NodeBuilder<Unit>& builder) { return ReadByMarks(text, marks, builder, abandoned); });
}

}  // namespace

XmlScanKernel BestXmlScanKernel() {
    return HasAvx2() ? XmlScanKernel::Avx2 : XmlScanKernel::Sse2;
}

std::optional<XmlTree> ParseXml(std::wstring_view text, const AbandonCheck& abandoned,
                                XmlScanKernel kernel) {
#if WCHAR_MAX == 0xFFFF
    return Parse(text, abandoned, kernel);
#else
    (void)kernel;
    return ParsePlainly(text, abandoned);
#endif
}

std::optional<XmlTree> ParseXml(std::u16string_view text, const AbandonCheck& abandoned,
                                XmlScanKernel kernel) {
    return Parse(text, abandoned, kernel);
}

}  // namespace rl
