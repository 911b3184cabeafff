// A file opens: what stands on the screen first, and what then.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kPeople = "name,age\nAnn,31\nBob,\"40, about\"\n";

TEST(OpenCsv, ShowsTheFirstRecordAsHeaderAndTheRestAsRows) {
    UiHost host;

    const Viewer viewer = host.OpenText(kPeople);

    EXPECT_EQ(viewer.Headers(), (Texts{L"name", L"age"}));
    ASSERT_EQ(viewer.RowCount(), 2);
    EXPECT_EQ(viewer.Row(0), (Texts{L"Ann", L"31"}));
    EXPECT_EQ(viewer.Row(1), (Texts{L"Bob", L"40, about"}));
}

TEST(OpenCsv, NumbersTheColumnsWithoutAHeaderRow) {
    UiHost host({.ini = "header-row=0\n"});

    const Viewer viewer = host.OpenText(kPeople);

    EXPECT_EQ(viewer.Headers(), (Texts{L"Column 1", L"Column 2"}));
    ASSERT_EQ(viewer.RowCount(), 3);
    EXPECT_EQ(viewer.Row(0), (Texts{L"name", L"age"}));
}

TEST(OpenCsv, NumbersAColumnWithAnEmptyHeader) {
    UiHost host;

    const Viewer viewer = host.OpenText("a,b,\n1,2,3\n");

    EXPECT_EQ(viewer.Headers(), (Texts{L"a", L"b", L"Column 3"}));
}

TEST(OpenCsv, PutsLineNumbersBeforeTheDataWhenAsked) {
    UiHost host({.ini = "show-line-numbers=1\n"});

    const Viewer viewer = host.OpenText(kPeople);

    EXPECT_EQ(viewer.Headers(), (Texts{L"#", L"name", L"age"}));
    EXPECT_EQ(viewer.Row(1), (Texts{L"2", L"Bob", L"40, about"}));
}

TEST(OpenCsv, OpensAnEmptyFileAsAnEmptyTable) {
    UiHost host;

    const Viewer viewer = host.OpenText("");

    EXPECT_EQ(viewer.RowCount(), 0);
}

TEST(OpenCsv, FillsTheHostAndFollowsItsSize) {
    UiHost host({.width = 900, .height = 600});
    const Viewer viewer = host.OpenText(kPeople);

    host.Resize(700, 400);

    RECT area{};
    GetClientRect(viewer.Window(), &area);
    EXPECT_EQ(area.right, 700);
    EXPECT_EQ(area.bottom, 400);
    EXPECT_EQ(viewer.Place(viewer.Grid()).right, 700);
    EXPECT_EQ(viewer.Place(viewer.StatusBar()).bottom, 400);
}

TEST(OpenCsv, OpensOnTheSourceTabWhenTheSettingSaysSoInAnyLetterCase) {
    UiHost host({.ini = "default-tab=SOURCE\n"});

    const Viewer viewer = host.OpenText(kPeople);

    EXPECT_EQ(viewer.CurrentTab(), 1);
    EXPECT_FALSE(IsWindowVisible(viewer.Grid()));
    EXPECT_TRUE(IsWindowVisible(viewer.Source()));
}

TEST(OpenCsv, CutsANameGivenInAnsiAfterFiveHundredAndNineteenLetters) {
    UiHost host;
    const std::filesystem::path folder =
        L"\\\\?\\" + (host.IniFile().parent_path() / std::wstring(230, 'f')).wstring();
    ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
    const size_t nameLength = 519 - folder.wstring().size() - 1;
    ASSERT_LT(nameLength, 255u);
    const std::filesystem::path file = folder / (std::wstring(nameLength - 4, 'n') + L".csv");
    ASSERT_TRUE(tools::WriteBytes(file, kPeople));

    const std::string tooLong = tools::ToAnsi(file.wstring()) + std::string(81, 'x');
    const Viewer viewer(host.Module().OpenAnsi(host.Frame(), tooLong, 0));

    ASSERT_TRUE(UiHost::WaitUntilLoaded(viewer));
    EXPECT_EQ(viewer.RowCount(), 2);
    host.Close(viewer);
}

TEST(OpenCsv, TrustsTheNameMoreThanTheContent) {
    UiHost host;

    const Viewer viewer = host.OpenText("<a>\n<b/>\n</a>\n", L"a.csv");

    EXPECT_EQ(viewer.Row(0), (Texts{L"<b/>"}));
}

TEST(OpenCsv, OpensAFileThatAnotherProgramIsWriting) {
    UiHost host;
    const std::filesystem::path file = host.Write(L"log.csv", kPeople);
    const HANDLE writer = CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(writer, INVALID_HANDLE_VALUE);

    EXPECT_TRUE(host.Open(file).IsLoaded());

    CloseHandle(writer);
}

TEST(OpenCsv, TakesANameInTheSystemCodePage) {
    UiHost host;
    const std::filesystem::path file = host.Write(L"caf\u00E9.csv", kPeople);

    const Viewer viewer(host.Module().OpenAnsi(host.Frame(), tools::ToAnsi(file.wstring()), 0));

    ASSERT_TRUE(UiHost::WaitUntilLoaded(viewer));
    EXPECT_EQ(viewer.RowCount(), 2);
    host.Close(viewer);
}

TEST(WhileLoading, SaysLoadingBeforeAnythingElse) {
    UiHost host;

    const Viewer viewer = host.Start(host.Write(L"data.csv", kPeople));

    EXPECT_EQ(TextOf(viewer.Placeholder()), L"Loading...");
    EXPECT_TRUE(IsWindowVisible(viewer.Placeholder()));
    EXPECT_EQ(viewer.StatusTexts(), (Texts{L" Loading...", L"", L"", L"", L""}));
    UiHost::WaitUntilLoaded(viewer);
}

TEST(WhileLoading, NamesTheFileAndItsSizeRoundedDown) {
    UiHost host;
    const auto file = host.Write(L"data.csv", std::string(1'677'721, 'x'));  // 1.599999 MiB
    const Viewer viewer = host.Start(file);
    TheFakes().readDelay = 500;

    PumpUntil([&] { return TextOf(viewer.Placeholder()) != L"Loading..."; });

    EXPECT_EQ(TextOf(viewer.Placeholder()), L"Loading data.csv (1.5 MB)\u2026");
    TheFakes().readDelay = 0;
    EXPECT_TRUE(UiHost::WaitUntilLoaded(viewer));
}

TEST(WhileLoading, HidesEverythingThatNeedsTheDocument) {
    UiHost host;
    const Viewer viewer = host.Start(host.Write(L"data.csv", kPeople));

    EXPECT_FALSE(IsWindowVisible(viewer.Grid()));
    EXPECT_FALSE(IsWindowVisible(viewer.Tabs()));
    EXPECT_FALSE(IsWindowVisible(viewer.Pane()));
    UiHost::WaitUntilLoaded(viewer);
    EXPECT_TRUE(IsWindowVisible(viewer.Grid()));
    EXPECT_TRUE(IsWindowVisible(viewer.Tabs()));
    EXPECT_TRUE(IsWindowVisible(viewer.Pane()));
}

TEST(WhileLoading, FindsNothingAndStaysSilent) {
    UiHost host;
    const Viewer viewer = host.Start(host.Write(L"data.csv", kPeople));

    EXPECT_EQ(host.Module().Search(viewer.Window(), L"Ann", tools::kFindFirst), tools::kSearchMiss);
    EXPECT_TRUE(TheFakes().beeps.empty());
    UiHost::WaitUntilLoaded(viewer);
}

}  // namespace

}  // namespace rl::test
