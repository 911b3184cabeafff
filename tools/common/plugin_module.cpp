#include "tools/common/plugin_module.h"

#include <algorithm>
#include <vector>

namespace rl::tools {

struct PluginModule::Defaults {
    int size;
    DWORD interfaceVersionLow;
    DWORD interfaceVersionHigh;
    char iniName[MAX_PATH];
};

namespace {

template <typename Function>
bool Find(HMODULE module, const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
    return function != nullptr;
}

}  // namespace

std::string ToAnsi(const std::wstring& text) {
    const int units = static_cast<int>(text.size());
    const int length =
        WideCharToMultiByte(CP_ACP, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), units, bytes.data(), length, nullptr, nullptr);
    return bytes;
}

PluginModule::PluginModule(const std::filesystem::path& file)
    : handle_(LoadLibraryW(file.c_str())) {
    if (handle_ != nullptr && !FindFunctions()) {
        Unload();
    }
}

bool PluginModule::FindFunctions() {
    return Find(handle_, "ListLoad", load_) && Find(handle_, "ListLoadW", loadWide_) &&
           Find(handle_, "ListCloseWindow", close_) &&
           Find(handle_, "ListGetDetectString", detect_) &&
           Find(handle_, "ListSearchText", search_) &&
           Find(handle_, "ListSearchTextW", searchWide_) &&
           Find(handle_, "ListSetDefaultParams", defaults_);
}

HWND PluginModule::Open(HWND parent, const std::wstring& file, int showFlags) const {
    return loadWide_(parent, file.c_str(), showFlags);
}

HWND PluginModule::OpenAnsi(HWND parent, const std::string& file, int showFlags) const {
    return load_(parent, file.c_str(), showFlags);
}

void PluginModule::Close(HWND viewer) const {
    close_(viewer);
}

int PluginModule::Search(HWND viewer, const std::wstring& text, int flags) const {
    return searchWide_(viewer, text.c_str(), flags);
}

int PluginModule::SearchAnsi(HWND viewer, const std::string& text, int flags) const {
    return search_(viewer, text.c_str(), flags);
}

std::string PluginModule::DetectString(int bufferLength) const {
    std::vector<char> buffer(static_cast<size_t>(bufferLength), '?');
    detect_(buffer.data(), bufferLength);
    return std::string(buffer.begin(), std::find(buffer.begin(), buffer.end(), '\0'));
}

void PluginModule::SetDefaults(const std::wstring& hostIni) const {
    Defaults defaults{.size = sizeof(Defaults),
                      .interfaceVersionLow = 0,
                      .interfaceVersionHigh = 2,
                      .iniName = {}};
    ToAnsi(hostIni).copy(defaults.iniName, sizeof defaults.iniName - 1);
    defaults_(&defaults);
}

void PluginModule::Unload() {
    if (handle_ != nullptr) {
        FreeLibrary(handle_);
        handle_ = nullptr;
    }
}

}  // namespace rl::tools
