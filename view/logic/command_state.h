// The snapshot that commands, menus and keys look at: filled by the viewer before each use.
//
// Plain values only, so that a test can fill it in by hand.
#pragma once

#include <cstdint>
#include <string_view>

#include "load/text/document_kind.h"
#include "model/csv_options.h"

namespace rl {

struct CommandState {
    DocumentKind kind = DocumentKind::Csv;
    bool editMode = false;
    bool outlineInGrid = false;
    bool canExpandNode = false;  // the current row is an outline node that can be expanded

    int32_t visibleRows = 0;
    int32_t columnCount = 0;  // of the model
    int32_t currentRow = -1;  // view row
    int32_t currentDataColumn = -1;

    bool filterRow = false;
    bool valuePane = false;
    bool headerRow = false;
    bool lineNumbers = false;
    int32_t themeIndex = 0;  // into the built-in themes

    std::wstring_view encodingName = {};
    wchar_t delimiter = L',';
    bool delimiterIsAuto = false;
    CommentMode commentMode = CommentMode::Parse;
};

}  // namespace rl
