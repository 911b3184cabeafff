#include "load/document_saver.h"

#include <algorithm>
#include <cstdint>

#include "load/files/file_writer.h"
#include "load/text/ascii_case.h"
#include "load/text/charset_names.h"
#include "load/text/detect_encoding.h"
#include "load/text/encode_text.h"
#include "model/json_document.h"
#include "model/json_text.h"
#include "model/xml_document.h"

namespace rl {
namespace {

bool IsAscii(std::wstring_view text) {
    return std::ranges::all_of(text, [](wchar_t unit) { return unit < 0x80; });
}

/// The code page that an XML text declares for itself; 0 for none and for UTF-8.
uint32_t DeclaredPage(std::wstring_view text) {
    constexpr uint32_t kUtf8Page = 65001;
    constexpr size_t kHead = 256;  // more is not looked at
    std::string head;
    for (const wchar_t unit : text.substr(0, kHead)) {
        head += unit < 0x80 ? static_cast<char>(unit) : '?';
    }
    const uint32_t page = CodePageForDeclaration(XmlDeclaredEncoding(head));
    return page == kUtf8Page ? 0 : page;
}

/// What to write an XML text in. Bytes that are ASCII alone pass for UTF-8, whatever page the text
/// declares; what an edit adds to it must be in that page.
TextEncoding EncodingFor(const XmlDocument& document, std::wstring_view written) {
    const TextEncoding& found = document.encoding;
    const bool isPlainUtf8 = EqualAsciiCase(found.name, labels::kUtf8) && !found.hasBom;
    const uint32_t page = isPlainUtf8 ? DeclaredPage(document.text) : 0;
    if (page == 0 || IsAscii(written) || !IsAscii(document.text)) {
        return found;
    }
    return {.name = std::wstring(labels::kAnsi), .codePage = page};
}

}  // namespace

bool SaveText(const std::wstring& path, std::wstring_view text, const TextEncoding& encoding) {
    std::string bytes;
    return EncodeText(text, encoding, bytes) && WriteFileSafely(path, bytes);
}

bool SaveCsv(const CsvModel& model, const std::wstring& path, std::wstring& written) {
    written = model.Serialize();
    return SaveText(path, written, model.encoding);
}

// Outside UTF-16 no encoding holds half of a surrogate pair; JSON has another spelling for it.
bool JsonDocument::Save(const std::wstring& path) {
    std::wstring written = Serialize();
    if (!EqualAsciiCase(encoding.name, labels::kUtf16Le) &&
        !EqualAsciiCase(encoding.name, labels::kUtf16Be)) {
        EscapeLoneSurrogates(written);
    }
    return SaveText(path, written, encoding);
}

bool XmlDocument::Save(const std::wstring& path) {
    const std::wstring written = Serialize();
    return SaveText(path, written, EncodingFor(*this, written));
}

}  // namespace rl
