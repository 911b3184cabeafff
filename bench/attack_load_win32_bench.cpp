// Files made to be slow to load, each against a plain one of the same size; and every file of the
// shared collection likewise. Some are refused: that must not take longer either.
#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bench/support/input_file.h"
#include "bench/support/inputs.h"
#include "bench/support/task.h"
#include "load/document_loaders.h"

namespace {

using rl::bench::Outcome;
using rl::bench::Stopwatch;

constexpr size_t kSize = 20'000'000;

/// A file: `head`, then `piece` again and again for one half of it and `other` for the second, or
/// `piece` for all of it. "%" stands for a number that is another each time.
struct Attack {
    std::string_view name;
    std::string_view suffix;
    std::string_view head;
    std::string_view piece;
    std::string_view other = "";
    bool isRecovered = false;  // what is whole in a broken text is wanted
};

constexpr std::string_view kJson = ".json";
constexpr std::string_view kLines = ".jsonl";
constexpr std::string_view kXml = ".xml";

constexpr auto kAttacks = std::to_array<Attack>({
    {"plain json", kJson, "", ""},
    {"plain xml", kXml, "", ""},
    {"json: zeros", kJson, "[0", ",0"},
    {"json: empty objects", kJson, "[0", ",{}"},
    {"json: one name again and again", kJson, "{", R"("a":0,)"},
    {"json: no name twice", kJson, "{", R"("%":0,)"},
    {"json: 500 levels", kJson, "[", "", ""},
    {"json: brackets that open", kJson, "", "["},
    {"json: braces that open", kJson, "", R"({"a":)"},
    {"json: brackets that close", kJson, "", "]"},
    {"json: blocks side by side", kJson, "", "{}", "", true},
    {"json: broken blocks side by side", kJson, "", "[1}", "", true},
    {"json: blocks broken inside", kJson, "", "[:]", "", true},
    {"json: long lines in a broken file", kJson, "",
     "{\"name\":\"customer of the northern warehouse\",\"path\":\"/catalogue/section/garden/"
     "furniture/details/of/the/products/and/reviews.html\",\"number\":1}\n",
     "", true},
    {"json: lines in a broken file", kJson, "", "{\"a\":1}\n", "", true},
    {"json: brackets crossed", kJson, "", "[", "}", true},
    {"json: quotes", kJson, "[", "\""},
    {"json: backslashes in a string", kJson, "[\"", R"(\\)"},
    {"json: escapes", kJson, "[\"", R"(\u0041)"},
    {"json: a string left open", kJson, "[\"", "x"},
    {"json: slashes", kJson, "[", "/"},
    {"json: short comments", kJson, "[", "/**/"},
    {"json: comments left open", kJson, "[", "/*x"},
    {"json: blanks", kJson, "[", " \n"},
    {"json: lines", kLines, "", "{\"a\":1}\n"},
    {"json: empty lines", kLines, "", "\n"},
    {"json: broken lines", kLines, "", "{\"a\n"},
    {"json: lines in a file of another name", kJson, "", "{\"a\":1}\n"},
    {"xml: levels", kXml, "", "<a>", "</a>"},
    {"xml: stray end tags under many levels", kXml, "", "<a>", "</b>"},
    {"xml: the same, no name twice", kXml, "", "<n%>", "</b%>"},
    {"xml: end tags", kXml, "<r>", "</a>"},
    {"xml: empty elements", kXml, "<r>", "<a/>"},
    {"xml: attributes", kXml, "<r", " a='1'"},
    {"xml: attributes, no name twice", kXml, "<r", " a%='1'"},
    {"xml: values without quotes", kXml, "<r>", "<a b=c>"},
    {"xml: quotes left open", kXml, "<r/>", "<a b=c \"d"},
    {"xml: tags left open", kXml, "<r>", "<"},
    {"xml: angles that close", kXml, "<r>", ">"},
    {"xml: angles that close as texts", kXml, "<r>", "<a>></a>"},
    {"xml: entities", kXml, "<r>", "&amp;"},
    {"xml: entities left open", kXml, "<r>", "&x"},
    {"xml: comments", kXml, "<r>", "<!---->"},
    {"xml: comments left open", kXml, "<r>", "<!--"},
    {"xml: sections left open", kXml, "<r>", "<![CDATA["},
    {"xml: instructions", kXml, "<r>", "<?a?>"},
    {"xml: instructions left open", kXml, "<r>", "<?"},
    {"xml: a document type of declarations", kXml, "<!DOCTYPE a [", "<!ENTITY a \"b\">"},
    {"xml: document types left open", kXml, "", "<!DOCTYPE a ["},
});
constexpr size_t kPlainJson = 0;
constexpr size_t kPlainXml = 1;

void Repeat(std::string& out, std::string_view piece, size_t size) {
    const size_t number = piece.find('%');
    for (size_t i = 0; out.size() < size; ++i) {
        out += piece.substr(0, number);
        if (number != std::string_view::npos) {
            out += std::to_string(i);
            out += piece.substr(number + 1);
        }
    }
}

std::string Content(const Attack& attack, size_t size) {
    if (&attack == &kAttacks[kPlainJson]) {
        return rl::bench::JsonEventBytes(size);
    }
    if (&attack == &kAttacks[kPlainXml]) {
        return rl::bench::XmlEventBytes(size);
    }
    std::string out(attack.head);
    if (attack.piece.empty()) {
        const std::string deep = std::string(500, '[') + std::string(500, ']') + ',';
        Repeat(out, deep, size);
        return out + "0]";
    }
    Repeat(out, attack.piece, attack.other.empty() ? size : size / 2);
    Repeat(out, attack.other.empty() ? attack.piece : attack.other, size);
    return out + (attack.piece.front() == ',' ? "]" : attack.piece.back() == ',' ? "\"\":0}" : "");
}

/// Whether it could be shown.
bool Load(const std::filesystem::path& file, bool isRecovered) {
    std::wstring error;
    const std::wstring path = file.wstring();
    if (file.extension() == kXml) {
        return rl::LoadXmlDocument(path, 0, {.honourXmlDeclaration = true}, error) != nullptr;
    }
    return rl::LoadJsonDocument(path, 0, isRecovered ? 1 : 0, {}, error) != nullptr;
}

Outcome LoadFile(size_t index) {
    const Attack& attack = kAttacks[index];
    const std::string name =
        "rowlark_bench_attack_" + std::to_string(index) + std::string(attack.suffix);
    const std::filesystem::path file = rl::bench::WriteInput(name, Content(attack, kSize));
    const Stopwatch watch;
    const bool isShown = Load(file, attack.isRecovered);
    rl::bench::Keep(&isShown);
    const Outcome outcome = watch.Stop();
    std::filesystem::remove(file);
    return outcome;
}

template <size_t index>
Outcome LoadAttack() {
    return LoadFile(index);
}

template <size_t... indices>
constexpr auto MakeTasks(std::index_sequence<indices...>) {
    return std::array{rl::bench::Task{kAttacks[indices].name, LoadAttack<indices>}...};
}

constexpr auto kTasks = MakeTasks(std::make_index_sequence<kAttacks.size()>());

constexpr size_t kPlains = 2;

constexpr auto kRows = [] {
    std::array<rl::bench::Row, kAttacks.size() - kPlains> rows{};
    for (size_t i = 0; i < rows.size(); ++i) {
        const Attack& attack = kAttacks[i + kPlains];
        const size_t plain = attack.suffix == kXml ? kPlainXml : kPlainJson;
        rows[i] = {.name = attack.name,
                   .ours = attack.name,
                   .peer = kAttacks[plain].name,
                   .warmth = rl::bench::Warmth::Cold,
                   .bytes = kSize,
                   .goal = 0.25};
    }
    return rows;
}();

}  // namespace

int main(int argc, char** argv) {
    return rl::bench::Main({argv, static_cast<size_t>(argc)}, kTasks, kRows);
}
