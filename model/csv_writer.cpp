// The document as text again: what nobody touched is copied as it stands.
#include <algorithm>
#include <iterator>
#include <utility>

#include "model/csv_model.h"
#include "model/csv_model_state.h"

namespace rl {

namespace {

using detail::CsvCellKey;
using detail::CsvModelState;

/// One edited cell of a loaded row.
struct Edit {
    CsvCellKey key;
    const std::wstring* text;

    [[nodiscard]] int32_t RowId() const noexcept {
        return static_cast<int32_t>(key >> detail::kCsvColumnBits);
    }
    [[nodiscard]] size_t Column() const noexcept {
        return static_cast<size_t>(key & (detail::kMaxCsvEditColumns - 1));
    }
};

/// Writes one document. Loaded rows come in the order of the text, whatever was inserted between
/// them or deleted, so the sorted edits are met one after the other.
class CsvWriter {
public:
    CsvWriter(const CsvModelState& model, std::wstring& out) : model_(model), out_(out) {
        edits_.reserve(model.editedCells.size());
        for (const auto& [key, text] : model.editedCells) {
            const Edit edit{key, &text};
            if (!model.IsColumnDeleted(edit.Column())) {
                edits_.push_back(edit);
            }
        }
        std::ranges::sort(edits_, {}, &Edit::key);
        const size_t count = model.records.Size();
        lastRecordLacksLineBreak_ = count > 0 && model.records[count - 1].lineBreakLength == 0;
    }

    void WriteAll() {
        const bool allRewritten = !model_.deletedColumns.empty();
        if (model_.order.IsTextOrder() && !allRewritten) {
            WriteEditedOnly();
            return;
        }
        for (int32_t place = 0; place < model_.order.Size(); ++place) {
            const int32_t id = model_.order.Id(place);
            if (id < 0) {
                FlushRun();
                WriteInserted(model_.Inserted(id));
                continue;
            }
            SkipEditsBefore(id);
            if ((allRewritten || HasEdits(id)) && !model_.Record(id).isComment) {
                FlushRun();
                WriteRewritten(id);
            } else {
                AddToRun(model_.Record(id));
            }
        }
        FlushRun();
    }

private:
    /// All rows in the order of the text: only the edited ones need to be looked at.
    void WriteEditedOnly() {
        while (next_ < edits_.size()) {
            const int32_t id = edits_[next_].RowId();
            const CsvRowSpan& record = model_.Record(id);
            runEnd_ = record.start;
            FlushRun();
            WriteRewritten(id);
            runStart_ = End(record);
        }
        runEnd_ = model_.text.size();
        FlushRun();
    }

    static size_t End(const CsvRowSpan& record) {
        return size_t{record.start} + record.length + record.lineBreakLength;
    }

    /// Neighbouring untouched rows are copied in one piece.
    void AddToRun(const CsvRowSpan& record) {
        if (runEnd_ != record.start || runStart_ == runEnd_) {
            FlushRun();
            runStart_ = record.start;
        }
        runEnd_ = End(record);
    }

    void FlushRun() {
        if (runStart_ < runEnd_) {
            EndRowBefore();
            AppendAtRow(std::wstring_view(model_.text).substr(runStart_, runEnd_ - runStart_));
            lacksLineBreak_ = runEnd_ == model_.text.size() && lastRecordLacksLineBreak_;
        }
        runStart_ = runEnd_ = 0;
    }

    void EndRowBefore() {
        if (std::exchange(lacksLineBreak_, false)) {
            AppendAtRow(model_.lineEnding);
        }
    }

    /// Appends what may begin with the line break of an empty row. Behind the CR of the row above,
    /// an LF would be one break with it and the empty row gone: a CR of its own keeps them apart.
    void AppendAtRow(std::wstring_view text) {
        if (text.starts_with(L'\n') && out_.ends_with(L'\r')) {
            out_.push_back(L'\r');
        }
        out_.append(text);
    }

    void SkipEditsBefore(int32_t id) {
        while (next_ < edits_.size() && edits_[next_].RowId() < id) {
            ++next_;
        }
    }

    void WriteInserted(const detail::CsvInsertedRow& cells) {
        EndRowBefore();
        bool first = true;
        auto filled = cells.begin();
        for (int32_t column = 0; column < model_.columnCount; ++column) {
            const bool isFilled = filled != cells.end() && filled->first == column;
            if (!model_.IsColumnDeleted(static_cast<size_t>(column))) {
                WriteDelimiterUnless(first);
                Quote(isFilled ? std::wstring_view(filled->second) : std::wstring_view(), false);
            }
            filled = isFilled ? std::next(filled) : filled;
        }
        lacksLineBreak_ = true;
    }

    /// A row with edited cells, or without some columns. It becomes as wide as its last edit.
    void WriteRewritten(int32_t id) {
        const CsvRowSpan& record = model_.Record(id);
        const std::wstring_view row = model_.RecordText(record);
        EndRowBefore();
        model_.SplitInto(record, fields_);
        bool first = true;
        for (size_t column = 0; column < fields_.size() || HasEdits(id); ++column) {
            if (model_.IsColumnDeleted(column)) {
                continue;
            }
            WriteDelimiterUnless(first);
            const std::wstring_view field =
                column < fields_.size() ? row.substr(fields_[column].start, fields_[column].length)
                                        : std::wstring_view();
            if (HasEdits(id) && edits_[next_].Column() == column) {
                Quote(*edits_[next_].text, IsQuotedField(field, model_.options.quoteChar));
                ++next_;
            } else {
                out_.append(field);
            }
        }
        AppendAtRow(std::wstring_view(model_.text)
                        .substr(size_t{record.start} + record.length, record.lineBreakLength));
        lacksLineBreak_ = record.lineBreakLength == 0;
    }

    [[nodiscard]] bool HasEdits(int32_t id) const {
        return next_ < edits_.size() && edits_[next_].RowId() == id;
    }

    void WriteDelimiterUnless(bool& first) {
        if (!std::exchange(first, false)) {
            out_.push_back(model_.delimiter);
        }
    }

    void Quote(std::wstring_view value, bool force) {
        AppendQuoted(value, model_.delimiter, model_.options.quoteChar, force, out_);
    }

    const CsvModelState& model_;
    std::wstring& out_;
    std::vector<Edit> edits_;  // by row, then by column
    size_t next_ = 0;          // the first edit not written yet
    std::vector<CsvFieldSpan> fields_;
    size_t runStart_ = 0;  // untouched text not copied yet
    size_t runEnd_ = 0;
    bool lastRecordLacksLineBreak_ = false;
    bool lacksLineBreak_ = false;  // the row written last must be ended before another follows
};

}  // namespace

std::wstring CsvModel::Serialize() const {
    std::wstring out;
    out.reserve(state_->text.size() + 64);
    CsvWriter(*state_, out).WriteAll();
    return out;
}

std::wstring CsvModel::QuoteField(std::wstring_view value, bool forceQuotes) const {
    std::wstring out;
    AppendQuoted(value, state_->delimiter, state_->options.quoteChar, forceQuotes, out);
    return out;
}

}  // namespace rl
