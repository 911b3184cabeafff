#include "host/store/module_path.h"

#include <windows.h>

namespace rl {
namespace {

constexpr size_t kLongestPath = 32768;  // units, what the system can name at all

/// An address inside this module, to ask for its handle by.
const wchar_t kAnchor = 0;

}  // namespace

std::wstring ModulePath() {
    HMODULE module = nullptr;
    constexpr DWORD kByAddress = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS;
    constexpr DWORD kBorrowed = GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!GetModuleHandleExW(kByAddress | kBorrowed, &kAnchor, &module)) {
        return {};
    }
    for (size_t room = MAX_PATH; room <= kLongestPath; room *= 2) {
        std::wstring path(room, L'\0');
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(room));
        if (length < room) {  // as long as the buffer means cut
            path.resize(length);
            return path;
        }
    }
    return {};
}

std::wstring PluginIniPath(std::wstring_view modulePath) {
    std::wstring path(modulePath.substr(0, modulePath.rfind(L'.')));
    path += L".ini";
    return path;
}

}  // namespace rl
