// The Source tab: filled when it is shown, and the way there from a row of the grid.
#include <windows.h>
// Needs the types above.
#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "host/store/settings.h"
#include "view/logic/locate_node.h"
#include "view/viewer.h"

namespace rl {

namespace {

constexpr std::wstring_view kTruncated =
    L"\r\n[--- source view truncated; see source-view-limit ---]";

SourceSyntax SyntaxOf(const Document& document) {
    if (document.csv != nullptr) {
        return {.mode = SourceMode::Delimited, .delimiter = document.csv->Delimiter()};
    }
    return {.mode = document.json != nullptr ? SourceMode::Json : SourceMode::Xml};
}

std::wstring Serialized(const Document& document) {
    if (document.json != nullptr) {
        return document.json->Serialize();
    }
    return document.xml != nullptr ? document.xml->Serialize() : document.csv->Serialize();
}

/// The document's text up to `limit` units; 0 for no limit.
std::wstring ShownText(const Document& document, size_t limit) {
    std::wstring made;
    const bool differs = document.TextIsOutdated();
    if (differs) {
        made = Serialized(document);
    }
    const std::wstring_view text = differs ? std::wstring_view(made) : document.Text();
    if (limit == 0 || text.size() <= limit) {
        return differs ? std::move(made) : std::wstring(text);
    }
    std::wstring cut;
    cut.reserve(limit + kTruncated.size());
    return cut.append(text.substr(0, limit)).append(kTruncated);
}

}  // namespace

void Viewer::FillSourceView() {
    if (!sourceIsStale_ || source_.Window() == nullptr || !document_.IsLoaded()) {
        return;
    }
    const int limit = settings::Get(settings::kSourceViewLimit);
    try {
        source_.SetTabWidth(settings::Get(settings::kSourceTabWidth));
        source_.SetText(ShownText(document_, static_cast<size_t>(std::max(limit, 0))),
                        SyntaxOf(document_));
        sourceIsStale_ = false;
    } catch (const std::exception&) {  // no memory for another text; what is shown must be true
        source_.SetText({}, SyntaxOf(document_));
        MessageBeep(MB_ICONWARNING);
    }
}

// The document has changed or is another one: on the Data tab it costs nothing to say so.
void Viewer::RefreshSource() {
    sourceIsStale_ = true;
    if (loaded_ && tab_ == ViewerTab::Source) {
        FillSourceView();
    }
}

std::optional<LocatedRange> Viewer::LocateFocusedRow() const {
    if (document_.TextIsOutdated()) {
        return std::nullopt;  // the text shown has other positions
    }
    const int current = grid_.Current().viewRow;
    const int focused = static_cast<int>(
        SendMessageW(grid_.Window(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
    const int row = document_.rows->ModelRow(current >= 0 ? current : focused);
    if (document_.csv != nullptr) {
        return LocateRow(*document_.csv, row);
    }
    if (document_.jsonTable != nullptr) {
        return LocateRow(*document_.jsonTable, *document_.json, row, document_.tableNode);
    }
    if (document_.xmlTable != nullptr) {
        return LocateRow(*document_.xmlTable, *document_.xml, row, document_.tableNode);
    }
    return document_.outline != nullptr ? LocateRow(*document_.outline, row) : std::nullopt;
}

void Viewer::OnLocateInSource(Command) {
    if (!document_.IsLoaded() || source_.Window() == nullptr) {
        return;
    }
    const std::optional<LocatedRange> range = LocateFocusedRow();
    SwitchTab(ViewerTab::Source);
    if (range) {
        source_.SelectRange(range->start, range->length);
    }
}

}  // namespace rl
