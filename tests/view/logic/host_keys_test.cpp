#include "view/logic/host_keys.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

constexpr HostKeyState kReady{.msSinceCreation = 1000, .focusInside = true};

HostKeyState InFilterBox() {
    HostKeyState state = kReady;
    state.focusInFilterBox = true;
    return state;
}

HostKeyState WithCtrl() {
    HostKeyState state = kReady;
    state.ctrl = state.ctrlCommand = true;
    return state;
}

HostKeyState WithAltGr() {
    HostKeyState state = kReady;
    state.ctrl = true;
    return state;
}

TEST(IsHostKey, HandsOverEscapeEvenFromAFilterBox) {
    EXPECT_TRUE(IsHostKey(key::kEscape, kReady));
    EXPECT_TRUE(IsHostKey(key::kEscape, InFilterBox()));
}

TEST(IsHostKey, HandsNothingOverForHalfASecond) {
    HostKeyState state = kReady;
    state.msSinceCreation = 499;
    EXPECT_FALSE(IsHostKey(key::kEscape, state));
    EXPECT_FALSE(IsHostKey(key::Of('1'), state));
    state.msSinceCreation = 500;
    EXPECT_TRUE(IsHostKey(key::kEscape, state));
}

TEST(IsHostKey, HandsNothingOverWhileTheFocusIsElsewhere) {
    HostKeyState state = kReady;
    state.focusInside = false;
    EXPECT_FALSE(IsHostKey(key::kEscape, state));
    EXPECT_FALSE(IsHostKey(key::kF3, state));
}

TEST(IsHostKey, HandsOverFindNextAndFindButNotFromAFilterBox) {
    EXPECT_TRUE(IsHostKey(key::kF3, kReady));
    EXPECT_FALSE(IsHostKey(key::kF3, InFilterBox()));
    EXPECT_TRUE(IsHostKey(key::Of('F'), WithCtrl()));
    EXPECT_FALSE(IsHostKey(key::Of('F'), kReady));
    HostKeyState box = InFilterBox();
    box.ctrl = box.ctrlCommand = true;
    EXPECT_FALSE(IsHostKey(key::Of('F'), box));
}

TEST(IsHostKey, HandsOverOneToEightButNeverNine) {
    for (char digit = '1'; digit <= '8'; ++digit) {
        EXPECT_TRUE(IsHostKey(key::Of(digit), kReady)) << digit;
        EXPECT_FALSE(IsHostKey(key::Of(digit), WithCtrl())) << digit;
        EXPECT_FALSE(IsHostKey(key::Of(digit), InFilterBox())) << digit;
    }
    EXPECT_FALSE(IsHostKey(key::Of('9'), kReady));
    EXPECT_FALSE(IsHostKey(key::Of('0'), kReady));
}

TEST(IsHostKey, KeepsWhatAltGrTypes) {
    EXPECT_FALSE(IsHostKey(key::Of('7'), WithAltGr()));
    EXPECT_FALSE(IsHostKey(key::Of('F'), WithAltGr()));
}

TEST(IsHostKey, KeepsTheDigitsWhenSetSo) {
    HostKeyState state = kReady;
    state.disableNumKeys = true;
    EXPECT_FALSE(IsHostKey(key::Of('1'), state));
    EXPECT_TRUE(IsHostKey(key::Of('N'), state));
}

TEST(IsHostKey, HandsOverNAndPUnlessSetOtherwise) {
    EXPECT_TRUE(IsHostKey(key::Of('N'), kReady));
    EXPECT_TRUE(IsHostKey(key::Of('P'), kReady));
    EXPECT_FALSE(IsHostKey(key::Of('N'), InFilterBox()));
    HostKeyState state = kReady;
    state.disableNpKeys = true;
    EXPECT_FALSE(IsHostKey(key::Of('N'), state));
    EXPECT_FALSE(IsHostKey(key::Of('P'), state));
}

TEST(IsHostKey, HandsOverQOnlyWhenSetSo) {
    EXPECT_FALSE(IsHostKey(key::Of('Q'), kReady));
    HostKeyState state = kReady;
    state.exitByQ = true;
    EXPECT_TRUE(IsHostKey(key::Of('Q'), state));
    state.focusInFilterBox = true;
    EXPECT_FALSE(IsHostKey(key::Of('Q'), state));
}

TEST(IsHostKey, KeepsEveryOtherKey) {
    EXPECT_FALSE(IsHostKey(key::kF1, kReady));
    EXPECT_FALSE(IsHostKey(key::Of('A'), kReady));
    EXPECT_FALSE(IsHostKey(key::kDown, kReady));
}

TEST(HostKeyData, HoldsTheScanCodeAndOneRepeat) {
    EXPECT_EQ(HostKeyData(0x01), 0x00010001U);
    EXPECT_EQ(HostKeyData(0x3D), 0x003D0001U);
}

}  // namespace
}  // namespace rl
