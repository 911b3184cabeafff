// Typed look-ups of the process's settings: a row of the key table in, its value out.
//
// Every call asks the store, so that an edit of the settings file shows at the next one. Used from
// the user-interface thread only.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/config/setting_keys.h"
#include "host/config/themes.h"

namespace rl::settings {

/// The value in effect, the row's fallback without one. Ranges are the caller's business.
[[nodiscard]] int32_t Get(const IntSetting& setting);
[[nodiscard]] std::wstring Get(const TextSetting& setting);
/// Whether a switch is on: any number but 0.
[[nodiscard]] bool IsOn(const IntSetting& setting);

/// Writes the value to the settings file at once.
void Set(const IntSetting& setting, int32_t value);
void Set(const TextSetting& setting, std::wstring_view value);

/// The theme that the settings choose now.
[[nodiscard]] const Theme& CurrentTheme();
/// The look-up that LoadThemeColors and LoadSourceColors take.
[[nodiscard]] IntLookup ColorLookup();

}  // namespace rl::settings
