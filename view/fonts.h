// The four fonts of a viewer, made together and handed out.
#pragma once

#include <string>

#include "view/gdi_handles.h"

namespace rl {

inline constexpr int kSmallestFont = 10;  // points
inline constexpr int kLargestFont = 48;

/// What the settings say about fonts.
struct FontChoice {
    std::wstring face = L"Segoe UI";
    std::wstring sourceFace = L"Consolas";
    int points = 16;
    int weight = 0;  // as CreateFont takes it; 0: the system's normal weight
};

/// The weight that a `font-weight` setting stands for: 100 to 900 for 1 to 9, else 0.
[[nodiscard]] constexpr int WeightFromSetting(int setting) {
    return setting >= 1 && setting <= 9 ? setting * 100 : 0;
}

struct ViewerFonts {
    UniqueFont normal;
    UniqueFont bold;
    UniqueFont italic;
    UniqueFont source;  // fixed pitch
};

[[nodiscard]] ViewerFonts MakeViewerFonts(const FontChoice& choice, int dpi);

}  // namespace rl
