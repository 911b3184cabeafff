#include "view/logic/status_cells.h"

#include <algorithm>

#include "view/logic/geometry.h"

namespace rl {
namespace {

constexpr int64_t kSmallestHintedSet = 5;  // fewer records are not worth a table

std::wstring DelimiterText(const StatusState& state) {
    const std::wstring name = DelimiterName(state.delimiter);
    return state.delimiterIsAuto ? L" Delimiter: Auto (" + name + L")" : L" Delimiter: " + name;
}

std::wstring CommentText(const StatusState& state) {
    const std::wstring count = L" (" + std::to_wstring(state.commentLines) + L")";
    switch (state.commentMode) {
        case CommentMode::Auto: return L" Comments: auto" + count;
        case CommentMode::Hide: return L" Comments: hidden" + count;
        // Nothing is counted in these two modes, and users know the texts as they are.
        case CommentMode::DoNotParse: return L" Comments: no parse (0)";
        case CommentMode::Parse: break;
    }
    return L" Comments: parse (0)";
}

std::wstring KindText(const StatusState& state) {
    if (state.kind == StatusKind::Outline) {
        if (!state.isXml) {
            return state.isJsonLines ? L" JSONL outline" : L" JSON outline";
        }
        return state.isMalformed ? L" XML outline (malformed)" : L" XML outline";
    }
    std::wstring text = L" XML";
    if (state.kind == StatusKind::Xml) {
        text += state.isKeyValue ? L" (key/value)" : L"";
    } else {
        text = state.isJsonLines ? L" JSONL" : L" JSON";
    }
    return state.isMalformed ? text + L" (malformed)" : text;
}

std::wstring RowsText(const StatusState& state) {
    std::wstring text = L" Rows: " + std::to_wstring(state.visibleRows) + L"/" +
                        std::to_wstring(std::max<int64_t>(0, state.totalRows));
    const bool capped = state.kind == StatusKind::Outline && state.isCapped;
    return capped ? text + L" (capped)" : text;
}

std::wstring PositionText(const StatusState& state) {
    if (state.focusedRow < 0 || state.focusedColumn < 0) {
        return {};
    }
    return L" " + std::to_wstring(int64_t{state.focusedRow} + 1) + L":" +
           std::to_wstring(int64_t{state.focusedColumn} + 1);
}

std::wstring EditText(const StatusState& state) {
    if (state.editMode) {
        return state.modified ? L" EDIT *" : L" EDIT";
    }
    return state.modified ? L" MODIFIED *" : L"";
}

std::wstring HintText(const StatusState& state) {
    if (state.kind != StatusKind::Outline || state.recordCount < kSmallestHintedSet) {
        return {};
    }
    return L"   " + std::to_wstring(state.recordCount) + L" records: Ctrl+T for table";
}

}  // namespace

StatusTexts ComposeStatus(const StatusState& state) {
    if (state.kind == StatusKind::Loading) {
        return {L" Loading..."};
    }
    const bool csv = state.kind == StatusKind::Csv;
    const std::wstring node = state.nodeName ? L" " + *state.nodeName : std::wstring();
    return {L" " + state.encodingName, csv ? DelimiterText(state) : KindText(state),
            csv ? CommentText(state) : node, RowsText(state),
            PositionText(state) + EditText(state) + HintText(state)};
}

std::array<int, kStatusPartCount> StatusPartEdges(int dpi) {
    return {Scale(110, dpi), Scale(280, dpi), Scale(480, dpi), Scale(630, dpi), -1};
}

int64_t TotalDataRows(int64_t modelRows, bool hasHeaderRow) {
    return std::max<int64_t>(0, modelRows - (hasHeaderRow ? 1 : 0));
}

std::wstring DelimiterName(wchar_t delimiter) {
    return delimiter == L'\t' ? std::wstring(L"TAB") : std::wstring(1, delimiter);
}

}  // namespace rl
