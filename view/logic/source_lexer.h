// Colours of a source text: one class for each unit of a line, and a small state from line to line.
//
// The state at a line's start says all that a lexer needs to know of the lines before it, so any
// line can be coloured by itself. The states of all lines come from a pass of their own, which
// looks only for what can change a state.
//
// Knows nothing of windows or colour values. Safe on any thread.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace rl {

enum class SourceMode : int32_t { Delimited = 0, Json = 1, Xml = 2 };

enum class SourceClass : uint8_t {
    Text = 0,
    Comment,
    Tag,
    Attribute,
    String,
    Number,
    Keyword,
    Punctuation
};
inline constexpr size_t kSourceClassCount = 8;

/// 0 at the beginning of a text. Delimited text: 1 inside a quoted field. JSON: 1 inside a block
/// comment. XML: see XmlState.
using LineState = uint8_t;

enum class XmlState : LineState {
    Content = 0,
    Comment,
    Cdata,
    TagName,
    TagAttributes,
    DoubleQuoted,
    SingleQuoted,
    Declaration
};

struct SourceSyntax {
    SourceMode mode = SourceMode::Delimited;
    wchar_t delimiter = L',';  // of delimited text

    bool operator==(const SourceSyntax&) const = default;
};

/// Where a lexer puts the classes: nowhere when it is asked only for the state. Writes to where
/// nothing is yet, from the line's beginning to its end.
class ClassSink {
public:
    ClassSink() = default;
    explicit ClassSink(std::span<SourceClass> classes) : classes_(classes) {}

    /// Units from `from` up to `to`.
    void Put(size_t from, size_t to, SourceClass value) {
        for (size_t at = from; at < to && at < classes_.size(); ++at) {
            classes_[at] = value;
        }
    }

private:
    std::span<SourceClass> classes_;
};

/// What is known of a line besides its text.
struct LineContext {
    LineState state = 0;
    bool isFirst = false;  // line 0 of the text
};

/// Colours one line, given without its break; answers the state at its end.
LineState LexLine(const SourceSyntax& syntax, std::wstring_view line, LineContext context,
                  ClassSink classes);

/// The state at the start of each line; `starts` as IndexLines gives them. The plain twin asks
/// LexLine for every line and is the law for the fast one.
[[nodiscard]] std::vector<LineState> ScanLineStates(const SourceSyntax& syntax,
                                                    std::wstring_view text,
                                                    std::span<const uint32_t> starts);
[[nodiscard]] std::vector<LineState> ScanLineStatesPlain(const SourceSyntax& syntax,
                                                         std::wstring_view text,
                                                         std::span<const uint32_t> starts);

namespace detail {

LineState LexCsvLine(std::wstring_view line, wchar_t delimiter, LineContext context,
                     ClassSink classes);
LineState LexJsonLine(std::wstring_view line, LineState state, ClassSink classes);
LineState LexXmlLine(std::wstring_view line, LineState state, ClassSink classes);

// Each fills `states`, which has one element for each start and is all 0 before.
void ScanCsvStates(std::wstring_view text, wchar_t delimiter, std::span<const uint32_t> starts,
                   std::span<LineState> states);
void ScanJsonStates(std::wstring_view text, std::span<const uint32_t> starts,
                    std::span<LineState> states);
void ScanXmlStates(std::wstring_view text, std::span<const uint32_t> starts,
                   std::span<LineState> states);

/// A line without its break, from the starts alone.
[[nodiscard]] std::wstring_view LineAt(std::wstring_view text, std::span<const uint32_t> starts,
                                       size_t line);

}  // namespace detail
}  // namespace rl
