// What a delimited document holds: private to the files that implement the model.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/csv_model.h"
#include "model/csv_records.h"
#include "model/csv_row_order.h"

namespace rl::detail {

/// Names a cell of a loaded row: the record's number above, the column in the lower 20 bits.
using CsvCellKey = uint64_t;

inline constexpr int kCsvColumnBits = 20;
inline constexpr int32_t kMaxCsvEditColumns = int32_t{1} << kCsvColumnBits;

[[nodiscard]] constexpr CsvCellKey MakeCellKey(int32_t rowId, int32_t column) noexcept {
    return static_cast<CsvCellKey>(rowId) << kCsvColumnBits | static_cast<CsvCellKey>(column);
}

/// FNV-1a over the key's bytes, the lowest first: neighbouring cells spread over the whole table.
struct CsvCellKeyHash {
    [[nodiscard]] size_t operator()(CsvCellKey key) const noexcept {
        uint64_t hash = 0xCBF29CE484222325;
        for (int byte = 0; byte < 8; ++byte, key >>= 8) {
            hash = (hash ^ (key & 0xFF)) * 0x100000001B3;
        }
        return static_cast<size_t>(hash);
    }
};

/// The cells of an inserted row that were filled, by column of the text: a row has as many columns
/// as the widest of the file, and hardly any of them are.
using CsvInsertedRow = std::map<int32_t, std::wstring>;

struct CsvModelState {
    std::wstring text;
    CsvOptions options;
    wchar_t delimiter = L',';
    std::wstring_view lineEnding = L"\r\n";
    CsvRecordStore records;
    CsvRowOrder order;
    std::vector<CsvInsertedRow> insertedRows;
    std::unordered_map<CsvCellKey, std::wstring, CsvCellKeyHash> editedCells;
    std::vector<bool> deletedColumns;     // empty while there are none
    std::vector<int32_t> visibleColumns;  // in use once a column was deleted
    int32_t columnCount = 0;
    int32_t hiddenCommentCount = 0;
    bool modified = false;

    // The fields of the record split last.
    int32_t splitRecord = -1;
    std::vector<CsvFieldSpan> fields;

    [[nodiscard]] bool HasRow(int32_t row) const noexcept {
        return row >= 0 && row < order.VisibleCount();
    }
    [[nodiscard]] int32_t VisibleColumnCount() const noexcept {
        return deletedColumns.empty() ? columnCount : static_cast<int32_t>(visibleColumns.size());
    }
    [[nodiscard]] bool HasCell(int32_t row, int32_t column) const noexcept {
        return HasRow(row) && column >= 0 && column < VisibleColumnCount();
    }
    /// The column of the text behind one that is shown.
    [[nodiscard]] int32_t TextColumn(int32_t column) const noexcept {
        return deletedColumns.empty() ? column : visibleColumns[static_cast<size_t>(column)];
    }
    [[nodiscard]] bool IsColumnDeleted(size_t textColumn) const noexcept {
        return textColumn < deletedColumns.size() && deletedColumns[textColumn];
    }
    [[nodiscard]] const CsvRowSpan& Record(int32_t id) const noexcept {
        return records[static_cast<size_t>(id)];
    }
    [[nodiscard]] CsvRowSpan& Record(int32_t id) noexcept {
        return records[static_cast<size_t>(id)];
    }
    /// The cells of an inserted row; its id is the complement of its number.
    [[nodiscard]] const CsvInsertedRow& Inserted(int32_t id) const noexcept {
        return insertedRows[static_cast<uint32_t>(~id)];
    }
    [[nodiscard]] CsvInsertedRow& Inserted(int32_t id) noexcept {
        return insertedRows[static_cast<uint32_t>(~id)];
    }
    [[nodiscard]] std::wstring_view RecordText(const CsvRowSpan& record) const noexcept {
        return std::wstring_view(text).substr(record.start, record.length);
    }

    void Clear();
    void MarkTitles();
    void HideComments();
    void SplitRecord(int32_t id);
    void SplitInto(const CsvRowSpan& record, std::vector<CsvFieldSpan>& out) const;
};

}  // namespace rl::detail
