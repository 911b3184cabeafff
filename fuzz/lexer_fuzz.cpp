// Holds the source view's lines and colours to their laws: the fast passes say what the plain ones
// say, a line coloured by itself from its stored state equals the line coloured in its file, every
// unit gets a class, and positions, columns and copies fit together.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "view/logic/source_lexer.h"
#include "view/logic/source_lines.h"
#include "view/logic/source_page.h"
#include "view/logic/source_selection.h"

namespace {

using rl::SourceClass;
using rl::SourceMode;

void Require(bool holds, const char* law) {
    if (!holds) {
        (void)std::fprintf(stderr, "broken: %s\n", law);
        std::abort();
    }
}

constexpr std::array<wchar_t, 8> kFarUnits = {0x012C, 0x0122, 0x220D, 0xD83D,
                                              0xDE00, 0x00FF, 0xFFFF, 0x0000};

struct Input {
    rl::SourceSyntax syntax;
    int tabWidth = 4;
    size_t choice = 0;
    std::wstring text;
};

Input ReadInput(const uint8_t* data, size_t size) {
    static constexpr std::array<wchar_t, 6> kDelimiters = {L',', L';', L'\t', L'"', L'|', 0x3001};
    Input in;
    if (size >= 3) {
        in.syntax.mode = static_cast<SourceMode>(data[0] % 3);
        in.syntax.delimiter = kDelimiters[data[0] / 3 % kDelimiters.size()];
        in.tabWidth = 1 + data[1] % 32;
        in.choice = data[2];
        std::transform(data + 3, data + size, std::back_inserter(in.text), [](uint8_t byte) {
            return byte < 0xF8 ? static_cast<wchar_t>(byte) : kFarUnits[byte - 0xF8];
        });
    }
    return in;
}

rl::SourceText CheckLines(const Input& in) {
    const rl::LineIndex plain = rl::IndexLines(in.text, in.tabWidth, rl::LineScan::Plain);
    Require(rl::IndexLines(in.text, in.tabWidth, rl::LineScan::Sse2) == plain,
            "the fast pass finds the plain one's lines");
    rl::SourceText text;
    text.SetTabWidth(in.tabWidth);
    text.Assign(in.text);
    int64_t widest = 0;
    size_t covered = 0;
    for (int32_t line = 0; line < text.LineCount(); ++line) {
        const std::wstring_view shown = text.Line(line);
        Require(text.LineStart(line) == covered, "lines follow one another without gaps");
        Require(shown.find_first_of(L"\r\n") == std::wstring_view::npos, "no break is in a line");
        widest = std::max(widest, rl::ColumnsOf(shown, in.tabWidth));
        covered = line + 1 < text.LineCount() ? text.LineStart(line + 1) : in.text.size();
        Require(text.LineOf(text.LineEnd(line)) == line, "a line's end is on it");
    }
    Require(text.MaxColumns() == widest, "the widest line is the widest");
    return text;
}

void CheckColours(const Input& in, const rl::SourceText& text) {
    const std::vector<rl::LineState> states =
        rl::ScanLineStates(in.syntax, in.text, text.LineStarts());
    constexpr auto kNone = static_cast<SourceClass>(0xFF);
    std::vector<SourceClass> classes;
    rl::LineState state = 0;
    for (int32_t line = 0; line < text.LineCount(); ++line) {
        Require(states[static_cast<size_t>(line)] == state,
                "a stored state is the one reached through all lines before");
        const std::wstring_view shown = text.Line(line);
        const rl::LineContext context{.state = state, .isFirst = line == 0};
        classes.assign(shown.size(), kNone);
        const rl::LineState next = rl::LexLine(in.syntax, shown, context, rl::ClassSink(classes));
        Require(rl::LexLine(in.syntax, shown, context, {}) == next,
                "the state is the same without classes");
        Require(std::ranges::none_of(classes, [](SourceClass value) { return value == kNone; }),
                "every unit gets a class");
        rl::LinePlan plan;
        plan.Plan({.line = shown,
                   .classes = classes,
                   .start = text.LineStart(line),
                   .selection = {.anchor = in.choice, .caret = in.choice / 2},
                   .tabWidth = in.tabWidth,
                   .firstColumn = 0,
                   .lastColumn = text.MaxColumns()});
        size_t drawn = 0;
        for (const rl::SourceRun& run : plan.Runs()) {
            Require(run.column == static_cast<int64_t>(drawn), "runs stand side by side");
            drawn += run.length;
        }
        Require(plan.EndColumn() == rl::ColumnsOf(shown, in.tabWidth) &&
                    plan.EndColumn() == static_cast<int64_t>(drawn),
                "runs cover the line");
        state = next;
    }
}

void CheckCaret(const Input& in, const rl::SourceText& text) {
    using rl::SourceAction;
    const size_t from = in.text.empty() ? 0 : in.choice % (in.text.size() + 1);
    for (auto move = SourceAction::Left; move <= SourceAction::TextEnd;
         move = static_cast<SourceAction>(static_cast<int>(move) + 1)) {
        Require(rl::MoveCaret(text, from, move, 3) <= text.Size(), "the caret stays in the text");
    }
    for (size_t caret = 0; caret < text.Size();) {
        const size_t next = rl::MoveCaret(text, caret, SourceAction::Right, 1);
        Require(next > caret && next <= caret + 2, "each step to the right leads on");
        caret = next;
    }
    if (const auto word = rl::WordAt(text, from)) {
        Require(word->First() <= from && from < word->Last(),
                "a word holds where it was asked for");
    }
    std::wstring copy(rl::CopySize(in.text), L'?');
    rl::WriteCopy(in.text, copy.data());
    rl::SourceText again;
    again.Assign(copy);
    Require(again.LineCount() == text.LineCount(), "a copy has the same lines");
    std::wstring twice(rl::CopySize(copy), L'?');
    rl::WriteCopy(copy, twice.data());
    Require(twice == copy, "a copy of a copy is the copy");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const Input in = ReadInput(data, size);
    const rl::SourceText text = CheckLines(in);
    CheckColours(in, text);
    CheckCaret(in, text);
    return 0;
}
