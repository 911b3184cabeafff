// Holds delimited text to its laws: the fast scan says what the plain one says, records cover the
// text, detection agrees with a naive twin, an untouched document is written back unit for unit,
// and an edit changes the edited cell and nothing else.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/csv_dialect.h"
#include "model/csv_model.h"
#include "model/csv_scan.h"

namespace {

using rl::CsvModel;
using rl::CsvOptions;

void Require(bool holds, const char* law) {
    if (!holds) {
        (void)std::fprintf(stderr, "broken: %s\n", law);
        std::abort();
    }
}

constexpr std::array<char16_t, 8> kFarUnits = {0x012C, 0x0122, 0x3001, 0xD83D,
                                               0xDE00, 0x00FF, 0xFFFF, 0x0000};

char16_t UnitFromByte(uint8_t byte) {
    return byte < 0xF8 ? char16_t{byte} : kFarUnits[byte - 0xF8];
}

struct Input {
    CsvOptions options;
    uint8_t choice = 0;
    std::u16string narrow;
    std::wstring text;
};

Input ReadInput(const uint8_t* data, size_t size) {
    static constexpr std::array<char16_t, 8> kDelimiters = {0,    ',', ';', '|',
                                                            '\t', ':', '^', 0x3001};
    static constexpr std::u16string_view kQuotes = u"\"\"\"\"'#,\u3001";
    Input in;
    if (size >= 3) {
        in.options.delimiter = static_cast<wchar_t>(kDelimiters[data[0] % kDelimiters.size()]);
        in.options.quoteChar = static_cast<wchar_t>(kQuotes[data[0] / 8 % kQuotes.size()]);
        in.options.commentMode = static_cast<rl::CommentMode>(data[1] % 4);
        in.options.trimValues = data[1] % 8 < 4;
        in.options.sampleRows = data[1] < 128 ? 1000 : data[1] % 5;
        in.choice = data[2];
        std::transform(data + 3, data + size, std::back_inserter(in.narrow), UnitFromByte);
    }
    in.text.assign(in.narrow.begin(), in.narrow.end());
    return in;
}

bool IsBreak(wchar_t unit) {
    return unit == L'\r' || unit == L'\n';
}

wchar_t NamedOnFirstLine(const std::wstring& text) {
    static constexpr std::wstring_view kLower = L"sep=";
    static constexpr std::wstring_view kUpper = L"SEP=";
    if (text.size() < 5 || IsBreak(text[4]) || (text.size() > 5 && !IsBreak(text[5]))) {
        return 0;
    }
    for (size_t i = 0; i < 4; ++i) {
        if (text[i] != kLower[i] && text[i] != kUpper[i]) {
            return 0;
        }
    }
    return text[4];
}

/// Cuts the first five rows with a candidate out of the text and scores them afterwards.
wchar_t NaiveDelimiter(const std::wstring& text, wchar_t quote) {
    if (const wchar_t named = NamedOnFirstLine(text); named != 0) {
        return named;
    }
    const std::wstring candidates = L",;|\t:";
    std::vector<std::vector<int64_t>> rows;
    for (size_t at = 0; at < text.size() && rows.size() < 5;) {
        std::wstring outside;
        if (rl::IsCommentLine(text, at)) {
            at = std::min(text.size(), text.find_first_of(L"\r\n", at));
        } else {
            bool open = false;
            for (; at < text.size() && (open || text[at] == quote || !IsBreak(text[at])); ++at) {
                open = (text[at] == quote) != open;
                outside += open || text[at] == quote ? L'x' : text[at];
            }
        }
        at += at < text.size() ? 1 : 0;
        std::vector<int64_t> counts;
        for (const wchar_t candidate : candidates) {
            counts.push_back(std::count(outside.begin(), outside.end(), candidate));
        }
        if (std::any_of(counts.begin(), counts.end(), [](int64_t count) { return count > 0; })) {
            rows.push_back(counts);
        }
    }
    std::vector<int64_t> scores(candidates.size(), 0);
    for (size_t k = 0; k < candidates.size(); ++k) {
        for (const auto& row : rows) {
            for (const auto& other : rows) {
                if (row[k] > 0) {
                    scores[k] += row[k] == other[k] ? 10 + row[k] : 5;
                }
            }
        }
    }
    const auto best = std::max_element(scores.begin(), scores.end());
    return candidates[static_cast<size_t>(best - scores.begin())];
}

bool SameRecord(const rl::CsvRowSpan& a, const rl::CsvRowSpan& b) {
    return a.start == b.start && a.length == b.length && a.lineBreakLength == b.lineBreakLength &&
           a.isComment == b.isComment && a.isHidden == b.isHidden && a.isRaw == b.isRaw &&
           a.fieldCount == b.fieldCount;
}

void CheckScan(const Input& in, wchar_t delimiter) {
    const rl::CsvScanRules rules{
        .delimiter = static_cast<uint16_t>(delimiter),
        .quoteChar = static_cast<uint16_t>(in.options.quoteChar),
        .splitComments = in.options.commentMode == rl::CommentMode::Parse,
        .rawComments = in.options.commentMode == rl::CommentMode::DoNotParse};
    rl::CsvRecordStore plain;
    const auto result = ScanRecords(in.narrow, rules, plain, {}, rl::CsvScanKernel::Plain);
    size_t covered = 0;
    std::vector<rl::CsvFieldSpan> fields;
    std::vector<rl::CsvFieldSpan> fastFields;
    for (size_t i = 0; i < plain.Size(); ++i) {
        const rl::CsvRowSpan& record = plain[i];
        Require(record.start == covered, "records follow one another without gaps");
        covered += size_t{record.length} + record.lineBreakLength;
        rl::SplitFields(std::wstring_view(in.text).substr(record.start, record.length), delimiter,
                        in.options.quoteChar, fields);
        rl::SplitFields(std::u16string_view(in.narrow).substr(record.start, record.length),
                        static_cast<char16_t>(delimiter),
                        static_cast<char16_t>(in.options.quoteChar), fastFields);
        Require(fields == fastFields, "the fast split finds the fields of the plain one");
        Require(record.isComment || fields.size() == record.fieldCount,
                "a record has as many fields as the scan counted");
    }
    Require(covered == in.text.size(), "records cover the whole text");
    for (const auto kernel : {rl::CsvScanKernel::Sse2, rl::BestCsvScanKernel()}) {
        rl::CsvRecordStore fast;
        Require(ScanRecords(in.narrow, rules, fast, {}, kernel) == result &&
                    fast.Size() == plain.Size(),
                "the fast scan agrees with the plain one");
        for (size_t i = 0; i < fast.Size(); ++i) {
            Require(SameRecord(fast[i], plain[i]), "the fast scan finds the plain one's records");
        }
    }
}

using Table = std::vector<std::vector<std::wstring>>;

Table ReadTable(const CsvModel& model) {
    Table table;
    std::wstring cell;
    for (int32_t row = 0; row < model.RowCount(); ++row) {
        table.emplace_back();
        for (int32_t column = 0; column < model.ColumnCount(); ++column) {
            model.ReadCell(row, column, cell);
            table.back().push_back(cell);
        }
    }
    return table;
}

/// Dialects in which a written value can be told from the text around it.
bool IsSound(const CsvModel& model) {
    const wchar_t quote = model.Options().quoteChar;
    return quote != model.Delimiter() && !IsBreak(model.Delimiter());
}

/// Rows as a text can hold them: cells that are missing are empty, and a last row of nothing that
/// no line break follows is none.
Table AsWritten(Table table, size_t rows) {
    for (auto& row : table) {
        while (!row.empty() && row.back().empty()) {
            row.pop_back();
        }
    }
    if (table.size() == rows + 1 && table.back().empty()) {
        table.pop_back();
    }
    return table;
}

/// Where comments are told apart, an edit may make one of a row: only without them the law is
/// plain.
void RequireSaved(const CsvModel& model, const Input& in, const Table* table) {
    if (in.options.commentMode != rl::CommentMode::Parse) {
        return;
    }
    CsvOptions options = in.options;
    options.delimiter = model.Delimiter();
    CsvModel saved;
    Require(saved.Parse(model.Serialize(), options), "an edited text can be parsed again");
    const size_t rows = ReadTable(saved).size();
    Require(table == nullptr || AsWritten(ReadTable(saved), rows) == AsWritten(*table, rows),
            "what is saved parses again to the same cells");
}

/// A document and a plain table that undergo the same edits. Which ones is drawn from a number, so
/// that one input always makes the same ones.
class EditedTwins {
public:
    EditedTwins(CsvModel& model, uint32_t seed)
        : model_(model), table_(ReadTable(model)), seed_(seed) {}

    void Edit() {
        switch (Draw(6)) {
            case 0:
            case 1: SetCell(); break;
            case 2: InsertRow(); break;
            case 3: DeleteRow(); break;
            case 4: DeleteRows(); break;
            default: DeleteColumn(); break;
        }
        Require(ReadTable(model_) == table_, "an edit shows where it was made and nowhere else");
        Require(model_.IsModified() || !edited_, "an edited document is modified");
    }

    [[nodiscard]] const Table& Rows() const { return table_; }
    /// Comment rows are saved with what stands in a column that has gone.
    [[nodiscard]] bool AreSavedAsShown() const { return !commentsDiffer_; }

private:
    uint32_t Draw(uint32_t below) {
        seed_ = seed_ * 1664525 + 1013904223;
        return (seed_ >> 8) % below;
    }
    int32_t DrawRow() { return static_cast<int32_t>(Draw(static_cast<uint32_t>(table_.size()))); }
    int32_t DrawColumn() {
        return static_cast<int32_t>(Draw(static_cast<uint32_t>(model_.ColumnCount())));
    }
    [[nodiscard]] bool HasCells() const { return !table_.empty() && model_.ColumnCount() > 0; }

    void SetCell() {
        static constexpr std::array<std::wstring_view, 8> kValues = {
            L"x", L"", L"a,b;c|d", L"say \"'hi'\" #", L" lead", L"two\r\nlines", L"trail\t", L"\""};
        if (!HasCells()) {
            return;
        }
        const int32_t row = DrawRow();
        const int32_t column = DrawColumn();
        const std::wstring_view value = kValues[Draw(kValues.size())];
        if (model_.IsCellEditable(row, column)) {
            table_[static_cast<size_t>(row)][static_cast<size_t>(column)] = value;
            edited_ = true;
        }
        model_.SetCellText(row, column, value);
    }

    void InsertRow() {
        if (table_.empty()) {
            Require(!model_.InsertRowBelow(0), "there is nothing below no row");
            return;
        }
        const int32_t row = DrawRow();
        Require(model_.InsertRowBelow(row), "a row goes below any row");
        table_.emplace(table_.begin() + row + 1, static_cast<size_t>(model_.ColumnCount()));
        edited_ = true;
    }

    void DeleteRow() {
        if (table_.empty()) {
            return;
        }
        const int32_t row = DrawRow();
        Require(model_.DeleteRow(row), "any row can go");
        table_.erase(table_.begin() + row);
        edited_ = true;
    }

    void DeleteRows() {
        std::vector<int32_t> rows;
        Table kept;
        const uint32_t among = 1 + Draw(4);
        for (size_t row = 0; row < table_.size(); ++row) {
            if (Draw(among) == 0) {
                rows.push_back(static_cast<int32_t>(row));
            } else {
                kept.push_back(table_[row]);
            }
        }
        Require(model_.DeleteRows(rows) == !rows.empty(), "any rows can go");
        edited_ = edited_ || !rows.empty();
        table_ = std::move(kept);
    }

    void DeleteColumn() {
        if (!HasCells()) {
            return;
        }
        for (int32_t row = 0; row < model_.RowCount(); ++row) {
            commentsDiffer_ = commentsDiffer_ || model_.IsCommentRow(row);
        }
        const int32_t column = DrawColumn();
        Require(model_.DeleteColumn(column), "any column can go");
        for (auto& row : table_) {
            row.erase(row.begin() + column);
        }
        edited_ = true;
    }

    CsvModel& model_;
    Table table_;
    uint32_t seed_;
    bool edited_ = false;
    bool commentsDiffer_ = false;
};

void CheckEdits(CsvModel& model, const Input& in) {
    if (!IsSound(model)) {
        return;
    }
    uint32_t seed = in.choice;
    for (const wchar_t unit : in.text) {
        seed = seed * 31 + static_cast<uint32_t>(unit);
    }
    EditedTwins twins(model, seed);
    for (int edits = 1 + in.choice % 8; edits > 0; --edits) {
        twins.Edit();
        RequireSaved(model, in, twins.AreSavedAsShown() ? &twins.Rows() : nullptr);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const Input in = ReadInput(data, size);
    const wchar_t found = rl::DetectDelimiter(in.text, in.options.quoteChar);
    Require(found == NaiveDelimiter(in.text, in.options.quoteChar),
            "detection agrees with the naive twin");
    CsvModel model;
    const bool parsed = model.Parse(in.text, in.options);
    Require(model.Delimiter() == (in.options.delimiter != 0 ? in.options.delimiter : found),
            "the delimiter is the one given or found");
    CheckScan(in, model.Delimiter());
    Require(model.Serialize() == in.text, "an untouched text is written back as it was");
    if (parsed && size < 4096) {
        CheckEdits(model, in);
    }
    return 0;
}
