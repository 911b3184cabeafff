// What one row of the key table holds.
//
// A look-up, the template written beside the module and docs/settings.md are all made from the row,
// so that they cannot disagree. Plain data.
#pragma once

#include <cstdint>
#include <string_view>

namespace rl {

/// Whether every whole number means something of its own, or only zero and the rest.
enum class IntMeaning { Number, Switch };

/// A whole number, or a switch that is on when the number is not 0. The template shows `fallback`.
struct IntSetting {
    std::wstring_view key;
    int32_t fallback;
    std::wstring_view comment;  // stands beside the key in the template
    IntMeaning meaning = IntMeaning::Number;
    std::wstring_view note = {};  // what docs/settings.md says beyond the comment
};

/// A text. The template may show another value than the one in effect without the key: a
/// `fallback` that is empty because another key decides then, or one too long to show.
struct TextSetting {
    std::wstring_view key;
    std::wstring_view fallback;
    std::wstring_view inTemplate;
    std::wstring_view comment;
    std::wstring_view note = {};  // as above
};

/// A colour, decimal: blue * 65536 + green * 256 + red. There is no fallback here: a key that is
/// absent takes the selected theme's colour, which differs from these examples in the template.
/// Dark themes read the key with "-dark" behind it.
struct ColorSetting {
    std::wstring_view key;
    uint32_t lightExample;
    uint32_t darkExample;
};

}  // namespace rl
