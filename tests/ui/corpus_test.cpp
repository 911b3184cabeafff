// Every delimited document of the shared collection, opened in the real module.
#include <gtest/gtest.h>

#include <fstream>
#include <optional>

#include "tests/support/test_paths.h"
#include "tests/ui/support/fakes.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

/// What the collection expects of one file, as far as a user sees it.
struct Expected {
    std::string file;
    std::string codePage;
    std::string encoding;
    bool isTable = false;
    int rows = 0;
    int columns = 0;
};

/// The text behind `"name": ` up to the next comma or brace, without quotes; empty when absent.
std::string Field(const std::string& json, const std::string& name) {
    const std::string key = "\"" + name + "\": ";
    const size_t at = json.find(key);
    if (at == std::string::npos) {
        return {};
    }
    const size_t begin = at + key.size();
    const size_t end =
        json[begin] == '"' ? json.find('"', begin + 1) + 1 : json.find_first_of(",}", begin);
    std::string value = json.substr(begin, end - begin);
    std::erase(value, '"');
    return value;
}

int Number(const std::string& text) {
    return text.empty() ? 0 : std::stoi(text);
}

std::vector<Expected> ReadExpected(const std::filesystem::path& list) {
    std::vector<Expected> all;
    std::ifstream in(list);
    for (std::string line; std::getline(in, line);) {
        const size_t mode = line.find("\"skip_comments_0\": {");
        if (!line.starts_with("{\"file\"") || mode == std::string::npos) {
            continue;
        }
        const std::string answer = line.substr(mode);
        all.push_back({.file = Field(line, "file"),
                       .codePage = Field(line, "ansi_codepage"),
                       .encoding = Field(line, "encoding"),
                       .isTable = Field(answer, "verdict") == "table",
                       .rows = Number(Field(answer, "rows")),
                       .columns = Number(Field(answer, "columns"))});
    }
    return all;
}

void ExpectTable(const Viewer& viewer, const Expected& expected) {
    ASSERT_TRUE(UiHost::WaitUntilLoaded(viewer));
    const std::wstring total = std::to_wstring(expected.rows);
    EXPECT_EQ(viewer.Status(3), L" Rows: " + total + L"/" + total);
    EXPECT_EQ(viewer.ColumnCount(), expected.columns);
    EXPECT_EQ(viewer.Status(0),
              L" " + std::wstring(expected.encoding.begin(), expected.encoding.end()));
}

void ExpectRefusal(const Viewer& viewer) {
    EXPECT_TRUE(UiHost::WaitUntilGone(viewer));
    ASSERT_EQ(TheFakes().boxes.size(), 1u);
    EXPECT_EQ(TheFakes().boxes.front().text, L"The file could not be parsed (unbalanced quotes).");
    TheFakes().boxes.clear();
}

TEST(Corpus, OpensAsExpectedInTheRealModule) {
    const std::filesystem::path folder = CorpusRoot() / "csv";
    if (!HasCorpus()) {
        GTEST_SKIP() << "the collection is not on this machine";
    }
    UiHost host;
    for (const Expected& expected : ReadExpected(folder / "expected.jsonl")) {
        SCOPED_TRACE(expected.file);
        const std::string ini =
            "[rowlark]\nheader-row=0\nansi-codepage=" + expected.codePage + "\n";
        tools::WriteBytes(host.IniFile(), ini);
        const Viewer viewer = host.Start(folder / expected.file);
        if (expected.isTable) {
            ExpectTable(viewer, expected);
        } else {
            ExpectRefusal(viewer);
        }
        host.Close(viewer);
    }
}

}  // namespace

}  // namespace rl::test
