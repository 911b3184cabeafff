// Every sentence a user may read after a failure, side by side so that they sound like one voice.
#pragma once

#include <string>
#include <string_view>

namespace rl {

namespace messages {

inline constexpr std::wstring_view kCaption = L"rowlark";
inline constexpr std::wstring_view kNotOpened = L"The file could not be opened.";
inline constexpr std::wstring_view kNoSize = L"The file size could not be determined.";
inline constexpr std::wstring_view kNotRead = L"The file could not be read.";
inline constexpr std::wstring_view kNotLoaded = L"The file could not be loaded.";
inline constexpr std::wstring_view kNotSaved = L"The file could not be saved.";
inline constexpr std::wstring_view kNotReloaded = L"The file could not be reloaded.";
inline constexpr std::wstring_view kTooLong = L"The file is too large for this plugin.";
inline constexpr std::wstring_view kUnbalancedQuotes =
    L"The file could not be parsed (unbalanced quotes).";
inline constexpr std::wstring_view kNotJson = L"Not a valid JSON document";
inline constexpr std::wstring_view kNotXml = L"Not a valid XML document";

/// Both sizes as FormatByteSize writes them.
[[nodiscard]] inline std::wstring OverConfiguredLimit(std::wstring_view size,
                                                      std::wstring_view limit) {
    std::wstring text =
        L"The file could not be loaded because it exceeds the configured size limit.\r\nFile "
        L"size: ";
    text += size;
    text += L"\r\nLimit: ";
    text += limit;
    text +=
        L"\r\n\r\nRaise max-file-size in rowlark.ini to open it (memory use peaks at roughly 4x "
        L"the "
        L"file size).";
    return text;
}

[[nodiscard]] inline std::wstring OverHardLimit(std::wstring_view size) {
    std::wstring text = L"The file is too large for this plugin.\r\nFile size: ";
    text += size;
    text += L"\r\nHard limit: 2147483647 bytes (2048.0 MB)";
    return text;
}

}  // namespace messages

/// Records why something failed and says so: `return Fail(error, messages::kNotRead);`.
inline bool Fail(std::wstring& error, std::wstring_view sentence) {
    error = sentence;
    return false;
}

}  // namespace rl
