#include "tools/lister/module_setup.h"

#include "tools/common/import_patch.h"
#include "tools/lister/console.h"

namespace rl::tools {

namespace fs = std::filesystem;

namespace {

constexpr const wchar_t* kModuleName = L"rowlark.wlx64";

// Replacements are plain functions, so what they need is kept here.
UINT toldDpi = 0;
int messageBoxCount = 0;

UINT WINAPI AnswerDpi(HWND) {
    return toldDpi;
}

int WINAPI PrintMessageBox(HWND, LPCWSTR text, LPCWSTR caption, UINT type) {
    PrintError(std::wstring(caption) + L": " + text);
    ++messageBoxCount;
    const UINT buttons = type & MB_TYPEMASK;
    return buttons == MB_YESNO || buttons == MB_YESNOCANCEL ? IDNO : IDOK;
}

fs::path OwnFolder() {
    wchar_t path[32768];
    const DWORD length = GetModuleFileNameW(nullptr, path, ARRAYSIZE(path));
    return fs::path(std::wstring(path, length)).parent_path();
}

/// Beside the program as it is handed out, or where the build puts it.
fs::path FindModule(const std::wstring& wish) {
    if (!wish.empty()) {
        return fs::absolute(wish);
    }
    const fs::path beside = OwnFolder() / kModuleName;
    return fs::exists(beside) ? beside : OwnFolder() / L"../../host" / kModuleName;
}

std::string ToUtf8(const std::wstring& text) {
    const auto bytes = fs::path(text).u8string();
    return std::string(bytes.begin(), bytes.end());
}

}  // namespace

int ModuleSetup::MessageBoxCount() {
    return messageBoxCount;
}

fs::path ModuleSetup::PrivateCopy(const fs::path& original, const Options& options) {
    folder_.emplace();
    std::string settings = options.ini.empty() ? std::string() : ReadBytes(options.ini);
    if (!options.theme.empty()) {
        // The first occurrence of a key wins, so ours stands in front of the file's.
        settings = "[rowlark]\ntheme=" + ToUtf8(options.theme) + "\n" + settings;
    }
    WriteBytes(folder_->Path() / L"rowlark.ini", settings);
    return CopyModule(original, folder_->Path());
}

ModuleSetup::ModuleSetup(const Options& options, bool headless, std::wstring& error) {
    fs::path file = FindModule(options.module);
    if (!options.ini.empty() && !fs::exists(options.ini)) {
        error = L"no such file: " + options.ini;
        return;
    }
    if (!options.ini.empty() || !options.theme.empty()) {
        file = PrivateCopy(file, options);
    }
    module_ = std::make_unique<PluginModule>(file);
    if (!module_->IsLoaded()) {
        error = L"the module cannot be loaded: " + FindModule(options.module).wstring();
        return;
    }
    if (options.dpi > 0) {
        toldDpi = static_cast<UINT>(options.dpi);
        PatchImport(module_->Handle(), "GetDpiForWindow", &AnswerDpi);
    }
    if (headless) {
        PatchImport(module_->Handle(), "MessageBoxW", &PrintMessageBox);
    }
    module_->SetDefaults((OwnFolder() / L"lister.ini").wstring());
}

}  // namespace rl::tools
