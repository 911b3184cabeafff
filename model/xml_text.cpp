#include "model/xml_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "model/xml_document.h"

namespace rl {

namespace {

constexpr size_t kFarthestSemicolon = 32;  // units behind the "&"

std::optional<uint32_t> DigitOf(wchar_t unit, uint32_t base) {
    if (unit >= L'0' && unit <= L'9') {
        return static_cast<uint32_t>(unit - L'0');
    }
    const wchar_t lowered = static_cast<wchar_t>(unit | 0x20);
    if (base == 16 && lowered >= L'a' && lowered <= L'f') {
        return static_cast<uint32_t>(lowered - L'a' + 10);
    }
    return std::nullopt;
}

/// The number as one unit: of larger ones only the low 16 bits are kept.
std::optional<wchar_t> UnitFromNumber(std::wstring_view digits, uint32_t base) {
    if (digits.empty()) {
        return std::nullopt;
    }
    uint32_t number = 0;
    for (const wchar_t unit : digits) {
        const std::optional<uint32_t> digit = DigitOf(unit, base);
        if (!digit) {
            return std::nullopt;
        }
        number = (number * base + *digit) & 0xFFFF;
    }
    return static_cast<wchar_t>(number);
}

/// What stands for the name between "&" and ";".
std::optional<wchar_t> ResolveReference(std::wstring_view name) {
    static constexpr std::array<std::pair<std::wstring_view, wchar_t>, 5> kNamed = {
        {{L"amp", L'&'}, {L"lt", L'<'}, {L"gt", L'>'}, {L"quot", L'"'}, {L"apos", L'\''}}};
    if (name.starts_with(L"#x") || name.starts_with(L"#X")) {
        return UnitFromNumber(name.substr(2), 16);
    }
    if (name.starts_with(L'#')) {
        return UnitFromNumber(name.substr(1), 10);
    }
    const auto* const found = std::ranges::find(kNamed, name, &decltype(kNamed)::value_type::first);
    return found == kNamed.end() ? std::nullopt : std::optional(found->second);
}

void AppendEscaped(std::wstring_view text, wchar_t quote, std::wstring& out) {
    for (const wchar_t unit : text) {
        switch (unit) {
            case L'&': out += L"&amp;"; break;
            case L'<': out += L"&lt;"; break;
            case L'>': out += L"&gt;"; break;
            default:
                if (unit == quote && (unit == L'"' || unit == L'\'')) {
                    out += unit == L'"' ? L"&quot;" : L"&apos;";
                } else {
                    out += unit;
                }
        }
    }
}

}  // namespace

void AppendDecodedEntities(std::wstring_view text, std::wstring& out) {
    size_t at = 0;
    for (size_t mark = text.find(L'&'); mark != text.npos; mark = text.find(L'&', at)) {
        out += text.substr(at, mark - at);
        at = mark + 1;
        const size_t length = text.substr(at, kFarthestSemicolon).find(L';');
        std::optional<wchar_t> unit;
        if (length != text.npos) {
            unit = ResolveReference(text.substr(at, length));
        }
        out += unit.value_or(L'&');
        at += unit ? length + 1 : 0;
    }
    out += text.substr(at);
}

void AppendEscapedText(std::wstring_view text, std::wstring& out) {
    AppendEscaped(text, 0, out);
}

void AppendEscapedAttribute(std::wstring_view text, wchar_t quote, std::wstring& out) {
    AppendEscaped(text, quote, out);
}

std::wstring DecodeEntities(std::wstring_view text) {
    std::wstring out;
    AppendDecodedEntities(text, out);
    return out;
}

std::wstring EscapeText(std::wstring_view text) {
    std::wstring out;
    AppendEscapedText(text, out);
    return out;
}

std::wstring EscapeAttribute(std::wstring_view text, wchar_t quote) {
    std::wstring out;
    AppendEscapedAttribute(text, quote, out);
    return out;
}

}  // namespace rl
