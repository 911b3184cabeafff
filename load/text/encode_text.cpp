// The reverse of decode_text.cpp: the same labels, the same mark, bytes instead of units, and again
// one pass into memory of nearly the right size.
#include "load/text/encode_text.h"

#include <optional>
#include <utility>

#include "load/text/ascii_case.h"
#include "load/text/detect_encoding.h"
#include "load/text/platform.h"
#include "load/text/single_byte_page.h"
#include "load/text/utf.h"

namespace rl {

namespace {

constexpr size_t kWorthATable = 0x10000;  // units; a table costs about as much as encoding these

/// The mark, if any, and two bytes for each unit.
std::string EncodeUtf16(std::wstring_view text, std::string_view mark, utf::ByteOrder order) {
    const size_t size = mark.size() + 2 * text.size();
    std::string bytes;
    bytes.resize_and_overwrite(size, [=](char* out, size_t) {
        mark.copy(out, mark.size());
        utf::UnitsToBytes(text, order, out + mark.size());
        return size;  // the library may have offered more room than was asked for
    });
    return bytes;
}

/// A guess, from samples, at the bytes that a text takes as UTF-8; see the like in decode_text.cpp.
size_t GuessUtf8(std::wstring_view text) {
    constexpr size_t kSamples = 256;
    constexpr size_t kSample = 256;
    if (text.size() <= 2 * kSamples * kSample) {
        return utf::CountUtf8(text);
    }
    size_t counted = 0;
    for (size_t sample = 0; sample < kSamples; ++sample) {
        counted += utf::CountUtf8(text.substr(text.size() / kSamples * sample, kSample));
    }
    const double share = static_cast<double>(counted) / (kSamples * kSample);
    const auto guess = static_cast<size_t>(static_cast<double>(text.size()) * share);
    return guess + guess / 128;
}

/// Writes what fits of a text behind `held` bytes, in stretches, and takes it off the text.
size_t PutUtf8(std::wstring_view& text, char* out, size_t held, size_t room) {
    constexpr size_t kStretch = 0x10000;  // units
    constexpr size_t kMostBytes = 3;      // for one unit
    while (!text.empty()) {
        const std::wstring_view part = utf::PrefixOfWholePairs(text, kStretch);
        const bool ample = part.size() * kMostBytes <= room - held;
        const size_t size = ample ? 0 : utf::CountUtf8(part);
        if (size > room - held) {
            break;
        }
        held += utf::UnitsToUtf8(part, out + held);
        text.remove_prefix(part.size());
    }
    return held;
}

std::string EncodeUtf8(std::wstring_view text, std::string_view mark) {
    std::string bytes(mark);
    size_t room = mark.size() + GuessUtf8(text);
    while (!text.empty()) {
        std::string larger;
        larger.resize_and_overwrite(room, [&](char* out, size_t) {
            bytes.copy(out, bytes.size());
            return PutUtf8(text, out, bytes.size(), room);
        });
        bytes = std::move(larger);
        room = bytes.size() + utf::CountUtf8(text);  // of what did not fit: nothing, but seldom
    }
    return bytes;
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
        bytes = EncodeUtf8(text, mark);
    } else {
        const bool little = known.label == labels::kUtf16Le;
        bytes = EncodeUtf16(text, mark, little ? utf::ByteOrder::Little : utf::ByteOrder::Big);
    }
    return true;
}

}  // namespace rl
