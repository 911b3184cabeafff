// A load that fails says why and takes its viewer away.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

/// Opens a file that cannot be shown and returns the message about it.
ShownBox MessageFor(UiHost& host, const std::filesystem::path& file) {
    const Viewer viewer = host.Start(file);
    EXPECT_TRUE(UiHost::WaitUntilGone(viewer));
    EXPECT_EQ(TheFakes().boxes.size(), 1u);
    return TheFakes().boxes.empty() ? ShownBox{} : TheFakes().boxes.front();
}

TEST(FailedLoad, SaysThatAFileIsMissing) {
    UiHost host;

    EXPECT_EQ(MessageFor(host, L"C:\\no such folder\\data.csv").text,
              L"The file could not be opened.");
}

TEST(FailedLoad, SaysThatQuotesAreUnbalanced) {
    UiHost host;

    EXPECT_EQ(MessageFor(host, host.Write(L"a.csv", "a,\"b\n1,2\n")).text,
              L"The file could not be parsed (unbalanced quotes).");
}

TEST(FailedLoad, SaysThatADocumentIsNotJson) {
    UiHost host;

    EXPECT_EQ(MessageFor(host, host.Write(L"a.json", "{\"a\": ")).text,
              L"Not a valid JSON document");
}

TEST(FailedLoad, SaysThatADocumentIsNotXml) {
    UiHost host;

    EXPECT_EQ(MessageFor(host, host.Write(L"a.xml", "no markup at all")).text,
              L"Not a valid XML document");
}

TEST(FailedLoad, TellsSizeAndLimitOfAFileThatIsTooLarge) {
    UiHost host({.ini = "max-file-size=1000\n"});

    EXPECT_EQ(MessageFor(host, host.Write(L"a.csv", std::string(1536, 'x'))).text,
              L"The file could not be loaded because it exceeds the configured size limit.\r\n"
              L"File size: 1536 bytes (1.5 KB)\r\nLimit: 1000 bytes\r\n\r\n"
              L"Raise max-file-size in rowlark.ini to open it (memory use peaks at roughly 4x the "
              L"file size).");
}

TEST(FailedLoad, LetsAFileOfExactlyTheLimitPass) {
    UiHost host({.ini = "max-file-size=1000\n"});

    const Viewer viewer = host.OpenText(std::string(1000, 'x'));

    EXPECT_TRUE(viewer.IsLoaded());
    EXPECT_TRUE(TheFakes().boxes.empty());
}

TEST(FailedLoad, ShowsAnErrorBoxOwnedByTheViewer) {
    UiHost host;
    const Viewer viewer = host.Start(L"C:\\no such folder\\data.csv");
    ASSERT_TRUE(UiHost::WaitUntilGone(viewer));

    ASSERT_EQ(TheFakes().boxes.size(), 1u);
    const ShownBox& box = TheFakes().boxes.front();
    EXPECT_EQ(box.caption, L"rowlark");
    EXPECT_EQ(box.owner, viewer.Window());
    EXPECT_EQ(box.type & MB_ICONMASK, static_cast<UINT>(MB_ICONERROR));
    EXPECT_EQ(box.type & MB_TYPEMASK, static_cast<UINT>(MB_OK));
}

TEST(FailedLoad, SaysThatReadingFailed) {
    UiHost host;
    const Viewer viewer = host.Start(host.Write(L"a.csv", "a,b\n"));
    TheFakes().readFails = true;

    ASSERT_TRUE(UiHost::WaitUntilGone(viewer));

    ASSERT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(TheFakes().boxes.front().text, L"The file could not be read.");
}

TEST(FailedLoad, TakesAnEarlyEndForAFailure) {
    UiHost host;
    const Viewer viewer = host.Start(host.Write(L"a.csv", "a,b\n"));
    TheFakes().readsUntilEnd = 0;

    ASSERT_TRUE(UiHost::WaitUntilGone(viewer));

    ASSERT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(TheFakes().boxes.front().text, L"The file could not be read.");
}

TEST(FailedLoad, SaysThatTheSizeIsUnknown) {
    UiHost host;
    const Viewer viewer = host.Start(host.Write(L"a.csv", "a,b\n"));
    TheFakes().sizeFails = true;

    ASSERT_TRUE(UiHost::WaitUntilGone(viewer));

    ASSERT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(TheFakes().boxes.front().text, L"The file size could not be determined.");
}

TEST(FailedLoad, LooksAtTheContentWhenTheNameSaysNothing) {
    UiHost host;

    EXPECT_EQ(MessageFor(host, host.Write(L"a.txt", "\n {\"a\": ")).text,
              L"Not a valid JSON document");
}

TEST(FailedLoad, SurvivesAHostThatClosesTheViewerWhileItsMessageIsShown) {
    UiHost host;
    const Viewer viewer = host.Start(L"C:\\no such folder\\data.csv");
    TheFakes().whileBoxIsOpen = [&] { host.Close(viewer); };

    EXPECT_TRUE(UiHost::WaitUntilGone(viewer));

    TheFakes().whileBoxIsOpen = nullptr;
    EXPECT_TRUE(host.OpenText("a,b\n1,2\n").IsLoaded());
}

}  // namespace

}  // namespace rl::test
