// What a viewer is told by the settings once, when it is made.
//
// Everything else is looked up at the moment of use.
#pragma once

#include <cstdint>

#include "view/fonts.h"

namespace rl {

struct ViewSettings {
    bool treeOutline = true;
    bool valuePane = true;
    bool headerRow = true;
    bool filterRow = true;
    bool lineNumbers = false;
    bool decimalAlign = true;
    bool gridLines = true;
    bool startsInEditMode = false;
    int32_t skipComments = 0;  // as the settings file has it
    FontChoice font;
};

[[nodiscard]] ViewSettings CaptureViewSettings();

}  // namespace rl
