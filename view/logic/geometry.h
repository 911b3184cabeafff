// Rectangles and scaling without Windows: what layout is computed with.
#pragma once

#include <cstdint>

namespace rl {

inline constexpr int kBaseDpi = 96;

/// A rectangle in client pixels. Empty (no width or no height) also means "hidden".
struct Rect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    [[nodiscard]] constexpr int Right() const { return left + width; }
    [[nodiscard]] constexpr int Bottom() const { return top + height; }
    [[nodiscard]] constexpr bool IsEmpty() const { return width <= 0 || height <= 0; }
    [[nodiscard]] constexpr bool Contains(int x, int y) const {
        return x >= left && x < Right() && y >= top && y < Bottom();
    }
    bool operator==(const Rect&) const = default;
};

/// `value * numerator / denominator`, rounded half away from zero, as MulDiv does; -1 when the
/// denominator is 0 or the result leaves 32 bits.
[[nodiscard]] constexpr int MulDivRound(int value, int numerator, int denominator) {
    if (denominator == 0) {
        return -1;
    }
    const int64_t product = int64_t{value} * numerator;
    const int64_t divisor = denominator;
    const int64_t half = (divisor < 0 ? -divisor : divisor) / 2;
    const bool negative = (product < 0) != (divisor < 0);
    const int64_t magnitude =
        ((product < 0 ? -product : product) + half) / (divisor < 0 ? -divisor : divisor);
    const int64_t result = negative ? -magnitude : magnitude;
    return result > INT32_MAX || result < INT32_MIN ? -1 : static_cast<int>(result);
}

/// A size given at 96 dpi, in pixels of the screen.
[[nodiscard]] constexpr int Scale(int value, int dpi) {
    return MulDivRound(value, dpi, kBaseDpi);
}

/// The height of a font of `points`, as CreateFont takes it: negative.
[[nodiscard]] constexpr int FontHeight(int points, int dpi) {
    return -MulDivRound(points, dpi, 72);
}

}  // namespace rl
