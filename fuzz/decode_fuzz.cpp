// Any bytes decode to some text, the same text whichever way is taken, and come back unchanged
// wherever that is promised.
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "load/text/cpu_features.h"
#include "load/text/decode_text.h"
#include "load/text/detect_encoding.h"
#include "load/text/encode_text.h"
#include "load/text/utf8_stream.h"
#include "load/text/utf_encode.h"
#include "load/text/utf_kernels.h"

namespace {

using namespace rl;
using Unit = simd::TextUnit;

void Require(bool promise) {
    if (!promise) {
        std::abort();
    }
}

/// The first byte picks the request, the rest is the file.
EncodingRequest RequestOf(uint8_t choice) {
    static constexpr std::wstring_view kNames[] = {L"",         L"",         L"UTF-8",
                                                   L"utf-16le", L"UTF-16BE", L"ANSI"};
    static constexpr uint32_t kPages[] = {0, 1250, 1252, 932};
    return {.name = std::wstring(kNames[choice % std::size(kNames)]),
            .ansiCodePage = kPages[choice / 8 % std::size(kPages)],
            .honourXmlDeclaration = choice >= 128};
}

bool SavesBack(std::string_view bytes, const std::wstring& text, const TextEncoding& found) {
    std::string saved;
    return EncodeText(text, found, saved) && saved == bytes;
}

void CheckDecoding(std::string_view bytes, const EncodingRequest& request) {
    TextEncoding found;
    const std::wstring text = DecodeText(bytes, request, found);
    for (const wchar_t unit : text) {
        Require(static_cast<uint32_t>(unit) <= 0xFFFF);
    }
    Require(!found.name.empty());
    Require(request.name.empty() || found.name == request.name);
    const bool replaced = text.find(L'\xFFFD') != std::wstring::npos;
    if (MarkOf(found.name).label == labels::kUtf8 && !replaced) {
        Require(SavesBack(bytes, text, found));
    }
    const bool utf16 = MarkOf(found.name).label == labels::kUtf16Le ||
                       MarkOf(found.name).label == labels::kUtf16Be;
    if (utf16 && bytes.size() % 2 == 0) {
        Require(SavesBack(bytes, text, found));
    }
}

/// What the stream takes, it converts as if it were whole; it refuses only what is ill formed.
void CheckStream(std::string_view bytes, const EncodingRequest& request, size_t step) {
    TextEncoding whole;
    TextEncoding found;
    const std::wstring text = DecodeText(bytes, request, whole);
    if (!Utf8Stream::MayBegin(bytes, request, found)) {
        return;
    }
    Utf8Stream stream(bytes.size());
    size_t at = found.hasBom ? LeadingMark(bytes).bytes.size() : 0;
    bool taken = true;
    for (; taken && at < bytes.size(); at += step) {
        taken = stream.Feed(bytes.substr(at, step));
    }
    if (taken && stream.Finish()) {
        Require(stream.TakeText() == text);
        Require(found == whole);
    } else {
        std::vector<Unit> units(bytes.size());
        Require(utf::Utf8ToUnitsScalar<Unit>(bytes, units).read < bytes.size());
    }
}

void CheckKernel(utf::Utf8Kernel<Unit> kernel, std::string_view bytes, size_t room) {
    std::vector<Unit> fast(room);
    std::vector<Unit> slow(room);
    const utf::Progress fastDone = utf::Utf8ToUnitsWith<Unit>(kernel, bytes, fast);
    const utf::Progress slowDone = utf::Utf8ToUnitsScalar<Unit>(bytes, slow);
    Require(fastDone == slowDone);
    fast.resize(fastDone.written);
    slow.resize(slowDone.written);
    Require(fast == slow);
}

/// Well-formed text comes back through the kernels of the other direction.
void CheckWayBack(std::string_view bytes) {
    std::basic_string<Unit> units(bytes.size(), Unit{});
    const utf::Progress done = utf::Utf8ToUnitsScalar<Unit>(bytes, units);
    units.resize(done.written);
    const std::basic_string_view<Unit> view = units;
    std::string back(utf::CountUtf8Of(view), '\0');
    utf::UnitsToUtf8At(view, back.data());
    Require(back == bytes.substr(0, done.read));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    CheckDecoding(bytes, RequestOf(data[0]));
    CheckStream(bytes, RequestOf(data[0]), 1 + bytes.size() % 7);
    for (const size_t room : {bytes.size(), bytes.size() / 2}) {
        CheckKernel(simd::Utf8ToUnitsSse2<Unit>, bytes, room);
        if (HasAvx2()) {
            CheckKernel(simd::Utf8ToUnitsAvx2<Unit>, bytes, room);
        }
    }
    CheckWayBack(bytes);
    return 0;
}
