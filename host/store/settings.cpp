#include "host/store/settings.h"

#include "host/store/settings_store.h"

namespace rl::settings {

int32_t Get(const IntSetting& setting) {
    return SettingsStore::Instance().GetInt(setting.key, setting.fallback);
}

std::wstring Get(const TextSetting& setting) {
    return SettingsStore::Instance().GetString(setting.key, setting.fallback);
}

bool IsOn(const IntSetting& setting) {
    return Get(setting) != 0;
}

void Set(const IntSetting& setting, int32_t value) {
    SettingsStore::Instance().SetInt(setting.key, value);
}

void Set(const TextSetting& setting, std::wstring_view value) {
    SettingsStore::Instance().SetString(setting.key, value);
}

const Theme& CurrentTheme() {
    return SelectTheme(Get(kTheme), IsOn(kDarkTheme));
}

IntLookup ColorLookup() {
    return [](std::wstring_view key, int32_t fallback) {
        return SettingsStore::Instance().GetInt(key, fallback);
    };
}

}  // namespace rl::settings
