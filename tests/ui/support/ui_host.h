// A host for one test: a copy of the real module in a folder of its own, a window to open files in,
// and everything cleaned away afterwards.
#pragma once

#include <windows.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tests/ui/support/viewer.h"
#include "tools/common/module_copy.h"
#include "tools/common/plugin_module.h"

namespace rl::test {

/// How a test wants its host. The INI text is what stands beside the module: lines under [rowlark].
struct HostSetup {
    std::string ini = {};
    bool quickView = false;  // viewers in a child window, as in the quick-view panel
    bool popup = false;      // viewers in a child window with the popup style's rights
    int width = 900;         // client area, pixels
    int height = 600;
};

class UiHost {
public:
    explicit UiHost(const HostSetup& setup = {});
    UiHost(const UiHost&) = delete;
    UiHost& operator=(const UiHost&) = delete;
    ~UiHost();

    /// Writes a file into the host's folder.
    std::filesystem::path Write(const std::wstring& name, const std::string& bytes) const;

    /// Asks for a viewer without waiting for its load.
    [[nodiscard]] Viewer Start(const std::filesystem::path& file, int showFlags = 0);

    /// Opens a file and waits until it is shown; the test fails when it never is.
    [[nodiscard]] Viewer Open(const std::filesystem::path& file, int showFlags = 0);

    /// The same for a file with this name and these bytes.
    [[nodiscard]] Viewer OpenText(const std::string& bytes, const std::wstring& name = L"data.csv",
                                  int showFlags = 0);

    void Close(const Viewer& viewer) const { module_->Close(viewer.Window()); }

    /// Waits until the viewer is shown, or has gone; true when it is shown.
    static bool WaitUntilLoaded(const Viewer& viewer);

    /// Waits until the viewer has gone.
    static bool WaitUntilGone(const Viewer& viewer);

    /// Lets the first half second pass, in which no key is handed back.
    static void PassKeyGuard();

    /// Keys that came to the parent since the last call: those that viewers handed back, as long as
    /// the focus is in a viewer.
    [[nodiscard]] static std::vector<WPARAM> TakeKeys();

    /// The key data of the last of them.
    [[nodiscard]] static LPARAM LastKeyData();

    /// The value of a key as it stands in the INI file now; "?" when it does not.
    [[nodiscard]] std::wstring IniValue(const wchar_t* key) const;
    [[nodiscard]] std::filesystem::path IniFile() const;

    [[nodiscard]] const tools::PluginModule& Module() const { return *module_; }
    [[nodiscard]] std::filesystem::path ModuleFile() const;
    [[nodiscard]] HWND Frame() const { return frame_; }

    /// The window that viewers are opened in.
    [[nodiscard]] HWND Parent() const { return panel_ != nullptr ? panel_ : frame_; }

    /// Gives the frame another client size, and the viewers with it.
    void Resize(int width, int height);

    /// Closes all viewers and lets go of the module.
    void Unload();

private:
    tools::TempFolder folder_;
    std::unique_ptr<tools::PluginModule> module_;
    HWND frame_ = nullptr;
    HWND panel_ = nullptr;
    std::vector<HWND> viewers_;
};

}  // namespace rl::test
