#include "view/document.h"

#include <utility>

namespace rl {

bool Document::IsModified() const {
    return (csv != nullptr && csv->IsModified()) || (json != nullptr && json->modified) ||
           (xml != nullptr && xml->modified);
}

const std::wstring& Document::Text() const {
    static const std::wstring kNone;
    return csv != nullptr    ? csv->Text()
           : json != nullptr ? json->text
           : xml != nullptr  ? xml->text
                             : kNone;
}

Document DocumentOf(detail::LoadedDoc& doc, bool delimiterDetected) {
    Document made;
    made.csv = std::move(doc.csvModel);
    made.json = std::move(doc.jsonDoc);
    made.xml = std::move(doc.xmlDoc);
    made.delimiterDetected = delimiterDetected;
    if (made.IsLoaded()) {
        made.encoding = made.csv != nullptr    ? made.csv->encoding
                        : made.json != nullptr ? made.json->encoding
                                               : made.xml->encoding;
    }
    return made;
}

}  // namespace rl
