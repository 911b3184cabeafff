// The row of filter boxes: where they stand, what an empty one shows, and when typing takes effect.
//
// Knows nothing of edit controls or timers: the viewer starts and stops the one timer as it is
// told.
#pragma once

#include <cstdint>
#include <optional>

#include "host/config/themes.h"
#include "view/logic/geometry.h"

namespace rl {

/// From this many rows on a filter waits for a pause in typing.
inline constexpr int64_t kFilterDelayRows = 250'000;
inline constexpr uint32_t kFilterDelayMs = 250;

/// The box above a header item that reaches from `itemLeft` to `itemRight`, measured from the left
/// edge of `row`, the whole filter row. What lies outside the row is cut off; never narrower than
/// nothing.
[[nodiscard]] Rect FilterBoxRect(const Rect& row, int itemLeft, int itemRight);

enum class FilterAlign { Left, Center, Right };

/// The `filter-align` setting: -1, 1, and the middle for everything else.
[[nodiscard]] FilterAlign FilterAlignFromSetting(int32_t setting);

struct HintState {
    bool isEmpty = false;  // the box holds no text
    bool hasFocus = false;
    int textWidth = 0;  // of the hint in the italic font, pixels; 0 for no hint
    int dpi = kBaseDpi;
};

/// Where an empty box shows its hint; nothing when it shows none, or the hint would not fit.
[[nodiscard]] std::optional<Rect> PlanFilterHint(const Rect& box, const HintState& state);

[[nodiscard]] Color FilterHintColor(const ThemeColors& theme);

/// What a change in a filter box leads to, in this order.
struct FilterChange {
    int32_t applyFirst = -1;  // another box whose filter was still waiting
    bool applyNow = false;    // the box that changed
    bool startTimer = false;  // or restart it; the box waits until then

    bool operator==(const FilterChange&) const = default;
};

/// Holds back the filters of large tables until typing pauses. At most one box waits.
class FilterDelay {
public:
    [[nodiscard]] FilterChange OnChange(int32_t box, int64_t rowCount);

    /// The box that waits, which from now on does not; -1 for none. Asked when the timer ticks.
    [[nodiscard]] int32_t TakePending();

private:
    int32_t pending_ = -1;
};

}  // namespace rl
