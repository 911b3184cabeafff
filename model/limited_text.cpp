#include "model/limited_text.h"

#include <utility>

namespace rl {

void LimitedText::Append(std::wstring_view more) {
    if (!more.empty() && Fits(more.size())) {
        text_ += std::exchange(separator_, {});
        text_ += more;
    }
}

void LimitedText::AppendBlanks(size_t count) {
    if (count > 0 && Fits(count)) {
        text_ += std::exchange(separator_, {});
        text_.append(count, L' ');
    }
}

void LimitedText::Separate(std::wstring_view separator) {
    separator_ = text_.empty() ? std::wstring_view() : separator;
}

bool LimitedText::Fits(size_t count) {
    if (!over_ && (count > most_ || text_.size() + separator_.size() > most_ - count)) {
        over_ = true;
        text_ = std::wstring();
    }
    return !over_;
}

}  // namespace rl
