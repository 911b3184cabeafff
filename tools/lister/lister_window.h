// The Lister window: one file, shown by the plugin, with the keys of the file manager.
//
// The plugin has the keyboard; keys it has no use for come back as posted WM_KEYDOWN messages.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

#include "tools/common/plugin_module.h"
#include "tools/lister/find_dialog.h"
#include "tools/lister/options.h"
#include "tools/lister/quick_view.h"
#include "tools/lister/viewer_slot.h"

namespace rl::tools {

class ListerWindow {
public:
    ListerWindow(const PluginModule& module, const Options& options);
    ListerWindow(const ListerWindow&) = delete;
    ListerWindow& operator=(const ListerWindow&) = delete;
    ~ListerWindow();

    /// Creates and shows the window; false when the system refuses.
    [[nodiscard]] bool Create();

    /// Shows the file in place of the present one; false when the plugin declines it.
    bool Open(const std::filesystem::path& file);

    /// To be called between messages: notices a viewer that has gone by itself because its file
    /// cannot be loaded, and one that is ready to be searched.
    void NoticeViewer();

    [[nodiscard]] HWND Window() const { return window_; }
    [[nodiscard]] const ViewerSlot& Viewer() const { return viewer_; }

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam);

    void OnKey(WPARAM key);
    void OnCommand(int command, int notification);
    void OnDrop(WPARAM drop);
    void OnActivate(bool active);
    void Layout() const;

    void AskForFile();
    void OpenNeighbour(int step);
    void AskAndFind();
    void FindNext(bool backwards);
    void Find(int flags);
    void TryToClose();
    void ShowTitle(const std::wstring& note = L"");
    [[nodiscard]] HWND ViewerParent() const;

    const PluginModule& module_;
    const Options& options_;
    ViewerSlot viewer_;
    QuickView quickView_;
    Search search_;
    bool searchWaits_ = false;  // for the file to be shown
    std::filesystem::path file_;
    HWND window_ = nullptr;
    HWND lastFocus_ = nullptr;  // the control to return to when the window is activated again
};

}  // namespace rl::tools
