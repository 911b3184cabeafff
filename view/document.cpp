#include "view/document.h"

#include <utility>

namespace rl {

bool Document::IsModified() const {
    return (csv != nullptr && csv->IsModified()) || (json != nullptr && json->modified) ||
           (xml != nullptr && xml->modified);
}

const std::wstring& Document::Text() const {
    static const std::wstring kNone;
    if (csv != nullptr) {
        return csv->Text();
    }
    if (json != nullptr) {
        return json->text;
    }
    if (xml != nullptr) {
        return xml->text;
    }
    return kNone;
}

std::wstring Document::Serialize() const {
    return csv != nullptr    ? csv->Serialize()
           : json != nullptr ? json->Serialize()
           : xml != nullptr  ? xml->Serialize()
                             : std::wstring();
}

void Document::ClearModified() {
    if (csv != nullptr) {
        csv->ClearModified();
    } else if (json != nullptr) {
        json->modified = false;
    } else if (xml != nullptr) {
        xml->modified = false;
    }
}

const RecordSet& Document::Records() const {
    if (!records) {
        records = json != nullptr  ? FindRecordSet(*json)
                  : xml != nullptr ? FindRecordSet(*xml)
                                   : RecordSet();
    }
    return *records;
}

void Document::SwapContent(Document& other) {
    std::swap(outline, other.outline);
    std::swap(jsonTable, other.jsonTable);
    std::swap(xmlTable, other.xmlTable);
    std::swap(tableNode, other.tableNode);
    std::swap(rows, other.rows);
}

std::wstring Document::ValueOf(int32_t modelRow, int32_t column) const {
    return ShowsOutline() ? outline->FullValueText(modelRow)
                          : rows->Model().CellText(modelRow, column);
}

bool Document::SetValue(int32_t modelRow, int32_t column, const std::wstring& text,
                        std::wstring& reason) {
    if (!rows->Model().IsCellEditable(modelRow, column)) {
        return false;
    }
    if (csv != nullptr) {
        csv->SetCellText(modelRow, column, text);
        return true;
    }
    if (xml != nullptr) {
        const XmlValueRef target =
            ShowsOutline() ? outline->ValueRefOf(modelRow) : xmlTable->Cell(modelRow, column).ref;
        return xml->SetValue(target, text, &reason);
    }
    const int32_t node =
        ShowsOutline() ? outline->Row(modelRow).node : jsonTable->CellNode(modelRow, column);
    return json->SetValue(node, text, &reason);
}

Document DocumentOf(detail::LoadedDoc& doc, bool delimiterDetected) {
    Document made;
    made.csv = std::move(doc.csvModel);
    made.json = std::move(doc.jsonDoc);
    made.xml = std::move(doc.xmlDoc);
    made.delimiterDetected = delimiterDetected;
    made.stamp = doc.stamp;
    if (made.csv != nullptr) {
        made.encoding = made.csv->encoding;
    } else if (made.json != nullptr) {
        made.encoding = made.json->encoding;
    } else if (made.xml != nullptr) {
        made.encoding = made.xml->encoding;
    }
    return made;
}

}  // namespace rl
