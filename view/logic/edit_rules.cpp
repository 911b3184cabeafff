#include "view/logic/edit_rules.h"

#include <algorithm>

namespace rl {

EditStart PlanEditStart(const EditTarget& target) {
    if (target.editMode && target.isCell && target.isEditable) {
        return EditStart::Open;
    }
    const bool isAudible = target.editMode && target.kind != DocumentKind::Csv;
    return isAudible ? EditStart::Refuse : EditStart::RefuseSilently;
}

bool MayChangeRows(DocumentKind kind, bool editMode) {
    return editMode && kind == DocumentKind::Csv;
}

EditEnd PlanEditEnd(const EditorTexts& texts) {
    if (texts.typed == texts.opened) {
        return EditEnd::Cancel;
    }
    return texts.opened == texts.value ? EditEnd::Store : EditEnd::Refuse;
}

// A NUL ends the text of every edit control; what else one cannot hold are breaks of lines.
std::wstring_view RefusedEditReason(std::wstring_view value) {
    return value.contains(L'\0') ? L"NUL IN VALUE" : L"MULTI-LINE VALUE";
}

size_t WordStartBefore(std::wstring_view text, size_t caret) {
    const auto isBlank = [](wchar_t unit) { return unit == L' ' || unit == L'\t'; };
    size_t at = std::min(caret, text.size());
    while (at > 0 && isBlank(text[at - 1])) {
        --at;
    }
    while (at > 0 && !isBlank(text[at - 1])) {
        --at;
    }
    return at;
}

int32_t RowAfterDeletion(int32_t firstDeleted, int32_t rowsLeft) {
    return std::min(firstDeleted, rowsLeft - 1);
}

}  // namespace rl
