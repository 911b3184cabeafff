// The host's search, walked through the grid.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

using tools::kBackwards;
using tools::kFindFirst;
using tools::kMatchCase;
using tools::kSearchHit;
using tools::kSearchMiss;
using tools::kWholeWords;

constexpr const char* kTable = "name,city\nAnn,Rome\nBob,romeo\nCem,Rome Rome\n";

class Find : public testing::Test {
protected:
    Find() : viewer_(host_.OpenText(kTable)) {}

    int Search(const wchar_t* text, int flags) {
        return host_.Module().Search(viewer_.Window(), text, flags);
    }

    /// The current cell as the status bar tells it.
    [[nodiscard]] std::wstring At() const { return viewer_.Status(4); }

    UiHost host_;
    Viewer viewer_;
};

TEST_F(Find, StartsAtTheFirstCellAndGoesOnFromHitToHit) {
    EXPECT_EQ(Search(L"rome", kFindFirst), kSearchHit);
    EXPECT_EQ(At(), L" 1:2");
    EXPECT_EQ(Search(L"rome", 0), kSearchHit);
    EXPECT_EQ(At(), L" 2:2");
    EXPECT_EQ(Search(L"rome", 0), kSearchHit);
    EXPECT_EQ(At(), L" 3:2");
    EXPECT_EQ(Search(L"rome", 0), kSearchHit);  // the second one in the same cell
    EXPECT_EQ(At(), L" 3:2");
    EXPECT_EQ(Search(L"rome", 0), kSearchMiss);
}

TEST_F(Find, BeepsAtTheEndAndKeepsItsPlace) {
    ASSERT_EQ(Search(L"Cem", kFindFirst), kSearchHit);
    ASSERT_TRUE(TheFakes().beeps.empty());

    EXPECT_EQ(Search(L"Cem", 0), kSearchMiss);

    EXPECT_EQ(TheFakes().beeps.size(), 1u);
    EXPECT_EQ(At(), L" 3:1");
}

TEST_F(Find, StartsAfreshWhenTheTextDiffers) {
    ASSERT_EQ(Search(L"Cem", kFindFirst), kSearchHit);

    EXPECT_EQ(Search(L"Ann", 0), kSearchHit);

    EXPECT_EQ(At(), L" 1:1");
}

TEST_F(Find, StartsAfreshWhenAnOptionDiffers) {
    ASSERT_EQ(Search(L"Rome", kFindFirst), kSearchHit);
    ASSERT_EQ(Search(L"Rome", 0), kSearchHit);
    ASSERT_EQ(At(), L" 2:2");

    EXPECT_EQ(Search(L"Rome", kMatchCase), kSearchHit);

    EXPECT_EQ(At(), L" 1:2");
}

TEST_F(Find, TellsLetterCasesApartWhenAsked) {
    EXPECT_EQ(Search(L"Rome", kFindFirst | kMatchCase), kSearchHit);
    EXPECT_EQ(At(), L" 1:2");
    EXPECT_EQ(Search(L"Rome", kMatchCase), kSearchHit);
    EXPECT_EQ(At(), L" 3:2");
}

TEST_F(Find, TakesWholeWordsOnlyWhenAsked) {
    EXPECT_EQ(Search(L"rome", kFindFirst | kWholeWords), kSearchHit);
    EXPECT_EQ(At(), L" 1:2");
    EXPECT_EQ(Search(L"rome", kWholeWords), kSearchHit);
    EXPECT_EQ(At(), L" 3:2");
}

TEST_F(Find, GoesBackwardsFromTheEnd) {
    EXPECT_EQ(Search(L"rome", kFindFirst | kBackwards), kSearchHit);
    EXPECT_EQ(At(), L" 3:2");
    EXPECT_EQ(Search(L"rome", kBackwards), kSearchHit);
    EXPECT_EQ(At(), L" 3:2");
    EXPECT_EQ(Search(L"rome", kBackwards), kSearchHit);
    EXPECT_EQ(At(), L" 2:2");
    EXPECT_EQ(Search(L"rome", kBackwards), kSearchHit);
    EXPECT_EQ(At(), L" 1:2");
    EXPECT_EQ(Search(L"rome", kBackwards), kSearchMiss);
    EXPECT_EQ(TheFakes().beeps.size(), 1u);
}

TEST_F(Find, IsSilentAboutAnEmptyText) {
    EXPECT_EQ(Search(L"", kFindFirst), kSearchMiss);
    EXPECT_TRUE(TheFakes().beeps.empty());
}

TEST_F(Find, DoesNotSearchTheHeader) {
    EXPECT_EQ(Search(L"city", kFindFirst), kSearchMiss);
    EXPECT_EQ(TheFakes().beeps.size(), 1u);
}

TEST_F(Find, SelectsTheRowAloneAndShowsTheValue) {
    Click(viewer_.Grid(), viewer_.CellCenter(0, 0));

    ASSERT_EQ(Search(L"romeo", kFindFirst), kSearchHit);

    EXPECT_EQ(viewer_.SelectedRows(), (std::vector<int>{1}));
    EXPECT_EQ(viewer_.FocusedRow(), 1);
    EXPECT_EQ(viewer_.PaneText(), L"romeo");
}

TEST_F(Find, ComesBackToTheDataTab) {
    Click(viewer_.Tabs(), viewer_.TabCenter(1));

    ASSERT_EQ(Search(L"romeo", kFindFirst), kSearchHit);

    EXPECT_EQ(viewer_.CurrentTab(), 0);
    EXPECT_EQ(GetFocus(), viewer_.Grid());
}

TEST_F(Find, AnswersZeroForAHandleThatIsNoViewer) {
    EXPECT_EQ(host_.Module().Search(host_.Frame(), L"Ann", kFindFirst), 0);
    EXPECT_EQ(host_.Module().Search(nullptr, L"Ann", kFindFirst), 0);
    EXPECT_EQ(At(), L"");
}

TEST(FindText, TakesAnsiTextInTheSystemCodePage) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\nx,caf\xC3\xA9\n");

    EXPECT_EQ(host.Module().SearchAnsi(viewer.Window(), "caf\xE9", kFindFirst), kSearchHit);
    EXPECT_EQ(viewer.Status(4), L" 1:2");
}

TEST(FindText, CutsAnsiTextAfterOneThousandAndTwentyThreeLetters) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\n" + std::string(1023, 'x') + ",2\n");

    EXPECT_EQ(host.Module().SearchAnsi(viewer.Window(), std::string(1100, 'x'), kFindFirst),
              kSearchHit);
}

TEST(FindText, CountsLettersBeyondAsciiAsPartsOfAWord) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\nrome\xC3\xA9,rome\n");

    ASSERT_EQ(host.Module().Search(viewer.Window(), L"rome", kFindFirst | kWholeWords), kSearchHit);

    EXPECT_EQ(viewer.Status(4), L" 1:2");
}

TEST(FindText, LeavesTheLineNumbersOut) {
    UiHost host({.ini = "show-line-numbers=1\n"});
    const Viewer viewer = host.OpenText("a,b\nx,y\nx,2\n");

    ASSERT_EQ(host.Module().Search(viewer.Window(), L"2", kFindFirst), kSearchHit);

    EXPECT_EQ(viewer.Status(4), L" 2:3");
}

TEST(FindText, IsSilentWithoutRows) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\n");

    EXPECT_EQ(host.Module().Search(viewer.Window(), L"a", kFindFirst), kSearchMiss);
    EXPECT_TRUE(TheFakes().beeps.empty());
}

TEST(FindText, ScrollsAFarHitIntoView) {
    std::string rows = "a,b\n";
    for (int i = 0; i < 500; ++i) {
        rows += "x,y\n";
    }
    UiHost host;
    const Viewer viewer = host.OpenText(rows + "needle,z\n");

    ASSERT_EQ(host.Module().Search(viewer.Window(), L"needle", kFindFirst), kSearchHit);

    EXPECT_GT(viewer.TopRow(), 400);
}

}  // namespace

}  // namespace rl::test
