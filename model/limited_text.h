// A text that grows up to a limit and then gives up: what would not fit on a clipboard anyway is
// not built to its end.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace rl {

class LimitedText {
public:
    explicit LimitedText(size_t most) : most_(most) {}

    void Append(std::wstring_view more);
    void AppendBlanks(size_t count);
    /// Puts this between what stands there and what is appended next; nothing when either is empty.
    void Separate(std::wstring_view separator);

    /// Whether more was appended than fits: nothing is kept any more, and going on is pointless.
    [[nodiscard]] bool IsOver() const { return over_; }
    [[nodiscard]] std::wstring Take() { return std::move(text_); }

private:
    [[nodiscard]] bool Fits(size_t count);

    std::wstring text_;
    std::wstring_view separator_;
    size_t most_;
    bool over_ = false;
};

}  // namespace rl
