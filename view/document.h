// A document and how the grid shows it: the model that was loaded, what is made from it, its rows.
//
// Plain ownership without behaviour of its own. Members refer to those above them, so they go in
// the order in which they must.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "load/files/file_stamp.h"
#include "load/loaded_doc.h"
#include "load/text/text_encoding.h"
#include "model/csv_model.h"
#include "model/json_document.h"
#include "model/json_table.h"
#include "model/outline_model.h"
#include "model/record_set.h"
#include "model/xml_document.h"
#include "model/xml_table.h"
#include "view/logic/row_view.h"

namespace rl {

struct Document {
    // What was loaded: one of these.
    std::unique_ptr<CsvModel> csv;
    std::unique_ptr<JsonDocument> json;
    std::unique_ptr<XmlDocument> xml;
    TextEncoding encoding;
    bool delimiterDetected = false;
    std::optional<FileStamp> stamp;  // of the file as it was read, or written last

    // What the grid shows of JSON and XML: the outline, or one node as a table.
    std::unique_ptr<TreeTableView> outline;
    std::unique_ptr<JsonTableView> jsonTable;
    std::unique_ptr<XmlTableView> xmlTable;
    int32_t tableNode = -1;  // the node the table shows

    std::unique_ptr<RowView> rows;

    /// The largest record set of JSON or XML; looked for once.
    [[nodiscard]] const RecordSet& Records() const;
    /// Exchanges what is shown, not what was loaded.
    void SwapContent(Document& other);

    // Edits were saved, but the text above is still the one that was loaded.
    bool hasSavedEdits = false;

    [[nodiscard]] bool IsLoaded() const {
        return csv != nullptr || json != nullptr || xml != nullptr;
    }
    [[nodiscard]] bool IsModified() const;
    /// The text as it was loaded.
    [[nodiscard]] const std::wstring& Text() const;
    /// The text as a save writes it.
    [[nodiscard]] std::wstring Serialize() const;
    /// Whether that is another text than the one loaded.
    [[nodiscard]] bool TextIsOutdated() const { return IsModified() || hasSavedEdits; }
    void ClearModified();

    /// Whether the grid shows the outline, and not one of its nodes as a table.
    [[nodiscard]] bool ShowsOutline() const {
        return outline != nullptr && rows != nullptr && &rows->Model() == outline.get();
    }
    /// The whole value behind a cell that can be edited; the view may show it on one line.
    [[nodiscard]] std::wstring ValueOf(int32_t modelRow, int32_t column) const;
    /// Gives a cell another value. False, and perhaps a short reason, where the text does not fit.
    bool SetValue(int32_t modelRow, int32_t column, const std::wstring& text, std::wstring& reason);

    mutable std::optional<RecordSet> records;  // as far as it has been asked for
};

/// Takes over what a load has brought; nothing is shown of it yet.
[[nodiscard]] Document DocumentOf(detail::LoadedDoc& doc, bool delimiterDetected);

}  // namespace rl
