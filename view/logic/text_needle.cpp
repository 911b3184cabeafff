#include "view/logic/text_needle.h"

#include <algorithm>

namespace rl {

TextNeedle::TextNeedle(std::wstring_view wanted, bool caseSensitive) : wanted_(wanted) {
    if (wanted_.empty()) {
        return;
    }
    if (caseSensitive) {
        first_ = {wanted_.front(), wanted_.front()};
        last_ = {wanted_.back(), wanted_.back()};
        lastAt_ = wanted_.size() - 1;
        usable_ = true;
        return;
    }
    FoldText(wanted_);
    fold_ = &CaseFold::Instance();
    if (std::none_of(wanted_.begin(), wanted_.end(), IsSurrogate)) {
        ChooseUnits();
    }
}

// The outermost units that two cases are all of; some letters have a third, as K has the Kelvin
// sign, and are left to the comparison.
void TextNeedle::ChooseUnits() {
    const auto pairOf = [this](size_t at, UnitPair<wchar_t>& pair) {
        const std::vector<wchar_t> variants = fold_->VariantsOf(wanted_[at]);
        if (variants.empty() || variants.size() > pair.size()) {
            return false;
        }
        pair = {variants.front(), variants.back()};
        return true;
    };
    while (firstAt_ < wanted_.size() && !pairOf(firstAt_, first_)) {
        ++firstAt_;
    }
    usable_ = firstAt_ < wanted_.size();
    if (!usable_) {
        return;
    }
    lastAt_ = wanted_.size() - 1;
    while (lastAt_ > firstAt_ && !pairOf(lastAt_, last_)) {
        --lastAt_;
    }
    if (lastAt_ == firstAt_) {
        last_ = first_;
    }
}

bool TextNeedle::MatchesAt(const wchar_t* place) const {
    if (fold_ == nullptr) {
        return std::equal(wanted_.begin(), wanted_.end(), place);
    }
    return std::equal(wanted_.begin(), wanted_.end(), place,
                      [this](wchar_t wanted, wchar_t unit) { return fold_->Fold(unit) == wanted; });
}

bool TextNeedle::IsIn(std::wstring_view text) const {
    return FindIn(text, 0) != std::wstring_view::npos;
}

size_t TextNeedle::FindIn(std::wstring_view text, size_t from) const {
    if (text.size() < wanted_.size()) {
        return std::wstring_view::npos;
    }
    const size_t count = text.size() - wanted_.size() + 1;
    const wchar_t* firstUnit = text.data() + firstAt_;
    const size_t distance = lastAt_ - firstAt_;
    for (size_t at = FindPlace(firstUnit, std::min(from, count), count, distance, first_, last_);
         at < count; at = FindPlace(firstUnit, at + 1, count, distance, first_, last_)) {
        if (MatchesAt(text.data() + at)) {
            return at;
        }
    }
    return std::wstring_view::npos;
}

bool TextNeedle::Holds(wchar_t unit) const {
    return wanted_.find(fold_ == nullptr ? unit : fold_->Fold(unit)) != std::wstring::npos;
}

}  // namespace rl
