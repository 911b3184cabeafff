// What the first bytes of a file, or all of them, say about its encoding.
//
// Decides only; converts nothing. Safe on any thread.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace rl {

namespace labels {

inline constexpr std::wstring_view kUtf8 = L"UTF-8";
inline constexpr std::wstring_view kUtf16Le = L"UTF-16LE";
inline constexpr std::wstring_view kUtf16Be = L"UTF-16BE";
inline constexpr std::wstring_view kAnsi = L"ANSI";

}  // namespace labels

/// A byte-order mark: the label it stands for and its bytes.
struct ByteOrderMark {
    std::wstring_view label;
    std::string_view bytes;
};

/// The mark of a label (letter case aside); no bytes for a label that has none.
[[nodiscard]] ByteOrderMark MarkOf(std::wstring_view label) noexcept;

/// The mark that the bytes begin with; empty label and no bytes when there is none.
[[nodiscard]] ByteOrderMark LeadingMark(std::string_view bytes) noexcept;

/// UTF-16 told from the first two bytes, one of them NUL and the other not; else empty.
[[nodiscard]] std::wstring_view LabelFromNulByte(std::string_view bytes) noexcept;

/// Whether the bytes have the shape of UTF-8 to their very end: lead bytes followed by as many
/// continuation bytes as they announce. Overlong forms and surrogates pass, a cut sequence does
/// not.
[[nodiscard]] bool HasUtf8Shape(std::string_view bytes) noexcept;

/// The value of the encoding pseudo-attribute of an XML declaration at the very start, or empty.
/// Looks at the first 256 bytes, each as one character.
[[nodiscard]] std::wstring XmlDeclaredEncoding(std::string_view bytes);

}  // namespace rl
