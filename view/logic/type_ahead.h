// Jumping to a row by typing the beginning of a cell.
//
// Letters typed within a second of each other make one prefix. The time is passed in, so that the
// rule can be tested without waiting.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace rl {

inline constexpr uint64_t kTypeAheadMs = 1000;

class TypeAhead {
public:
    /// Answers the text that is searched in a view row.
    using TextOfRow = std::function<std::wstring(int32_t viewRow)>;

    /// Takes one typed character and answers the view row to go to; nothing when no row begins with
    /// what was typed. The first letter looks behind `currentRow` (-1: none), further letters begin
    /// at it; both go around the end.
    [[nodiscard]] std::optional<int32_t> Type(wchar_t unit, uint64_t nowMs, int32_t currentRow,
                                              int32_t rowCount, const TextOfRow& textOf);

    /// Forgets what was typed: after every filter and sort.
    void Clear() { prefix_.clear(); }

private:
    std::wstring prefix_;  // lowered
    uint64_t lastMs_ = 0;
};

}  // namespace rl
