// Marks, NUL bytes, the shape of UTF-8, and the XML declaration; see the header.
#include "load/text/detect_encoding.h"

#include <algorithm>
#include <cstdint>

#include "load/text/ascii_case.h"

namespace rl {

namespace {

constexpr ByteOrderMark kMarks[] = {
    {labels::kUtf8, "\xEF\xBB\xBF"},
    {labels::kUtf16Le, "\xFF\xFE"},
    {labels::kUtf16Be, "\xFE\xFF"},
};

constexpr size_t kDeclarationWindow = 256;

/// The length that a lead byte announces; 0 for a byte that cannot lead.
constexpr size_t AnnouncedLength(uint8_t lead) noexcept {
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xC0) {
        return 0;
    }
    if (lead < 0xE0) {
        return 2;
    }
    if (lead < 0xF0) {
        return 3;
    }
    return lead < 0xF8 ? 4 : 0;
}

constexpr bool IsContinuation(char byte) noexcept {
    return (static_cast<uint8_t>(byte) & 0xC0) == 0x80;
}

}  // namespace

ByteOrderMark MarkOf(std::wstring_view label) noexcept {
    const auto* found = std::ranges::find_if(
        kMarks, [label](const ByteOrderMark& mark) { return EqualAsciiCase(mark.label, label); });
    return found == std::end(kMarks) ? ByteOrderMark{} : *found;
}

ByteOrderMark LeadingMark(std::string_view bytes) noexcept {
    const auto* found = std::ranges::find_if(
        kMarks, [bytes](const ByteOrderMark& mark) { return bytes.starts_with(mark.bytes); });
    return found == std::end(kMarks) ? ByteOrderMark{} : *found;
}

std::wstring_view LabelFromNulByte(std::string_view bytes) noexcept {
    if (bytes.size() < 2 || (bytes[0] == '\0') == (bytes[1] == '\0')) {
        return {};
    }
    return bytes[0] == '\0' ? labels::kUtf16Be : labels::kUtf16Le;
}

bool HasUtf8Shape(std::string_view bytes) noexcept {
    for (size_t at = 0; at < bytes.size();) {
        const size_t length = AnnouncedLength(static_cast<uint8_t>(bytes[at]));
        if (length == 0 || length > bytes.size() - at) {
            return false;
        }
        const std::string_view tail = bytes.substr(at + 1, length - 1);
        if (!std::ranges::all_of(tail, IsContinuation)) {
            return false;
        }
        at += length;
    }
    return true;
}

std::wstring XmlDeclaredEncoding(std::string_view bytes) {
    constexpr std::string_view kName = "encoding";
    const std::string_view head = bytes.substr(0, kDeclarationWindow);
    if (!head.starts_with("<?xml")) {
        return {};
    }
    const size_t end = head.find("?>");
    if (end == std::string_view::npos) {
        return {};
    }
    const std::string_view declaration = head.substr(0, end);
    const size_t name = declaration.find(kName);
    if (name == std::string_view::npos) {
        return {};
    }
    const size_t equals = declaration.find('=', name + kName.size());
    if (equals == std::string_view::npos) {
        return {};
    }
    const size_t open = declaration.find_first_not_of(" \t", equals + 1);
    if (open == std::string_view::npos || (declaration[open] != '"' && declaration[open] != '\'')) {
        return {};
    }
    const size_t close = declaration.find(declaration[open], open + 1);
    if (close == std::string_view::npos) {
        return {};
    }
    std::wstring value;
    for (const char byte : declaration.substr(open + 1, close - open - 1)) {
        value += static_cast<wchar_t>(static_cast<uint8_t>(byte));
    }
    return value;
}

}  // namespace rl
