// The system's font dialog.
#include "view/font_dialog.h"

// Needs the types of windows.h.
#include <commdlg.h>

#include <algorithm>

#include "view/logic/geometry.h"
#include "view/paint_scope.h"

namespace rl {

namespace {

// The dialog reckons heights by the screen, whatever the dpi of its owner.
int ScreenDpi() {
    const WindowDc screen(nullptr);
    const int dpi = GetDeviceCaps(screen.Get(), LOGPIXELSY);
    return dpi > 0 ? dpi : kBaseDpi;
}

LOGFONTW DescribeFont(FontRole role, const FontChoice& current) {
    LOGFONTW font{};
    font.lfHeight = FontHeight(current.points, ScreenDpi());
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfWeight = role == FontRole::Grid ? current.weight : 0;
    const std::wstring& face = role == FontRole::Grid ? current.face : current.sourceFace;
    const size_t length = std::min(face.size(), std::size(font.lfFaceName) - 1);
    std::ranges::copy_n(face.data(), static_cast<std::ptrdiff_t>(length), font.lfFaceName);
    return font;
}

int WeightSetting(LONG weight) {
    constexpr int kHeaviest = 9;
    return weight == FW_NORMAL ? 0 : std::clamp<int>((weight + 50) / 100, 0, kHeaviest);
}

}  // namespace

std::optional<PickedFont> PickFont(HWND owner, FontRole role, const FontChoice& current) {
    LOGFONTW font = DescribeFont(role, current);
    CHOOSEFONTW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpLogFont = &font;
    dialog.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_NOVERTFONTS |
                   (role == FontRole::Source ? CF_FIXEDPITCHONLY : 0U);
    if (!ChooseFontW(&dialog)) {
        return std::nullopt;
    }
    const int points = (dialog.iPointSize + 5) / 10;  // the dialog counts tenths
    return PickedFont{.face = font.lfFaceName,
                      .points = std::clamp(points, kSmallestFont, kLargestFont),
                      .weightSetting = WeightSetting(font.lfWeight)};
}

}  // namespace rl
