// The five colour themes, and the rules by which single colours replace theirs.
//
// Colours are COLORREF values: blue * 65536 + green * 256 + red.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace rl {

using Color = uint32_t;

/// The colours of the user interface, resolved, in the order the viewer keeps them.
struct ThemeColors {
    Color text = 0;
    Color back = 0;
    Color back2 = 0;
    Color filterText = 0;
    Color filterBack = 0;
    Color headerText = 0;
    Color headerBack = 0;
    Color currentCellBack = 0;
    Color selectionText = 0;
    Color selectionBack = 0;
    Color lineNumberText = 0;
    Color lineNumberBack = 0;
    Color accent = 0;
    bool dark = false;

    bool operator==(const ThemeColors&) const = default;
};

/// The colours of the source view, resolved.
struct SourceColors {
    Color text = 0;
    Color back = 0;
    Color selectionText = 0;
    Color selectionBack = 0;
    Color lineNumberText = 0;
    Color lineNumberBack = 0;
    Color tag = 0;
    Color attribute = 0;
    Color string = 0;
    Color number = 0;
    Color keyword = 0;
    Color comment = 0;
    Color punctuation = 0;

    bool operator==(const SourceColors&) const = default;
};

inline constexpr size_t kThemeCount = 5;
inline constexpr size_t kUiColorCount = 13;
inline constexpr size_t kSourceColorCount = 7;

/// One built-in theme: its colours in the order of the key tables.
struct Theme {
    std::wstring_view name;
    bool dark;
    std::array<Color, kUiColorCount> ui;
    std::array<Color, kSourceColorCount> source;
};

/// The built-in themes in menu order.
[[nodiscard]] std::span<const Theme, kThemeCount> BuiltInThemes();

/// The theme that the two settings choose: the first whose name equals `name` in any letter case,
/// else Dark or Light.
[[nodiscard]] const Theme& SelectTheme(std::wstring_view name, bool preferDark);

/// Answers an integer setting, or the given default when the key is absent.
using IntLookup = std::function<int32_t(std::wstring_view key, int32_t fallback)>;

/// One colour: the key's setting ("-dark" appended for a dark theme), else `fallback`; 24 bits.
[[nodiscard]] Color ThemeColor(const IntLookup& settings, bool dark, std::wstring_view key,
                               Color fallback);
[[nodiscard]] ThemeColors LoadThemeColors(const IntLookup& settings, const Theme& theme);
[[nodiscard]] SourceColors LoadSourceColors(const IntLookup& settings, const Theme& theme,
                                            const ThemeColors& ui);

/// `a` moved towards `b` by `weight` / 255, channel by channel, truncated toward zero.
[[nodiscard]] Color MixColors(Color a, Color b, int weight);

}  // namespace rl
