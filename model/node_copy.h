// A row of an outline as text for the clipboard: JSON, XML or a path.
//
// What is written is always valid JSON or well-formed XML, whatever the document holds.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "model/outline_model.h"

namespace rl {

enum class CopyFormat : uint32_t { Json = 0, Xml = 1, Path = 2 };

/// A copy beyond this many units is not made.
inline constexpr size_t kMaxCopyUnits = size_t{128} << 20;

/// Empty for a row without a node and an unknown format; nothing when the text would be longer than
/// `maxUnits`.
[[nodiscard]] std::optional<std::wstring> NodeTextAs(const TreeTableView& outline, int32_t row,
                                                     CopyFormat format,
                                                     size_t maxUnits = kMaxCopyUnits);
/// The non-empty texts of the rows, joined by CR LF; nothing when they are too long together.
[[nodiscard]] std::optional<std::wstring> NodeTextsAs(const TreeTableView& outline,
                                                      std::span<const int32_t> rows,
                                                      CopyFormat format,
                                                      size_t maxUnits = kMaxCopyUnits);

}  // namespace rl
