// Every JSON and XML document of the shared collection, opened in the real module.
#include <gtest/gtest.h>

#include <fstream>
#include <map>

#include "tests/support/test_paths.h"
#include "tests/ui/support/fakes.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

/// The text behind the first `"name": "`, up to the next quote; empty when absent.
std::string Field(const std::string& line, const std::string& name) {
    const std::string key = "\"" + name + "\": \"";
    const size_t at = line.find(key);
    return at == std::string::npos
               ? std::string()
               : line.substr(at + key.size(), line.find('"', at + key.size()) - at - key.size());
}

/// What the status bar says of a document that was read so; empty for one that was not.
std::wstring StatusFor(const std::string& verdict) {
    static const std::map<std::string, std::wstring> kTexts = {
        {"document", L" JSON outline"},
        {"lines", L" JSONL outline"},
        {"balanced", L" XML outline"},
        {"malformed", L" XML outline (malformed)"}};
    const auto found = kTexts.find(verdict);
    return found != kTexts.end() ? found->second : std::wstring();
}

void ExpectTreeAndBack(const Viewer& viewer) {
    Choose(viewer, 5050);
    EXPECT_TRUE(IsWindowVisible(viewer.Tree()));
    EXPECT_TRUE(viewer.Status(3).starts_with(L" Rows: "));
    Choose(viewer, 5050);
    EXPECT_EQ(viewer.Headers(), (Texts{L"Name", L"Value"}));
}

/// Opens what the list names, each with the answer that the list expects.
void OpenAll(const std::wstring& folder) {
    constexpr int kBothWays = 8;  // each so many is shown as a tree, too
    UiHost host;
    std::ifstream list(CorpusRoot() / folder / "expected.jsonl");
    int opened = 0;
    for (std::string line; std::getline(list, line);) {
        const std::filesystem::path file = CorpusRoot() / folder / Field(line, "file");
        if (file.extension().empty()) {
            continue;  // taken for delimited text
        }
        SCOPED_TRACE(file.string());
        const std::wstring status = StatusFor(Field(line, "verdict"));
        const Viewer viewer = host.Start(file);
        ASSERT_EQ(UiHost::WaitUntilLoaded(viewer), !status.empty());
        if (status.empty()) {
            EXPECT_EQ(TheFakes().boxes.size(), 1u);
            TheFakes().boxes.clear();
            continue;
        }
        EXPECT_EQ(viewer.Status(1), status);
        EXPECT_GT(viewer.RowCount(), 0);
        if (++opened % kBothWays == 0) {
            ExpectTreeAndBack(viewer);
        }
        host.Close(viewer);
    }
    EXPECT_GT(opened, 0);
}

TEST(CorpusOfNodes, OpensJsonAsExpected) {
    if (!HasCorpus()) {
        GTEST_SKIP() << "the collection is not on this machine";
    }
    OpenAll(L"json");
}

TEST(CorpusOfNodes, OpensXmlAsExpected) {
    if (!HasCorpus()) {
        GTEST_SKIP() << "the collection is not on this machine";
    }
    OpenAll(L"xml");
}

}  // namespace

}  // namespace rl::test
