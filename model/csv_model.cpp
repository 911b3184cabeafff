// Parsing, and the table as its reader sees it.
#include "model/csv_model.h"

#include <utility>

#include "load/text/abandon_check.h"
#include "model/csv_dialect.h"
#include "model/csv_model_state.h"
#include "model/csv_scan.h"

namespace rl {

void detail::CsvModelState::Clear() {
    records.Clear();
    order = {};
    insertedRows.clear();
    editedCells.clear();
    deletedColumns.clear();
    visibleColumns.clear();
    columnCount = 0;
    hiddenCommentCount = 0;
    modified = false;
    splitRecord = -1;
}

/// Whatever stands above the widest of the first rows is titles, not data. A header with fewer
/// fields than the rows below it counts as one too.
void detail::CsvModelState::MarkTitles() {
    int32_t samples = 0;
    uint32_t widest = 0;
    size_t tableStart = 0;
    for (size_t i = 0; i < records.Size() && samples < options.sampleRows; ++i) {
        const CsvRowSpan& record = std::as_const(records)[i];
        if (record.length == 0 || record.isComment) {
            continue;
        }
        ++samples;
        if (record.fieldCount > widest) {
            widest = record.fieldCount;
            tableStart = i;
        }
    }
    for (size_t i = 0; i < tableStart; ++i) {
        records[i].isComment = true;
    }
}

void detail::CsvModelState::HideComments() {
    const bool everywhere = options.commentMode == CommentMode::Hide;
    if (!everywhere && options.commentMode != CommentMode::Auto) {
        return;
    }
    for (size_t i = 0; i < records.Size(); ++i) {
        CsvRowSpan& record = records[i];
        if (record.isComment || record.length == 0) {
            record.isHidden = true;
            hiddenCommentCount += record.isComment ? 1 : 0;
        } else if (!everywhere) {
            return;  // the first data row: what follows is shown
        }
    }
}

void detail::CsvModelState::SplitInto(const CsvRowSpan& record,
                                      std::vector<CsvFieldSpan>& out) const {
    if (record.isRaw) {
        out.assign(1, {0, record.length});
    } else {
        SplitFields(RecordText(record), delimiter, options.quoteChar, out);
    }
}

void detail::CsvModelState::SplitRecord(int32_t id) {
    if (splitRecord != id) {
        splitRecord = -1;
        SplitInto(std::as_const(*this).Record(id), fields);
        splitRecord = id;
    }
}

CsvModel::CsvModel() : state_(std::make_unique<detail::CsvModelState>()) {}

CsvModel::~CsvModel() = default;

bool CsvModel::Parse(std::wstring text, const CsvOptions& options, const AbandonCheck& abandoned) {
    detail::CsvModelState& my = *state_;
    my.Clear();
    my.text = std::move(text);
    my.options = options;
    if (my.text.size() > kMaxCsvUnits) {
        return false;
    }
    my.delimiter = options.delimiter != 0 ? options.delimiter
                                          : DetectDelimiter(my.text, options.quoteChar, abandoned);
    my.lineEnding = DetectLineEnding(my.text);
    const CsvScanRules rules{.delimiter = static_cast<uint16_t>(my.delimiter),
                             .quoteChar = static_cast<uint16_t>(options.quoteChar),
                             .splitComments = options.commentMode == CommentMode::Parse,
                             .rawComments = options.commentMode == CommentMode::DoNotParse};
    const CsvScanResult scan = ScanRecords(my.text, rules, my.records, abandoned);
    if (scan.abandoned || IsAbandoned(abandoned)) {
        return false;  // what follows looks at every record, but at no text
    }
    my.columnCount = static_cast<int32_t>(scan.columnCount);
    my.MarkTitles();
    my.HideComments();
    my.order.Reset(my.records, options.commentMode == CommentMode::Hide ||
                                   options.commentMode == CommentMode::Auto);
    return !scan.openQuote;
}

int32_t CsvModel::RowCount() const {
    return state_->order.VisibleCount();
}

int32_t CsvModel::ColumnCount() const {
    return state_->VisibleColumnCount();
}

std::wstring CsvModel::CellText(int32_t row, int32_t column) const {
    std::wstring scratch;
    ReadCell(row, column, scratch);
    return scratch;
}

void CsvModel::ReadCell(int32_t row, int32_t column, std::wstring& out) const {
    const std::wstring_view cell = CellView(row, column, out);
    if (cell.data() != out.data()) {
        out.assign(cell);
    }
}

std::wstring_view CsvModel::CellView(int32_t row, int32_t column, std::wstring& scratch) const {
    detail::CsvModelState& my = *state_;
    if (!my.HasCell(row, column)) {
        return {};
    }
    const int32_t id = my.order.VisibleId(row);
    const int32_t textColumn = my.TextColumn(column);
    const auto place = static_cast<size_t>(textColumn);
    if (id < 0) {
        const detail::CsvInsertedRow& cells = std::as_const(my).Inserted(id);
        const auto filled = cells.find(textColumn);
        return filled != cells.end() ? std::wstring_view(filled->second) : std::wstring_view();
    }
    if (!my.editedCells.empty() && textColumn < detail::kMaxCsvEditColumns) {
        if (const auto edited = my.editedCells.find(detail::MakeCellKey(id, textColumn));
            edited != my.editedCells.end()) {
            return edited->second;
        }
    }
    my.SplitRecord(id);
    if (place >= my.fields.size()) {
        return {};
    }
    const CsvRowSpan& record = std::as_const(my).Record(id);
    const std::wstring_view field =
        my.RecordText(record).substr(my.fields[place].start, my.fields[place].length);
    return FieldText(field, my.options.quoteChar, my.options.trimValues, scratch);
}

std::wstring_view CsvModel::RawRow(int32_t row) const {
    const int32_t id = state_->HasRow(row) ? state_->order.VisibleId(row) : -1;
    return id < 0 ? std::wstring_view() : state_->RecordText(std::as_const(*state_).Record(id));
}

bool CsvModel::IsCommentRow(int32_t row) const {
    const int32_t id = state_->HasRow(row) ? state_->order.VisibleId(row) : -1;
    return id >= 0 && std::as_const(*state_).Record(id).isComment;
}

bool CsvModel::IsCellEditable(int32_t row, int32_t column) const {
    if (!state_->HasCell(row, column)) {
        return false;
    }
    const int32_t id = state_->order.VisibleId(row);
    // Beyond the last column that a cell's key can name, an edit could not be kept apart.
    return id < 0 || (!std::as_const(*state_).Record(id).isComment &&
                      state_->TextColumn(column) < detail::kMaxCsvEditColumns);
}

const std::wstring& CsvModel::Text() const {
    return state_->text;
}

const CsvOptions& CsvModel::Options() const {
    return state_->options;
}

wchar_t CsvModel::Delimiter() const {
    return state_->delimiter;
}

std::wstring_view CsvModel::LineEnding() const {
    return state_->lineEnding;
}

int32_t CsvModel::HiddenCommentCount() const {
    return state_->hiddenCommentCount;
}

}  // namespace rl
