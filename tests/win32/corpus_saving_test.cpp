// Every document of the shared collection: opened, one value edited, saved, opened again. Only that
// value differs; of delimited text and XML, only its bytes.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "load/document_loaders.h"
#include "load/document_saver.h"
#include "load/text/encode_text.h"
#include "tests/support/corpus.h"
#include "tests/support/temp_folder.h"

namespace rl::test {
namespace {

namespace fs = std::filesystem;

constexpr std::wstring_view kNew = L"edited";

using Texts = std::vector<std::wstring>;

/// The files of the collection with one of these suffixes.
std::vector<fs::path> Files(std::initializer_list<std::wstring_view> suffixes) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(CorpusRoot())) {
        const std::wstring suffix = entry.path().extension().wstring();
        const std::wstring name = entry.path().filename().wstring();
        if (entry.is_regular_file() && name != L"expected.jsonl" && name != L"inline.jsonl" &&
            std::ranges::find(suffixes, std::wstring_view(suffix)) != suffixes.end()) {
            files.push_back(entry.path());
        }
    }
    std::ranges::sort(files);
    return files;
}

class CorpusSaving : public testing::Test {
protected:
    void SetUp() override {
        if (!HasCorpus()) {
            GTEST_SKIP() << "the collection is not on this machine";
        }
    }

    /// A copy to be saved over.
    std::wstring Copy(const fs::path& file) {
        name = file.filename().wstring();
        before = ReadBytes(file);
        return folder.Write(name, before);
    }
    [[nodiscard]] std::string After() const { return folder.Read(name); }

    /// Whether the bytes survive being read: only then can untouched ones be the same.
    [[nodiscard]] bool Survives(std::wstring_view text, const TextEncoding& encoding) const {
        std::string bytes;
        return EncodeText(text, encoding, bytes) && bytes == before;
    }

    /// All bytes outside a span of the text are as they were, and inside it stands the new value.
    void ExpectSplice(std::wstring_view text, size_t start, size_t length, std::wstring_view with,
                      const TextEncoding& encoding) const {
        TextEncoding markless = encoding;
        markless.hasBom = false;
        std::string head;
        std::string tail;
        std::string middle;
        ASSERT_TRUE(EncodeText(text.substr(0, start), encoding, head));
        ASSERT_TRUE(EncodeText(text.substr(start + length), markless, tail));
        ASSERT_TRUE(EncodeText(with, markless, middle));
        EXPECT_TRUE(before.starts_with(head) && before.ends_with(tail))
            << "the span is not the value";
        EXPECT_TRUE(After() == head + middle + tail);
    }

    TempFolder folder;
    std::wstring name;
    std::string before;
    std::wstring error;
};

// --- Delimited text.

Texts CellsOf(const CsvModel& model) {
    Texts texts;
    for (int32_t row = 0; row < model.RowCount(); ++row) {
        for (int32_t column = 0; column < model.ColumnCount(); ++column) {
            texts.push_back(model.CellText(row, column));
        }
    }
    return texts;
}

/// A cell that can be edited and holds something, from the middle on.
int32_t FilledRow(const CsvModel& model) {
    for (int32_t i = 0; i < model.RowCount(); ++i) {
        const int32_t row = (i + model.RowCount() / 2) % model.RowCount();
        if (model.IsCellEditable(row, 0) && !model.CellText(row, 0).empty()) {
            return row;
        }
    }
    return -1;
}

TEST_F(CorpusSaving, ChangesOneCellOfDelimitedText) {
    int edited = 0;
    for (const fs::path& file : Files({L".csv", L".tsv", L".txt", L".psv"})) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, file.string());
        const std::wstring path = Copy(file);
        const auto model = LoadCsv(path, 0, {}, {}, error);
        const int32_t row = model != nullptr ? FilledRow(*model) : -1;
        if (row < 0) {
            continue;
        }
        ++edited;
        Texts expected = CellsOf(*model);
        expected[static_cast<size_t>(row) * static_cast<size_t>(model->ColumnCount())] = kNew;
        const std::wstring_view raw = model->RawRow(row);
        const std::wstring text = model->Text();
        const auto rowStart = static_cast<size_t>(raw.data() - model->Text().data());
        const std::wstring oldRow(raw);
        model->SetCellText(row, 0, kNew);

        std::wstring written;
        ASSERT_TRUE(SaveCsv(*model, path, written));
        const size_t newLength = written.size() - (text.size() - oldRow.size());
        if (Survives(text, model->encoding)) {
            ExpectSplice(text, rowStart, oldRow.size(), written.substr(rowStart, newLength),
                         model->encoding);
        }
        const auto again = LoadCsv(path, 0, {.delimiter = model->Delimiter()},
                                   {.name = model->encoding.name}, error);
        ASSERT_NE(again, nullptr);
        EXPECT_TRUE(CellsOf(*again) == expected);
    }
    EXPECT_GT(edited, 100);
}

// --- XML.

Texts ValuesOf(const XmlDocument& document) {
    Texts texts;
    for (size_t node = 0; node < document.nodes.size(); ++node) {
        texts.emplace_back(document.NodeName(static_cast<int32_t>(node)));
        const bool isElement = document.nodes[node].kind == XmlKind::Element;
        texts.push_back(isElement ? L"" : document.NodeValue(static_cast<int32_t>(node)));
    }
    for (size_t at = 0; at < document.attributes.size(); ++at) {
        texts.emplace_back(document.AttributeName(static_cast<int32_t>(at)));
        texts.push_back(document.AttributeValue(static_cast<int32_t>(at)));
    }
    return texts;
}

/// What can be edited: one attribute and one node of each kind, from the middle on.
struct XmlTarget {
    XmlValueRef ref;
    size_t start = 0;
    size_t length = 0;
    size_t place = 0;  // among ValuesOf
};

std::vector<XmlTarget> TargetsOf(const XmlDocument& document) {
    std::vector<XmlTarget> targets;
    bool seen[7] = {};
    const size_t count = document.nodes.size();
    for (size_t i = 0; i < count; ++i) {
        const size_t node = (i + count / 2) % count;
        const XmlNode& record = document.nodes[node];
        const XmlValueRef ref = document.ValueRefOf(static_cast<int32_t>(node));
        bool& done = seen[static_cast<size_t>(record.kind)];
        if (record.kind != XmlKind::Element && ref.kind != XmlValueRef::Kind::None && !done) {
            done = true;
            targets.push_back({ref, record.valueOffset, record.valueLength, 2 * node + 1});
        }
    }
    if (!document.attributes.empty()) {
        const size_t at = document.attributes.size() / 2;
        const XmlAttribute& record = document.attributes[at];
        targets.push_back({XmlDocument::AttributeRef(0, static_cast<int32_t>(at)),
                           record.valueOffset, record.valueLength, 2 * (count + at) + 1});
    }
    return targets;
}

TEST_F(CorpusSaving, ChangesOneValueOfXml) {
    int edited = 0;
    const EncodingRequest request{.honourXmlDeclaration = true};
    for (const fs::path& file : Files({L".xml", L".svg", L".gpx", L".xsd", L".rss", L".kml",
                                       L".plist", L".resx", L".xlf", L".csproj"})) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, file.string());
        const auto first = LoadXmlDocument(Copy(file), 0, request, error);
        const size_t count = first != nullptr ? TargetsOf(*first).size() : 0;
        for (size_t i = 0; i < count; ++i) {
            const std::wstring path = Copy(file);
            const auto document = LoadXmlDocument(path, 0, request, error);
            ASSERT_NE(document, nullptr);
            const XmlTarget target = TargetsOf(*document)[i];
            Texts expected = ValuesOf(*document);
            expected[target.place] = kNew;
            ASSERT_TRUE(document->SetValue(target.ref, kNew));
            if (!document->Save(path)) {
                EXPECT_TRUE(After() == before) << "refused, and the file untouched";
                continue;
            }
            ++edited;
            if (Survives(document->text, document->encoding)) {
                ExpectSplice(document->text, target.start, target.length, kNew, document->encoding);
                const auto again = LoadXmlDocument(path, 0, request, error);
                ASSERT_NE(again, nullptr);
                EXPECT_TRUE(ValuesOf(*again) == expected);
            }
        }
    }
    EXPECT_GT(edited, 100);
}

// --- JSON: written anew as a whole, so only what it says can be compared.

Texts ValuesOf(const JsonDocument& document) {
    Texts texts;
    // Not every node of the array need belong to the tree: from the root on.
    std::vector<int32_t> open{document.root};
    while (!open.empty()) {
        const int32_t node = open.back();
        open.pop_back();
        texts.push_back(document.KeyText(node));
        texts.push_back(document.DisplayText(node));
        texts.emplace_back(document.TypeName(node));
        const std::vector<int32_t> children = document.ChildIndices(node);
        open.insert(open.end(), children.rbegin(), children.rend());
    }
    return texts;
}

TEST_F(CorpusSaving, ChangesOneStringOfJson) {
    int edited = 0;
    for (const fs::path& file :
         Files({L".json", L".jsonl", L".ndjson", L".geojson", L".har", L".jsonc", L".json5"})) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, file.string());
        const std::wstring path = Copy(file);
        const auto document = LoadJsonDocument(path, 0, 0, {}, error);
        if (document == nullptr) {
            continue;
        }
        int32_t target = -1;
        for (size_t i = document->nodes.size() / 2; i < document->nodes.size(); ++i) {
            if (document->nodes[i].kind == JsonKind::String) {
                target = static_cast<int32_t>(i);
                break;
            }
        }
        if (target >= 0) {
            ASSERT_TRUE(document->SetValue(target, kNew));
        }
        ++edited;
        const Texts expected = ValuesOf(*document);
        if (!document->Save(path)) {
            EXPECT_TRUE(After() == before) << "refused, and the file untouched";
            continue;
        }
        const auto again = LoadJsonDocument(path, 0, 0, {.name = document->encoding.name}, error);
        ASSERT_NE(again, nullptr);
        EXPECT_TRUE(ValuesOf(*again) == expected);
        EXPECT_EQ(again->lines, document->lines);
    }
    EXPECT_GT(edited, 50);
}

}  // namespace
}  // namespace rl::test
