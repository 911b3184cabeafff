// Lower case as the system has it, from a table: asking the system for each of a million cells
// costs more than all the rest of a filter.
//
// The table is filled by one call of the system and kept; safe on any thread.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace rl {

/// What `platform::FoldCase` makes of every single unit.
class CaseFold {
public:
    [[nodiscard]] static const CaseFold& Instance();

    /// Surrogates are left alone: what becomes of them only the system knows.
    [[nodiscard]] wchar_t Fold(wchar_t unit) const {
        const auto index = static_cast<size_t>(unit);
        return index < kUnits ? static_cast<wchar_t>(table_[index]) : unit;
    }

    /// All units that fold to the same unit as `unit` does.
    [[nodiscard]] std::vector<wchar_t> VariantsOf(wchar_t unit) const;

private:
    static constexpr size_t kUnits = 0x10000;

    CaseFold();

    std::vector<uint16_t> table_;
};

[[nodiscard]] constexpr bool IsSurrogate(wchar_t unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

/// The same as `platform::FoldCase`, faster.
void FoldText(std::span<wchar_t> text);

}  // namespace rl
