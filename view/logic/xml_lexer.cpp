// Colours of XML. No rule looks across a line break and no break changes a state, so the states of
// all lines come from one walk over the whole text, from one unit that may end a state to the next.
#include <array>
#include <optional>

#include "view/logic/source_lexer.h"
#include "view/logic/unit_block.h"

namespace rl::detail {

namespace {

/// What a piece of a line is coloured and what comes behind it.
struct Step {
    size_t length;
    SourceClass colour;
    XmlState next;
};

constexpr std::wstring_view kCommentOpen = L"<!--";
constexpr std::wstring_view kCdataOpen = L"<![CDATA[";

Step InContent(std::wstring_view rest) {
    if (rest.front() != L'<') {
        return {1, SourceClass::Text, XmlState::Content};
    }
    if (rest.starts_with(kCommentOpen)) {
        return {kCommentOpen.size(), SourceClass::Comment, XmlState::Comment};
    }
    if (rest.starts_with(kCdataOpen)) {
        return {kCdataOpen.size(), SourceClass::Keyword, XmlState::Cdata};
    }
    if (rest.starts_with(L"<!")) {
        return {2, SourceClass::Keyword, XmlState::Declaration};
    }
    const bool two = rest.starts_with(L"<?") || rest.starts_with(L"</");
    return {two ? size_t{2} : size_t{1}, SourceClass::Punctuation, XmlState::TagName};
}

Step InTagName(wchar_t unit) {
    switch (unit) {
        case L'>': return {1, SourceClass::Punctuation, XmlState::Content};
        case L' ':
        case L'\t': return {1, SourceClass::Text, XmlState::TagAttributes};
        case L'/':
        case L'?': return {1, SourceClass::Punctuation, XmlState::TagName};
        default: return {1, SourceClass::Tag, XmlState::TagName};
    }
}

Step InTagAttributes(wchar_t unit) {
    switch (unit) {
        case L'>': return {1, SourceClass::Punctuation, XmlState::Content};
        case L'"': return {1, SourceClass::String, XmlState::DoubleQuoted};
        case L'\'': return {1, SourceClass::String, XmlState::SingleQuoted};
        case L'/':
        case L'=':
        case L'?': return {1, SourceClass::Punctuation, XmlState::TagAttributes};
        case L' ':
        case L'\t': return {1, SourceClass::Text, XmlState::TagAttributes};
        default: return {1, SourceClass::Attribute, XmlState::TagAttributes};
    }
}

Step NextStep(XmlState state, std::wstring_view rest) {
    const wchar_t unit = rest.front();
    switch (state) {
        case XmlState::Comment:
            return rest.starts_with(L"-->") ? Step{3, SourceClass::Comment, XmlState::Content}
                                            : Step{1, SourceClass::Comment, state};
        case XmlState::Cdata:
            return rest.starts_with(L"]]>") ? Step{3, SourceClass::Keyword, XmlState::Content}
                                            : Step{1, SourceClass::Text, state};
        case XmlState::TagName: return InTagName(unit);
        case XmlState::TagAttributes: return InTagAttributes(unit);
        case XmlState::DoubleQuoted:
            return {1, SourceClass::String, unit == L'"' ? XmlState::TagAttributes : state};
        case XmlState::SingleQuoted:
            return {1, SourceClass::String, unit == L'\'' ? XmlState::TagAttributes : state};
        case XmlState::Declaration:
            return {1, SourceClass::Keyword, unit == L'>' ? XmlState::Content : state};
        case XmlState::Content: break;
    }
    return InContent(rest);
}

/// The units that can end each state, as masks of one block.
class StateEnds {
public:
    explicit StateEnds(const UnitBlock& block) {
        const uint64_t closers = block.Where('>');
        const uint64_t doubles = block.Where('"');
        const uint64_t singles = block.Where('\'');
        Of(XmlState::Content) = block.Where('<');
        Of(XmlState::Comment) = closers;
        Of(XmlState::Cdata) = closers;
        Of(XmlState::TagName) = closers | block.Where(' ') | block.Where('\t');
        Of(XmlState::TagAttributes) = closers | doubles | singles;
        Of(XmlState::DoubleQuoted) = doubles;
        Of(XmlState::SingleQuoted) = singles;
        Of(XmlState::Declaration) = closers;
    }

    [[nodiscard]] uint64_t& Of(XmlState state) { return masks_[static_cast<size_t>(state)]; }

private:
    std::array<uint64_t, 8> masks_{};
};

/// Walks over the text from state to state.
class StateWalk {
public:
    explicit StateWalk(std::wstring_view text) : text_(text) {}

    [[nodiscard]] XmlState State() const { return state_; }

    /// Takes a unit that may end the state.
    void Take(size_t at) {
        switch (state_) {
            case XmlState::Content: Open(at); break;
            case XmlState::Comment: CloseAfter(at, L'-'); break;
            case XmlState::Cdata: CloseAfter(at, L']'); break;
            case XmlState::TagName:
            case XmlState::TagAttributes:
                state_ = NextStep(state_, text_.substr(at, 1)).next;
                break;
            case XmlState::DoubleQuoted:
            case XmlState::SingleQuoted: state_ = XmlState::TagAttributes; break;
            case XmlState::Declaration: state_ = XmlState::Content; break;
        }
    }

private:
    void Open(size_t at) {
        const Step step = InContent(text_.substr(at));
        state_ = step.next;
        contents_ = at + step.length;
    }

    /// The closing mark is twice `unit` before the ">", all of it inside.
    void CloseAfter(size_t at, wchar_t unit) {
        if (at >= contents_ + 2 && text_[at - 1] == unit && text_[at - 2] == unit) {
            state_ = XmlState::Content;
        }
    }

    std::wstring_view text_;
    XmlState state_ = XmlState::Content;
    size_t contents_ = 0;  // behind what opened the state
};

constexpr uint64_t FromBit(unsigned bit) {
    return bit < 64 ? ~uint64_t{0} << bit : 0;
}

}  // namespace

LineState LexXmlLine(std::wstring_view line, LineState state, ClassSink classes) {
    auto current = static_cast<XmlState>(state);
    for (size_t at = 0; at < line.size();) {
        const Step step = NextStep(current, line.substr(at));
        classes.Put(at, at + step.length, step.colour);
        current = step.next;
        at += step.length;
    }
    return static_cast<LineState>(current);
}

void ScanXmlStates(std::wstring_view text, std::span<const uint32_t> starts,
                   std::span<LineState> states) {
    StateWalk walk(text);
    size_t line = 0;
    const auto linesUpTo = [&](size_t end) {
        for (; line < starts.size() && starts[line] <= end; ++line) {
            states[line] = static_cast<LineState>(walk.State());
        }
    };
    for (size_t base = 0; base < text.size(); base += UnitBlock::kUnits) {
        StateEnds ends{UnitBlock(text, base)};
        uint64_t found = ends.Of(walk.State());
        while (found != 0) {
            const unsigned bit = LowestBit(found);
            linesUpTo(base + bit);
            walk.Take(base + bit);
            found = ends.Of(walk.State()) & FromBit(bit + 1);
        }
    }
    linesUpTo(text.size());
}

}  // namespace rl::detail
