// The grammar of XML as read here: a text in, tags, texts and attributes out, told to a sink.
//
// The sink is told by position alone and keeps the nesting; so one grammar serves to count and to
// build. Private to the parser.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "load/text/abandon_check.h"
#include "model/xml_node.h"
#include "model/xml_scan.h"

namespace rl::detail {

template <typename Unit, typename Scan, typename Sink>
class XmlReader {
public:
    XmlReader(std::basic_string_view<Unit> text, Sink& sink)
        : begin_(text.data()), end_(text.data() + text.size()), at_(begin_), sink_(sink) {}

    /// False when abandoned.
    bool Read(const AbandonCheck& abandoned) {
        constexpr std::ptrdiff_t kUnitsBetweenQuestions = 1 << 21;
        while (at_ != end_) {
            if (IsAbandoned(abandoned)) {
                return false;
            }
            const Unit* const pause = at_ + std::min(kUnitsBetweenQuestions, end_ - at_);
            while (at_ < pause) {
                Step();
            }
        }
        return true;
    }

    /// Reads what comes next; not at the end.
    void Step() {
        if (*at_ != '<') {
            ReadText();
            return;
        }
        switch (end_ - at_ > 1 ? at_[1] : Unit{}) {
            case '/': ReadEndTag(); break;
            case '?': ReadInstruction(); break;
            case '!': ReadDeclaration(); break;
            default: ReadStartTag(); break;
        }
    }

    [[nodiscard]] const Unit* At() const { return at_; }
    [[nodiscard]] uint32_t Position() const { return Offset(at_); }
    [[nodiscard]] size_t Left() const { return static_cast<size_t>(end_ - at_); }
    [[nodiscard]] bool AtEnd() const { return at_ == end_; }
    void SkipTo(const Unit* at) { at_ = at; }

private:
    void ReadText() {
        const Unit* const start = at_;
        const Unit* const visible = SkipXmlBlanks(at_, end_);
        at_ = Scan::FindUnit(visible, end_, '<');
        if (visible != at_) {
            sink_.Text(Extent(start, at_));
        }
    }

    void ReadDeclaration() {
        if (Follows("<!--")) {
            ReadSection(XmlKind::Comment, 4, '-');
        } else if (Follows("<![CDATA[")) {
            ReadSection(XmlKind::Cdata, 9, ']');
        } else {
            SkipDeclaration();
        }
    }

    /// A section ends with `mark` twice and ">". One that never does loses its last three units all
    /// the same.
    void ReadSection(XmlKind kind, std::ptrdiff_t lead, char mark) {
        const Unit* const start = at_;
        const Unit* const content = at_ + lead;
        const Unit* close = content;
        do {
            close = Scan::FindUnit(close, end_, '>');
            at_ = close == end_ ? end_ : ++close;
        } while (at_ != end_ && !EndsSection(content, mark));
        if (at_ - content < 3) {
            sink_.Section(kind, Extent(start, at_), Extent(content, content));
        } else {
            sink_.Section(kind, Extent(start, at_), Extent(content, at_ - 3));
        }
    }

    bool EndsSection(const Unit* content, char mark) const {
        const auto unit = static_cast<Unit>(mark);
        return at_ - content >= 3 && at_[-2] == unit && at_[-3] == unit;
    }

    void ReadInstruction() {
        const Unit* const start = at_;
        const Unit* const target = at_ + 2;
        const Unit* close = target;
        bool closed = false;
        while (!closed && close != end_) {
            close = Scan::FindUnit(close, end_, '>');
            closed = close != end_ && close > target && close[-1] == '?';
            close += close == end_ ? 0 : 1;
        }
        at_ = close;
        const Unit* const targetEnd = FindIn(kXmlNameEnds, target, closed ? at_ - 2 : at_);
        if (IsDeclarationTarget(target, targetEnd)) {
            return;
        }
        const Unit* const dataEnd =
            std::max(targetEnd, at_ - std::min<std::ptrdiff_t>(2, at_ - targetEnd));
        const Unit* const data = SkipXmlBlanks(targetEnd, dataEnd);
        sink_.Instruction(Extent(start, at_), Extent(target, targetEnd), Extent(data, dataEnd));
    }

    static bool IsDeclarationTarget(const Unit* from, const Unit* to) {
        return to - from == 3 && (from[0] | 0x20) == 'x' && (from[1] | 0x20) == 'm' &&
               (from[2] | 0x20) == 'l';
    }

    /// "<!" and no section: ends at the first ">" outside quotes and brackets.
    void SkipDeclaration() {
        const Unit* const start = at_;
        const bool isDoctype = Follows("<!DOCTYPE");
        int64_t depth = 0;
        at_ += 2;
        while (at_ != end_) {
            const Unit unit = *at_++;
            if (IsIn(kXmlQuotes, unit)) {
                at_ = Scan::FindUnit(at_, end_, static_cast<char>(unit));
                at_ += at_ == end_ ? 0 : 1;
            } else if (unit == '[') {
                ++depth;
            } else if (unit == ']') {
                --depth;
            } else if (unit == '>' && depth < 1) {
                break;
            }
        }
        if (isDoctype) {
            sink_.Doctype(Extent(start, at_));
        }
    }

    void ReadEndTag() {
        const Unit* const name = SkipXmlBlanks(at_ + 2, end_);
        const Unit* const nameEnd = FindIn(kXmlNameEnds, name, end_);
        const Unit* const close = FindTagEnd(nameEnd);
        at_ = close + (close == end_ ? 0 : 1);
        sink_.EndTag(Extent(name, nameEnd), Offset(at_));
    }

    void ReadStartTag() {
        const Unit* const nameEnd = FindIn(kXmlNameEnds, at_ + 1, end_);
        sink_.BeginAttributes();
        if (!ReadPlainTagRest(nameEnd)) {
            sink_.ForgetAttributes();
            ReadAnyTagRest(nameEnd);
        }
    }

    /// What stands behind the name of an ordinary tag, in one go. False, and nothing is settled,
    /// when something else stands there.
    bool ReadPlainTagRest(const Unit* const tagNameEnd) {
        const Unit* at = tagNameEnd;
        while (true) {
            at = SkipXmlBlanks(at, end_);
            if (end_ - at < 2) {
                break;
            }
            if (*at == '>') {
                return EndStartTag(tagNameEnd, at + 1, false);
            }
            if (*at == '/') {
                return at[1] == '>' && EndStartTag(tagNameEnd, at + 2, true);
            }
            const Unit* const nameEnd = FindIn(kXmlNameEnds | kXmlQuotes, at, end_);
            if (nameEnd == at || end_ - nameEnd < 2 || nameEnd[0] != '=' ||
                !IsIn(kXmlQuotes, nameEnd[1])) {
                return false;
            }
            const Unit* const value = nameEnd + 2;
            const Unit* const close = Scan::FindUnit(value, end_, static_cast<char>(nameEnd[1]));
            if (close == end_) {
                return false;
            }
            sink_.Attribute(Extent(at, nameEnd), Extent(value, close),
                            static_cast<uint16_t>(nameEnd[1]));
            at = close + 1;
        }
        return at != end_ && *at == '>' && EndStartTag(tagNameEnd, at + 1, false);
    }

    bool EndStartTag(const Unit* nameEnd, const Unit* after, bool isEmpty) {
        sink_.Element(Offset(at_), Extent(at_ + 1, nameEnd), Offset(after), isEmpty);
        at_ = after;
        return true;
    }

    /// The same for any tag: its end first, then whatever looks like an attribute before it.
    void ReadAnyTagRest(const Unit* const nameEnd) {
        const Unit* at = nameEnd;
        const Unit* const close = FindTagEnd(at);
        const Unit* last = close;
        while (last != at && IsIn(kXmlBlanks, last[-1])) {
            --last;
        }
        const bool isEmpty = close != end_ && last != at && last[-1] == '/';
        while (at < close) {
            at = ReadAttribute(at, close);
        }
        EndStartTag(nameEnd, close + (close == end_ ? 0 : 1), isEmpty);
    }

    /// One step of the search for attributes; where the next one begins.
    const Unit* ReadAttribute(const Unit* at, const Unit* end) {
        if (IsIn(kXmlNameEnds, *at)) {
            return at + 1;
        }
        const Unit* const nameEnd = FindIn(kXmlNameEnds, at, end);
        const Unit* next = SkipXmlBlanks(nameEnd, end);
        if (next == end || *next != '=') {
            return next;
        }
        next = SkipXmlBlanks(next + 1, end);
        if (next == end || !IsIn(kXmlQuotes, *next)) {
            return next;
        }
        const Unit* const close = Scan::FindUnit(next + 1, end, static_cast<char>(*next));
        sink_.Attribute(Extent(at, nameEnd), Extent(next + 1, close), static_cast<uint16_t>(*next));
        return close + (close == end ? 0 : 1);
    }

    /// The first ">" outside quotes, or the end of the text.
    const Unit* FindTagEnd(const Unit* at) const {
        while (true) {
            const Unit* const mark = Scan::FindTagMark(at, end_);
            if (mark == end_ || *mark == '>') {
                return mark;
            }
            at = Scan::FindUnit(mark + 1, end_, static_cast<char>(*mark));
            if (at == end_) {
                return end_;
            }
            ++at;
        }
    }

    bool Follows(std::string_view mark) const {
        return static_cast<size_t>(end_ - at_) >= mark.size() &&
               std::equal(mark.begin(), mark.end(), at_,
                          [](char left, Unit right) { return static_cast<Unit>(left) == right; });
    }

    uint32_t Offset(const Unit* at) const { return static_cast<uint32_t>(at - begin_); }
    XmlExtent Extent(const Unit* from, const Unit* to) const { return {Offset(from), Offset(to)}; }

    const Unit* begin_;
    const Unit* end_;
    const Unit* at_;
    Sink& sink_;
};

}  // namespace rl::detail
