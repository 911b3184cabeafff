// Every document of the shared collection, in memory: one value is edited, the text written and
// read again. The edit is there and every other value is what it was; of delimited text and XML, so
// is every byte outside the edited one.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "load/text/decode_text.h"
#include "load/text/encode_text.h"
#include "model/csv_model.h"
#include "model/csv_records.h"
#include "model/json_document.h"
#include "model/xml_document.h"
#include "tests/support/corpus.h"

namespace rl {
namespace {

namespace fs = std::filesystem;

// What every format here has to quote or escape.
constexpr std::wstring_view kNew = L"new \"one\", <b> & 'two'; \\ x";

using Texts = std::vector<std::wstring>;

/// The documents in a folder of the collection, with one of these suffixes where any are given.
std::vector<fs::path> Files(std::string_view folder,
                            std::initializer_list<std::string_view> suffixes = {}) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(test::CorpusRoot() / folder)) {
        const std::string name = entry.path().filename().string();
        const bool isList = name == "expected.jsonl" || name == "inline.jsonl";
        const bool isWanted =
            suffixes.size() == 0 || std::ranges::any_of(suffixes, [&](std::string_view suffix) {
                return name.ends_with(suffix);
            });
        if (entry.is_regular_file() && !isList && isWanted) {
            files.push_back(entry.path());
        }
    }
    std::ranges::sort(files);
    return files;
}

/// A file's bytes and what they say.
struct Opened {
    explicit Opened(const fs::path& file, bool isXml = false) : bytes(test::ReadBytes(file)) {
        text = DecodeText(bytes, {.ansiCodePage = 1252, .honourXmlDeclaration = isXml}, encoding);
        std::string back;
        survives = EncodeText(text, encoding, back) && back == bytes;
    }

    std::string bytes;
    std::wstring text;
    TextEncoding encoding;
    bool survives = false;  // only then can untouched bytes be the same
};

std::string Encoded(std::wstring_view text, TextEncoding encoding, bool begins) {
    std::string bytes;
    encoding.hasBom = encoding.hasBom && begins;
    EXPECT_TRUE(EncodeText(text, encoding, bytes));
    return bytes;
}

/// `saved` is the text with only that span replaced by `with`, and so are its bytes.
void ExpectSplice(const Opened& file, const std::wstring& saved, size_t start, size_t length,
                  std::wstring_view with) {
    const std::wstring_view text = file.text;
    const std::wstring_view head = text.substr(0, start);
    const std::wstring_view tail = text.substr(start + length);
    ASSERT_TRUE(saved == std::wstring(head).append(with).append(tail));
    if (file.survives) {
        const std::string before = Encoded(head, file.encoding, true);
        const std::string after = Encoded(tail, file.encoding, false);
        EXPECT_TRUE(file.bytes.starts_with(before) && file.bytes.ends_with(after));
        EXPECT_TRUE(Encoded(saved, file.encoding, true) ==
                    before + Encoded(with, file.encoding, false) + after);
    }
}

// --- Delimited text.

struct CsvCell {
    int32_t row = -1;
    int32_t column = -1;
};

/// The field of the text behind a cell; nothing where its record is shorter.
std::optional<CsvFieldSpan> FieldOf(const CsvModel& model, CsvCell cell) {
    const std::wstring_view record = model.RawRow(cell.row);
    std::vector<CsvFieldSpan> fields;
    SplitFields(record, model.Delimiter(), model.Options().quoteChar, fields);
    if (static_cast<size_t>(cell.column) >= fields.size()) {
        return std::nullopt;
    }
    CsvFieldSpan field = fields[static_cast<size_t>(cell.column)];
    field.start += static_cast<uint32_t>(record.data() - model.Text().data());
    return field;
}

CsvCell FirstEditable(const CsvModel& model) {
    for (int32_t row = 0; row < model.RowCount(); ++row) {
        if (model.IsCellEditable(row, 0)) {
            return {row, 0};
        }
    }
    return {};
}

/// The last field of the last row that can be edited.
CsvCell LastEditable(const CsvModel& model) {
    for (int32_t row = model.RowCount() - 1; row >= 0; --row) {
        for (int32_t column = model.ColumnCount() - 1; column >= 0; --column) {
            if (model.IsCellEditable(row, column) && FieldOf(model, {row, column})) {
                return {row, column};
            }
        }
    }
    return {};
}

Texts CellsOf(const CsvModel& model) {
    Texts texts;
    for (int32_t row = 0; row < model.RowCount(); ++row) {
        for (int32_t column = 0; column < model.ColumnCount(); ++column) {
            texts.push_back(model.CellText(row, column));
        }
    }
    return texts;
}

void ExpectCellEdited(const Opened& file, const CsvOptions& options, CsvCell cell) {
    CsvModel model;
    ASSERT_TRUE(model.Parse(file.text, options));
    const std::optional<CsvFieldSpan> field = FieldOf(model, cell);
    ASSERT_TRUE(field);
    const auto place = static_cast<size_t>(cell.row) * static_cast<size_t>(model.ColumnCount()) +
                       static_cast<size_t>(cell.column);
    Texts expected = CellsOf(model);
    expected[place] = kNew;
    model.SetCellText(cell.row, cell.column, kNew);

    const std::wstring saved = model.Serialize();

    ExpectSplice(file, saved, field->start, field->length, model.QuoteField(kNew, true));
    CsvOptions same = options;
    same.delimiter = model.Delimiter();  // the edit may have tipped what would be found now
    CsvModel again;
    ASSERT_TRUE(again.Parse(saved, same));
    EXPECT_TRUE(CellsOf(again) == expected);
}

/// Edits the first and the last cell in every way to treat comments; returns how many cells.
int EditCells(const Opened& file) {
    int edited = 0;
    for (const CommentMode mode :
         {CommentMode::Parse, CommentMode::DoNotParse, CommentMode::Hide, CommentMode::Auto}) {
        SCOPED_TRACE(static_cast<int>(mode));
        CsvModel model;
        if (!model.Parse(file.text, {.commentMode = mode})) {
            return 0;
        }
        for (const CsvCell cell : {FirstEditable(model), LastEditable(model)}) {
            if (cell.row >= 0) {
                ++edited;
                ExpectCellEdited(file, {.commentMode = mode}, cell);
            }
        }
    }
    return edited;
}

TEST(CorpusEdits, ChangeOneCellOfDelimitedText) {
    if (!test::HasCorpus()) {
        GTEST_SKIP() << "the collection is not on this machine";
    }
    int edited = 0;
    std::vector<fs::path> files = Files("csv");
    std::ranges::copy(Files("encodings", {".csv"}), std::back_inserter(files));
    for (const fs::path& file : files) {
        SCOPED_TRACE(file.string());
        edited += EditCells(Opened(file)) > 0 ? 1 : 0;
    }
    EXPECT_GT(edited, 100);
}

// --- XML.

Texts ValuesOf(const XmlDocument& document) {
    Texts texts;
    for (int32_t node = 0; node < static_cast<int32_t>(document.nodes.size()); ++node) {
        texts.emplace_back(document.NodeName(node));
        const bool isElement = document.nodes[static_cast<size_t>(node)].kind == XmlKind::Element;
        texts.push_back(isElement ? L"" : document.NodeValue(node));
    }
    for (int32_t at = 0; at < static_cast<int32_t>(document.attributes.size()); ++at) {
        texts.emplace_back(document.AttributeName(at));
        texts.push_back(document.AttributeValue(at));
    }
    return texts;
}

struct XmlTarget {
    XmlValueRef ref;
    size_t place = 0;  // among ValuesOf
    size_t start = 0;
    size_t length = 0;
};

/// The first attribute and the first node of each kind that can be edited.
std::vector<XmlTarget> TargetsOf(const XmlDocument& document) {
    std::vector<XmlTarget> targets;
    std::vector<XmlKind> seen{XmlKind::Element};
    const size_t count = document.nodes.size();
    for (size_t node = 0; node < count; ++node) {
        const XmlNode& record = document.nodes[node];
        const XmlValueRef ref = document.ValueRefOf(static_cast<int32_t>(node));
        if (ref.kind != XmlValueRef::Kind::None && std::ranges::count(seen, record.kind) == 0) {
            seen.push_back(record.kind);
            targets.push_back({ref, 2 * node + 1, record.valueOffset, record.valueLength});
        }
    }
    if (!document.attributes.empty()) {
        const XmlAttribute& first = document.attributes.front();
        targets.push_back(
            {XmlDocument::AttributeRef(0, 0), 2 * count + 1, first.valueOffset, first.valueLength});
    }
    return targets;
}

/// What stands in the text for the new value.
std::wstring Written(const XmlDocument& document, const XmlTarget& target) {
    if (target.ref.kind == XmlValueRef::Kind::Attribute) {
        return EscapeAttribute(kNew, document.text[target.start - 1]);
    }
    const XmlKind kind = document.nodes[target.place / 2].kind;
    return kind == XmlKind::Text ? EscapeText(kNew) : std::wstring(kNew);
}

void ExpectValueEdited(const Opened& file, const XmlTarget& target) {
    XmlDocument document;
    ASSERT_TRUE(document.Parse(file.text));
    Texts expected = ValuesOf(document);
    expected[target.place] = kNew;
    ASSERT_TRUE(document.SetValue(target.ref, kNew));

    const std::wstring saved = document.Serialize();

    ExpectSplice(file, saved, target.start, target.length, Written(document, target));
    XmlDocument again;
    ASSERT_TRUE(again.Parse(saved));
    EXPECT_TRUE(ValuesOf(again) == expected);
    EXPECT_EQ(again.malformed, document.malformed);
}

TEST(CorpusEdits, ChangeOneValueOfXml) {
    if (!test::HasCorpus()) {
        GTEST_SKIP() << "the collection is not on this machine";
    }
    int edited = 0;
    std::vector<fs::path> files = Files("xml");
    std::ranges::copy(Files("encodings", {".xml"}), std::back_inserter(files));
    for (const fs::path& path : files) {
        SCOPED_TRACE(path.string());
        const Opened file(path, true);
        XmlDocument document;
        if (!document.Parse(file.text)) {
            continue;
        }
        for (const XmlTarget& target : TargetsOf(document)) {
            SCOPED_TRACE(target.place);
            ExpectValueEdited(file, target);
            ++edited;
        }
    }
    EXPECT_GT(edited, 100);
}

// --- JSON: written anew as a whole, so only what it says can be compared.

bool Read(JsonDocument& document, const std::wstring& text, const fs::path& file) {
    const bool lines = file.extension() == ".jsonl" || file.extension() == ".ndjson";
    return document.Parse(text, lines, false) ||
           (!lines && document.Parse(document.TakeText(), true, false));
}

struct JsonValues {
    Texts texts;
    std::vector<int32_t> nodes;  // three texts each
};

JsonValues ValuesOf(const JsonDocument& document) {
    JsonValues values;
    std::vector<int32_t> open{document.root};
    while (!open.empty()) {
        const int32_t node = open.back();
        open.pop_back();
        values.nodes.push_back(node);
        values.texts.push_back(document.KeyText(node));
        values.texts.push_back(document.DisplayText(node));
        values.texts.emplace_back(document.TypeName(node));
        const std::vector<int32_t> children = document.ChildIndices(node);
        open.insert(open.end(), children.rbegin(), children.rend());
    }
    return values;
}

/// A new value of the node's own kind; empty where there is none.
std::wstring_view NewFor(const JsonDocument& document, int32_t node) {
    switch (document.nodes[static_cast<size_t>(node)].kind) {
        case JsonKind::Boolean: return document.DisplayText(node) == L"true" ? L"false" : L"true";
        case JsonKind::Number: return L"-1.250e+3";
        case JsonKind::String: return kNew;
        default: return {};
    }
}

/// Returns how many values were edited: the first one of each kind.
int EditValues(const fs::path& path) {
    const Opened file(path);
    JsonDocument first;
    if (!Read(first, file.text, path)) {
        return 0;
    }
    std::vector<JsonKind> seen;
    const JsonValues values = ValuesOf(first);
    for (size_t at = 0; at < values.nodes.size(); ++at) {
        const int32_t node = values.nodes[at];
        const std::wstring_view wanted = NewFor(first, node);
        const JsonKind kind = first.nodes[static_cast<size_t>(node)].kind;
        if (wanted.empty() || std::ranges::count(seen, kind) > 0) {
            continue;
        }
        seen.push_back(kind);
        SCOPED_TRACE(node);
        JsonDocument document;
        JsonDocument again;
        EXPECT_TRUE(Read(document, file.text, path));
        EXPECT_TRUE(document.SetValue(node, wanted));
        EXPECT_TRUE(again.Parse(document.Serialize(), document.lines, false));
        Texts expected = values.texts;
        expected[3 * at + 1] = wanted;
        EXPECT_TRUE(ValuesOf(again).texts == expected);
    }
    return static_cast<int>(seen.size());
}

TEST(CorpusEdits, ChangeOneValueOfJson) {
    if (!test::HasCorpus()) {
        GTEST_SKIP() << "the collection is not on this machine";
    }
    int edited = 0;
    for (const fs::path& file : Files("json")) {
        SCOPED_TRACE(file.string());
        edited += EditValues(file);
    }
    EXPECT_GT(edited, 100);
}

}  // namespace
}  // namespace rl
