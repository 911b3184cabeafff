// Writes XML piece by piece: well-formed whatever it is given, indented where blanks mean nothing.
//
// A node stands on a line of its own as long as all elements around it hold nothing but nodes, and
// at most 64 levels deep: a chain of a million elements must stay as long as its tags.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "model/limited_text.h"

namespace rl {

class XmlTextWriter {
public:
    explicit XmlTextWriter(LimitedText& out) : out_(out) {}

    // An element: its name, its attributes, then one of the two ends of its first tag. Names must
    // be XML names.
    void BeginElement(std::wstring_view name);
    void Attribute(std::wstring_view name, std::wstring_view value, wchar_t quote);
    void EndEmptyElement() { out_.Append(L"/>"); }
    /// `isSpaced`: blanks between the parts of the content mean nothing.
    void BeginContent(bool isSpaced);
    void EndElement(std::wstring_view name);

    void Text(std::wstring_view text);
    void Comment(std::wstring_view text);
    void Cdata(std::wstring_view text);
    void Instruction(std::wstring_view target, std::wstring_view data);
    /// The declaration without its subset; nothing when it is not one.
    void Doctype(std::wstring_view source);

    [[nodiscard]] bool IsOver() const { return out_.IsOver(); }

private:
    void StartLine();

    LimitedText& out_;
    size_t level_ = 0;
    size_t spaced_ = 0;  // so many of the elements around, from the outermost, are spaced
    bool first_ = true;  // nothing was written yet
};

/// The text with all that XML forbids, half pairs among it, replaced by U+FFFD.
[[nodiscard]] std::wstring XmlCharacters(std::wstring_view text);

}  // namespace rl
