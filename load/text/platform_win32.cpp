// The seam as it ships: code pages, case folding and collation as Windows does them.
//
// Every call here takes lengths as int; longer texts are refused rather than cut. Safe on any
// thread.
#include <windows.h>

#include <algorithm>
#include <array>
#include <limits>

#include "load/text/platform.h"

namespace rl::platform {

namespace {

constexpr DWORD kCollation = NORM_IGNORECASE | NORM_IGNOREWIDTH | SORT_DIGITSASNUMBERS;

/// The length as the system takes it; nothing when it cannot.
std::optional<int> SystemLength(size_t size) {
    if (size > static_cast<size_t>(std::numeric_limits<int>::max())) {
        return std::nullopt;
    }
    return static_cast<int>(size);
}

/// Pages that refuse both the flag against best fits and the question for the default character.
constexpr bool ConvertsWithoutCheck(UINT codePage) {
    return codePage == 52936 || codePage == 54936 || codePage == CP_UTF7 || codePage == CP_UTF8 ||
           (codePage >= 50220 && codePage <= 50229) || (codePage >= 57002 && codePage <= 57011);
}

/// The text when it fits `room` units and the page is there; else none, and the system knows why.
std::wstring DecodeInto(std::string_view bytes, UINT codePage, int room) {
    std::wstring text;
    text.resize_and_overwrite(static_cast<size_t>(std::max(room, 0)), [&](wchar_t* out, size_t) {
        const int written = MultiByteToWideChar(codePage, 0, bytes.data(),
                                                static_cast<int>(bytes.size()), out, room);
        return static_cast<size_t>(std::max(written, 0));
    });
    return text;
}

int CompareOrdinal(std::wstring_view left, std::wstring_view right) {
    const int order = left.compare(right);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

}  // namespace

std::optional<std::wstring> DecodeCodePage(std::string_view bytes, uint32_t codePage) {
    if (bytes.empty()) {
        return std::wstring();
    }
    const std::optional<int> length = SystemLength(bytes.size());
    if (!length) {
        return std::nullopt;
    }
    // No page known gives more units than bytes, and one that does is asked for its size.
    std::wstring text = DecodeInto(bytes, codePage, *length);
    if (text.empty() && GetLastError() == ERROR_INSUFFICIENT_BUFFER) {
        const int units = MultiByteToWideChar(codePage, 0, bytes.data(), *length, nullptr, 0);
        text = DecodeInto(bytes, codePage, units);
    }
    if (text.empty()) {
        return std::nullopt;
    }
    if (text.capacity() - text.size() > text.size() / 100) {
        text.shrink_to_fit();
    }
    return text;
}

std::optional<std::string> EncodeCodePage(std::wstring_view text, uint32_t codePage) {
    if (text.empty()) {
        return std::string();
    }
    // The system's own page may be UTF-8, which must be asked as such.
    const UINT page = codePage == CP_ACP ? GetACP() : codePage;
    const bool checked = !ConvertsWithoutCheck(page);
    const DWORD flags = checked ? WC_NO_BEST_FIT_CHARS : 0;
    BOOL usedDefault = FALSE;
    BOOL* const ask = checked ? &usedDefault : nullptr;
    const std::optional<int> length = SystemLength(text.size());
    const int size =
        length ? WideCharToMultiByte(page, flags, text.data(), *length, nullptr, 0, nullptr, ask)
               : 0;
    if (size <= 0 || usedDefault) {
        return std::nullopt;
    }
    std::string bytes;
    bytes.resize_and_overwrite(static_cast<size_t>(size), [&](char* out, size_t) {
        const int written =
            WideCharToMultiByte(page, flags, text.data(), *length, out, size, nullptr, ask);
        return static_cast<size_t>(std::max(written, 0));
    });
    if (bytes.empty() || usedDefault) {
        return std::nullopt;
    }
    return bytes;
}

void FoldCase(std::span<wchar_t> text) {
    while (!text.empty()) {
        const size_t part = std::min<size_t>(text.size(), std::numeric_limits<int>::max());
        CharLowerBuffW(text.data(), static_cast<DWORD>(part));
        text = text.subspan(part);
    }
}

int Collate(std::wstring_view left, std::wstring_view right) {
    const std::optional<int> leftLength = SystemLength(left.size());
    const std::optional<int> rightLength = SystemLength(right.size());
    if (!leftLength || !rightLength) {
        return CompareOrdinal(left, right);
    }
    const int order = CompareStringEx(LOCALE_NAME_USER_DEFAULT, kCollation, left.data(),
                                      *leftLength, right.data(), *rightLength, nullptr, nullptr, 0);
    return order == 0 ? CompareOrdinal(left, right) : order - CSTR_EQUAL;
}

std::string CollationKey(std::wstring_view text) {
    const std::optional<int> length = SystemLength(text.size());
    if (!length) {
        return {};
    }
    // The system takes no length of 0; a text that ends at once has the key of ignorable ones.
    const wchar_t* from = text.empty() ? L"" : text.data();
    const int count = text.empty() ? -1 : *length;
    const auto map = [&](char* out, int size) {
        // A sort key is counted and written in bytes, whatever the parameter's type says.
        return LCMapStringEx(LOCALE_NAME_USER_DEFAULT, LCMAP_SORTKEY | kCollation, from, count,
                             reinterpret_cast<wchar_t*>(out), size, nullptr, nullptr, 0);
    };
    // Most keys are short: asking for the size first would double the time.
    std::array<char, 512> buffer;
    const int written = map(buffer.data(), static_cast<int>(buffer.size()));
    if (written > 0) {
        return {buffer.data(), static_cast<size_t>(written)};
    }
    std::string key;
    const int size = map(nullptr, 0);
    if (size > 0) {
        key.resize_and_overwrite(static_cast<size_t>(size), [&](char* out, size_t) {
            return static_cast<size_t>(std::max(map(out, size), 0));
        });
    }
    return key;
}

}  // namespace rl::platform
