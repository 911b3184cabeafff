#include "model/json_text.h"

#include <cstdint>

#include "model/json_document.h"

namespace rl {

namespace {

bool IsDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

/// The value of a hexadecimal digit; -1 for anything else.
int HexValue(wchar_t unit) {
    if (IsDigit(unit)) {
        return unit - L'0';
    }
    const auto lower = static_cast<wchar_t>(unit | 0x20);
    return lower >= L'a' && lower <= L'f' ? lower - L'a' + 10 : -1;
}

/// The unit behind "\u"; -1 when one of the four digits is none.
int32_t HexUnit(std::wstring_view digits) {
    int32_t value = 0;
    for (const wchar_t digit : digits) {
        const int nibble = HexValue(digit);
        if (nibble < 0) {
            return -1;
        }
        value = value * 16 + nibble;
    }
    return value;
}

wchar_t Unescaped(wchar_t letter) {
    switch (letter) {
        case L'b': return 8;
        case L'f': return 12;
        case L'n': return 10;
        case L'r': return 13;
        case L't': return 9;
        default: return letter;
    }
}

size_t DigitsEnd(std::wstring_view text, size_t at) {
    while (at < text.size() && IsDigit(text[at])) {
        ++at;
    }
    return at;
}

void AppendEscaped(wchar_t unit, std::wstring& out) {
    static constexpr wchar_t kHex[] = L"0123456789ABCDEF";
    switch (unit) {
        case 8: out += L"\\b"; return;
        case 9: out += L"\\t"; return;
        case 10: out += L"\\n"; return;
        case 12: out += L"\\f"; return;
        case 13: out += L"\\r"; return;
        case L'"': out += L"\\\""; return;
        case L'\\': out += L"\\\\"; return;
        default: break;
    }
    out += L"\\u00";
    out += kHex[unit >> 4];
    out += kHex[unit & 15];
}

}  // namespace

void DecodeJsonString(std::wstring_view token, std::wstring& out) {
    if (token.size() < 2) {
        return;
    }
    const std::wstring_view inner = token.substr(1, token.size() - 2);
    size_t at = 0;
    while (at < inner.size()) {
        const size_t escape = inner.find(L'\\', at);
        out += inner.substr(at, escape - at);
        if (escape == std::wstring_view::npos || escape + 1 == inner.size()) {
            return;
        }
        const wchar_t letter = inner[escape + 1];
        at = escape + 2;
        if (letter != L'u') {
            out += Unescaped(letter);
        } else if (inner.size() - at >= 4) {
            const int32_t unit = HexUnit(inner.substr(at, 4));
            if (unit >= 0) {
                out += static_cast<wchar_t>(unit);
                at += 4;
            }
        }
    }
}

void EscapeJsonString(std::wstring_view text, std::wstring& out) {
    out += L'"';
    size_t plain = 0;
    for (size_t at = 0; at < text.size(); ++at) {
        const wchar_t unit = text[at];
        if (unit >= 32 && unit != L'"' && unit != L'\\') {
            continue;
        }
        out += text.substr(plain, at - plain);
        AppendEscaped(unit, out);
        plain = at + 1;
    }
    out += text.substr(plain);
    out += L'"';
}

size_t NumberEnd(std::wstring_view text, size_t at) {
    const size_t start = at;
    const auto unitAt = [text](size_t index) { return index < text.size() ? text[index] : L'\0'; };
    if (unitAt(at) == L'-') {
        ++at;
    }
    if (!IsDigit(unitAt(at))) {
        return start;
    }
    at = text[at] == L'0' ? at + 1 : DigitsEnd(text, at);
    if (unitAt(at) == L'.') {
        if (!IsDigit(unitAt(at + 1))) {
            return start;
        }
        at = DigitsEnd(text, at + 1);
    }
    if (unitAt(at) == L'e' || unitAt(at) == L'E') {
        ++at;
        if (unitAt(at) == L'+' || unitAt(at) == L'-') {
            ++at;
        }
        if (!IsDigit(unitAt(at))) {
            return start;
        }
        at = DigitsEnd(text, at);
    }
    return at;
}

size_t StringEnd(std::wstring_view text, size_t at) {
    const size_t start = at;
    if (at >= text.size() || text[at] != L'"') {
        return start;
    }
    ++at;
    while (at < text.size()) {
        if (text[at] == L'"') {
            return at + 1;
        }
        if (text[at] != L'\\') {
            ++at;
            continue;
        }
        if (at + 1 >= text.size()) {
            return start;
        }
        if (text[at + 1] != L'u') {
            at += 2;
            continue;
        }
        if (text.size() - at < 6 || HexUnit(text.substr(at + 2, 4)) < 0) {
            return start;
        }
        at += 6;
    }
    return start;
}

std::wstring EscapeString(std::wstring_view text) {
    std::wstring out;
    out.reserve(text.size() + 2);
    EscapeJsonString(text, out);
    return out;
}

bool IsValidJsonNumber(std::wstring_view text) {
    return !text.empty() && NumberEnd(text, 0) == text.size();
}

}  // namespace rl
