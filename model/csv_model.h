// One delimited-text document as a table.
//
// The decoded text is kept whole; a record is a span of it, and its fields are found again whenever
// a cell of that record is asked for. Edits stand beside the text, so that saving writes untouched
// rows back as they were.
//
// Knows nothing of files or windows. A model belongs to one thread at a time.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "load/text/abandon_check.h"
#include "load/text/text_encoding.h"
#include "model/csv_options.h"
#include "model/table_model.h"

namespace rl {

namespace detail {
struct CsvModelState;
}

class CsvModel final : public ITableModel {
public:
    CsvModel();
    CsvModel(const CsvModel&) = delete;
    CsvModel& operator=(const CsvModel&) = delete;
    ~CsvModel() override;

    /// Builds the table anew; edits are forgotten. False when a quoted field is still open at the
    /// end of the text (the records are built all the same). `abandoned`, when given, is asked
    /// every few million units; once it answers true the parse stops there and answers false, and
    /// what stands in the model is then good for nothing but being parsed anew or destroyed.
    [[nodiscard]] bool Parse(std::wstring text, const CsvOptions& options,
                             const AbandonCheck& abandoned = {});

    [[nodiscard]] int32_t RowCount() const override;
    [[nodiscard]] int32_t ColumnCount() const override;
    [[nodiscard]] std::wstring CellText(int32_t row, int32_t column) const override;
    [[nodiscard]] bool IsCommentRow(int32_t row) const override;
    [[nodiscard]] bool IsCellEditable(int32_t row, int32_t column) const override;
    void ReadCell(int32_t row, int32_t column, std::wstring& out) const override;

    /// The cell without a copy where the text holds it as it is shown; otherwise it is put into
    /// `scratch`. Valid until the model or `scratch` changes.
    [[nodiscard]] std::wstring_view CellView(int32_t row, int32_t column,
                                             std::wstring& scratch) const;
    /// The record behind a row as it stands in the text, without its line break; empty for an
    /// inserted row and outside the table. For finding a row again in the source.
    [[nodiscard]] std::wstring_view RawRow(int32_t row) const;
    /// A row's number among all rows of the document as `Serialize` writes it, hidden ones
    /// included; -1 outside the table. For finding a row again once that text was parsed.
    [[nodiscard]] int32_t FileRow(int32_t row) const;
    /// The row with such a number, or the first one below it where that is hidden; `RowCount()`
    /// where there is none.
    [[nodiscard]] int32_t RowAt(int32_t fileRow) const;

    /// Stores an edit; ignored outside the table and where `IsCellEditable` says no.
    void SetCellText(int32_t row, int32_t column, std::wstring_view text);
    /// Puts a row of empty cells below `row`; false outside the table.
    bool InsertRowBelow(int32_t row);
    bool DeleteRow(int32_t row);
    /// Deletes many rows in one go; false, and none deleted, unless they are ascending and all in
    /// the table.
    bool DeleteRows(std::span<const int32_t> rows);
    bool DeleteColumn(int32_t column);

    /// The document's text with all edits; exactly the loaded text when there were none.
    [[nodiscard]] std::wstring Serialize() const;
    /// A value as it must stand in the text: in quotes when it needs them or `forceQuotes` says so.
    [[nodiscard]] std::wstring QuoteField(std::wstring_view value, bool forceQuotes) const;

    [[nodiscard]] const std::wstring& Text() const;      // as loaded
    [[nodiscard]] const CsvOptions& Options() const;     // as given to Parse
    [[nodiscard]] wchar_t Delimiter() const;             // given or found
    [[nodiscard]] std::wstring_view LineEnding() const;  // "\r\n", "\n" or "\r"
    [[nodiscard]] int32_t HiddenCommentCount() const;
    [[nodiscard]] bool IsModified() const;
    /// Whether some cell of a loaded row no longer says what its record says, saved or not.
    [[nodiscard]] bool HasEditedCells() const;
    void ClearModified();

    TextEncoding encoding;  // found when decoding; used again to save

private:
    std::unique_ptr<detail::CsvModelState> state_;
};

}  // namespace rl
