#include "load/files/file_reader.h"

#include <gtest/gtest.h>
#include <winioctl.h>

#include <string>

#include "load/text/messages.h"
#include "tests/support/temp_folder.h"

namespace rl {
namespace {

using test::TempFolder;

struct ReadResult {
    bool ok = false;
    std::string bytes = "left over";
    std::wstring error = L"left over";
};

ReadResult ReadIt(const std::wstring& path, int64_t limit = 0, const AbandonCheck& check = {}) {
    ReadResult result;
    result.ok = ReadFileLimited(path, limit, result.bytes, result.error, check);
    return result;
}

/// Opens a file as another program would; `sharing` is what that program grants.
UniqueFile OpenElsewhere(const std::wstring& path, DWORD access, DWORD sharing) {
    return UniqueFile(CreateFileW(path.c_str(), access, sharing, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
}

/// A file of that size which takes no room on the disk.
std::wstring MakeSparse(const TempFolder& folder, int64_t size) {
    std::wstring path = folder.PathOf(L"sparse.csv");
    const UniqueFile file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD unused = 0;
    DeviceIoControl(file.Get(), FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &unused, nullptr);
    LARGE_INTEGER end{};
    end.QuadPart = size;
    EXPECT_TRUE(SetFilePointerEx(file.Get(), end, nullptr, FILE_BEGIN));
    EXPECT_TRUE(SetEndOfFile(file.Get()));
    return path;
}

TEST(ReadFileLimited, GivesTheBytesAsTheyAre) {
    const TempFolder folder;
    const std::string content("a\0\r\n\xFF\x1A z", 8);

    const ReadResult read = ReadIt(folder.Write(L"a.csv", content));

    EXPECT_TRUE(read.ok);
    EXPECT_EQ(read.bytes, content);
    EXPECT_EQ(read.error, L"");
}

TEST(ReadFileInPieces, HandsOverTheWholeFileInOrder) {
    const TempFolder folder;
    std::string content;
    for (int i = 0; content.size() < 3'000'000; ++i) {
        content += std::to_string(i) + '\n';
    }
    const std::wstring path = folder.Write(L"a.csv", content);
    std::string got;
    std::wstring error = L"left over";

    EXPECT_TRUE(ReadFileInPieces(
        path, 0,
        [&](std::string_view piece, size_t fileSize) {
            EXPECT_EQ(fileSize, content.size());
            got += piece;
            return true;
        },
        error));
    EXPECT_TRUE(got == content);
    EXPECT_EQ(error, L"");
}

TEST(ReadFileInPieces, HandsOverOneEmptyPieceOfAnEmptyFile) {
    const TempFolder folder;
    int pieces = 0;
    std::wstring error;

    EXPECT_TRUE(ReadFileInPieces(
        folder.Write(L"a.csv", ""), 0,
        [&](std::string_view piece, size_t) {
            EXPECT_TRUE(piece.empty());
            return ++pieces == 1;
        },
        error));
    EXPECT_EQ(pieces, 1);
}

TEST(ReadFileInPieces, StopsWithoutASentenceWhereItsTakerRefusesOrNobodyWaits) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a.csv", std::string(3'000'000, 'x'));
    int pieces = 0;
    std::wstring error;
    const auto take = [&](std::string_view, size_t) { return ++pieces < 2; };

    EXPECT_FALSE(ReadFileInPieces(path, 0, take, error));
    EXPECT_EQ(pieces, 2);
    EXPECT_EQ(error, L"");
    EXPECT_FALSE(ReadFileInPieces(path, 0, take, error, [] { return true; }));
    EXPECT_EQ(pieces, 2);
    EXPECT_EQ(error, L"");
}

TEST(ReadFileInPieces, SaysWhyAFileCannotBeRead) {
    const TempFolder folder;
    const auto take = [](std::string_view, size_t) { return true; };
    std::wstring error;

    EXPECT_FALSE(ReadFileInPieces(folder.PathOf(L"missing.csv"), 0, take, error));
    EXPECT_EQ(error, messages::kNotOpened);
    EXPECT_FALSE(ReadFileInPieces(folder.Write(L"a.csv", "12345"), 4, take, error));
    EXPECT_NE(error.find(L"exceeds the configured size limit"), std::wstring::npos);
}

TEST(ReadFileLimited, ReadsAnEmptyFile) {
    const TempFolder folder;

    const ReadResult read = ReadIt(folder.Write(L"a.csv", ""));

    EXPECT_TRUE(read.ok);
    EXPECT_EQ(read.bytes, "");
    EXPECT_EQ(read.error, L"");
}

TEST(ReadFileLimited, ReadsFilesOfManySteps) {
    const TempFolder folder;
    std::string content(9'000'001, '\0');
    for (size_t i = 0; i < content.size(); ++i) {
        content[i] = static_cast<char>(i % 251);
    }

    const ReadResult read = ReadIt(folder.Write(L"a.csv", content));

    EXPECT_TRUE(read.ok);
    EXPECT_TRUE(read.bytes == content);
}

TEST(ReadFileLimited, SaysThatAMissingFileCannotBeOpened) {
    const TempFolder folder;

    const ReadResult read = ReadIt(folder.PathOf(L"none.csv"));

    EXPECT_FALSE(read.ok);
    EXPECT_EQ(read.bytes, "");
    EXPECT_EQ(read.error, L"The file could not be opened.");
}

TEST(ReadFileLimited, SaysThatAFolderCannotBeOpened) {
    const TempFolder folder;

    EXPECT_EQ(ReadIt(folder.PathOf(L"")).error, L"The file could not be opened.");
}

TEST(ReadFileLimited, LetsAFileAsLargeAsTheLimitPass) {
    const TempFolder folder;

    EXPECT_TRUE(ReadIt(folder.Write(L"a.csv", "1234"), 4).ok);
}

TEST(ReadFileLimited, RefusesAFileOneByteLarger) {
    const TempFolder folder;

    const ReadResult read = ReadIt(folder.Write(L"a.csv", "12345"), 4);

    EXPECT_FALSE(read.ok);
    EXPECT_EQ(read.bytes, "");
    EXPECT_EQ(read.error,
              L"The file could not be loaded because it exceeds the configured size limit.\r\n"
              L"File size: 5 bytes\r\nLimit: 4 bytes\r\n\r\n"
              L"Raise max-file-size in rowlark.ini to open it (memory use peaks at roughly 4x the "
              L"file size).");
}

TEST(ReadFileLimited, TakesALimitOfZeroOrLessForNone) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a.csv", "12345");

    EXPECT_TRUE(ReadIt(path, 0).ok);
    EXPECT_TRUE(ReadIt(path, -1).ok);
}

TEST(ReadFileLimited, HoldsTheHardLimitAlways) {
    const TempFolder folder;

    const ReadResult read = ReadIt(MakeSparse(folder, 2'147'483'648));

    EXPECT_FALSE(read.ok);
    EXPECT_EQ(read.error,
              L"The file is too large for this plugin.\r\n"
              L"File size: 2147483648 bytes (2048.0 MB)\r\n"
              L"Hard limit: 2147483647 bytes (2048.0 MB)");
}

TEST(ReadFileLimited, ReadsAFileThatAnotherProgramWrites) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a.csv", "1234");
    const UniqueFile writer = OpenElsewhere(path, GENERIC_READ | GENERIC_WRITE | DELETE,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    ASSERT_TRUE(static_cast<bool>(writer));

    EXPECT_EQ(ReadIt(path).bytes, "1234");
}

TEST(ReadFileLimited, CannotOpenAFileThatIsHeldExclusively) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a.csv", "1234");
    const UniqueFile writer = OpenElsewhere(path, GENERIC_READ, 0);
    ASSERT_TRUE(static_cast<bool>(writer));

    EXPECT_EQ(ReadIt(path).error, L"The file could not be opened.");
}

TEST(ReadFileLimited, LeavesNothingOpen) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a.csv", "12345");
    (void)ReadIt(path);
    (void)ReadIt(path, 4);
    (void)ReadIt(path, 0, [] { return true; });

    EXPECT_TRUE(static_cast<bool>(OpenElsewhere(path, GENERIC_READ | GENERIC_WRITE, 0)));
}

TEST(ReadFileLimited, FailsWhenTheFileEndsEarly) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a.csv", std::string(12'000'000, 'x'));
    int asked = 0;
    const AbandonCheck cutBetweenSteps = [&] {
        if (++asked == 2) {
            const UniqueFile file = OpenElsewhere(
                path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
            EXPECT_TRUE(SetEndOfFile(file.Get()));
        }
        return false;
    };

    const ReadResult read = ReadIt(path, 0, cutBetweenSteps);

    EXPECT_FALSE(read.ok);
    EXPECT_EQ(read.bytes, "");
    EXPECT_EQ(read.bytes.capacity(), std::string().capacity()) << "the memory is given back";
    EXPECT_EQ(read.error, L"The file could not be read.");
}

TEST(ReadFileLimited, EndsWithoutASentenceWhenAbandoned) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a.csv", std::string(12'000'000, 'x'));
    int asked = 0;

    const ReadResult read = ReadIt(path, 0, [&] { return ++asked == 2; });

    EXPECT_FALSE(read.ok);
    EXPECT_EQ(read.bytes, "");
    EXPECT_EQ(read.error, L"");
    EXPECT_EQ(asked, 2);
}

TEST(ReadFileHead, GivesTheBeginningOrAllOfAFile) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a", "12345");

    EXPECT_EQ(ReadFileHead(path, 3), "123");
    EXPECT_EQ(ReadFileHead(path, 5), "12345");
    EXPECT_EQ(ReadFileHead(path, 4096), "12345");
}

TEST(ReadFileHead, IsEmptyWhereThereIsNothingToRead) {
    const TempFolder folder;

    EXPECT_EQ(ReadFileHead(folder.PathOf(L"none"), 10), "");
    EXPECT_EQ(ReadFileHead(folder.PathOf(L""), 10), "");
    EXPECT_EQ(ReadFileHead(folder.Write(L"empty", ""), 10), "");
}

TEST(FileSizeOf, TellsTheSizeWithoutOpeningTheFile) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"a", "12345");
    const UniqueFile holder = OpenElsewhere(path, GENERIC_READ, 0);

    EXPECT_EQ(FileSizeOf(path), 5u);
    EXPECT_EQ(FileSizeOf(MakeSparse(folder, 5'000'000'000)), 5'000'000'000u);
    EXPECT_EQ(FileSizeOf(folder.PathOf(L"none")), std::nullopt);
}

}  // namespace
}  // namespace rl
