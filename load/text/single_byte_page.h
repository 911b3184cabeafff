// Encoding for code pages of one byte a character, by a table that the system fills.
//
// The system needs two passes over a text and looks every unit up with care; most texts are ASCII
// with a few letters beyond. Every entry of the table is an answer of the system's own.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rl {

/// A page whose bytes each stand for one unit, ASCII for itself.
class SingleBytePage {
public:
    /// The table of a page (0: the system's own); nothing when the page is of another kind or
    /// missing. Costs some hundred calls of the system.
    [[nodiscard]] static std::optional<SingleBytePage> Make(uint32_t codePage);

    /// Encodes the text. False, and nothing in `bytes`, at a unit that is not in the table: whether
    /// the page has a place for it is then for the system to say.
    [[nodiscard]] bool Encode(std::wstring_view text, std::string& bytes) const;

private:
    static constexpr int16_t kAbsent = -1;

    SingleBytePage();
    [[nodiscard]] bool Fill(std::wstring_view units, uint32_t codePage);
    [[nodiscard]] size_t EncodeInto(std::wstring_view text, char* out) const;

    std::vector<int16_t> byteOf_;  // for each 16-bit unit its byte, or kAbsent
};

}  // namespace rl
