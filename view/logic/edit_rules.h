// What may be edited, and what becomes of a text that was typed.
//
// Decides only; whether a model takes a text is the model's own business.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "load/text/document_kind.h"

namespace rl {

enum class EditStart : uint8_t { Open, Refuse, RefuseSilently };

/// A cell that the user wants to edit.
struct EditTarget {
    DocumentKind kind = DocumentKind::Csv;
    bool editMode = false;
    bool isCell = false;      // a row of the view and a data column of its model
    bool isEditable = false;  // as the model says
};

/// Documents of nodes refuse with a beep: there it is not plain to see what can be edited.
[[nodiscard]] EditStart PlanEditStart(const EditTarget& target);

/// Whether rows and columns may come and go.
[[nodiscard]] bool MayChangeRows(DocumentKind kind, bool editMode);

enum class EditEnd : uint8_t { Cancel, Store, Refuse };

/// An editor that is about to end.
struct EditorTexts {
    std::wstring_view value;   // of the cell when the editor opened
    std::wstring_view opened;  // what the editor made of it: it may be unable to hold all of it
    std::wstring_view typed;   // what stands there now
};

/// A text that nobody changed ends like a cancel. Where the editor could not hold the whole value,
/// what it would give back is not the user's text: it is refused.
[[nodiscard]] EditEnd PlanEditEnd(const EditorTexts& texts);

/// Why a text is refused in place of a value that no editor holds, as short as the models' own
/// reasons.
[[nodiscard]] std::wstring_view RefusedEditReason(std::wstring_view value);

/// The row that is current once rows are gone: the one now at the place of the first of them, else
/// the last one; -1 when none is left.
[[nodiscard]] int32_t RowAfterDeletion(int32_t firstDeleted, int32_t rowsLeft);

/// Where the word begins that stands before a caret, with the blanks between them.
[[nodiscard]] size_t WordStartBefore(std::wstring_view text, size_t caret);

}  // namespace rl
