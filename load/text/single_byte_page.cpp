// See the header. Stateful pages betray themselves: their 256 bytes in a row do not give 256 units,
// or do not give ASCII for ASCII.
#include "load/text/single_byte_page.h"

#include "load/text/platform.h"
#include "load/text/simd_encode.h"

namespace rl {

namespace {

constexpr size_t kBytes = 256;
constexpr size_t kUnits = 0x10000;

bool HasAsciiInPlace(std::wstring_view units) {
    for (size_t at = 0; at < 0x80; ++at) {
        if (static_cast<size_t>(units[at]) != at) {
            return false;
        }
    }
    return true;
}

/// The kernels know 16-bit units only; natively there is just the table.
template <typename Unit>
size_t PackAscii(const Unit* units, size_t size, char* out) {
    if constexpr (sizeof(Unit) == sizeof(simd::TextUnit)) {
        return simd::PackAsciiSse2(units, size, out);
    } else {
        return 0;
    }
}

}  // namespace

SingleBytePage::SingleBytePage() : byteOf_(kUnits, kAbsent) {}

std::optional<SingleBytePage> SingleBytePage::Make(uint32_t codePage) {
    std::string bytes;
    for (size_t byte = 0; byte < kBytes; ++byte) {
        bytes += static_cast<char>(byte);
    }
    const std::optional<std::wstring> units = platform::DecodeCodePage(bytes, codePage);
    if (!units || units->size() != kBytes || !HasAsciiInPlace(*units)) {
        return std::nullopt;
    }
    SingleBytePage page;
    return page.Fill(*units, codePage) ? std::optional(std::move(page)) : std::nullopt;
}

/// Asks the system for each unit by itself, so that no neighbour has a say. False unless ASCII
/// stands for itself and something for the bytes beyond.
bool SingleBytePage::Fill(std::wstring_view units, uint32_t codePage) {
    size_t beyondAscii = 0;
    for (size_t at = 0; at < units.size(); ++at) {
        const std::optional<std::string> byte =
            platform::EncodeCodePage(units.substr(at, 1), codePage);
        if (byte && byte->size() == 1) {
            const auto unit = static_cast<uint16_t>(units[at]);
            byteOf_[unit] = static_cast<uint8_t>(byte->front());
            beyondAscii += unit >= 0x80 ? 1 : 0;
        }
    }
    for (size_t ascii = 0; ascii < 0x80; ++ascii) {
        if (byteOf_[ascii] != static_cast<int16_t>(ascii)) {
            return false;
        }
    }
    return beyondAscii > 0;
}

/// How much of the text the table holds; that much is written.
size_t SingleBytePage::EncodeInto(std::wstring_view text, char* out) const {
    constexpr size_t kStretch = 16;  // units between two tries for plain ASCII
    size_t at = 0;
    while (at < text.size()) {
        at += PackAscii(text.data() + at, text.size() - at, out + at);
        for (size_t left = kStretch; left > 0 && at < text.size(); --left, ++at) {
            const int16_t byte = byteOf_[static_cast<uint16_t>(text[at])];
            if (byte == kAbsent) {
                return at;
            }
            out[at] = static_cast<char>(byte);
        }
    }
    return at;
}

bool SingleBytePage::Encode(std::wstring_view text, std::string& bytes) const {
    bytes.clear();
    bytes.resize_and_overwrite(text.size(),
                               [this, text](char* out, size_t) { return EncodeInto(text, out); });
    if (bytes.size() == text.size()) {
        return true;
    }
    bytes = std::string();
    return false;
}

}  // namespace rl
