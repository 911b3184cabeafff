#include "host/config/themes.h"

#include "host/config/ini_text.h"
#include "host/config/setting_keys.h"

namespace rl {
namespace {

constexpr std::array<Theme, kThemeCount> kThemes = {{
    {L"Light",
     false,
     {1973790, 16777215, 16381942, 1973790, 16381942, 1973790, 15131360, 16244422, 16777215,
      10377728, 8421504, 15987184, 13924352},
     {2629270, 10511360, 3616040, 4615700, 10501240, 5930330, 7893870}},
    {L"Paper",
     false,
     {3161670, 15661309, 14872822, 3161670, 14872822, 2634812, 13492457, 12244706, 15661309,
      1989260, 7900310, 14478579, 1469104},
     {1326240, 9857310, 3161670, 1669215, 7220640, 8556940, 7570060}},
    {L"Dark",
     true,
     {13948116, 1973790, 2499877, 15132390, 3157293, 15461355, 3157293, 8542259, 16777215, 7884582,
      8750469, 2499877, 16761420},
     {11197660, 16702620, 7901646, 11062965, 12617413, 5609834, 9868950}},
    {L"Midnight",
     true,
     {15788258, 2758415, 3546902, 15788258, 3877150, 15788258, 3877150, 15426341, 16777215,
      14175773, 9139300, 3546902, 16301368},
     {16569213, 16559088, 7650045, 11333510, 16627140, 9139300, 12100500}},
    {L"Solarized Dark",
     true,
     {10592659, 3549952, 4339207, 14018798, 4339207, 14018798, 4339207, 7234602, 14939901, 9858591,
      7695960, 4339207, 35253},
     {35253, 13803558, 10592659, 39301, 8533715, 8616805, 8616805}},
}};

constexpr size_t kLight = 0;
constexpr size_t kDark = 2;

/// Where each colour of a theme goes.
constexpr std::array<Color ThemeColors::*, kUiColorCount> kUiFields = {
    &ThemeColors::text,           &ThemeColors::back,
    &ThemeColors::back2,          &ThemeColors::filterText,
    &ThemeColors::filterBack,     &ThemeColors::headerText,
    &ThemeColors::headerBack,     &ThemeColors::currentCellBack,
    &ThemeColors::selectionText,  &ThemeColors::selectionBack,
    &ThemeColors::lineNumberText, &ThemeColors::lineNumberBack,
    &ThemeColors::accent};
constexpr std::array<Color SourceColors::*, kSourceColorCount> kSourceFields = {
    &SourceColors::tag,        &SourceColors::attribute, &SourceColors::string,
    &SourceColors::number,     &SourceColors::keyword,   &SourceColors::comment,
    &SourceColors::punctuation};

static_assert(settings::kUiColors.size() == kUiColorCount);
static_assert(settings::kSourceColors.size() == kSourceColorCount);

/// The accent opens the key table and closes the themes; the others follow in the same order.
constexpr std::wstring_view UiColorKey(size_t index) {
    return settings::kUiColors[(index + 1) % kUiColorCount].key;
}
static_assert(UiColorKey(0) == L"text-color");
static_assert(UiColorKey(kUiColorCount - 1) == L"accent-color");

int MixChannel(Color a, Color b, int shift, int weight) {
    const int from = static_cast<int>(a >> shift & 0xFF);
    const int to = static_cast<int>(b >> shift & 0xFF);
    return from + (to - from) * weight / 255;
}

}  // namespace

std::span<const Theme, kThemeCount> BuiltInThemes() {
    return kThemes;
}

const Theme& SelectTheme(std::wstring_view name, bool preferDark) {
    const std::wstring wanted = FoldIniName(name);
    for (const Theme& theme : kThemes) {
        if (FoldIniName(theme.name) == wanted) {
            return theme;
        }
    }
    return kThemes[preferDark ? kDark : kLight];
}

Color ThemeColor(const IntLookup& settings, bool dark, std::wstring_view key, Color fallback) {
    std::wstring name(key);
    name += dark ? settings::kDarkSuffix : L"";
    return static_cast<Color>(settings(name, static_cast<int32_t>(fallback))) & 0xFFFFFF;
}

ThemeColors LoadThemeColors(const IntLookup& settings, const Theme& theme) {
    ThemeColors colors;
    for (size_t i = 0; i < kUiColorCount; ++i) {
        colors.*kUiFields[i] = ThemeColor(settings, theme.dark, UiColorKey(i), theme.ui[i]);
    }
    colors.dark = theme.dark;
    return colors;
}

SourceColors LoadSourceColors(const IntLookup& settings, const Theme& theme,
                              const ThemeColors& ui) {
    SourceColors colors;
    colors.text = ui.text;
    colors.back = ui.back;
    colors.selectionText = ui.selectionText;
    colors.selectionBack = ui.selectionBack;
    colors.lineNumberText = ui.lineNumberText;
    colors.lineNumberBack = ui.lineNumberBack;
    for (size_t i = 0; i < kSourceColorCount; ++i) {
        colors.*kSourceFields[i] =
            ThemeColor(settings, theme.dark, settings::kSourceColors[i].key, theme.source[i]);
    }
    return colors;
}

Color MixColors(Color a, Color b, int weight) {
    Color mixed = 0;
    for (const int shift : {0, 8, 16}) {
        mixed |= (static_cast<Color>(MixChannel(a, b, shift, weight)) & 0xFF) << shift;
    }
    return mixed;
}

}  // namespace rl
