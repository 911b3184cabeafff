// Which lexer a mode asks for.
#include "view/logic/source_lexer.h"

namespace rl {

LineState LexLine(const SourceSyntax& syntax, std::wstring_view line, LineContext context,
                  ClassSink classes) {
    switch (syntax.mode) {
        case SourceMode::Json: return detail::LexJsonLine(line, context.state, classes);
        case SourceMode::Xml: return detail::LexXmlLine(line, context.state, classes);
        case SourceMode::Delimited: break;
    }
    return detail::LexCsvLine(line, syntax.delimiter, context, classes);
}

std::vector<LineState> ScanLineStates(const SourceSyntax& syntax, std::wstring_view text,
                                      std::span<const uint32_t> starts) {
    std::vector<LineState> states(starts.size(), 0);
    switch (syntax.mode) {
        case SourceMode::Delimited:
            detail::ScanCsvStates(text, syntax.delimiter, starts, states);
            break;
        case SourceMode::Json: detail::ScanJsonStates(text, starts, states); break;
        case SourceMode::Xml: detail::ScanXmlStates(text, starts, states); break;
    }
    return states;
}

std::vector<LineState> ScanLineStatesPlain(const SourceSyntax& syntax, std::wstring_view text,
                                           std::span<const uint32_t> starts) {
    std::vector<LineState> states(starts.size(), 0);
    for (size_t line = 0; line + 1 < starts.size(); ++line) {
        states[line + 1] = LexLine(syntax, detail::LineAt(text, starts, line),
                                   {.state = states[line], .isFirst = line == 0}, {});
    }
    return states;
}

namespace detail {

std::wstring_view LineAt(std::wstring_view text, std::span<const uint32_t> starts, size_t line) {
    size_t end = text.size();
    if (line + 1 < starts.size()) {
        end = starts[line + 1] - size_t{1};
        if (end > starts[line] && text[end] == L'\n' && text[end - 1] == L'\r') {
            --end;
        }
    }
    return text.substr(starts[line], end - starts[line]);
}

}  // namespace detail
}  // namespace rl
