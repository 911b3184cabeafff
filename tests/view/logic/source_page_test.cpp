// What of a source text is seen.
#include "view/logic/source_page.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace rl {
namespace {

SourcePage Page(int32_t lines) {
    return {.cell = {10, 20}, .clientWidth = 400, .clientHeight = 110, .lineCount = lines};
}

TEST(SourcePage, MakesTheGutterAsWideAsTheLineCountAndTwoCharacters) {
    EXPECT_EQ(Page(1).GutterWidth(), 30);
    EXPECT_EQ(Page(9).GutterWidth(), 30);
    EXPECT_EQ(Page(10).GutterWidth(), 40);
    EXPECT_EQ(Page(2'000'000).GutterWidth(), 90);
}

TEST(SourcePage, AlignsLineNumbersToTheRight) {
    const SourcePage page = Page(100);
    EXPECT_EQ(page.NumberLeft(99), 5 + 10);
    EXPECT_EQ(page.NumberLeft(98), 5 + 20);
    EXPECT_EQ(page.NumberLeft(0), 5 + 30);
}

TEST(SourcePage, DrawsTheFullLinesAndOneMore) {
    SourcePage page = Page(100);
    EXPECT_EQ(page.PageLines(), 5);
    EXPECT_EQ(page.LinesEnd(), 6);
    page.topLine = 95;
    EXPECT_EQ(page.LinesEnd(), 100);
    page.clientHeight = 7;
    EXPECT_EQ(page.PageLines(), 1);
    page.clientHeight = 0;
    EXPECT_EQ(page.PageLines(), 1);
}

TEST(SourcePage, ScrollsUntilTheLastLineStandsAtTheBottom) {
    EXPECT_EQ(Page(100).MaxTopLine(), 95);
    EXPECT_EQ(Page(5).MaxTopLine(), 0);
    EXPECT_EQ(Page(1).MaxTopLine(), 0);
}

TEST(SourcePage, ScrollsSidewaysOneColumnBeyondTheWidestLine) {
    SourcePage page = Page(100);
    page.maxColumns = 100;
    EXPECT_EQ(page.Width(), 1010 + 50);
    EXPECT_EQ(page.MaxScrollX(), 1060 - 400);
    page.maxColumns = 3;
    EXPECT_EQ(page.MaxScrollX(), 0);
}

TEST(SourcePage, NeverLeaves31Bits) {
    SourcePage page = Page(std::numeric_limits<int32_t>::max());
    page.maxColumns = std::numeric_limits<int32_t>::max();
    page.topLine = page.MaxTopLine();
    page.scrollX = page.MaxScrollX();

    EXPECT_EQ(page.Width(), std::numeric_limits<int32_t>::max());
    EXPECT_EQ(page.LinesEnd(), page.lineCount);
    EXPECT_EQ(page.LineAtY(1'000'000), page.lineCount - 1);
    EXPECT_EQ(page.ScrollXFor(page.maxColumns), page.MaxScrollX());
    EXPECT_GT(page.ColumnLeft(page.maxColumns), 100'000'000);
    EXPECT_LT(page.ColumnLeft(0), -100'000'000);
}

TEST(SourcePage, FindsLineAndPlaceUnderTheMouse) {
    SourcePage page = Page(100);
    page.topLine = 10;
    page.scrollX = 25;
    EXPECT_EQ(page.LineAtY(0), 10);
    EXPECT_EQ(page.LineAtY(19), 10);
    EXPECT_EQ(page.LineAtY(20), 11);
    EXPECT_EQ(page.LineAtY(-1), 9);
    EXPECT_EQ(page.LineAtY(-20), 9);
    EXPECT_EQ(page.LineAtY(-21), 8);
    EXPECT_EQ(page.LineAtY(-5000), 0);
    EXPECT_EQ(page.LineAtY(50'000), 99);
    EXPECT_EQ(page.TextX(50), 25);
    EXPECT_EQ(page.TextX(0), -25);
    EXPECT_EQ(page.ColumnLeft(4), 50 + 40 - 25);
}

TEST(SourcePage, ScrollsNoFurtherThanNeededToShowALine) {
    SourcePage page = Page(100);
    page.topLine = 10;
    EXPECT_EQ(page.TopLineFor(10), 10);
    EXPECT_EQ(page.TopLineFor(14), 10);
    EXPECT_EQ(page.TopLineFor(15), 11);
    EXPECT_EQ(page.TopLineFor(9), 9);
    EXPECT_EQ(page.TopLineFor(99), 95);
}

TEST(SourcePage, ScrollsNoFurtherThanNeededToShowAColumn) {
    SourcePage page = Page(100);  // 35 columns beside the gutter
    page.maxColumns = 200;
    EXPECT_EQ(page.ScrollXFor(0), 0);
    EXPECT_EQ(page.ScrollXFor(34), 0);
    EXPECT_EQ(page.ScrollXFor(35), 10);
    EXPECT_EQ(page.ScrollXFor(200), page.MaxScrollX());
    page.scrollX = 500;
    EXPECT_EQ(page.ScrollXFor(50), 500);
    EXPECT_EQ(page.ScrollXFor(49), 490);
    EXPECT_EQ(page.ScrollXFor(0), 0);
}

/// Runs as text: column, letter of the class, "*" when selected, the units.
std::vector<std::wstring> Runs(const LinePlan::Input& input) {
    LinePlan plan;
    plan.Plan(input);
    std::vector<std::wstring> runs;
    for (const SourceRun& run : plan.Runs()) {
        runs.push_back(std::to_wstring(run.column) + L":" +
                       std::to_wstring(static_cast<int>(run.colour)) + (run.selected ? L"*" : L"") +
                       L":" + std::wstring(plan.TextOf(run)));
    }
    return runs;
}

using Texts = std::vector<std::wstring>;

constexpr SourceClass kA = SourceClass::Text;
constexpr SourceClass kB = SourceClass::Number;
constexpr SourceClass kClasses[] = {kA, kA, kB, kB, kA, kA, kA, kA, kA, kA, kA, kA};

LinePlan::Input Line(std::wstring_view line) {
    return {.line = line, .classes = std::span(kClasses).first(line.size()), .lastColumn = 80};
}

TEST(LinePlan, CutsALineIntoRunsOfOneClass) {
    EXPECT_EQ(Runs(Line(L"abcdef")), (Texts{L"0:0:ab", L"2:5:cd", L"4:0:ef"}));
    EXPECT_EQ(Runs(Line(L"")), Texts{});
}

TEST(LinePlan, CutsRunsAtTheEndsOfTheSelection) {
    LinePlan::Input input = Line(L"abcdef");
    input.start = 100;
    input.selection = {.anchor = 105, .caret = 101};
    EXPECT_EQ(Runs(input), (Texts{L"0:0:a", L"1:0*:b", L"2:5*:cd", L"4:0*:e", L"5:0:f"}));
}

TEST(LinePlan, WritesTabsAsBlanksUpToTheNextStop) {
    EXPECT_EQ(Runs(Line(L"a\tcd")), (Texts{L"0:0:a   ", L"4:5:cd"}));
    EXPECT_EQ(Runs(Line(L"ab\td")), (Texts{L"0:0:ab", L"2:5:  d"}));
}

TEST(LinePlan, StopsTwoColumnsBeyondTheLastSeen) {
    LinePlan::Input input = Line(L"abcdefghijkl");
    input.lastColumn = 5;
    EXPECT_EQ(Runs(input), (Texts{L"0:0:ab", L"2:5:cd", L"4:0:efgh"}));
}

TEST(LinePlan, LeavesOutWhatStandsLeftOfTheFirstColumn) {
    LinePlan::Input input = Line(L"abcdef");
    input.firstColumn = 3;
    EXPECT_EQ(Runs(input), (Texts{L"3:5:d", L"4:0:ef"}));
    input.line = L"\tb";
    EXPECT_EQ(Runs(input), (Texts{L"3:0: b"}));
    input.firstColumn = 5000;
    EXPECT_EQ(Runs(input), Texts{});
}

TEST(LinePlan, KnowsTheColumnBehindTheLine) {
    LinePlan plan;
    plan.Plan(Line(L"a\tb"));
    EXPECT_EQ(plan.EndColumn(), 5);
    plan.Plan(Line(L""));
    EXPECT_EQ(plan.EndColumn(), 0);
}

}  // namespace
}  // namespace rl
