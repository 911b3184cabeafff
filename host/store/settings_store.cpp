#include "host/store/settings_store.h"

#include <windows.h>

#include "host/config/ini_template.h"
#include "host/config/settings.h"
#include "load/files/file_reader.h"
#include "load/text/decode_text.h"

namespace rl {
namespace {

/// Tells whether a file is still the one we read. Its time alone would not do: two writes can fall
/// into one tick of the file system's clock.
struct Stamp {
    uint64_t time = ~uint64_t{0};  // all ones: no such file
    uint64_t size = 0;

    bool operator==(const Stamp&) const = default;
};

Stamp StampOf(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA found{};
    if (path.empty() || !GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &found)) {
        return {};
    }
    const FILETIME& time = found.ftLastWriteTime;
    return {.time = uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime,
            .size = uint64_t{found.nFileSizeHigh} << 32 | found.nFileSizeLow};
}

/// A file that cannot be read has nothing to say, and nobody is told.
void AddIniFile(const std::wstring& path, SettingsMap& map) {
    std::string bytes;
    std::wstring error;
    if (!ReadFileLimited(path, 0, bytes, error)) {
        return;
    }
    TextEncoding found;
    map.Add(DecodeText(bytes, EncodingRequest{}, found));
}

/// The system looks for a bare name in its own folder, not in ours.
std::wstring AbsolutePath(const std::wstring& path) {
    const DWORD room = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring absolute(room, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), room, absolute.data(), nullptr);
    if (length == 0 || length >= room) {
        return path;
    }
    absolute.resize(length);
    return absolute;
}

}  // namespace

struct SettingsStore::State {
    std::wstring hostPath;
    std::wstring pluginPath;
    SettingsMap map;
    Stamp pluginStamp;
    Stamp hostStamp;
    bool loaded = false;
    bool memoryOnly = false;

    /// Reads both files again unless neither has changed.
    void Refresh();
};

void SettingsStore::State::Refresh() {
    if (memoryOnly) {
        return;
    }
    const Stamp plugin = StampOf(pluginPath);
    const Stamp host = StampOf(hostPath);
    if (loaded && plugin == pluginStamp && host == hostStamp) {
        return;
    }
    loaded = false;  // should memory end half-way, the next look-up begins again
    map.Clear();
    // The plugin's file first: the first value of a key wins.
    if (!pluginPath.empty()) {
        AddIniFile(pluginPath, map);
    }
    if (!hostPath.empty() && hostPath != pluginPath) {
        AddIniFile(hostPath, map);
    }
    pluginStamp = plugin;
    hostStamp = host;
    loaded = true;
}

SettingsStore& SettingsStore::Instance() {
    // Never destroyed: at process exit other threads were stopped wherever they stood, perhaps
    // inside the heap, and nothing is gained by giving back a few kilobytes then.
    static SettingsStore& store = *std::make_unique<SettingsStore>().release();
    return store;
}

SettingsStore::SettingsStore() : state_(std::make_unique<State>()) {}

SettingsStore::~SettingsStore() = default;

void SettingsStore::SetPluginIniPath(const std::wstring& path) {
    if (state_->pluginPath != path) {
        state_->pluginPath = path;
        state_->loaded = false;
    }
}

void SettingsStore::SetHostIniPath(const std::wstring& path) {
    if (state_->hostPath.empty() && !path.empty()) {
        state_->hostPath = path;
        state_->loaded = false;
    }
}

void SettingsStore::SetMemoryOnly(bool memoryOnly) {
    state_->memoryOnly = memoryOnly;
}

std::wstring SettingsStore::GetString(std::wstring_view key, std::wstring_view fallback) {
    state_->Refresh();
    const std::wstring* value = state_->map.Find(key);
    return value != nullptr ? *value : std::wstring(fallback);
}

int32_t SettingsStore::GetInt(std::wstring_view key, int32_t fallback) {
    return IntFromSetting(GetString(key, {}), fallback);
}

void SettingsStore::SetString(std::wstring_view key, std::wstring_view value) {
    const std::wstring& target = state_->pluginPath.empty() ? state_->hostPath : state_->pluginPath;
    if (target.empty() || state_->memoryOnly) {
        state_->Refresh();  // what was never read must not be read over the change later
        state_->map.Set(key, value);
        return;
    }
    // A failure is not told: the setting then simply does not outlive this viewer.
    WritePrivateProfileStringW(std::wstring(kOwnSection).c_str(), std::wstring(key).c_str(),
                               std::wstring(value).c_str(), AbsolutePath(target).c_str());
    state_->loaded = false;
}

void SettingsStore::SetInt(std::wstring_view key, int32_t value) {
    SetString(key, std::to_wstring(value));
}

void SettingsStore::WriteTemplateIfMissing() {
    const std::wstring& path = state_->pluginPath;
    if (path.empty() || state_->memoryOnly ||
        GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES) {
        return;
    }
    // CREATE_NEW: should another process be faster, its file stands.
    const UniqueFile file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        return;
    }
    const std::string text = IniTemplate();
    DWORD written = 0;
    WriteFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

}  // namespace rl
