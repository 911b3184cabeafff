#include "model/xml_text.h"

#include <cstddef>
#include <cstdint>

#include "model/xml_document.h"

namespace rl {

namespace {

constexpr size_t kLongestReference = 32;

struct NamedUnit {
    std::wstring_view name;
    wchar_t unit;
};

constexpr NamedUnit kNamed[] = {
    {L"amp", L'&'}, {L"lt", L'<'}, {L"gt", L'>'}, {L"quot", L'"'}, {L"apos", L'\''}};

/// The digit's value, below `base`; -1 for anything else.
int DigitValue(wchar_t unit, uint32_t base) {
    if (unit >= L'0' && unit <= L'9') {
        return unit - L'0';
    }
    const auto lower = static_cast<wchar_t>(unit | 0x20);
    return base == 16 && lower >= L'a' && lower <= L'f' ? lower - L'a' + 10 : -1;
}

/// The unit of a character reference behind its "#", the low 16 bits of the number; -1 for none.
int32_t CharacterOf(std::wstring_view digits) {
    uint32_t base = 10;
    if (digits.starts_with(L'x') || digits.starts_with(L'X')) {
        base = 16;
        digits.remove_prefix(1);
    }
    if (digits.empty()) {
        return -1;
    }
    uint32_t value = 0;
    for (const wchar_t digit : digits) {
        const int one = DigitValue(digit, base);
        if (one < 0) {
            return -1;
        }
        value = value * base + static_cast<uint32_t>(one);  // higher bits do not count
    }
    return static_cast<int32_t>(value & 0xFFFF);
}

/// The unit that a reference's name stands for; -1 for none.
int32_t UnitOf(std::wstring_view name) {
    if (name.starts_with(L'#')) {
        return CharacterOf(name.substr(1));
    }
    for (const NamedUnit& known : kNamed) {
        if (known.name == name) {
            return known.unit;
        }
    }
    return -1;
}

void EscapeUnits(std::wstring_view text, std::wstring_view special, std::wstring& out) {
    size_t plain = 0;
    for (size_t at = text.find_first_of(special); at != std::wstring_view::npos;
         at = text.find_first_of(special, plain)) {
        out += text.substr(plain, at - plain);
        for (const NamedUnit& known : kNamed) {
            if (known.unit == text[at]) {
                out += L'&';
                out += known.name;
                out += L';';
            }
        }
        plain = at + 1;
    }
    out += text.substr(plain);
}

}  // namespace

void DecodeXmlText(std::wstring_view text, std::wstring& out) {
    size_t at = 0;
    while (at < text.size()) {
        const size_t mark = text.find(L'&', at);
        out += text.substr(at, mark - at);
        if (mark == std::wstring_view::npos) {
            return;
        }
        const size_t end = text.substr(mark, kLongestReference + 1).find(L';');
        const int32_t unit =
            end == std::wstring_view::npos ? -1 : UnitOf(text.substr(mark + 1, end - 1));
        out += unit >= 0 ? static_cast<wchar_t>(unit) : L'&';
        at = mark + (unit >= 0 ? end + 1 : 1);
    }
}

void EscapeXmlText(std::wstring_view text, std::wstring& out) {
    EscapeUnits(text, L"&<>", out);
}

void EscapeXmlAttribute(std::wstring_view text, wchar_t quote, std::wstring& out) {
    EscapeUnits(text, quote == L'\'' ? L"&<>'" : L"&<>\"", out);
}

std::wstring DecodeEntities(std::wstring_view text) {
    std::wstring out;
    out.reserve(text.size());
    DecodeXmlText(text, out);
    return out;
}

std::wstring EscapeText(std::wstring_view text) {
    std::wstring out;
    out.reserve(text.size());
    EscapeXmlText(text, out);
    return out;
}

std::wstring EscapeAttribute(std::wstring_view text, wchar_t quote) {
    std::wstring out;
    out.reserve(text.size());
    EscapeXmlAttribute(text, quote, out);
    return out;
}

}  // namespace rl
