// Cells, rows and columns as clipboard text.
//
// Cells are copied as the grid shows them, without quotes.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "view/logic/grid_columns.h"
#include "view/logic/row_view.h"

namespace rl {

/// What the key "C" copies.
enum class CopyKind { Cell, Rows, Column };

/// `copyColumn` is the setting of that name: with it, and several rows selected, plain "C" copies
/// rows.
[[nodiscard]] CopyKind PlanCopyKey(bool ctrl, bool shift, bool copyColumn, int32_t selectedRows);

/// The selected rows; without any the current one, or else the one that has the focus.
[[nodiscard]] std::vector<int32_t> RowsToCopy(std::vector<int32_t> selected, int32_t current,
                                              int32_t focused, int32_t rowCount);

/// What stands between two values, from the `column-delimiter` setting: a tab when it is empty or
/// the two characters "\t".
[[nodiscard]] std::wstring ValueSeparator(std::wstring_view setting);

/// The visible columns of the given view rows: values joined by `separator`, rows by CR LF, nothing
/// behind the last. Rows outside the view are left out.
[[nodiscard]] std::wstring RowsAsText(const RowView& rows, const GridColumns& columns,
                                      std::span<const int32_t> viewRows,
                                      std::wstring_view separator);

/// The values of one data column in view order, joined by `separator`. Empty outside the data.
[[nodiscard]] std::wstring ColumnAsText(const RowView& rows, int32_t dataColumn,
                                        std::wstring_view separator);

}  // namespace rl
