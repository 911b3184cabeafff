#include "view/logic/case_fold.h"

#include <gtest/gtest.h>

#include <string>

#include "load/text/platform.h"

namespace rl {
namespace {

TEST(FoldText, GivesForEveryUnitWhatTheSystemGives) {
    for (uint32_t unit = 0; unit < 0x10000; ++unit) {
        std::wstring ours(1, static_cast<wchar_t>(unit));
        std::wstring theirs = ours;
        FoldText(ours);
        platform::FoldCase(theirs);
        ASSERT_EQ(ours, theirs) << unit;
    }
}

TEST(FoldText, GivesForTextsWhatTheSystemGives) {
    for (const std::wstring text :
         {L"", L"Mixed CASE 123", L"\u00C4\u00D6\u00DC \u0396\u0397 \u0416\u0418 \u212A",
          L"ABC \xD801\xDC00 DEF", L"\xD800 lone HIGH", L"\xDC00 lone LOW"}) {
        std::wstring ours = text;
        std::wstring theirs = text;
        FoldText(ours);
        platform::FoldCase(theirs);
        EXPECT_EQ(ours, theirs);
    }
}

TEST(CaseFold, NamesEveryVariantOfALetter) {
    for (const wchar_t unit : CaseFold::Instance().VariantsOf(L'E')) {
        EXPECT_TRUE(unit == L'e' || unit == L'E');
    }
    EXPECT_EQ(CaseFold::Instance().VariantsOf(L'7'), std::vector<wchar_t>{L'7'});
}

}  // namespace
}  // namespace rl
