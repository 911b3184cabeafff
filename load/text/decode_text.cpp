// Decides the encoding, then converts in one pass where that can be done exactly.
//
// UTF-8 is checked and converted together: text that proves ill formed half-way costs the half that
// was converted, and nearly no text does.
#include "load/text/decode_text.h"

#include <algorithm>
#include <utility>

#include "load/text/ascii_case.h"
#include "load/text/charset_names.h"
#include "load/text/detect_encoding.h"
#include "load/text/platform.h"
#include "load/text/utf.h"

namespace rl {

namespace {

constexpr uint32_t kUtf8Page = 65001;
constexpr size_t kStretch = size_t{4} << 20;  // bytes between two questions for abandonment

std::wstring DecodePage(std::string_view bytes, uint32_t codePage) {
    return bytes.empty() ? std::wstring()
                         : platform::DecodeCodePage(bytes, codePage).value_or(std::wstring());
}

std::wstring DecodeUtf16(std::string_view bytes, utf::ByteOrder order,
                         const AbandonCheck& abandoned) {
    const size_t units = bytes.size() / 2;
    std::wstring text;
    text.resize_and_overwrite(units, [&](wchar_t* out, size_t) {
        size_t done = 0;
        while (done < units && !IsAbandoned(abandoned)) {
            const std::string_view part = bytes.substr(done * 2, kStretch);
            utf::BytesToUnits(part, order, out + done);
            done += part.size() / 2;
        }
        return done;  // the library may have offered more room than was asked for
    });
    return text;
}

/// A guess, from samples, at the units that UTF-8 bytes convert to: close for a text that is alike
/// all over, and then seldom too small. To count them all would cost a pass over
/// bytes that have yet to come from memory.
size_t GuessUnits(std::string_view bytes) {
    constexpr size_t kSamples = 256;
    constexpr size_t kSample = 512;
    if (bytes.size() <= 2 * kSamples * kSample) {
        return utf::CountUnits(bytes);
    }
    size_t counted = 0;
    for (size_t sample = 0; sample < kSamples; ++sample) {
        counted += utf::CountUnits(bytes.substr(bytes.size() / kSamples * sample, kSample));
    }
    const double share = static_cast<double>(counted) / (kSamples * kSample);
    const auto guess = static_cast<size_t>(static_cast<double>(bytes.size()) * share);
    return std::min(bytes.size(), guess + guess / 128);
}

/// The well-formed beginning of the bytes as text, and what is left of them; nothing is when the
/// work was abandoned.
struct Utf8Head {
    std::wstring text = {};
    std::string_view rest;
};

/// Converts on behind the text, as far as the bytes are well formed and the text fits `room` units.
void ExtendHead(Utf8Head& head, size_t room, const AbandonCheck& abandoned) {
    const size_t held = head.text.size();
    head.text.resize_and_overwrite(room, [&](wchar_t* out, size_t) {
        size_t written = held;
        bool goesOn = true;
        while (goesOn && !head.rest.empty() && !IsAbandoned(abandoned)) {
            const std::string_view part = head.rest.substr(0, kStretch);
            const utf::Progress done = utf::Utf8ToUnits(part, {out + written, room - written});
            written += done.written;
            head.rest.remove_prefix(done.read);
            // Less than a whole sequence left of the part: it was cut, not ill formed.
            goesOn = done.read > 0 && part.size() - done.read < 4;
        }
        return written;
    });
}

Utf8Head DecodeUtf8Head(std::string_view bytes, const AbandonCheck& abandoned) {
    Utf8Head head{.rest = bytes};
    const size_t room = GuessUnits(bytes);
    ExtendHead(head, room, abandoned);
    if (room - head.text.size() < 2 && !head.rest.empty()) {  // guessed too low
        std::wstring larger;
        const size_t enough = head.text.size() + utf::CountUnits(head.rest);
        larger.reserve(enough);
        larger = head.text;
        head.text = std::move(larger);
        ExtendHead(head, enough, abandoned);
    }
    if (head.text.capacity() - head.text.size() > head.text.size() / 100) {
        head.text.shrink_to_fit();
    }
    if (!head.rest.empty() && IsAbandoned(abandoned)) {
        head.rest = {};  // the slow ways of judging and showing it are not worth taking
    }
    return head;
}

/// From the first sequence that is not plainly valid, the system decides what is shown.
std::wstring Complete(Utf8Head head) {
    if (!head.rest.empty()) {
        head.text += DecodePage(head.rest, kUtf8Page);
    }
    return std::move(head.text);
}

std::wstring DecodeAs(std::string_view bytes, const TextEncoding& encoding,
                      const AbandonCheck& abandoned) {
    if (EqualAsciiCase(encoding.name, labels::kUtf16Le)) {
        return DecodeUtf16(bytes, utf::ByteOrder::Little, abandoned);
    }
    if (EqualAsciiCase(encoding.name, labels::kUtf16Be)) {
        return DecodeUtf16(bytes, utf::ByteOrder::Big, abandoned);
    }
    if (EqualAsciiCase(encoding.name, labels::kUtf8)) {
        return Complete(DecodeUtf8Head(bytes, abandoned));
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
                            TextEncoding& found, const AbandonCheck& abandoned) {
    Utf8Head head = DecodeUtf8Head(bytes, abandoned);
    if (HasUtf8Shape(head.rest)) {
        found.name = labels::kUtf8;
        return Complete(std::move(head));
    }
    std::wstring().swap(
        head.text);  // gives the room back before the other decoder asks for as much
    found.name = labels::kAnsi;
    found.codePage = AnsiPage(bytes, request);
    if (IsAbandoned(abandoned)) {
        return {};  // the system takes the bytes in one go
    }
    return DecodePage(bytes, found.codePage);
}

}  // namespace

std::wstring DecodeText(std::string_view bytes, const EncodingRequest& request, TextEncoding& found,
                        const AbandonCheck& abandoned) {
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
        return DecodeUnmarked(bytes, request, found, abandoned);
    }
    return DecodeAs(bytes.substr(found.hasBom ? mark.bytes.size() : 0), found, abandoned);
}

}  // namespace rl
