// What a viewer is told by the settings once, when it is made.
//
// Everything else is looked up at the moment of use.
#pragma once

#include "view/fonts.h"

namespace rl {

struct ViewSettings {
    bool valuePane = true;
    bool headerRow = true;
    bool filterRow = true;
    bool lineNumbers = false;
    bool outline = true;  // JSON and XML as an outline; else a tree and record tables
    bool decimalAlign = true;
    bool gridLines = true;
    bool startsInEditMode = false;
    FontChoice font;
};

[[nodiscard]] ViewSettings CaptureViewSettings();

}  // namespace rl
