#include "load/document_saver.h"

#include "load/files/file_writer.h"
#include "load/text/encode_text.h"
#include "model/json_document.h"
#include "model/xml_document.h"

namespace rl {

bool SaveText(const std::wstring& path, std::wstring_view text, const TextEncoding& encoding) {
    std::string bytes;
    return EncodeText(text, encoding, bytes) && WriteFileSafely(path, bytes);
}

bool SaveCsv(const CsvModel& model, const std::wstring& path, std::wstring& written) {
    written = model.Serialize();
    return SaveText(path, written, model.encoding);
}

bool JsonDocument::Save(const std::wstring& path) {
    return SaveText(path, Serialize(), encoding);
}

bool XmlDocument::Save(const std::wstring& path) {
    return SaveText(path, Serialize(), encoding);
}

}  // namespace rl
