// Captures the settings that a viewer keeps.
#include "view/view_settings.h"

#include <algorithm>
#include <string>

#include "host/store/settings.h"

namespace rl {

ViewSettings CaptureViewSettings() {
    using settings::Get;
    using settings::IsOn;
    ViewSettings out;
    out.valuePane = IsOn(settings::kValuePane);
    out.headerRow = IsOn(settings::kHeaderRow);
    out.filterRow = IsOn(settings::kFilterRow);
    out.outline = IsOn(settings::kTreeOutline);
    out.lineNumbers = IsOn(settings::kShowLineNumbers);
    out.decimalAlign = IsOn(settings::kDecimalAlign);
    out.gridLines = !IsOn(settings::kDisableGridLines);
    const std::wstring startMode = Get(settings::kStartMode);
    out.startsInEditMode = startMode.contains(L"edit") || startMode == L"1";
    out.font = {.face = Get(settings::kFont),
                .sourceFace = Get(settings::kSourceFont),
                .points = std::clamp(Get(settings::kFontSize), kSmallestFont, kLargestFont),
                .weight = WeightFromSetting(Get(settings::kFontWeight))};
    return out;
}

}  // namespace rl
