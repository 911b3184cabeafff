#include "tools/lister/console.h"

#include <windows.h>

#include <string>

namespace rl::tools {

namespace {

void Print(DWORD stream, std::wstring_view text) {
    std::wstring line(text);
    line += L'\n';
    const int units = static_cast<int>(line.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, line.data(), units, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, line.data(), units, bytes.data(), length, nullptr, nullptr);
    DWORD written = 0;
    WriteFile(GetStdHandle(stream), bytes.data(), static_cast<DWORD>(length), &written, nullptr);
}

}  // namespace

void PrintError(std::wstring_view text) {
    Print(STD_ERROR_HANDLE, text);
}

void PrintLine(std::wstring_view text) {
    Print(STD_OUTPUT_HANDLE, text);
}

bool IsHeadless() {
    wchar_t value[8] = L"";
    const DWORD length = GetEnvironmentVariableW(L"ROWLARK_HEADLESS", value, ARRAYSIZE(value));
    return length > 0 && std::wstring_view(value) != L"0";
}

}  // namespace rl::tools
