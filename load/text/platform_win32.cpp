// The seam as it ships: code pages, case folding and collation of the running Windows.
#include "load/text/platform.h"

#include <windows.h>

#include <algorithm>
#include <climits>

namespace rl::platform {
namespace {

constexpr DWORD kCollation = NORM_IGNORECASE | NORM_IGNOREWIDTH | SORT_DIGITSASNUMBERS;

// Pages that reject both the flag against best fits and the question for the default character.
bool ConvertsUnchecked(uint32_t codePage) {
    return codePage == 52936 || codePage == 54936 || codePage == CP_UTF7 || codePage == CP_UTF8 ||
           (codePage >= 50220 && codePage <= 50229) || (codePage >= 57002 && codePage <= 57011);
}

}  // namespace

std::optional<std::wstring> DecodeCodePage(std::string_view bytes, uint32_t codePage) {
    if (bytes.empty()) {
        return std::wstring();
    }
    if (bytes.size() > INT_MAX) {
        return std::nullopt;
    }
    const int size = static_cast<int>(bytes.size());
    const int units = MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0);
    if (units <= 0) {
        return std::nullopt;
    }
    std::wstring text;
    text.resize_and_overwrite(static_cast<size_t>(units), [&](wchar_t* out, size_t count) {
        const int written =
            MultiByteToWideChar(codePage, 0, bytes.data(), size, out, static_cast<int>(count));
        return static_cast<size_t>(std::max(written, 0));
    });
    return text;
}

std::optional<std::string> EncodeCodePage(std::wstring_view text, uint32_t codePage) {
    if (text.empty()) {
        return std::string();
    }
    if (text.size() > INT_MAX) {
        return std::nullopt;
    }
    const bool checked = !ConvertsUnchecked(codePage == CP_ACP ? GetACP() : codePage);
    const DWORD flags = checked ? WC_NO_BEST_FIT_CHARS : 0;
    BOOL replaced = FALSE;
    BOOL* const asksReplaced = checked ? &replaced : nullptr;
    const int units = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(codePage, flags, text.data(), units, nullptr, 0, nullptr,
                                         asksReplaced);
    if (size <= 0 || replaced) {
        return std::nullopt;
    }
    std::string bytes;
    bytes.resize_and_overwrite(static_cast<size_t>(size), [&](char* out, size_t count) {
        const int written = WideCharToMultiByte(codePage, flags, text.data(), units, out,
                                                static_cast<int>(count), nullptr, asksReplaced);
        return static_cast<size_t>(std::max(written, 0));
    });
    if (replaced) {
        return std::nullopt;
    }
    return bytes;
}

void FoldCase(std::span<wchar_t> text) {
    while (!text.empty()) {
        const size_t count = std::min<size_t>(text.size(), INT_MAX);
        CharLowerBuffW(text.data(), static_cast<DWORD>(count));
        text = text.subspan(count);
    }
}

int Collate(std::wstring_view left, std::wstring_view right) {
    if (left.size() <= INT_MAX && right.size() <= INT_MAX) {
        const int order = CompareStringEx(
            LOCALE_NAME_USER_DEFAULT, kCollation, left.data(), static_cast<int>(left.size()),
            right.data(), static_cast<int>(right.size()), nullptr, nullptr, 0);
        if (order != 0) {
            return order - CSTR_EQUAL;
        }
    }
    return left.compare(right);
}

std::string CollationKey(std::wstring_view text) {
    if (text.empty() || text.size() > INT_MAX) {
        return {};
    }
    const int units = static_cast<int>(text.size());
    const DWORD flags = LCMAP_SORTKEY | kCollation;
    const int size = LCMapStringEx(LOCALE_NAME_USER_DEFAULT, flags, text.data(), units, nullptr, 0,
                                   nullptr, nullptr, 0);
    std::string key;
    if (size > 0) {
        key.resize_and_overwrite(static_cast<size_t>(size), [&](char* out, size_t count) {
            // A sort key is bytes, though the call takes a pointer to characters.
            const int written = LCMapStringEx(LOCALE_NAME_USER_DEFAULT, flags, text.data(), units,
                                              reinterpret_cast<wchar_t*>(out),
                                              static_cast<int>(count), nullptr, nullptr, 0);
            return static_cast<size_t>(std::max(written, 0));
        });
    }
    return key;
}

}  // namespace rl::platform
