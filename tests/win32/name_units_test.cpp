// Our tables of letters and digits against the system's own classification.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cwctype>

#include "model/name_units.h"

namespace rl {
namespace {

/// What the system says of a unit: a set of C1_ALPHA, C1_DIGIT and others.
WORD TypeOf(wchar_t unit) {
    WORD type = 0;
    GetStringTypeW(CT_CTYPE1, &unit, 1, &type);
    return type;
}

// Another Unicode version than the one the tables were taken from may know some more letters.
constexpr int kNewerUnits = 300;

TEST(NameUnitsWin32, AreClassifiedAsBySystem) {
    int differences = 0;
    for (uint32_t unit = 0; unit < 0x10000; ++unit) {
        const auto c = static_cast<wchar_t>(unit);
        const bool isAlphabetic = (TypeOf(c) & C1_ALPHA) != 0;
        const bool isAlphanumeric = (TypeOf(c) & (C1_ALPHA | C1_DIGIT)) != 0;
        const bool differs = IsAlphabetic(c) != isAlphabetic || IsAlphanumeric(c) != isAlphanumeric;
        differences += differs ? 1 : 0;
        EXPECT_FALSE(differs && unit < 0x250) << unit;
    }
    EXPECT_LE(differences, kNewerUnits);
}

TEST(NameUnitsWin32, AreClassifiedAsByTheLibraryButForThreeOrdinals) {
    for (uint32_t unit = 0; unit < 0x250; ++unit) {
        // The old library counts these among the marks; the system and the new one do not.
        if (unit == 0xAA || unit == 0xB5 || unit == 0xBA) {
            continue;
        }
        const auto c = static_cast<wchar_t>(unit);
        EXPECT_EQ(IsAlphabetic(c), std::iswalpha(c) != 0) << unit;
        EXPECT_EQ(IsAlphanumeric(c), std::iswalnum(c) != 0) << unit;
    }
}

}  // namespace
}  // namespace rl
