#include "view/logic/case_fold.h"

#include <string>

#include "load/text/platform.h"

namespace rl {

CaseFold::CaseFold() : table_(kUnits) {
    std::wstring all(kUnits, L'\0');
    for (size_t unit = 0; unit < kUnits; ++unit) {
        all[unit] = static_cast<wchar_t>(unit);
    }
    platform::FoldCase(all);
    for (size_t unit = 0; unit < kUnits; ++unit) {
        const bool kept = IsSurrogate(static_cast<wchar_t>(unit));
        table_[unit] = static_cast<uint16_t>(kept ? unit : static_cast<size_t>(all[unit]));
    }
}

const CaseFold& CaseFold::Instance() {
    static const CaseFold instance;
    return instance;
}

std::vector<wchar_t> CaseFold::VariantsOf(wchar_t unit) const {
    const wchar_t folded = Fold(unit);
    std::vector<wchar_t> variants;
    for (size_t other = 0; other < kUnits; ++other) {
        if (static_cast<wchar_t>(table_[other]) == folded) {
            variants.push_back(static_cast<wchar_t>(other));
        }
    }
    return variants;
}

void FoldText(std::span<wchar_t> text) {
    const CaseFold& fold = CaseFold::Instance();
    for (wchar_t& unit : text) {
        if (IsSurrogate(unit)) {
            platform::FoldCase(text);
            return;
        }
        unit = fold.Fold(unit);
    }
}

}  // namespace rl
