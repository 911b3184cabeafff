// One viewer inside a host window: opened, resized, searched and closed through the plugin's
// exported functions.
#pragma once

#include <windows.h>

#include <string>

#include "tools/common/plugin_module.h"

namespace rl::tools {

class ViewerSlot {
public:
    explicit ViewerSlot(const PluginModule& module) : module_(module) {}
    ViewerSlot(const ViewerSlot&) = delete;
    ViewerSlot& operator=(const ViewerSlot&) = delete;
    ~ViewerSlot() { Close(); }

    /// Opens the file in the parent's client area. False when the plugin declines.
    bool Open(HWND parent, const std::wstring& file);

    /// False when the viewer is still there: a save that was asked for has failed.
    bool Close();

    /// Fills the parent's client area.
    void FillParent() const;

    /// True once, after the viewer has gone by itself because its file could not be loaded.
    bool TakeVanished();

    [[nodiscard]] bool IsOpen() const { return window_ != nullptr && IsWindow(window_); }

    /// The viewer hides its "Loading..." text as soon as there is something to see.
    [[nodiscard]] bool IsLoaded() const;

    /// Whether something was found.
    [[nodiscard]] bool Search(const std::wstring& text, int flags) const;

    [[nodiscard]] HWND Window() const { return window_; }

private:
    const PluginModule& module_;
    HWND window_ = nullptr;
};

}  // namespace rl::tools
