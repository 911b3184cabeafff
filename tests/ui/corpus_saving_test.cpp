// Every document of the shared collection: opened in the real module, edit mode switched on,
// nothing changed, saved. Nothing is written.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/support/corpus.h"
#include "tests/ui/support/editing.h"
#include "tests/ui/support/fakes.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

namespace fs = std::filesystem;

constexpr WPARAM kToggleEdit = 5040;
constexpr WPARAM kSave = 5041;

std::vector<fs::path> FilesIn(const char* folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(CorpusRoot() / folder)) {
        const std::wstring name = entry.path().filename().wstring();
        if (entry.is_regular_file() && name != L"expected.jsonl" && name != L"inline.jsonl" &&
            name != L"requests.json") {
            files.push_back(entry.path());
        }
    }
    std::ranges::sort(files);
    return files;
}

bool ShowsUnmodifiedEditMode(const Viewer& viewer) {
    const std::wstring text = viewer.Status(4);  // an outline may say more behind it
    return text.contains(L" EDIT") && !text.contains(L" EDIT *");
}

void ExpectNothingWritten(const Viewer& viewer, const fs::path& copy, const std::string& bytes) {
    const auto time = fs::last_write_time(copy);
    SendMessageW(viewer.Window(), WM_COMMAND, kToggleEdit, 0);
    EXPECT_TRUE(ShowsUnmodifiedEditMode(viewer)) << testing::PrintToString(viewer.Status(4));
    SendMessageW(viewer.Window(), WM_COMMAND, kSave, 0);
    EXPECT_TRUE(ShowsUnmodifiedEditMode(viewer)) << testing::PrintToString(viewer.Status(4));
    EXPECT_TRUE(TheFakes().writes.empty());
    EXPECT_TRUE(BytesOf(copy) == bytes);
    EXPECT_EQ(fs::last_write_time(copy), time);
    EXPECT_TRUE(TheFakes().boxes.empty());
}

/// Folders of the collection.
class UntouchedCorpus : public testing::TestWithParam<const char*> {};

TEST_P(UntouchedCorpus, IsNotWrittenBySaving) {
    if (!HasCorpus()) {
        GTEST_SKIP() << "the collection is not on this machine";
    }
    UiHost host;
    int opened = 0;
    for (const fs::path& file : FilesIn(GetParam())) {
        SCOPED_TRACE(file.string());
        const std::string bytes = ReadBytes(file);
        const fs::path copy = host.Write(file.filename().wstring(), bytes);
        const Viewer viewer = host.Start(copy);
        if (UiHost::WaitUntilLoaded(viewer)) {
            ++opened;
            ExpectNothingWritten(viewer, copy, bytes);
            host.Close(viewer);
        }
        TheFakes().boxes.clear();  // of a file that cannot be read
        fs::remove(copy);
    }
    EXPECT_GT(opened, 50);
}

INSTANTIATE_TEST_SUITE_P(EveryFile, UntouchedCorpus,
                         testing::Values("csv", "encodings", "json", "xml"));

}  // namespace

}  // namespace rl::test
