// How fast decoded JSON becomes nodes, text again and a record table, each against a library that
// builds a document of values, or against the structures one would write first.
#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "bench/support/inputs.h"
#include "bench/support/task.h"
#include "model/json_document.h"
#include "model/json_parser.h"
#include "model/json_recovery.h"
#include "model/json_table.h"

namespace {

using rl::JsonNode;
using rl::bench::Outcome;
using rl::bench::Stopwatch;
using Utf16 = rapidjson::UTF16<char16_t>;
using PeerDocument = rapidjson::GenericDocument<Utf16>;

enum class Layout { Flat, Lines, Indented };

/// Names, numbers and flags in records: 28 bytes of file for each value where nothing is indented.
std::string Events(size_t size, Layout layout) {
    static constexpr std::string_view kKinds[] = {"page view", "sign in", "purchase", "error"};
    const bool indented = layout == Layout::Indented;
    const std::string colon = indented ? "\": " : "\":";
    const auto at = [indented](size_t depth) {
        return indented ? "\r\n" + std::string(2 * depth, ' ') : std::string();
    };
    const auto key = [&](size_t depth, std::string_view name, bool isFirst = false) {
        return (isFirst ? "" : ",") + at(depth) + '"' + std::string(name) + colon;
    };
    std::string out;
    out.reserve(size + 1000);
    for (uint32_t i = 0; out.size() < size; ++i) {
        const std::string number = std::to_string(1'000'000 + i * 7919U % 900'000);
        out += layout == Layout::Lines ? '\n' : out.empty() ? '[' : ',';
        out += at(1) + "{" + key(2, "id", true) + number;
        out += key(2, "kind") + '"' + std::string(kKinds[i * 31 % 4]) + '"';
        out += key(2, "user") + "{";
        out += key(3, "name", true) + "\"customer of the northern warehouse " + number + '"';
        out += key(3, "mail") + "\"someone.with.a.very.long.name.indeed." + number +
               "@mail.example.org\"";
        out += key(3, "verified") + (i % 3 != 0 ? "true" : "false") + at(2) + "}";
        out += key(2, "duration") + std::to_string(i % 997) + ".25";
        out += key(2, "path") + "\"/catalogue/section/garden/furniture/" + number +
               "/details/of/the/products/and/reviews.html\"";
        out += key(2, "tags") + "[" + at(3) + "\"web browser\"," + at(3) +
               "\"returning visitor, second campaign\"" + at(2) + "]";
        out += key(2, "referrer") + "null" + at(1) + "}";
    }
    out += layout == Layout::Lines ? "\n" : at(0) + "]";
    return out;
}

std::string Coordinates(size_t size) {
    std::string out = "{\"type\":\"MultiPoint\",\"coordinates\":[[0,0]";
    for (uint32_t i = 0; out.size() < size; ++i) {
        out += ",[" + std::to_string(i % 180) + "." +
               std::to_string(1000000 + i * 7919U % 9000000) + ",-" + std::to_string(i % 90) + "." +
               std::to_string(100000 + i * 31U % 900000) + "]";
    }
    return out + "]}";
}

std::u16string Units(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

const std::u16string& EventText() {
    static const auto text = Units(Events(rl::bench::kLarge, Layout::Flat));
    return text;
}

const std::u16string& LineText() {
    static const auto text = Units(Events(rl::bench::kLarge, Layout::Lines));
    return text;
}

const std::u16string& CoordinateText() {
    static const auto text = Units(Coordinates(rl::bench::kLarge));
    return text;
}

const std::u16string& IndentedText() {
    static const auto text = Units(Events(rl::bench::kLarge, Layout::Indented));
    return text;
}

/// The node memory: made anew each time when cold, used again when warm.
Outcome ParseInto(const std::u16string& text, std::vector<JsonNode>& nodes) {
    const rl::AbandonCheck never;
    nodes.clear();
    const Stopwatch watch;
    rl::JsonParser<char16_t> parser(text, false, nodes, never);
    const int32_t root = parser.Parse(0, text.size(), -1);
    rl::bench::Keep(&root);
    const auto bytes = static_cast<double>(nodes.capacity() * sizeof(JsonNode));
    return watch.Stop(bytes / static_cast<double>(text.size()));
}

template <const std::u16string& (*text)()>
Outcome Parse() {
    const std::u16string& units = text();
    std::vector<JsonNode> nodes;
    return ParseInto(units, nodes);
}

Outcome ParseWarm() {
    static std::vector<JsonNode> nodes;
    return ParseInto(EventText(), nodes);
}

Outcome ParseLines() {
    const std::u16string_view text = LineText();
    const rl::AbandonCheck never;
    std::vector<JsonNode> nodes;
    const Stopwatch watch;
    const int32_t root = rl::ParseJsonLines(text, nodes, never);
    rl::bench::Keep(&root);
    const auto bytes = static_cast<double>(nodes.capacity() * sizeof(JsonNode));
    return watch.Stop(bytes / static_cast<double>(text.size()));
}

template <const std::u16string& (*text)()>
Outcome ParseWithPeer() {
    std::u16string copy = text();
    const Stopwatch watch;
    PeerDocument document;
    document.ParseInsitu(copy.data());
    rl::bench::Keep(&document);
    return watch.Stop();
}

Outcome ParseLinesWithPeer() {
    std::u16string copy = LineText();
    const Stopwatch watch;
    PeerDocument::AllocatorType arena;
    size_t values = 0;
    for (size_t at = 0; at < copy.size();) {
        const size_t end = std::min(copy.find(u'\n', at), copy.size());
        copy[end] = u'\0';
        PeerDocument document(&arena);
        document.ParseInsitu(copy.data() + at);
        values += document.HasParseError() ? 0 : 1;
        at = end + 1;
    }
    rl::bench::Keep(&values);
    return watch.Stop();
}

const rl::JsonDocument& EventDocument() {
    static rl::JsonDocument document;
    if (document.root < 0) {
        const std::u16string& text = EventText();
        const bool parsed = document.Parse(std::wstring(text.begin(), text.end()), false, false);
        rl::bench::Keep(&parsed);
    }
    return document;
}

Outcome WriteIndented() {
    const rl::JsonDocument& document = EventDocument();
    const Stopwatch watch;
    const std::wstring out = document.Serialize();
    rl::bench::Keep(&out);
    return watch.Stop(static_cast<double>(out.capacity()) / static_cast<double>(out.size()));
}

Outcome WriteIndentedWithPeer() {
    static PeerDocument document;
    if (document.IsNull()) {
        document.Parse(EventText().c_str());
    }
    const Stopwatch watch;
    rapidjson::GenericStringBuffer<Utf16> buffer;
    rapidjson::PrettyWriter<rapidjson::GenericStringBuffer<Utf16>, Utf16, Utf16> writer(buffer);
    writer.SetIndent(u' ', 2);
    document.Accept(writer);
    rl::bench::Keep(buffer.GetString());
    return watch.Stop();
}

const rl::JsonDocument& RecordDocument() {
    static rl::JsonDocument document;
    if (document.root < 0) {
        std::wstring text = L"[";
        for (int record = 0; record < 100'000; ++record) {
            text +=
                L"{\"id\":1,\"first name\":\"A\",\"last name\":\"B\",\"city\":\"C\",\"street\":"
                L"\"D\",\"balance\":2.5,\"active\":true,\"remarks\":null},";
        }
        const bool parsed = document.Parse(text + L"]", false, false);
        rl::bench::Keep(&parsed);
    }
    return document;
}

Outcome BuildTable() {
    const rl::JsonDocument& document = RecordDocument();
    const Stopwatch watch;
    const rl::JsonTableView table(&document, document.root, L"N/A", false);
    rl::bench::Keep(&table);
    return watch.Stop();
}

Outcome BuildPlainTable() {
    const rl::JsonDocument& document = RecordDocument();
    const Stopwatch watch;
    std::unordered_map<std::wstring, int32_t> columns;
    const std::vector<int32_t> rows = document.ChildIndices(document.root);
    std::vector<std::vector<int32_t>> cells;
    for (const int32_t row : rows) {
        for (const int32_t member : document.ChildIndices(row)) {
            columns.try_emplace(document.KeyText(member), static_cast<int32_t>(columns.size()));
        }
    }
    for (const int32_t row : rows) {
        cells.emplace_back(columns.size(), -1);
        for (const int32_t member : document.ChildIndices(row)) {
            int32_t& cell =
                cells.back()[static_cast<size_t>(columns.find(document.KeyText(member))->second)];
            cell = cell < 0 ? member : cell;
        }
    }
    rl::bench::Keep(&cells);
    return watch.Stop();
}

constexpr rl::bench::Task kTasks[] = {{"events", Parse<EventText>},
                                      {"events_warm", ParseWarm},
                                      {"events_peer", ParseWithPeer<EventText>},
                                      {"indented", Parse<IndentedText>},
                                      {"indented_peer", ParseWithPeer<IndentedText>},
                                      {"coordinates", Parse<CoordinateText>},
                                      {"coordinates_peer", ParseWithPeer<CoordinateText>},
                                      {"lines", ParseLines},
                                      {"lines_peer", ParseLinesWithPeer},
                                      {"write", WriteIndented},
                                      {"write_peer", WriteIndentedWithPeer},
                                      {"table", BuildTable},
                                      {"table_plain", BuildPlainTable}};

#ifdef _WIN32
constexpr double kParseGoal = 2.2;
constexpr double kLinesGoal = 2.6;
#else
constexpr double kParseGoal = 1.75;
constexpr double kLinesGoal = 1.75;
#endif

using rl::bench::kLarge;
using rl::bench::Warmth;

// The last figure: node bytes for each unit of text, and capacity of the output to its size.
constexpr rl::bench::Row kRows[] = {
    {"json: parse events, cold", "events", "events_peer", Warmth::Cold, kLarge, kParseGoal, 1.3,
     1.3},
    {"json: parse events, warm", "events_warm", "events_peer", Warmth::Warm, kLarge, 3.0},
    {"json: parse indented events, cold", "indented", "indented_peer", Warmth::Cold, kLarge, 1.6,
     1.0, 1.0},
    {"json: parse coordinates, cold", "coordinates", "coordinates_peer", Warmth::Cold, kLarge, 0.75,
     4.5, 4.5},
    {"json: parse lines, cold", "lines", "lines_peer", Warmth::Cold, kLarge, kLinesGoal, 1.3, 1.3},
    {"json: write indented, warm", "write", "write_peer", Warmth::Warm, kLarge, 1.3, 0, 1.05},
    {"json: record table, 100,000 x 8, warm", "table", "table_plain", Warmth::Warm, 10'500'000,
     2.0},
};

}  // namespace

int main(int argc, char** argv) {
    return rl::bench::Main({argv, static_cast<size_t>(argc)}, kTasks, kRows);
}
