#include "host/config/themes.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "host/config/setting_keys.h"

namespace rl {
namespace {

/// A settings file that holds these numbers and nothing else.
IntLookup Settings(std::map<std::wstring, int32_t, std::less<>> values) {
    return [values = std::move(values)](std::wstring_view key, int32_t fallback) {
        const auto found = values.find(key);
        return found == values.end() ? fallback : found->second;
    };
}

const IntLookup kNoSettings = Settings({});

const Theme& Named(std::wstring_view name) {
    return SelectTheme(name, false);
}

TEST(Themes, StandInMenuOrder) {
    ASSERT_EQ(BuiltInThemes().size(), 5u);
    EXPECT_EQ(BuiltInThemes()[0].name, L"Light");
    EXPECT_EQ(BuiltInThemes()[1].name, L"Paper");
    EXPECT_EQ(BuiltInThemes()[2].name, L"Dark");
    EXPECT_EQ(BuiltInThemes()[3].name, L"Midnight");
    EXPECT_EQ(BuiltInThemes()[4].name, L"Solarized Dark");
}

TEST(Themes, AreDarkFromTheThirdOn) {
    EXPECT_FALSE(BuiltInThemes()[0].dark);
    EXPECT_FALSE(BuiltInThemes()[1].dark);
    EXPECT_TRUE(BuiltInThemes()[2].dark);
    EXPECT_TRUE(BuiltInThemes()[3].dark);
    EXPECT_TRUE(BuiltInThemes()[4].dark);
}

TEST(SelectTheme, IsLightWithoutSettings) {
    EXPECT_EQ(SelectTheme(L"", false).name, L"Light");
}

TEST(SelectTheme, IsDarkWhenOnlyThatIsAskedFor) {
    EXPECT_EQ(SelectTheme(L"", true).name, L"Dark");
}

TEST(SelectTheme, ComparesNamesInAnyLetterCase) {
    EXPECT_EQ(SelectTheme(L"solarized dark", false).name, L"Solarized Dark");
    EXPECT_EQ(SelectTheme(L"MIDNIGHT", false).name, L"Midnight");
}

TEST(SelectTheme, LetsAKnownNameWinOverDarkTheme) {
    EXPECT_EQ(SelectTheme(L"Light", true).name, L"Light");
    EXPECT_EQ(SelectTheme(L"Paper", true).name, L"Paper");
}

TEST(SelectTheme, FallsToDarkThemeForAnUnknownName) {
    EXPECT_EQ(SelectTheme(L"Sepia", true).name, L"Dark");
    EXPECT_EQ(SelectTheme(L"Sepia", false).name, L"Light");
    EXPECT_EQ(SelectTheme(L"Dark ", false).name, L"Light") << "blanks count";
}

TEST(LoadThemeColors, GivesLightItsOwnColors) {
    EXPECT_EQ(LoadThemeColors(kNoSettings, Named(L"Light")),
              (ThemeColors{.text = 1973790,
                           .back = 16777215,
                           .back2 = 16381942,
                           .filterText = 1973790,
                           .filterBack = 16381942,
                           .headerText = 1973790,
                           .headerBack = 15131360,
                           .currentCellBack = 16244422,
                           .selectionText = 16777215,
                           .selectionBack = 10377728,
                           .lineNumberText = 8421504,
                           .lineNumberBack = 15987184,
                           .accent = 13924352,
                           .dark = false}));
}

TEST(LoadThemeColors, GivesPaperItsOwnColors) {
    EXPECT_EQ(LoadThemeColors(kNoSettings, Named(L"Paper")),
              (ThemeColors{.text = 3161670,
                           .back = 15661309,
                           .back2 = 14872822,
                           .filterText = 3161670,
                           .filterBack = 14872822,
                           .headerText = 2634812,
                           .headerBack = 13492457,
                           .currentCellBack = 12244706,
                           .selectionText = 15661309,
                           .selectionBack = 1989260,
                           .lineNumberText = 7900310,
                           .lineNumberBack = 14478579,
                           .accent = 1469104,
                           .dark = false}));
}

TEST(LoadThemeColors, GivesDarkItsOwnColors) {
    EXPECT_EQ(LoadThemeColors(kNoSettings, Named(L"Dark")), (ThemeColors{.text = 13948116,
                                                                         .back = 1973790,
                                                                         .back2 = 2499877,
                                                                         .filterText = 15132390,
                                                                         .filterBack = 3157293,
                                                                         .headerText = 15461355,
                                                                         .headerBack = 3157293,
                                                                         .currentCellBack = 8542259,
                                                                         .selectionText = 16777215,
                                                                         .selectionBack = 7884582,
                                                                         .lineNumberText = 8750469,
                                                                         .lineNumberBack = 2499877,
                                                                         .accent = 16761420,
                                                                         .dark = true}));
}

TEST(LoadThemeColors, GivesMidnightItsOwnColors) {
    EXPECT_EQ(LoadThemeColors(kNoSettings, Named(L"Midnight")),
              (ThemeColors{.text = 15788258,
                           .back = 2758415,
                           .back2 = 3546902,
                           .filterText = 15788258,
                           .filterBack = 3877150,
                           .headerText = 15788258,
                           .headerBack = 3877150,
                           .currentCellBack = 15426341,
                           .selectionText = 16777215,
                           .selectionBack = 14175773,
                           .lineNumberText = 9139300,
                           .lineNumberBack = 3546902,
                           .accent = 16301368,
                           .dark = true}));
}

TEST(LoadThemeColors, GivesSolarizedDarkItsOwnColors) {
    EXPECT_EQ(LoadThemeColors(kNoSettings, Named(L"Solarized Dark")),
              (ThemeColors{.text = 10592659,
                           .back = 3549952,
                           .back2 = 4339207,
                           .filterText = 14018798,
                           .filterBack = 4339207,
                           .headerText = 14018798,
                           .headerBack = 4339207,
                           .currentCellBack = 7234602,
                           .selectionText = 14939901,
                           .selectionBack = 9858591,
                           .lineNumberText = 7695960,
                           .lineNumberBack = 4339207,
                           .accent = 35253,
                           .dark = true}));
}

TEST(LoadThemeColors, ReadsEachColorFromItsOwnKey) {
    const IntLookup settings = Settings({{L"text-color", 1},
                                         {L"back-color", 2},
                                         {L"back-color2", 3},
                                         {L"filter-text-color", 4},
                                         {L"filter-back-color", 5},
                                         {L"header-text-color", 6},
                                         {L"header-back-color", 7},
                                         {L"current-cell-back-color", 8},
                                         {L"selection-text-color", 9},
                                         {L"selection-back-color", 10},
                                         {L"line-number-text-color", 11},
                                         {L"line-number-back-color", 12},
                                         {L"accent-color", 13}});

    EXPECT_EQ(LoadThemeColors(settings, Named(L"Paper")),
              (ThemeColors{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, false}));
}

TEST(LoadThemeColors, KeepsLightKeysFromDarkThemesAndTheReverse) {
    const IntLookup settings = Settings({{L"text-color", 255}, {L"back-color-dark", 65280}});

    const ThemeColors dark = LoadThemeColors(settings, Named(L"Dark"));
    EXPECT_EQ(dark.text, 13948116u);
    EXPECT_EQ(dark.back, 65280u);

    const ThemeColors paper = LoadThemeColors(settings, Named(L"Paper"));
    EXPECT_EQ(paper.text, 255u);
    EXPECT_EQ(paper.back, 15661309u);
}

TEST(ThemeColor, KeepsTheLower24Bits) {
    EXPECT_EQ(ThemeColor(Settings({{L"text-color", -1}}), false, L"text-color", 5), 0xFFFFFFu);
    EXPECT_EQ(ThemeColor(Settings({{L"text-color", 0x12345678}}), false, L"text-color", 5),
              0x345678u);
}

TEST(ThemeColor, TakesBlackForAColorAndNotForNone) {
    EXPECT_EQ(ThemeColor(Settings({{L"text-color-dark", 0}}), true, L"text-color", 5), 0u);
    EXPECT_EQ(ThemeColor(kNoSettings, true, L"text-color", 5), 5u);
}

TEST(LoadSourceColors, TakesTheCommonOnesFromTheUserInterface) {
    const ThemeColors ui{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, true};

    EXPECT_EQ(LoadSourceColors(kNoSettings, Named(L"Midnight"), ui),
              (SourceColors{.text = 1,
                            .back = 2,
                            .selectionText = 9,
                            .selectionBack = 10,
                            .lineNumberText = 11,
                            .lineNumberBack = 12,
                            .tag = 16569213,
                            .attribute = 16559088,
                            .string = 7650045,
                            .number = 11333510,
                            .keyword = 16627140,
                            .comment = 9139300,
                            .punctuation = 12100500}));
}

TEST(LoadSourceColors, FollowsBackColor) {
    const IntLookup settings = Settings({{L"back-color", 255}});
    const Theme& light = Named(L"Light");

    EXPECT_EQ(LoadSourceColors(settings, light, LoadThemeColors(settings, light)).back, 255u);
}

TEST(LoadSourceColors, GivesEachThemeItsOwnSyntax) {
    const struct {
        std::wstring_view theme;
        std::array<Color, kSourceColorCount> syntax;
    } cases[] = {
        {L"Light", {2629270, 10511360, 3616040, 4615700, 10501240, 5930330, 7893870}},
        {L"Paper", {1326240, 9857310, 3161670, 1669215, 7220640, 8556940, 7570060}},
        {L"Dark", {11197660, 16702620, 7901646, 11062965, 12617413, 5609834, 9868950}},
        {L"Midnight", {16569213, 16559088, 7650045, 11333510, 16627140, 9139300, 12100500}},
        {L"Solarized Dark", {35253, 13803558, 10592659, 39301, 8533715, 8616805, 8616805}},
    };
    for (const auto& [theme, syntax] : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(theme)));
        const SourceColors colors = LoadSourceColors(kNoSettings, Named(theme), {});
        EXPECT_EQ((std::array{colors.tag, colors.attribute, colors.string, colors.number,
                              colors.keyword, colors.comment, colors.punctuation}),
                  syntax);
    }
}

TEST(LoadSourceColors, ReadsTheDarkKeywordInTheThreeDarkThemesOnly) {
    const IntLookup settings = Settings({{L"source-color-keyword-dark", 65280}});

    EXPECT_EQ(LoadSourceColors(settings, Named(L"Light"), {}).keyword, 10501240u);
    EXPECT_EQ(LoadSourceColors(settings, Named(L"Paper"), {}).keyword, 7220640u);
    EXPECT_EQ(LoadSourceColors(settings, Named(L"Dark"), {}).keyword, 65280u);
    EXPECT_EQ(LoadSourceColors(settings, Named(L"Midnight"), {}).keyword, 65280u);
    EXPECT_EQ(LoadSourceColors(settings, Named(L"Solarized Dark"), {}).keyword, 65280u);
}

TEST(LoadSourceColors, ReadsEachColorFromItsOwnKey) {
    const IntLookup settings = Settings({{L"source-color-tag", 1},
                                         {L"source-color-attr", 2},
                                         {L"source-color-string", 3},
                                         {L"source-color-number", 4},
                                         {L"source-color-keyword", 5},
                                         {L"source-color-comment", 6},
                                         {L"source-color-punct", 7}});

    EXPECT_EQ(LoadSourceColors(settings, Named(L"Light"), {}),
              (SourceColors{0, 0, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST(MixColors, MovesEachChannelByItsShare) {
    EXPECT_EQ(MixColors(0x000000, 0xFFFFFF, 128), 0x808080u);
    EXPECT_EQ(MixColors(0x0A1420, 0xFFFFFF, 0), 0x0A1420u);
    EXPECT_EQ(MixColors(0x0A1420, 0xC0B0A0, 255), 0xC0B0A0u);
}

TEST(MixColors, TruncatesTowardZeroInBothDirections) {
    EXPECT_EQ(MixColors(0, 1, 254), 0u);
    EXPECT_EQ(MixColors(1, 0, 254), 1u);
    EXPECT_EQ(MixColors(200, 100, 40), 185u);  // 200 - 15.68
    EXPECT_EQ(MixColors(100, 200, 40), 115u);  // 100 + 15.68
}

TEST(MixColors, KeepsChannelsApart) {
    EXPECT_EQ(MixColors(0xFF0000, 0x0000FF, 90), 0xA5005Au);
}

}  // namespace
}  // namespace rl
