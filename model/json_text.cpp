#include "model/json_text.h"

#include <array>
#include <utility>

#include "model/json_document.h"
#include "model/json_scan.h"

namespace rl {

namespace {

using Scan = detail::JsonScan<wchar_t>;

wchar_t PlainEscape(wchar_t letter) {
    switch (letter) {
        case L'b': return L'\b';
        case L'f': return L'\f';
        case L'n': return L'\n';
        case L'r': return L'\r';
        case L't': return L'\t';
        default: return letter;
    }
}

constexpr std::wstring_view kDigits = L"0123456789ABCDEF";

constexpr bool IsHigh(wchar_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool IsLow(wchar_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The first half that stands alone, from `at` on; the length of the text where there is none.
size_t FindLoneSurrogate(std::wstring_view text, size_t at) {
    for (; at < text.size(); ++at) {
        if (IsLow(text[at])) {
            return at;
        }
        if (IsHigh(text[at])) {
            if (at + 1 == text.size() || !IsLow(text[at + 1])) {
                return at;
            }
            ++at;
        }
    }
    return text.size();
}

void AppendEscape(wchar_t unit, std::wstring& out) {
    static constexpr std::array<wchar_t, 6> kShort = {L'b', L't', L'n', 0, L'f', L'r'};
    out += L'\\';
    const auto code = static_cast<size_t>(unit);
    if (code >= 0x20) {
        out += unit;
    } else if (code >= 8 && code - 8 < kShort.size() && kShort[code - 8] != 0) {
        out += kShort[code - 8];
    } else {
        out += L"u00";
        out += kDigits[code / 16];
        out += kDigits[code % 16];
    }
}

}  // namespace

std::optional<wchar_t> FourHexDigits(std::wstring_view digits) {
    if (digits.size() != 4) {
        return std::nullopt;
    }
    uint32_t value = 0;
    for (const wchar_t digit : digits) {
        if (detail::IsJsonDigit(digit)) {
            value = value * 16 + static_cast<uint32_t>(digit - L'0');
        } else if ((digit | 0x20) >= L'a' && (digit | 0x20) <= L'f') {
            value = value * 16 + static_cast<uint32_t>((digit | 0x20) - L'a') + 10;
        } else {
            return std::nullopt;
        }
    }
    return static_cast<wchar_t>(value);
}

void AppendDecoded(std::wstring_view token, std::wstring& out) {
    if (token.size() < 2) {
        return;
    }
    std::wstring_view rest = token.substr(1, token.size() - 2);
    for (;;) {
        const size_t plain = std::min(rest.find(L'\\'), rest.size());
        out += rest.substr(0, plain);
        if (rest.size() - plain < 2) {
            return;
        }
        const wchar_t letter = rest[plain + 1];
        rest.remove_prefix(plain + 2);
        if (letter != L'u') {
            out += PlainEscape(letter);
        } else if (const auto unit = FourHexDigits(rest.substr(0, 4))) {
            out += *unit;
            rest.remove_prefix(4);
        }
    }
}

void AppendEscaped(std::wstring_view text, std::wstring& out) {
    const wchar_t* at = text.data();
    const wchar_t* const end = at + text.size();
    out += L'"';
    while (at != end) {
        const wchar_t* const stop = Scan::PastUnescaped(at, end);
        out.append(at, stop);
        at = stop;
        if (at != end) {
            AppendEscape(*at++, out);
        }
    }
    out += L'"';
}

void EscapeLoneSurrogates(std::wstring& json) {
    size_t written = 0;
    std::wstring out;
    for (size_t at = FindLoneSurrogate(json, 0); at < json.size();
         at = FindLoneSurrogate(json, written)) {
        const auto unit = static_cast<uint32_t>(json[at]);
        out.append(json, written, at - written);
        out += {L'\\',
                L'u',
                kDigits[unit >> 12],
                kDigits[unit >> 8 & 15],
                kDigits[unit >> 4 & 15],
                kDigits[unit & 15]};
        written = at + 1;
    }
    if (written > 0) {
        json = std::move(out.append(json, written));
    }
}

bool IsCanonicalToken(std::wstring_view token) {
    if (token.size() < 2) {
        return false;
    }
    const wchar_t* const end = token.data() + token.size() - 1;
    return Scan::PastUnescaped(token.data() + 1, end) == end;
}

std::wstring EscapeString(std::wstring_view text) {
    std::wstring out;
    out.reserve(text.size() + 2);
    AppendEscaped(text, out);
    return out;
}

bool IsValidJsonNumber(std::wstring_view text) {
    const wchar_t* const end = text.data() + text.size();
    return !text.empty() && detail::PastNumber<Scan>(text.data(), end) == end;
}

}  // namespace rl
