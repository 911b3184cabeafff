// The system's font dialog.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "view/fonts.h"

namespace rl {

enum class FontRole { Grid, Source };

struct PickedFont {
    std::wstring face;
    int points = 0;         // within the viewer's limits
    int weightSetting = 0;  // as `font-weight` has it: 1 to 9, or 0 for the normal weight
};

/// Lets the user pick a font, beginning with the one in use; nothing when cancelled. Pumps messages
/// meanwhile.
[[nodiscard]] std::optional<PickedFont> PickFont(HWND owner, FontRole role,
                                                 const FontChoice& current);

}  // namespace rl
