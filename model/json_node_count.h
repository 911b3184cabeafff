// How many nodes a JSON text will make, so that their memory can be taken at once.
#pragma once

#include <cstddef>

#include "load/text/abandon_check.h"
#include "model/json_scan.h"

namespace rl {

inline constexpr std::ptrdiff_t kJsonAskEvery = std::ptrdiff_t{2} << 20;  // units

/// Exact for a valid text; any number for another, 0 when `abandoned` said so. `at` lies outside
/// strings. `lines`: no comment crosses the end of its line.
template <typename Unit, typename Scan = detail::JsonScan<Unit>>
[[nodiscard]] size_t CountJsonNodes(const Unit* at, const Unit* end, bool lines,
                                    const AbandonCheck& abandoned = {});

}  // namespace rl
