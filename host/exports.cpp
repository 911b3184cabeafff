// Entry points of the plugin, as the host calls them.
//
// Each converts its arguments, makes sure that the settings know their files, and hands over. The
// exports keep no state of their own and let no exception into the host. All are called on the
// host's user-interface thread.
#include <algorithm>
#include <cstring>
#include <string>

#include "host/lister_api.h"
#include "host/store/module_path.h"
#include "host/store/settings.h"
#include "host/store/settings_store.h"
#include "view/viewer.h"

namespace {

using namespace rl;

/// A text in the system's ANSI code page; what does not fit into `room` units is cut.
std::wstring FromAnsi(const char* text, size_t longest, size_t room) {
    if (text == nullptr) {
        return {};
    }
    const int length = static_cast<int>(strnlen(text, longest));
    const auto convert = [&](wchar_t* units, size_t size) {
        const int needed =
            MultiByteToWideChar(CP_ACP, 0, text, length, units, static_cast<int>(size));
        return static_cast<size_t>(needed > 0 ? needed : 0);
    };
    std::wstring out;
    out.resize_and_overwrite(static_cast<size_t>(length), convert);
    out.resize(std::min(out.size(), room));
    return out;
}

void PrepareSettings() {
    SettingsStore& store = SettingsStore::Instance();
    store.SetPluginIniPath(PluginIniPath(ModulePath()));
    store.WriteTemplateIfMissing();
}

HWND OpenViewer(HWND parent, const std::wstring& path, int showFlags) {
    PrepareSettings();
    return Viewer::Open(parent, path, showFlags);
}

int SearchViewer(HWND window, std::wstring_view text, int flags) {
    if (!IsWindow(window)) {
        return lister::kOk;
    }
    const auto viewer = Viewer::Of(window);
    if (viewer == nullptr) {
        return lister::kOk;
    }
    return viewer->Find(text, flags) ? lister::kOk : lister::kError;
}

/// The whole text with its terminator; false when it does not fit or cannot be converted.
bool ToAnsi(std::wstring_view text, char* buffer, int room) {
    const std::wstring ended(text);
    return WideCharToMultiByte(CP_ACP, 0, ended.c_str(), -1, buffer, room, nullptr, nullptr) != 0;
}

/// Runs `body`; whatever it throws, which is a lack of memory, becomes `fallback`.
template <typename Result, typename Body>
Result Guarded(Result fallback, Body body) noexcept {
    try {
        return body();
    } catch (...) {
        return fallback;
    }
}

}  // namespace

extern "C" {

HWND __stdcall ListLoadW(HWND parent, const wchar_t* fileName, int showFlags) {
    return Guarded<HWND>(nullptr, [&] {
        return OpenViewer(parent, fileName != nullptr ? fileName : L"", showFlags);
    });
}

HWND __stdcall ListLoad(HWND parent, const char* fileName, int showFlags) {
    constexpr size_t kLongestPath = 519;
    return Guarded<HWND>(nullptr, [&] {
        return OpenViewer(parent, FromAnsi(fileName, SIZE_MAX, kLongestPath), showFlags);
    });
}

void __stdcall ListCloseWindow(HWND window) {
    if (!IsWindow(window)) {
        return;
    }
    Guarded<bool>(false, [&] {
        if (const auto viewer = Viewer::Of(window)) {
            viewer->Close();
        } else {
            DestroyWindow(window);
        }
        return true;
    });
}

void __stdcall ListGetDetectString(char* buffer, int length) {
    if (buffer == nullptr || length <= 0) {
        return;
    }
    buffer[0] = '\0';
    const bool converted = Guarded<bool>(false, [&] {
        const std::wstring text = settings::Get(settings::kDetectString);
        return ToAnsi(text, buffer, length) || ToAnsi(kShortDetectString, buffer, length);
    });
    (void)converted;  // a buffer too small for the short text has its beginning
    buffer[length - 1] = '\0';
}

int __stdcall ListSearchTextW(HWND window, const wchar_t* text, int flags) {
    return Guarded<int>(rl::lister::kError,
                        [&] { return SearchViewer(window, text != nullptr ? text : L"", flags); });
}

int __stdcall ListSearchText(HWND window, const char* text, int flags) {
    constexpr size_t kLongestText = 1023;
    return Guarded<int>(rl::lister::kError, [&] {
        return SearchViewer(window, FromAnsi(text, SIZE_MAX, kLongestText), flags);
    });
}

void __stdcall ListSetDefaultParams(rl::lister::DefaultParams* params) {
    constexpr size_t kLongestPath = 259;
    Guarded<bool>(false, [&] {
        PrepareSettings();
        if (params != nullptr) {
            SettingsStore::Instance().SetHostIniPath(
                FromAnsi(params->defaultIniName, sizeof params->defaultIniName, kLongestPath));
        }
        return true;
    });
}

/// Window classes must not outlive the code of their procedures. At the end of the process
/// (`reserved` is set) the system takes them itself.
BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID reserved) {
    if (reason == DLL_PROCESS_DETACH && reserved == nullptr) {
        Viewer::UnregisterClasses();
    }
    return TRUE;
}
}
