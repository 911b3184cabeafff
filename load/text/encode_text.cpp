// The reverse of decode_text.cpp: the same labels, the same mark, bytes instead of units.
#include "load/text/encode_text.h"

#include "load/text/ascii_case.h"
#include "load/text/detect_encoding.h"
#include "load/text/platform.h"
#include "load/text/single_byte_page.h"
#include "load/text/utf.h"

namespace rl {

namespace {

constexpr size_t kWorthATable = 0x10000;  // units; a table costs about as much as encoding these

/// Fills `bytes` with the mark, if any, and room for `size` more, which `write` fills.
template <typename Write>
void PutBytes(std::string_view mark, size_t size, std::string& bytes, Write write) {
    bytes.resize_and_overwrite(mark.size() + size, [mark, size, &write](char* out, size_t) {
        mark.copy(out, mark.size());
        write(out + mark.size());
        return mark.size() + size;  // the library may have offered more room than was asked for
    });
}

bool PutAnsi(std::wstring_view text, uint32_t codePage, std::string& bytes) {
    if (text.empty()) {
        return true;
    }
    if (text.size() >= kWorthATable) {
        const std::optional<SingleBytePage> page = SingleBytePage::Make(codePage);
        if (page && page->Encode(text, bytes)) {
            return true;
        }
    }
    std::optional<std::string> encoded = platform::EncodeCodePage(text, codePage);
    if (!encoded) {
        return false;
    }
    bytes = std::move(*encoded);
    return true;
}

}  // namespace

bool EncodeText(std::wstring_view text, const TextEncoding& encoding, std::string& bytes) {
    bytes.clear();
    if (EqualAsciiCase(encoding.name, labels::kAnsi)) {
        return PutAnsi(text, encoding.codePage, bytes);
    }
    const ByteOrderMark known = MarkOf(encoding.name);
    const std::string_view mark = encoding.hasBom ? known.bytes : std::string_view();
    if (known.label.empty()) {
        return false;
    }
    if (known.label == labels::kUtf8) {
        PutBytes(mark, utf::CountUtf8(text), bytes,
                 [text](char* out) { utf::UnitsToUtf8(text, out); });
        return true;
    }
    const auto order =
        known.label == labels::kUtf16Le ? utf::ByteOrder::Little : utf::ByteOrder::Big;
    PutBytes(mark, text.size() * 2, bytes,
             [text, order](char* out) { utf::UnitsToBytes(text, order, out); });
    return true;
}

}  // namespace rl
