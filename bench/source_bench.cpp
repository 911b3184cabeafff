// How fast a source text is made ready to be shown: lines with their widths, and the state at the
// start of each line.
//
// The peers are the plain loops over the same text that the fast passes stand for. On Windows the
// whole way to the first picture is measured too, against parsing the same text.
#ifdef _WIN32
#include <windows.h>
#endif

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bench/support/inputs.h"
#include "bench/support/task.h"
#include "model/json_document.h"
#include "view/logic/source_lexer.h"
#include "view/logic/source_lines.h"
#ifdef _WIN32
#include "view/source_view.h"
#endif

namespace {

using rl::bench::Outcome;
using rl::bench::Stopwatch;

constexpr size_t kUnits = 16'000'000;
constexpr int kTabWidth = 4;

std::wstring Widen(const std::string& bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        text += static_cast<wchar_t>(static_cast<unsigned char>(byte));
    }
    return text;
}

const std::wstring& Json() {
    static const std::wstring text = Widen(rl::bench::JsonBytes(kUnits));
    return text;
}

const std::wstring& Csv() {
    static const std::wstring text = Widen(rl::bench::CsvBytes(kUnits));
    return text;
}

/// Points of a track, a line each, with a comment now and then.
const std::wstring& Xml() {
    static const std::wstring text = [] {
        std::wstring made = L"<?xml version=\"1.0\"?>\n<gpx>\n";
        for (unsigned point = 0; made.size() < kUnits; ++point) {
            const std::wstring number = std::to_wstring(point * 2'654'435'761U);
            made += L"  <trkpt lat=\"" + number + L"\" lon='1." + number + L"'><ele>" + number +
                    L"</ele></trkpt>\n";
            made += point % 50 == 0 ? L"  <!-- a > \"comment\" -->\n" : L"";
        }
        return made + L"</gpx>\n";
    }();
    return text;
}

const std::vector<uint32_t>& StartsOf(const std::wstring& text) {
    static std::vector<uint32_t> starts;
    static const std::wstring* of = nullptr;
    if (of != &text) {
        starts = rl::IndexLines(text, kTabWidth).starts;
        of = &text;
    }
    return starts;
}

/// Bytes a line, the one of its state included.
Outcome Index(const std::wstring& text, rl::LineScan scan) {
    const Stopwatch watch;
    const rl::LineIndex index = rl::IndexLines(text, kTabWidth, scan);
    rl::bench::Keep(index.starts.data());
    const auto bytes = static_cast<double>(index.starts.capacity() * sizeof(uint32_t));
    return watch.Stop(bytes / static_cast<double>(index.starts.size()) + 1);
}

using StatePass = std::vector<rl::LineState> (*)(const rl::SourceSyntax&, std::wstring_view,
                                                 std::span<const uint32_t>);

Outcome States(const std::wstring& text, rl::SourceMode mode, StatePass pass) {
    const std::vector<uint32_t>& starts = StartsOf(text);
    const Stopwatch watch;
    const std::vector<rl::LineState> states = pass({.mode = mode}, text, starts);
    rl::bench::Keep(states.data());
    return watch.Stop(static_cast<double>(states.capacity()) / static_cast<double>(states.size()));
}

constexpr StatePass kFast = rl::ScanLineStates;
constexpr StatePass kPlain = rl::ScanLineStatesPlain;

Outcome IndexJson() {
    return Index(Json(), rl::LineScan::Sse2);
}
Outcome IndexJsonPlain() {
    return Index(Json(), rl::LineScan::Plain);
}
Outcome IndexCsv() {
    return Index(Csv(), rl::LineScan::Sse2);
}
Outcome IndexCsvPlain() {
    return Index(Csv(), rl::LineScan::Plain);
}
Outcome StatesJson() {
    return States(Json(), rl::SourceMode::Json, kFast);
}
Outcome StatesJsonPlain() {
    return States(Json(), rl::SourceMode::Json, kPlain);
}
Outcome StatesCsv() {
    return States(Csv(), rl::SourceMode::Delimited, kFast);
}
Outcome StatesCsvPlain() {
    return States(Csv(), rl::SourceMode::Delimited, kPlain);
}
Outcome StatesXml() {
    return States(Xml(), rl::SourceMode::Xml, kFast);
}
Outcome StatesXmlPlain() {
    return States(Xml(), rl::SourceMode::Xml, kPlain);
}

Outcome ParseJson() {
    static rl::JsonDocument document;
    std::wstring text = Json();
    const Stopwatch watch;
    const bool parsed = document.Parse(std::move(text), false, false);
    rl::bench::Keep(&parsed);
    return watch.Stop();
}

#ifdef _WIN32

/// A view in a window of its own, kept for the next run as a viewer keeps it.
rl::SourceView& ShownView() {
    static rl::SourceView view;
    if (view.Window() == nullptr) {
        (void)rl::SourceView::RegisterWindowClass();
        const HWND frame = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_CLIPCHILDREN, 0, 0,
                                           1200, 800, nullptr, nullptr, nullptr, nullptr);
        (void)view.Create(frame);
        view.SetFont(static_cast<HFONT>(GetStockObject(ANSI_FIXED_FONT)));
        MoveWindow(view.Window(), 0, 0, 1200, 800, FALSE);
        ShowWindow(view.Window(), SW_SHOW);
        ShowWindow(frame, SW_SHOWNOACTIVATE);
        UpdateWindow(view.Window());
    }
    return view;
}

/// From a text that is taken over to the picture on the screen.
Outcome ShowJson() {
    rl::SourceView& view = ShownView();
    view.SetText({}, {});
    std::wstring text = Json();
    const Stopwatch watch;
    view.SetText(std::move(text), {.mode = rl::SourceMode::Json});
    UpdateWindow(view.Window());
    return watch.Stop();
}

#endif

constexpr rl::bench::Task kTasks[] = {
    {"index_json", IndexJson},   {"index_json_plain", IndexJsonPlain},
    {"index_csv", IndexCsv},     {"index_csv_plain", IndexCsvPlain},
    {"states_json", StatesJson}, {"states_json_plain", StatesJsonPlain},
    {"states_csv", StatesCsv},   {"states_csv_plain", StatesCsvPlain},
    {"states_xml", StatesXml},   {"states_xml_plain", StatesXmlPlain},
    {"parse_json", ParseJson},
#ifdef _WIN32
    {"show_json", ShowJson},
#endif
};

using rl::bench::Warmth;
constexpr double kBytes = static_cast<double>(kUnits) * sizeof(wchar_t);

// The last figure is bytes a line.
constexpr rl::bench::Row kRows[] = {
    {"source: line index of JSON against a plain loop", "index_json", "index_json_plain",
     Warmth::Warm, kBytes, 3.5, 0, 5.1},
    {"source: line index of delimited text against a plain loop", "index_csv", "index_csv_plain",
     Warmth::Warm, kBytes, 3.5, 0, 5.1},
    {"source: line states of JSON against its lexer", "states_json", "states_json_plain",
     Warmth::Warm, kBytes, 8, 0, 1},
    {"source: line states of delimited text against its lexer", "states_csv", "states_csv_plain",
     Warmth::Warm, kBytes, 3, 0, 1},
    {"source: line states of XML against its lexer", "states_xml", "states_xml_plain", Warmth::Warm,
     kBytes, 2, 0, 1},
#ifdef _WIN32
    {"source: text to first picture against parsing it", "show_json", "parse_json", Warmth::Warm,
     kBytes, 1},
#endif
};

}  // namespace

int main(int argc, char** argv) {
    return rl::bench::Main({argv, static_cast<size_t>(argc)}, kTasks, kRows);
}
