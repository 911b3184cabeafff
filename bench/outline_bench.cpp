// How fast an outline lists its rows and how fast it is filtered.
//
// The peers: reading the nodes and writing as many rows, which nothing can beat; a walk with a
// stack of its own into a growing vector; and a filter that copies and lowers the text of each
// node.
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "bench/support/task.h"
#include "load/text/platform.h"
#include "model/outline_model.h"
#include "model/outline_walk.h"
#include "view/logic/text_needle.h"

namespace {

using rl::JsonDocument;
using rl::JsonNode;
using rl::OutlineRow;
using rl::TreeTableView;
using rl::bench::Outcome;
using rl::bench::Stopwatch;

constexpr size_t kUnits = 100'000'000;

/// Events of a few members each: about 28 units a node.
std::wstring Events() {
    std::wstring text = L"[";
    uint64_t state = 20240817;
    while (text.size() < kUnits) {
        state = state * 6364136223846793005 + 1442695040888963407;
        const std::wstring number = std::to_wstring(state >> 40);
        text += text.size() > 1 ? L"," : L"";
        text += LR"({"id":"evt_)" + number + LR"(","type":"order.created","actor":{"name":"User )";
        text += number + LR"(","roles":["reader","editor"]},"amount":)" + number;
        text += LR"(,"tags":["alpha","beta","a longer tag with words"],"ok":true,"note":null})";
    }
    return text + L"]";
}

const JsonDocument& Document() {
    static JsonDocument document;
    if (document.nodes.empty() && !document.Parse(Events(), false, false)) {
        std::terminate();
    }
    return document;
}

/// A whole outline, open to its last node.
TreeTableView& Outline() {
    static TreeTableView outline(Document(), 0);
    return outline;
}

Outcome Rebuild() {
    TreeTableView& outline = Outline();
    const Stopwatch watch;
    outline.Rebuild();
    return watch.Stop();
}

rl::OutlineState AllOpen() {
    rl::OutlineState state;
    state.flags.assign(Document().nodes.size(), rl::kOutlineOpen);
    return state;
}

Outcome List() {
    const rl::OutlineState state = AllOpen();
    const Stopwatch watch;
    rl::OutlineRowList rows;
    if (rl::ListOutlineRows(rl::OutlineTree(Document()), state, rows)) {
        std::terminate();  // there are more than fit
    }
    const Outcome outcome = watch.Stop();
    rl::bench::Keep(rows.Get().data());
    return outcome;
}

Outcome ReadAndWrite() {
    const JsonDocument& document = Document();
    static std::vector<OutlineRow> rows(rl::kMaxOutlineRows);
    const Stopwatch watch;
    for (size_t i = 0; i < rows.size(); ++i) {
        const JsonNode& node = document.nodes[i];
        rows[i] = {.node = static_cast<int32_t>(i),
                   .aux = node.nextSibling,
                   .depth = static_cast<uint16_t>(node.childCount),
                   .rowType = static_cast<rl::OutlineRowType>(node.kind),
                   .hasChildren = node.firstChild >= 0};
    }
    rl::bench::Keep(rows.data());
    return watch.Stop();
}

Outcome ListPlainly() {
    const JsonDocument& document = Document();
    const Stopwatch watch;
    struct Waiting {
        int32_t node;
        int32_t aux;
        uint16_t depth;
    };
    std::vector<OutlineRow> rows;
    std::vector<Waiting> waiting{{document.root, -1, 0}};
    while (!waiting.empty() && rows.size() < rl::kMaxOutlineRows) {
        const Waiting next = waiting.back();
        waiting.pop_back();
        const JsonNode& node = document.nodes[static_cast<size_t>(next.node)];
        rows.push_back({.node = next.node, .aux = next.aux, .depth = next.depth});
        const std::vector<int32_t> children = document.ChildIndices(next.node);
        for (size_t i = children.size(); i-- > 0;) {
            const auto place = static_cast<int32_t>(i);
            waiting.push_back({children[i], node.kind == rl::JsonKind::Array ? place : -1,
                               static_cast<uint16_t>(next.depth + 1)});
        }
    }
    rl::bench::Keep(rows.data());
    return watch.Stop();
}

constexpr std::wstring_view kWanted = L"9999";

Outcome Filter() {
    TreeTableView& outline = Outline();
    const rl::TextNeedle needle(kWanted, false);
    outline.SetFilter(1, L"", {});
    const Stopwatch watch;
    outline.SetFilter(
        1, kWanted, [&](std::wstring& text) { return needle.IsIn(text); },
        [&](std::wstring_view text, size_t from) { return needle.FindIn(text, from); });
    const Outcome outcome = watch.Stop();
    outline.SetFilter(1, L"", {});
    return outcome;
}

Outcome FilterPlainly() {
    const JsonDocument& document = Document();
    const Stopwatch watch;
    std::vector<uint8_t> matches(document.nodes.size());
    for (size_t i = 0; i < document.nodes.size(); ++i) {
        std::wstring text = document.DisplayText(static_cast<int32_t>(i));
        rl::platform::FoldCase(text);
        matches[i] = text.find(kWanted) != std::wstring::npos ? 1 : 0;
    }
    rl::bench::Keep(matches.data());
    return watch.Stop();
}

constexpr rl::bench::Task kTasks[] = {
    {"rebuild", Rebuild},        {"list", List},     {"read_write", ReadAndWrite},
    {"list_plain", ListPlainly}, {"filter", Filter}, {"filter_plain", FilterPlainly},
};

using rl::bench::Warmth;

constexpr double kRowBytes = 16.0 * rl::kMaxOutlineRows;
constexpr double kTextBytes = kUnits;

constexpr rl::bench::Row kRows[] = {
    {"outline: 2,000,000 rows again, against reading and writing", "rebuild", "read_write",
     Warmth::Warm, kRowBytes, 0.5},
    {"outline: 2,000,000 rows, against a stack and a vector", "list", "list_plain", Warmth::Cold,
     kRowBytes, 2.5},
    {"outline: filter, contains", "filter", "filter_plain", Warmth::Warm, kTextBytes, 5.0},
};

}  // namespace

int main(int argc, char** argv) {
    return rl::bench::Main({argv, static_cast<size_t>(argc)}, kTasks, kRows);
}
