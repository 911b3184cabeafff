// What the status bar says, and how wide its parts are.
//
// All five texts are composed anew from a snapshot at each change; nothing is kept.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "model/csv_options.h"

namespace rl {

inline constexpr size_t kStatusPartCount = 5;

enum class StatusKind {
    Loading,  // nothing to show yet
    Outline,  // a JSON or XML document as an outline in the grid
    Csv,
    Xml,
    Json,
};

/// What the texts are made from. Fields that a kind does not use may stay as they are.
struct StatusState {
    StatusKind kind = StatusKind::Loading;
    std::wstring encodingName;
    bool editMode = false;
    bool modified = false;

    int64_t visibleRows = 0;
    int64_t totalRows = 0;       // without a header row; outline: nodes of every depth
    int32_t focusedRow = -1;     // view row, -1: none
    int32_t focusedColumn = -1;  // grid column, the line-number column counts

    // Delimited text.
    wchar_t delimiter = L',';
    bool delimiterIsAuto = false;
    CommentMode commentMode = CommentMode::Parse;
    int64_t commentLines = 0;  // lines the document hides

    // Outlines, XML and JSON tables.
    bool isXml = false;  // outline only
    bool isJsonLines = false;
    bool isMalformed = false;
    bool isKeyValue = false;  // XML table in its key/value layout
    bool isCapped = false;    // outline only
    /// Part 2: the focused row's name, the selected node, or the type; nothing without one.
    std::optional<std::wstring> nodeName;
    int64_t recordCount = 0;  // outline: size of the largest record set; 0: none
};

using StatusTexts = std::array<std::wstring, kStatusPartCount>;

/// Each text begins with a blank, or is empty.
[[nodiscard]] StatusTexts ComposeStatus(const StatusState& state);

/// The right edges of the parts, pixels; -1: to the end.
[[nodiscard]] std::array<int, kStatusPartCount> StatusPartEdges(int dpi);

/// Data rows of a table of delimited text: the header is none, and there are never fewer than 0.
[[nodiscard]] int64_t TotalDataRows(int64_t modelRows, bool hasHeaderRow);

/// A delimiter in words: "TAB", else the character itself.
[[nodiscard]] std::wstring DelimiterName(wchar_t delimiter);

}  // namespace rl
