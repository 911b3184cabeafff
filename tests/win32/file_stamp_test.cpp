// The stamp that tells whether a file is still the one that was read.
#include "load/files/file_stamp.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "load/document_loaders.h"
#include "load/files/file_handle.h"
#include "tests/support/temp_folder.h"

namespace rl::test {
namespace {

constexpr FileStamp kOne{.size = 7, .written = 100};

TEST(IsOtherFile, SaysNoUnlessBothStampsAreKnownAndDiffer) {
    EXPECT_FALSE(IsOtherFile(kOne, kOne));
    EXPECT_FALSE(IsOtherFile(kOne, std::nullopt));
    EXPECT_FALSE(IsOtherFile(std::nullopt, kOne));
    EXPECT_FALSE(IsOtherFile(std::nullopt, std::nullopt));
}

TEST(IsOtherFile, SeesAnotherSizeAndAnotherTime) {
    EXPECT_TRUE(IsOtherFile(kOne, FileStamp{.size = 8, .written = 100}));
    EXPECT_TRUE(IsOtherFile(kOne, FileStamp{.size = 7, .written = 101}));
    EXPECT_TRUE(IsOtherFile(kOne, FileStamp{.size = 7, .written = 99}));  // an older copy came back
}

TEST(FileStampOf, IsTheSameByPathAndByHandle) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a.csv", "a,b\n");
    const UniqueFile file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    const auto stamp = FileStampOf(path);
    ASSERT_TRUE(stamp);
    EXPECT_EQ(stamp->size, 4u);
    EXPECT_EQ(FileStampOf(file.Get()), stamp);
}

TEST(FileStampOf, IsReadOfAFileThatSomeoneKeepsToHimself) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a.csv", "a,b\n");
    const UniqueFile other(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(other);
    EXPECT_TRUE(FileStampOf(path));
}

TEST(FileStampOf, IsNothingWithoutAFile) {
    const TempFolder folder;
    EXPECT_FALSE(FileStampOf(folder.Write(L"a.csv", "") + L".none"));
    EXPECT_FALSE(FileStampOf(INVALID_HANDLE_VALUE));
}

TEST(FileStampOf, ComesWithAnyDocumentThatIsLoaded) {
    const TempFolder folder;
    const std::wstring csv = folder.Write(L"a.csv", "a,b\n");
    const std::wstring json = folder.Write(L"a.json", "[1]");
    const std::wstring xml = folder.Write(L"a.xml", "<r/>");
    std::wstring error;
    std::optional<FileStamp> stamp;
    ASSERT_NE(LoadCsv(csv, 0, {}, {}, error, {}, &stamp), nullptr);
    EXPECT_EQ(stamp, FileStampOf(csv));
    ASSERT_NE(LoadJsonDocument(json, 0, 0, {}, error, {}, &stamp), nullptr);
    EXPECT_EQ(stamp, FileStampOf(json));
    ASSERT_NE(LoadXmlDocument(xml, 0, {}, error, {}, &stamp), nullptr);
    EXPECT_EQ(stamp, FileStampOf(xml));
}

}  // namespace
}  // namespace rl::test
