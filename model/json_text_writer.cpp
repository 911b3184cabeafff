#include "model/json_text_writer.h"

#include <cstdint>
#include <iterator>
#include <string>

#include "model/json_document.h"

namespace rl {

namespace {

constexpr bool IsHigh(wchar_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool IsLow(wchar_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

// Half a pair is no character, and no encoding would carry it: it is written as an escape.
void JsonTextWriter::String(std::wstring_view text) {
    const std::wstring literal = EscapeString(text);
    size_t written = 0;
    for (size_t i = 0; i < literal.size(); ++i) {
        if (!IsHigh(literal[i]) && !IsLow(literal[i])) {
            continue;
        }
        if (IsHigh(literal[i]) && IsLow(literal[i + 1])) {  // a quote stands at the end
            ++i;
            continue;
        }
        constexpr std::wstring_view kDigits = L"0123456789ABCDEF";
        const auto unit = static_cast<uint32_t>(literal[i]);
        const wchar_t escape[] = {L'\\',
                                  L'u',
                                  kDigits[unit >> 12],
                                  kDigits[unit >> 8 & 15],
                                  kDigits[unit >> 4 & 15],
                                  kDigits[unit & 15]};
        out_.Append(std::wstring_view(literal).substr(written, i - written));
        out_.Append({escape, std::size(escape)});
        written = i + 1;
    }
    out_.Append(std::wstring_view(literal).substr(written));
}

}  // namespace rl
