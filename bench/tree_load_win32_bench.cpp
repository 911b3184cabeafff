// From a JSON or XML file on disk to its document, against libraries that build trees of their own;
// and what stays in memory meanwhile and afterwards.
#include <rapidjson/document.h>

#include <exception>
#include <filesystem>
#include <memory>
#include <rapidxml/rapidxml.hpp>
#include <string>

#include "bench/support/input_file.h"
#include "bench/support/inputs.h"
#include "bench/support/process.h"
#include "bench/support/task.h"
#include "load/document_loaders.h"
#include "load/files/file_reader.h"
#include "load/text/decode_text.h"

namespace {

using rl::bench::kLarge;
using rl::bench::Outcome;
using rl::bench::Stopwatch;

std::filesystem::path JsonPath() {
    return rl::bench::FileOf("rowlark_bench_events_2.json", kLarge, rl::bench::JsonEventBytes);
}

std::filesystem::path XmlPath() {
    return rl::bench::FileOf("rowlark_bench_events.xml", kLarge, rl::bench::XmlEventBytes);
}

/// The time, and what the process has grown by, in bytes for each byte of the file.
template <class Load>
Outcome Measure(Load load) {
    const auto before = static_cast<double>(rl::bench::MemoryNow());
    const Stopwatch watch;
    const auto held = load();
    if (!held) {
        std::terminate();
    }
    const auto after = static_cast<double>(rl::bench::MemoryNow());
    return watch.Stop((after - before) / static_cast<double>(kLarge));
}

Outcome LoadJson() {
    const std::wstring path = JsonPath().wstring();
    std::wstring error;
    return Measure([&] { return rl::LoadJsonDocument(path, 0, 0, {}, error); });
}

Outcome LoadXml() {
    const std::wstring path = XmlPath().wstring();
    std::wstring error;
    return Measure(
        [&] { return rl::LoadXmlDocument(path, 0, {.honourXmlDeclaration = true}, error); });
}

Outcome LoadJsonWithPeer() {
    using Peer = rapidjson::GenericDocument<rapidjson::UTF16<>>;
    const std::wstring path = JsonPath().wstring();
    return Measure([&] {
        std::string bytes;
        std::wstring error;
        auto document = std::make_unique<Peer>();
        if (!rl::ReadFileLimited(path, 0, bytes, error)) {
            std::terminate();
        }
        document->Parse<rapidjson::kParseDefaultFlags, rapidjson::UTF8<>>(bytes.c_str());
        return document;
    });
}

Outcome LoadXmlWithPeer() {
    struct Held {
        std::wstring text;
        rapidxml::xml_document<wchar_t> document;
    };
    const std::wstring path = XmlPath().wstring();
    return Measure([&] {
        std::string bytes;
        std::wstring error;
        rl::TextEncoding found;
        auto held = std::make_unique<Held>();
        if (!rl::ReadFileLimited(path, 0, bytes, error)) {
            std::terminate();
        }
        held->text = rl::DecodeText(bytes, {}, found);
        bytes = {};
        held->document.parse<rapidxml::parse_non_destructive>(held->text.data());
        return held;
    });
}

constexpr rl::bench::Task kTasks[] = {{"load_json", LoadJson},
                                      {"rapidjson", LoadJsonWithPeer},
                                      {"load_xml", LoadXml},
                                      {"rapidxml", LoadXmlWithPeer}};

// Growth at the peak in bytes for each byte of the file.
constexpr rl::bench::Row kRows[] = {
    {"json: file to document against RapidJSON, cold", "load_json", "rapidjson",
     rl::bench::Warmth::Cold, kLarge, 1.6, 3.5},
    {"xml: file to document against decoding and RapidXML, cold", "load_xml", "rapidxml",
     rl::bench::Warmth::Cold, kLarge, 1.45, 3.8},
};

}  // namespace

int main(int argc, char** argv) {
    return rl::bench::Main({argv, static_cast<size_t>(argc)}, kTasks, kRows);
}
