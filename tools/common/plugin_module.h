// The plugin as a host sees it: a module that exports seven functions.
//
// Declared here from the published interface, apart from the plugin's own headers: a host shares
// nothing with a plugin but these names.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

namespace rl::tools {

// What a host may ask of a search.
inline constexpr int kFindFirst = 1;
inline constexpr int kMatchCase = 2;
inline constexpr int kWholeWords = 4;
inline constexpr int kBackwards = 8;

// What a search answers.
inline constexpr int kSearchHit = 0;
inline constexpr int kSearchMiss = 1;

/// Show flag: the user asked for this very plugin, so it may take the focus.
inline constexpr int kForceShow = 16;

/// The text in the system's ANSI code page, as the older half of the functions takes it.
[[nodiscard]] std::string ToAnsi(const std::wstring& text);

/// A loaded plugin module; unloads it at the end. Viewers must be closed before.
class PluginModule {
public:
    /// Loads the file; `IsLoaded` tells whether it came and exports all seven functions.
    explicit PluginModule(const std::filesystem::path& file);
    PluginModule(const PluginModule&) = delete;
    PluginModule& operator=(const PluginModule&) = delete;
    ~PluginModule() { Unload(); }

    [[nodiscard]] bool IsLoaded() const { return handle_ != nullptr; }
    [[nodiscard]] HMODULE Handle() const { return handle_; }

    /// The viewer's window, or null when the plugin does not want the file.
    HWND Open(HWND parent, const std::wstring& file, int showFlags) const;
    HWND OpenAnsi(HWND parent, const std::string& file, int showFlags) const;
    void Close(HWND viewer) const;
    int Search(HWND viewer, const std::wstring& text, int flags) const;
    int SearchAnsi(HWND viewer, const std::string& text, int flags) const;

    /// Which files the plugin wants, in the host's own notation.
    [[nodiscard]] std::string DetectString(int bufferLength = 2048) const;

    /// Tells the plugin the host's own INI file.
    void SetDefaults(const std::wstring& hostIni) const;

    void Unload();

private:
    struct Defaults;
    using LoadFunction = HWND(__stdcall*)(HWND, const char*, int);
    using LoadWideFunction = HWND(__stdcall*)(HWND, const wchar_t*, int);
    using CloseFunction = void(__stdcall*)(HWND);
    using DetectFunction = void(__stdcall*)(char*, int);
    using SearchFunction = int(__stdcall*)(HWND, const char*, int);
    using SearchWideFunction = int(__stdcall*)(HWND, const wchar_t*, int);
    using DefaultsFunction = void(__stdcall*)(Defaults*);

    bool FindFunctions();

    HMODULE handle_ = nullptr;
    LoadFunction load_ = nullptr;
    LoadWideFunction loadWide_ = nullptr;
    CloseFunction close_ = nullptr;
    DetectFunction detect_ = nullptr;
    SearchFunction search_ = nullptr;
    SearchWideFunction searchWide_ = nullptr;
    DefaultsFunction defaults_ = nullptr;
};

}  // namespace rl::tools
