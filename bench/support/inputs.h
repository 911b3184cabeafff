// The texts that benchmarks read: made anew each time from a fixed seed, never stored.
//
// The same size gives the same bytes on every machine.
#pragma once

#include <cstddef>
#include <string>

namespace rl::bench {

constexpr size_t kLarge = 100'000'000;  // bytes: tables and JSON
constexpr size_t kMedium = 50'000'000;  // bytes: text in one script

/// A header and rows of 12 fields, LF after each, one field in ten quoted and holding a delimiter,
/// about one character in a hundred beyond ASCII. No line break inside quotes. Ends with a whole
/// row, so it may be some bytes shorter than asked.
[[nodiscard]] std::string CsvBytes(size_t size);

/// Indented objects, nearly all ASCII.
[[nodiscard]] std::string JsonBytes(size_t size);

/// Records in an array, 28 bytes for each value, one record a line.
[[nodiscard]] std::string JsonEventBytes(size_t size);

/// Indented elements with attributes and texts, and no markup of other kinds.
[[nodiscard]] std::string XmlEventBytes(size_t size);

/// Prose: words of two-byte letters between blanks, commas and line breaks.
[[nodiscard]] std::string CyrillicBytes(size_t size);

/// Prose: three-byte characters with three-byte punctuation and now and then a Latin word.
[[nodiscard]] std::string ChineseBytes(size_t size);

}  // namespace rl::bench
