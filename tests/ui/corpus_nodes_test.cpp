// Every JSON and XML document of the shared collection, opened in the real module.
#include <gtest/gtest.h>

#include "tests/support/test_paths.h"
#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

/// Shown as an outline, then as a tree and back; or refused with one sentence.
void ExpectOpensOrSaysWhy(UiHost& host, const std::filesystem::path& file) {
    const Viewer viewer = host.Start(file);
    if (!UiHost::WaitUntilLoaded(viewer)) {
        EXPECT_EQ(TheFakes().boxes.size(), 1u);
        TheFakes().boxes.clear();
        return;
    }
    EXPECT_EQ(viewer.Headers(), (Texts{L"Name", L"Value"}));
    EXPECT_GT(viewer.RowCount(), 0);
    Choose(viewer, 5050);
    EXPECT_TRUE(IsWindowVisible(viewer.Tree()));
    EXPECT_EQ(viewer.Status(3).rfind(L" Rows: ", 0), 0u);
    Choose(viewer, 5050);
    EXPECT_EQ(viewer.Headers(), (Texts{L"Name", L"Value"}));
    host.Close(viewer);
}

TEST(CorpusOfNodes, OpensBothWaysInTheRealModule) {
    if (!HasCorpus()) {
        GTEST_SKIP() << "the collection is not on this machine";
    }
    UiHost host;
    int opened = 0;
    for (const wchar_t* folder : {L"json", L"xml"}) {
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(CorpusRoot() / folder)) {
            const std::wstring suffix = entry.path().extension().wstring();
            if (!entry.is_regular_file() || entry.path().filename() == L"expected.jsonl" ||
                suffix == L".md" || suffix == L".txt") {
                continue;
            }
            SCOPED_TRACE(entry.path().string());
            ExpectOpensOrSaysWhy(host, entry.path());
            ++opened;
        }
    }
    EXPECT_GT(opened, 0);
}

}  // namespace

}  // namespace rl::test
