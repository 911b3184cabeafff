// Reads regular markup by its marks: no unit is searched for, so nothing waits for a search.
//
// A short cut through the grammar, never another one: texts and tags are told to the sink only when
// their marks leave no doubt. Everything else is left to the grammar itself. Private to the parser.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "model/xml_marks.h"
#include "model/xml_scan.h"
#include "model/xml_text.h"

namespace rl::detail {

template <typename Unit, typename Sink>
class XmlRunReader {
public:
    XmlRunReader(std::basic_string_view<Unit> text, const XmlMarkKernel<Unit>& kernel, Sink& sink)
        : text_(text.data()),
          size_(static_cast<uint32_t>(text.size())),
          find_(kernel.find),
          sink_(sink) {}

    /// Reads texts and tags from `at` on, where one must begin, until `pause` or the first that is
    /// not regular; where that one begins. Ask again behind it.
    uint32_t Read(uint32_t at, uint32_t pause) {
        while (at < pause) {
            if (at >= stretchEnd_ && !FindMarks(at)) {
                return at;
            }
            while (next_ < markCount_ && marks_[next_] < at) {
                ++next_;
            }
            const uint32_t before = at;
            if (!ReadItems(at)) {
                return at;
            }
            stretchEnd_ = 0;
            if (at == before) {  // longer than a stretch
                return at;
            }
        }
        return at;
    }

private:
    /// False while marks are not worth a try.
    bool FindMarks(uint32_t at) {
        const uint32_t blocks = std::min((size_ - at) / kXmlBlock, kBlocks);
        if (at < irregularEnd_ || blocks == 0) {
            return false;
        }
        const size_t found = find_(text_ + at, blocks, at, quote_, marks_.data(), markCount_);
        stretchEnd_ = at + static_cast<uint32_t>(found) * kXmlBlock;
        irregularEnd_ = found < blocks ? stretchEnd_ + kXmlBlock : 0;
        next_ = 0;
        return found > 0;
    }

    /// False when the next item is not regular, true when the marks end before it does.
    bool ReadItems(uint32_t& at) {
        constexpr size_t kMarksOfShortItem = 4;  // a text and a tag without attributes
        while (next_ + kMarksOfShortItem <= markCount_) {
            uint32_t open = marks_[next_];
            if (text_[open] != '<') {
                open = marks_[++next_];
                sink_.Text({at, open});
            }
            at = open;
            const Unit first = text_[open + 1];
            const uint32_t nameEnd = marks_[next_ + 1];
            if (first == '/') {
                if (text_[nameEnd] != '>') {
                    return false;
                }
                at = nameEnd + 1;
                next_ += 2;
                sink_.EndTag({open + 2, nameEnd}, at);
            } else if (IsIn(kStrangeFirsts, first)) {
                return false;
            } else if (text_[nameEnd] == '>') {
                at = nameEnd + 1;
                next_ += 2;
                sink_.BeginAttributes();
                sink_.Element(open, {open + 1, nameEnd}, at, false);
            } else {
                const Rest rest = ReadRest(nameEnd);
                if (rest.end == 0) {
                    sink_.ForgetAttributes();
                    return rest.isCutOff;
                }
                at = rest.end;
                sink_.Element(open, {open + 1, nameEnd}, at, rest.isEmpty);
            }
        }
        return true;
    }

    /// How a tag goes on behind its name.
    struct Rest {
        uint32_t end;  // 0 when that is not clear
        bool isEmpty;
        bool isCutOff;
    };

    Rest ReadRest(uint32_t nameEnd) {
        constexpr Rest kIrregular{.end = 0, .isEmpty = false, .isCutOff = false};
        size_t next = next_ + 2;
        sink_.BeginAttributes();
        const bool isBlank = IsIn(kXmlBlanks, text_[nameEnd]);
        if (!isBlank && (text_[nameEnd] != '/' || marks_[next] != nameEnd + 1)) {
            return kIrregular;
        }
        if (IsIn(kXmlQuotes, text_[nameEnd + 1])) {
            return kIrregular;
        }
        while (next < markCount_) {
            const uint32_t name = marks_[next];
            if (text_[name] == '>') {
                next_ = next + 1;
                const Unit last = text_[name - 1];
                return IsIn(kXmlBlanks, last) && name - 1 != nameEnd
                           ? kIrregular
                           : Rest{.end = name + 1, .isEmpty = last == '/', .isCutOff = false};
            }
            if (next + 3 > markCount_) {
                break;
            }
            const uint32_t equals = marks_[next + 1];
            const uint32_t close = marks_[next + 2];
            if (IsIn(kXmlQuotes, text_[name]) || text_[equals] != '=') {
                return kIrregular;
            }
            const auto quote = static_cast<Unit>(quote_);
            if (text_[equals + 1] != quote || text_[close] != quote || close == equals + 1) {
                LearnQuote(text_[equals + 1]);
                return kIrregular;
            }
            sink_.Attribute({name, equals}, {equals + 2, close}, static_cast<uint16_t>(quote));
            next += 3;
        }
        return {.end = 0, .isEmpty = false, .isCutOff = true};
    }

    /// The next stretch is read by the quotes that this text uses.
    void LearnQuote(Unit quote) {
        if (IsIn(kXmlQuotes, quote)) {
            quote_ = static_cast<char>(quote);
        }
    }

    /// What cannot follow the "<" of an ordinary tag.
    static constexpr uint64_t kStrangeFirsts = kXmlNameEnds | UnitSet('!', '?');

    static constexpr uint32_t kBlocks = 32;  // of a stretch, at most

    const Unit* text_;
    uint32_t size_;
    decltype(XmlMarkKernel<Unit>::find) find_;
    Sink& sink_;
    std::array<uint32_t, kBlocks * kXmlBlock + kXmlMarksInVain> marks_;
    size_t markCount_ = 0;
    size_t next_ = 0;            // of the marks: the first of what is to be read
    uint32_t stretchEnd_ = 0;    // behind the units whose marks are known
    uint32_t irregularEnd_ = 0;  // no new stretch begins before
    char quote_ = '"';
};

}  // namespace rl::detail
