// Where in a stretch of XML something begins or ends, found 64 units at a time; written once for
// every instruction set.
//
// Bits alone decide: no grammar is known here, and whatever the bits cannot decide either ends the
// stretch or shows as a mark where none should be.
//
// An instruction set is a class of an unnamed namespace: whatever is made from it has internal
// linkage, so that code for one set of instructions can never be linked into the path of another.
// It narrows 64 units to bytes and answers with masks, one bit for each unit. Private to the
// parser.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/prefix_xor.h"
#include "model/xml_marks.h"

namespace rl::detail {

/// Finds the marks that xml_marks.h lists.
template <typename Set, typename Unit>
class XmlMarkFinder {
public:
    XmlMarkFinder(uint32_t first, char quote, uint32_t* marks)
        : first_(first), quote_(quote), marks_(marks) {}

    /// False, and nothing is found, when the block is irregular.
    bool Find(const Unit* units) {
        const Set set(units);
        const uint64_t opens = set.Equal('<');
        const uint64_t closes = set.Equal('>');
        // From each "<" to the unit before the next ">".
        const uint64_t tags = closes - opens - inTag_;
        const uint64_t tagsBefore = tags << 1 | inTag_;
        const uint64_t quotes = set.Equal(quote_) & tags;
        // From each opening quote to the unit before the closing one.
        const uint64_t quoted = PrefixXor(quotes) ^ inQuotes_;
        if ((((tags & ~tagsBefore) ^ opens) | ((tagsBefore & ~tags) ^ closes) | (opens & quoted)) !=
            0) {
            return false;
        }
        const uint64_t blanks = set.Blanks();
        const uint64_t bare = tags & ~(quoted | quotes);
        const uint64_t firsts = opens << 1 | afterOpen_;
        const uint64_t names = bare & ~opens & (~(blanks | set.Either('/', '=')) | firsts);
        const uint64_t namesBefore = names << 1 | inName_;
        const uint64_t nameEnds = namesBefore & ~names;
        const uint64_t strayQuotes = quotes & quoted & ~(nameEnds << 1 | afterNameEnd_);
        // Adding the place behind a ">" to the blanks carries it past them.
        const uint64_t texts = closes << 1 | beforeText_;
        const uint64_t sum = blanks + (texts & blanks);
        const uint64_t visible = (texts | sum) & ~blanks;
        const uint64_t otherQuotes = bare & set.Equal(static_cast<char>(quote_ ^ '"' ^ '\''));
        Append(opens | closes | nameEnds | (names & ~namesBefore & ~firsts) | (quotes & ~quoted) |
               strayQuotes | otherQuotes | visible);
        inTag_ = tags >> 63;
        inName_ = names >> 63;
        afterOpen_ = opens >> 63;
        afterNameEnd_ = nameEnds >> 63;
        beforeText_ = (closes >> 63) | (sum < blanks ? 1 : 0);
        inQuotes_ = uint64_t{0} - (quoted >> 63);
        first_ += kXmlBlock;
        return true;
    }

    [[nodiscard]] uint32_t* MarksEnd() const { return marks_; }

private:
    /// A fixed number at a time: most blocks have fewer, so that there is nothing to foretell.
    void Append(uint64_t bits) {
        uint32_t* at = marks_;
        marks_ += Set::CountOf(bits);
        for (; bits != 0; at += kXmlMarksInVain) {
            for (uint32_t i = 0; i < kXmlMarksInVain; ++i) {
                at[i] = first_ + Set::LowestBit(bits);
                bits &= bits - 1;
            }
        }
    }

    uint32_t first_;
    char quote_;
    uint32_t* marks_;
    // What the block before ended with, each in bit 0.
    uint64_t inTag_ = 0;
    uint64_t inName_ = 0;
    uint64_t afterOpen_ = 0;
    uint64_t afterNameEnd_ = 0;
    uint64_t beforeText_ = 1;  // ">" and nothing but blanks
    uint64_t inQuotes_ = 0;    // all bits
};

template <typename Set, typename Unit>
size_t FindXmlMarks(const Unit* units, size_t blocks, uint32_t first, char quote, uint32_t* marks,
                    size_t& count) {
    XmlMarkFinder<Set, Unit> finder(first, quote, marks);
    size_t block = 0;
    while (block < blocks && finder.Find(units + block * kXmlBlock)) {
        ++block;
    }
    count = static_cast<size_t>(finder.MarksEnd() - marks);
    return block;
}

template <typename Set, typename Unit>
std::ptrdiff_t CountXmlMarks(const Unit* units, size_t blocks, XmlMarkCounts& out) {
    XmlMarkCounts counts = out;
    uint64_t sections = 0;
    size_t block = 0;
    for (; block < blocks && sections == 0; ++block) {
        const Set set(units + block * kXmlBlock);
        const uint64_t opens = set.Equal('<');
        const uint64_t behindOpens = opens << 1 | counts.afterOpen;
        sections = set.Equal('!') & behindOpens;
        // What stands before the "<" of a section; else all.
        const uint64_t wanted = sections != 0 ? (sections ^ (sections - 1)) >> 2 : ~uint64_t{0};
        const uint64_t closes = set.Equal('>');
        const uint64_t blanks = set.Blanks();
        const uint64_t equals = set.Equal('=');
        const uint64_t values =
            (set.Either('"', '\'') | blanks) & (equals << 1 | counts.afterEquals);
        // A text begins behind a tag. Adding the place behind it to the blanks carries it past
        // them.
        const uint64_t starts = closes << 1 | counts.afterClose;
        const uint64_t sum = blanks + (starts & blanks);
        const uint64_t texts = (starts | sum) & ~(blanks | opens);
        counts.nodes += Set::CountOf((opens | texts) & wanted) -
                        Set::CountOf(set.Equal('/') & behindOpens & wanted);
        counts.attributes += Set::CountOf(values & wanted);
        counts.afterClose = (closes >> 63) | (sum < blanks ? 1 : 0);
        counts.afterOpen = opens >> 63;
        counts.afterEquals = equals >> 63;
    }
    out = counts;
    if (sections == 0) {
        return static_cast<std::ptrdiff_t>(block * kXmlBlock);
    }
    const uint32_t bang = Set::LowestBit(sections);
    out.nodes -= bang == 0 ? 1 : 0;  // its "<" was counted with the block before
    return static_cast<std::ptrdiff_t>((block - 1) * kXmlBlock + bang) - 1;
}

}  // namespace rl::detail
