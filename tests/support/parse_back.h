// Whether parsers of others accept what we wrote: RapidJSON, for texts of modest depth, and Expat.
// Native builds only.
#pragma once

#include <expat.h>

// RapidJSON adds to null pointers before it allocates, which is nothing of ours to find.
#ifdef __clang__
#pragma clang attribute push(__attribute__((no_sanitize("pointer-overflow"))), apply_to = function)
#endif
#include <rapidjson/reader.h>
#ifdef __clang__
#pragma clang attribute pop
#endif

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "tests/support/corpus.h"

namespace rl::test {

/// Whether the whole text is one JSON value. RapidJSON refuses escapes of half pairs, which the
/// grammar allows: other characters stand in for them; and it cannot read past a number beyond a
/// double's range. Halves without an escape are refused.
inline bool IsJson(std::wstring_view text) {
    constexpr unsigned kFlags =
        rapidjson::kParseValidateEncodingFlag | rapidjson::kParseNumbersAsStringsFlag;
    std::string bytes = Utf8(text);
    if (bytes.find('\0') != std::string::npos) {
        return false;
    }
    for (size_t i = 0; i + 3 < bytes.size(); ++i) {
        if (bytes[i] == '\\') {
            ++i;
            if (bytes[i] == 'u' && bytes[i + 1] == 'D' && bytes[i + 2] >= '8') {
                bytes[i + 1] = 'F';
            }
        }
    }
    rapidjson::StringStream stream(bytes.c_str());
    rapidjson::Reader reader;
    rapidjson::BaseReaderHandler<> handler;
    const rapidjson::ParseResult result = reader.Parse<kFlags>(stream, handler);
    return !result.IsError() || result.Code() == rapidjson::kParseErrorNumberTooBig;
}

/// Whether the whole text is one XML document. Expat knows the letters of an early Unicode only, so
/// one of those stands in for everything beyond Latin-1 and the first ideographs; what XML forbids
/// is sent as it is.
inline bool IsXml(std::wstring_view text) {
    const auto isHigh = [&](size_t at) { return text[at] >= 0xD800 && text[at] <= 0xDBFF; };
    const auto isLow = [&](size_t at) { return text[at] >= 0xDC00 && text[at] <= 0xDFFF; };
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (size_t i = 0; i < text.size(); ++i) {
        const bool isPaired = (isHigh(i) && i + 1 < text.size() && isLow(i + 1)) ||
                              (isLow(i) && i > 0 && isHigh(i - 1));
        const bool isHalf = (isHigh(i) || isLow(i)) && !isPaired;
        const bool isIdeograph = text[i] >= 0x4E00 && text[i] <= 0x9FA5;
        const bool isSentAsItIs = text[i] < 0x100 || isIdeograph || text[i] >= 0xFFFD || isHalf;
        const auto sent = static_cast<uint32_t>(isSentAsItIs ? text[i] : 0x4E2D);
        bytes += static_cast<char>(sent & 0xFF);
        bytes += static_cast<char>(sent >> 8);
    }
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate("UTF-16LE"), XML_ParserFree);
    return XML_Parse(parser.get(), bytes.data(), static_cast<int>(bytes.size()), XML_TRUE) ==
           XML_STATUS_OK;
}

}  // namespace rl::test
