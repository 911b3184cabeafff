// Decides the encoding, then converts in one pass where that can be done exactly.
//
// UTF-8 is checked and converted together: text that proves ill formed half-way costs the half that
// was converted, and nearly no text does.
#include "load/text/decode_text.h"

#include <utility>

#include "load/text/ascii_case.h"
#include "load/text/charset_names.h"
#include "load/text/detect_encoding.h"
#include "load/text/platform.h"
#include "load/text/utf.h"

namespace rl {

namespace {

constexpr uint32_t kUtf8Page = 65001;

std::wstring DecodePage(std::string_view bytes, uint32_t codePage) {
    return bytes.empty() ? std::wstring()
                         : platform::DecodeCodePage(bytes, codePage).value_or(std::wstring());
}

std::wstring DecodeUtf16(std::string_view bytes, utf::ByteOrder order) {
    const size_t units = bytes.size() / 2;
    std::wstring text;
    text.resize_and_overwrite(units, [bytes, order, units](wchar_t* out, size_t) {
        utf::BytesToUnits(bytes, order, out);
        return units;  // the library may have offered more room than was asked for
    });
    return text;
}

/// The well-formed beginning of the bytes as text, and what is left of them.
struct Utf8Head {
    std::wstring text;
    std::string_view rest;
};

Utf8Head DecodeUtf8Head(std::string_view bytes) {
    Utf8Head head;
    size_t read = 0;
    head.text.resize_and_overwrite(bytes.size(), [bytes, &read](wchar_t* out, size_t size) {
        const utf::Progress done = utf::Utf8ToUnits(bytes, {out, size});
        read = done.read;
        return done.written;
    });
    head.rest = bytes.substr(read);
    return head;
}

/// From the first sequence that is not plainly valid, the system decides what is shown.
std::wstring Complete(Utf8Head head) {
    if (!head.rest.empty()) {
        head.text += DecodePage(head.rest, kUtf8Page);
    }
    return std::move(head.text);
}

std::wstring DecodeAs(std::string_view bytes, const TextEncoding& encoding) {
    if (EqualAsciiCase(encoding.name, labels::kUtf16Le)) {
        return DecodeUtf16(bytes, utf::ByteOrder::Little);
    }
    if (EqualAsciiCase(encoding.name, labels::kUtf16Be)) {
        return DecodeUtf16(bytes, utf::ByteOrder::Big);
    }
    if (EqualAsciiCase(encoding.name, labels::kUtf8)) {
        return Complete(DecodeUtf8Head(bytes));
    }
    return DecodePage(bytes, encoding.codePage);
}

/// The code page for bytes that are not UTF-8.
uint32_t AnsiPage(std::string_view bytes, const EncodingRequest& request) {
    const uint32_t declared =
        request.honourXmlDeclaration ? CodePageForDeclaration(XmlDeclaredEncoding(bytes)) : 0;
    return declared == 0 || declared == kUtf8Page ? request.ansiCodePage : declared;
}

/// No mark and no NUL byte tell: UTF-8 when the bytes have its shape, else the code page.
std::wstring DecodeUnmarked(std::string_view bytes, const EncodingRequest& request,
                            TextEncoding& found) {
    Utf8Head head = DecodeUtf8Head(bytes);
    if (HasUtf8Shape(head.rest)) {
        found.name = labels::kUtf8;
        return Complete(std::move(head));
    }
    head.text = std::wstring();  // before the other decoder asks for as much again
    found.name = labels::kAnsi;
    found.codePage = AnsiPage(bytes, request);
    return DecodePage(bytes, found.codePage);
}

}  // namespace

std::wstring DecodeText(std::string_view bytes, const EncodingRequest& request,
                        TextEncoding& found) {
    found = TextEncoding();
    found.codePage = request.ansiCodePage;
    const ByteOrderMark mark = LeadingMark(bytes);
    if (!request.name.empty()) {
        found.name = request.name;
        found.hasBom = !mark.bytes.empty() && EqualAsciiCase(mark.label, request.name);
    } else if (!mark.bytes.empty()) {
        found.name = mark.label;
        found.hasBom = true;
    } else {
        found.name = LabelFromNulByte(bytes);
    }
    if (found.name.empty()) {
        return DecodeUnmarked(bytes, request, found);
    }
    return DecodeAs(bytes.substr(found.hasBom ? mark.bytes.size() : 0), found);
}

}  // namespace rl
