// Whether parsers of others accept what we wrote: RapidJSON, for texts of modest depth, and Expat.
// Native builds only.
#pragma once

#include <expat.h>
#include <rapidjson/reader.h>

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace rl::test {

/// Whether the whole text is one JSON value of whole characters.
inline bool IsJson(std::wstring_view text) {
    using Utf16 = rapidjson::UTF16<char16_t>;
    constexpr unsigned kFlags =
        rapidjson::kParseValidateEncodingFlag | rapidjson::kParseNumbersAsStringsFlag;
    const std::u16string units(text.begin(), text.end());
    if (units.find(u'\0') != std::u16string::npos) {
        return false;
    }
    rapidjson::GenericStringStream<Utf16> stream(units.c_str());
    rapidjson::GenericReader<Utf16, Utf16> reader;
    rapidjson::BaseReaderHandler<Utf16> handler;
    return !reader.Parse<kFlags>(stream, handler).IsError();
}

/// Whether the whole text is one XML document. Expat knows the letters of an early Unicode only, so
/// all letters beyond Latin-1 stand in as one of them.
inline bool IsXml(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (const wchar_t unit : text) {
        const auto given = static_cast<uint32_t>(unit);
        const bool isPlain =
            given < 0x100 || given >= 0xFFFD || (given >= 0xD800 && given < 0xE000);
        const uint32_t sent = isPlain ? given : 0x4E2D;
        bytes += static_cast<char>(sent & 0xFF);
        bytes += static_cast<char>(sent >> 8);
    }
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate("UTF-16LE"), XML_ParserFree);
    return XML_Parse(parser.get(), bytes.data(), static_cast<int>(bytes.size()), XML_TRUE) ==
           XML_STATUS_OK;
}

}  // namespace rl::test
