// All settings of the process, as two INI files hold them at this moment.
//
// Used from the user-interface thread only. Nothing is cached beyond an unchanged file: an edit of
// either file shows at the next look-up.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace rl {

class SettingsStore {
public:
    /// The one store of the process, made on first use and never destroyed before process exit.
    [[nodiscard]] static SettingsStore& Instance();

    SettingsStore();
    ~SettingsStore();
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    /// The file beside the module; its keys win.
    void SetPluginIniPath(const std::wstring& path);
    /// The host's own file. Only the first path that is not empty is kept.
    void SetHostIniPath(const std::wstring& path);
    /// While set, no file is read or written and changes live in memory.
    void SetMemoryOnly(bool memoryOnly);

    /// The value of a key, in any letter case; `fallback` when neither file has it. A key present
    /// with nothing behind the equals sign gives the empty string.
    [[nodiscard]] std::wstring GetString(std::wstring_view key, std::wstring_view fallback);
    /// The value as a whole decimal number clamped to 32 bits, else `fallback`.
    [[nodiscard]] int32_t GetInt(std::wstring_view key, int32_t fallback);
    void SetString(std::wstring_view key, std::wstring_view value);
    void SetInt(std::wstring_view key, int32_t value);

    /// Writes the commented list of all options where the plugin's file is missing.
    void WriteTemplateIfMissing();

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace rl
