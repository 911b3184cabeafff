// How fast decoded XML is cut into nodes, and a table is read from them.
//
// The peer builds its tree from the same units without writing to them.
#include <exception>
#include <memory>
#include <rapidxml/rapidxml.hpp>
#include <string>
#include <string_view>
#include <type_traits>

#include "bench/support/inputs.h"
#include "bench/support/task.h"
#include "model/xml_document.h"
#include "model/xml_parser.h"
#include "model/xml_table.h"

namespace {

using rl::bench::Outcome;
using rl::bench::Stopwatch;

/// What the fast kernel works on: wchar_t where it has 16 bits.
using Unit = std::conditional_t<sizeof(wchar_t) == 2, wchar_t, char16_t>;
using Text = std::basic_string<Unit>;

constexpr size_t kUnits = 100'000'000;

/// A log of events, two blanks a level: attributes, short texts, now and then markup of other
/// kinds.
std::string EventBytes(size_t size) {
    std::string bytes = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<events>\n";
    uint32_t random = 2024;
    for (size_t i = 0; bytes.size() < size; ++i) {
        random = random * 1664525 + 1013904223;
        const std::string number = std::to_string(random >> 8);
        bytes += "  <event id=\"" + std::to_string(i) + "\" type=\"purchase\" level=\"info\">\n";
        bytes += "    <time zone=\"UTC\">2024-05-" + std::to_string(10 + random % 20) +
                 "T12:30:45.120Z</time>\n";
        bytes += "    <user name=\"user" + number + "\">user" + number + "@example.org</user>\n";
        bytes +=
            "    <amount currency=\"EUR\">" + std::to_string(random % 10000) + ".50</amount>\n";
        bytes +=
            "    <note>Delivered &amp; paid, order " + number +
            ", thank you for shopping with us; should anything be missing or damaged, write to "
            "our service within thirty days and name the number above</note>\n";
        bytes += i % 16 == 0 ? "    <!-- checked by hand -->\n" : "";
        bytes += i % 64 == 0 ? "    <raw><![CDATA[a < b && c]]></raw>\n" : "";
        bytes += "    <flag/>\n  </event>\n";
    }
    return bytes + "</events>\n";
}

Text Widen(const std::string& bytes) {
    return {bytes.begin(), bytes.end()};
}

const Text& Events() {
    static const Text text = Widen(EventBytes(kUnits));
    return text;
}

Outcome ParseUnits(const Text& text, rl::XmlScanKernel kernel) {
    const Stopwatch watch;
    const auto tree = rl::ParseXml(std::basic_string_view<Unit>(text), {}, kernel);
    if (!tree) {
        std::terminate();
    }
    const size_t held = tree->nodes.capacity() * sizeof(rl::XmlNode) +
                        tree->attributes.capacity() * sizeof(rl::XmlAttribute);
    const size_t needed = tree->nodes.size() * sizeof(rl::XmlNode) +
                          tree->attributes.size() * sizeof(rl::XmlAttribute);
    return watch.Stop(static_cast<double>(held) / static_cast<double>(needed));
}

Outcome Parse() {
    return ParseUnits(Events(), rl::BestXmlScanKernel());
}

Outcome ParsePlain() {
    return ParseUnits(Events(), rl::XmlScanKernel::Plain);
}

Outcome ParseWithPeer() {
    static Text text = Events();
    const Stopwatch watch;
    rapidxml::xml_document<Unit> document;
    document.template parse<rapidxml::parse_non_destructive | rapidxml::parse_comment_nodes>(
        text.data());
    rl::bench::Keep(document.first_node());
    return watch.Stop();
}

constexpr size_t kRecords = 100'000;

const rl::XmlDocument& Document(bool differing) {
    static rl::XmlDocument document;
    if (document.root < 0) {
        std::wstring text = L"<r>";
        for (size_t i = 0; i < kRecords; ++i) {
            text += L"<i id='1' kind='2'>";
            for (size_t k = 0; k < 6; ++k) {
                const std::wstring name = L"m" + std::to_wstring(differing ? i * 6 + k : k);
                text += L"<" + name + L">v</" + name + L">";
            }
            text += L"</i>";
        }
        if (!document.Parse(text + L"</r>")) {
            std::terminate();
        }
    }
    return document;
}

Outcome MakeTable(bool differing) {
    const rl::XmlDocument& document = Document(differing);
    const Stopwatch watch;
    const rl::XmlTableView table(&document, document.FirstElement(), L"");
    const int32_t columns = table.ColumnCount();
    rl::bench::Keep(&columns);
    return watch.Stop();
}

Outcome MakeAlikeTable() {
    return MakeTable(false);
}

Outcome MakeDifferingTable() {
    return MakeTable(true);
}

constexpr rl::bench::Task kTasks[] = {
    {"parse", Parse},
    {"parse_plain", ParsePlain},
    {"rapidxml", ParseWithPeer},
    {"table_alike", MakeAlikeTable},
    {"table_differing", MakeDifferingTable},
};

using rl::bench::Warmth;

constexpr double kBytes = kUnits;

// In the last row a byte stands for a member. The last figure of a parse: bytes reserved for nodes
// and attributes against those filled.
constexpr rl::bench::Row kRows[] = {
    {"xml: parse of decoded text against RapidXML, cold", "parse", "rapidxml", Warmth::Cold, kBytes,
     2.0, 1.55, 1.01},
    {"xml: the same, warm", "parse", "rapidxml", Warmth::Warm, kBytes, 2.0, 0, 1.01},
    {"xml: parse against the plain kernel, warm", "parse", "parse_plain", Warmth::Warm, kBytes},
    {"xml: records with no name in common against records alike", "table_differing", "table_alike",
     Warmth::Cold, kRecords * 6, 0.25},
};

}  // namespace

int main(int argc, char** argv) {
    return rl::bench::Main({argv, static_cast<size_t>(argc)}, kTasks, kRows);
}
