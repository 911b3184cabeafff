#include "view/logic/type_ahead.h"

#include <algorithm>
#include <span>

#include "view/logic/case_fold.h"

namespace rl {
namespace {

bool BeginsWith(std::wstring& text, const std::wstring& loweredPrefix) {
    if (text.size() < loweredPrefix.size()) {
        return false;
    }
    FoldText(std::span(text).first(loweredPrefix.size()));
    return text.starts_with(loweredPrefix);
}

}  // namespace

std::optional<int32_t> TypeAhead::Type(wchar_t unit, uint64_t nowMs, int32_t currentRow,
                                       int32_t rowCount, const TextOfRow& textOf) {
    if (unit < L' ' || rowCount < 1) {
        return std::nullopt;
    }
    if (nowMs - lastMs_ > kTypeAheadMs) {
        prefix_.clear();
    }
    lastMs_ = nowMs;
    const bool isFirst = prefix_.empty();
    prefix_.push_back(unit);
    FoldText(prefix_);

    const bool inside = currentRow >= 0 && currentRow < rowCount;
    const int64_t start = !inside ? 0 : int64_t{currentRow} + (isFirst ? 1 : 0);
    for (int64_t step = 0; step < rowCount; ++step) {
        const auto row = static_cast<int32_t>((start + step) % rowCount);
        std::wstring text = textOf(row);
        if (BeginsWith(text, prefix_)) {
            return row;
        }
    }
    return std::nullopt;
}

}  // namespace rl
