// Replacing a file, with a fault in each of its steps: what is left is all of the old or all of the
// new, and nothing beside it.
#include "load/files/file_writer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "load/files/file_handle.h"
#include "tests/support/temp_folder.h"

namespace rl::test {
namespace {

constexpr const char* kOld = "old,content\r\n1,2\r\n";
constexpr const char* kNew = "new,content\n3,4\n5,6\n";

enum class Step { MakeTemporary, Open, Write, Flush, Replace, Move, Remove };

/// What the system does in place of what it should, and what it was asked.
struct Faults {
    std::set<Step> failing;
    DWORD replaceError = ERROR_UNABLE_TO_REMOVE_REPLACED;
    bool replaceLosesTarget = false;
    bool shortWrite = false;
    int callsUntilDeath = -1;  // the process ends before the call that makes it 0

    std::vector<Step> calls;
    std::wstring temporary;
    DWORD openAccess = 0, openSharing = 0, openDisposition = 0, openFlags = 0;
    DWORD replaceFlags = 0, moveFlags = 0;
    const wchar_t* backup = L"?";
};

Faults* faults = nullptr;

/// True when the step is to fail. Ends the process when its time has come: nothing of ours runs
/// any more, no destructor and no clean-up.
bool Meet(Step step) {
    if (faults->callsUntilDeath >= 0 && faults->callsUntilDeath-- == 0) {
        TerminateProcess(GetCurrentProcess(), 0);
    }
    faults->calls.push_back(step);
    return faults->failing.contains(step);
}

template <typename Value>
Value FailWith(DWORD error, Value value) {
    SetLastError(error);
    return value;
}

UINT WINAPI MakeTemporary(LPCWSTR folder, LPCWSTR prefix, UINT unique, LPWSTR name) {
    if (Meet(Step::MakeTemporary)) {
        return FailWith(ERROR_ACCESS_DENIED, 0U);
    }
    const UINT made = GetTempFileNameW(folder, prefix, unique, name);
    faults->temporary = name;
    return made;
}

HANDLE WINAPI Open(LPCWSTR path, DWORD access, DWORD sharing, LPSECURITY_ATTRIBUTES security,
                   DWORD disposition, DWORD flags, HANDLE pattern) {
    faults->openAccess = access;
    faults->openSharing = sharing;
    faults->openDisposition = disposition;
    faults->openFlags = flags;
    if (Meet(Step::Open)) {
        return FailWith(ERROR_SHARING_VIOLATION, INVALID_HANDLE_VALUE);
    }
    return CreateFileW(path, access, sharing, security, disposition, flags, pattern);
}

BOOL WINAPI Write(HANDLE file, LPCVOID bytes, DWORD size, LPDWORD written, LPOVERLAPPED at) {
    if (Meet(Step::Write)) {
        WriteFile(file, bytes, size / 2, written, at);
        return FailWith(ERROR_DISK_FULL, FALSE);
    }
    return WriteFile(file, bytes, faults->shortWrite ? size - 1 : size, written, at);
}

BOOL WINAPI Flush(HANDLE file) {
    return Meet(Step::Flush) ? FailWith(ERROR_DISK_FULL, FALSE) : FlushFileBuffers(file);
}

BOOL WINAPI Replace(LPCWSTR target, LPCWSTR replacement, LPCWSTR backup, DWORD flags, LPVOID a,
                    LPVOID b) {
    faults->backup = backup;
    faults->replaceFlags = flags;
    if (faults->replaceLosesTarget) {
        DeleteFileW(target);
    }
    return Meet(Step::Replace) ? FailWith(faults->replaceError, FALSE)
                               : ReplaceFileW(target, replacement, backup, flags, a, b);
}

BOOL WINAPI Move(LPCWSTR from, LPCWSTR to, DWORD flags) {
    faults->moveFlags = flags;
    return Meet(Step::Move) ? FailWith(ERROR_ACCESS_DENIED, FALSE) : MoveFileExW(from, to, flags);
}

BOOL WINAPI Remove(LPCWSTR path) {
    return Meet(Step::Remove) ? FailWith(ERROR_ACCESS_DENIED, FALSE) : DeleteFileW(path);
}

class FileWriter : public testing::Test {
protected:
    FileWriter() { rl::test::faults = &faults; }

    [[nodiscard]] bool Save(std::string_view bytes = kNew) const {
        return SaveTo(folder.PathOf(L"data.csv"), bytes);
    }
    [[nodiscard]] static bool SaveTo(const std::wstring& path, std::string_view bytes = kNew) {
        static constexpr FileWriterCalls kCalls{.makeTemporary = &MakeTemporary,
                                                .open = &Open,
                                                .write = &Write,
                                                .flush = &Flush,
                                                .replace = &Replace,
                                                .move = &Move,
                                                .remove = &Remove};
        return WriteFileSafely(path, bytes, kCalls);
    }
    [[nodiscard]] std::set<std::wstring> Files() const {
        std::set<std::wstring> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.PathOf(L"."))) {
            names.insert(entry.path().filename().wstring());
        }
        return names;
    }
    void ExpectUntouched() const {
        EXPECT_EQ(folder.Read(L"data.csv"), kOld);
        EXPECT_EQ(Files(), std::set<std::wstring>{L"data.csv"});
    }
    void ExpectReplaced() const {
        EXPECT_EQ(folder.Read(L"data.csv"), kNew);
        EXPECT_EQ(Files(), std::set<std::wstring>{L"data.csv"});
    }

    TempFolder folder;
    const std::wstring target = folder.Write(L"data.csv", kOld);
    Faults faults;
};

TEST_F(FileWriter, ReplacesTheContentAndLeavesNothingElse) {
    EXPECT_TRUE(WriteFileSafely(target, kNew));
    ExpectReplaced();
}

TEST_F(FileWriter, TakesItsStepsInOrder) {
    EXPECT_TRUE(Save());
    EXPECT_EQ(faults.calls, (std::vector{Step::MakeTemporary, Step::Open, Step::Write, Step::Flush,
                                         Step::Replace}));
    EXPECT_EQ(faults.openAccess, static_cast<DWORD>(GENERIC_WRITE));
    EXPECT_EQ(faults.openSharing, 0u);
    EXPECT_EQ(faults.openDisposition, static_cast<DWORD>(CREATE_ALWAYS));
    EXPECT_EQ(faults.openFlags, static_cast<DWORD>(FILE_ATTRIBUTE_NORMAL));
    EXPECT_EQ(faults.replaceFlags, static_cast<DWORD>(REPLACEFILE_WRITE_THROUGH));
    EXPECT_EQ(faults.backup, nullptr);
}

TEST_F(FileWriter, MakesItsTemporaryFileBesideTheTarget) {
    EXPECT_TRUE(Save());
    const std::filesystem::path temporary(faults.temporary);
    EXPECT_TRUE(std::filesystem::equivalent(temporary.parent_path(), folder.PathOf(L".")));
    EXPECT_EQ(temporary.filename().wstring().substr(0, 3), L"rlt");
}

TEST_F(FileWriter, TakesTheFolderUpToTheLastSlashToo) {
    std::wstring path = target;
    path[path.find_last_of(L'\\')] = L'/';
    EXPECT_TRUE(SaveTo(path));
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::path(faults.temporary).parent_path(),
                                            folder.PathOf(L".")));
    ExpectReplaced();
}

TEST_F(FileWriter, WritesABareNameInTheCurrentFolder) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.PathOf(L"."));
    EXPECT_TRUE(SaveTo(L"data.csv"));
    std::filesystem::current_path(before);
    EXPECT_EQ(std::filesystem::path(faults.temporary).parent_path(), L".");
    ExpectReplaced();
}

TEST_F(FileWriter, WritesNothingIntoAnEmptyFile) {
    EXPECT_TRUE(Save(""));
    EXPECT_EQ(faults.calls,
              (std::vector{Step::MakeTemporary, Step::Open, Step::Flush, Step::Replace}));
    EXPECT_EQ(folder.Read(L"data.csv"), "");
    EXPECT_EQ(Files(), std::set<std::wstring>{L"data.csv"});
}

TEST_F(FileWriter, MakesAFileThatHasGoneMeanwhile) {
    folder.Remove(L"data.csv");
    EXPECT_TRUE(Save());
    EXPECT_EQ(faults.calls.back(), Step::Move);
    ExpectReplaced();
}

TEST_F(FileWriter, MovesWhereReplacingFails) {
    faults.failing = {Step::Replace};
    EXPECT_TRUE(Save());
    EXPECT_EQ(faults.moveFlags,
              static_cast<DWORD>(MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
    ExpectReplaced();
}

TEST_F(FileWriter, FailsWithoutATemporaryFile) {
    faults.failing = {Step::MakeTemporary};
    EXPECT_FALSE(Save());
    EXPECT_EQ(faults.calls, std::vector{Step::MakeTemporary});
    ExpectUntouched();
}

TEST_F(FileWriter, CleansUpWhereTheTemporaryFileCannotBeOpened) {
    faults.failing = {Step::Open};
    EXPECT_FALSE(Save());
    EXPECT_EQ(faults.calls, (std::vector{Step::MakeTemporary, Step::Open, Step::Remove}));
    ExpectUntouched();
}

TEST_F(FileWriter, CleansUpWhereTheDiskIsFull) {
    faults.failing = {Step::Write};
    EXPECT_FALSE(Save());
    EXPECT_EQ(faults.calls.back(), Step::Remove);
    ExpectUntouched();
}

TEST_F(FileWriter, TakesAShortWriteForAFailure) {
    faults.shortWrite = true;
    EXPECT_FALSE(Save());
    EXPECT_EQ(faults.calls.back(), Step::Remove);
    ExpectUntouched();
}

TEST_F(FileWriter, TakesAFailedFlushForAFailure) {
    faults.failing = {Step::Flush};
    EXPECT_FALSE(Save());
    EXPECT_EQ(faults.calls.back(), Step::Remove);
    ExpectUntouched();
}

TEST_F(FileWriter, CleansUpWhereNothingReplacesTheTarget) {
    faults.failing = {Step::Replace, Step::Move};
    EXPECT_FALSE(Save());
    EXPECT_EQ(faults.calls.back(), Step::Remove);
    ExpectUntouched();
}

TEST_F(FileWriter, KeepsTheOnlyCopyWhereTheSystemLostTheOldOne) {
    for (const DWORD error :
         {ERROR_UNABLE_TO_MOVE_REPLACEMENT, ERROR_UNABLE_TO_MOVE_REPLACEMENT_2}) {
        folder.Write(L"data.csv", kOld);
        faults.calls.clear();
        faults.failing = {Step::Replace, Step::Move};
        faults.replaceError = error;
        faults.replaceLosesTarget = true;
        EXPECT_FALSE(Save());
        EXPECT_EQ(faults.calls.back(), Step::Move) << error;
        EXPECT_EQ(folder.Read(std::filesystem::path(faults.temporary).filename().wstring()), kNew);
    }
}

TEST_F(FileWriter, KeepsNoCopyWhereTheOldOneIsStillThere) {
    faults.failing = {Step::Replace, Step::Move};
    faults.replaceError = ERROR_UNABLE_TO_MOVE_REPLACEMENT;
    EXPECT_FALSE(Save());
    EXPECT_EQ(faults.calls.back(), Step::Remove);
    ExpectUntouched();
}

TEST_F(FileWriter, RefusesContentThatOneCallCannotWrite) {
    const std::string_view tooLong(kNew, size_t{1} << 32);  // its end is never looked at
    EXPECT_FALSE(Save(tooLong));
    EXPECT_EQ(faults.calls, (std::vector{Step::MakeTemporary, Step::Open, Step::Remove}));
    ExpectUntouched();
}

TEST_F(FileWriter, LeavesAReadOnlyFileWhole) {
    ASSERT_TRUE(SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_READONLY));
    const bool saved = WriteFileSafely(target, kNew);
    EXPECT_EQ(Files(), std::set<std::wstring>{L"data.csv"});
    EXPECT_EQ(folder.Read(L"data.csv"), saved ? kNew : kOld);
    SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(FileWriter, LeavesAFileWholeThatIsOpenElsewhere) {
    {
        const UniqueFile other(CreateFileW(target.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                           FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(other);
        EXPECT_FALSE(WriteFileSafely(target, kNew));
    }
    EXPECT_EQ(folder.Read(L"data.csv"), kOld);
    for (const std::wstring& name : Files()) {
        EXPECT_NE(name.substr(0, 3), L"rlt");  // Wine's own replacing leaves a file of its own
    }
}

TEST_F(FileWriter, FailsWhereTheFolderIsMissing) {
    EXPECT_FALSE(WriteFileSafely(folder.PathOf(L"missing\\data.csv"), kNew));
    ExpectUntouched();
}

// --- The process ends between two steps. A second process does the saving: only there is nothing
// of ours left to clean up.

constexpr const wchar_t* kVictimFile = L"ROWLARK_TEST_FILE";
constexpr const wchar_t* kVictimCalls = L"ROWLARK_TEST_CALLS";

std::wstring Variable(const wchar_t* name) {
    wchar_t value[MAX_PATH] = {};
    GetEnvironmentVariableW(name, value, MAX_PATH);
    return value;
}

TEST_F(FileWriter, DISABLED_EndsItsProcess) {
    const std::wstring calls = Variable(kVictimCalls);
    if (calls.empty()) {
        GTEST_SKIP() << "started by the test below only";
    }
    faults.callsUntilDeath = std::stoi(calls);
    (void)SaveTo(Variable(kVictimFile));
    TerminateProcess(GetCurrentProcess(), 0);
}

/// Runs this program again to save `path`, ended before its call number `calls`.
void SaveInAnEndingProcess(const std::wstring& path, int calls) {
    SetEnvironmentVariableW(kVictimFile, path.c_str());
    SetEnvironmentVariableW(kVictimCalls, std::to_wstring(calls).c_str());
    wchar_t own[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, own, MAX_PATH);
    std::wstring command = L"\"" + std::wstring(own) +
                           L"\" --gtest_filter=FileWriter.DISABLED_EndsItsProcess "
                           L"--gtest_also_run_disabled_tests --gtest_brief=1";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    ASSERT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW,
                               nullptr, nullptr, &start, &made));
    CloseHandle(made.hThread);
    EXPECT_EQ(WaitForSingleObject(made.hProcess, 60'000), WAIT_OBJECT_0);
    CloseHandle(made.hProcess);
    SetEnvironmentVariableW(kVictimCalls, nullptr);
}

TEST_F(FileWriter, LeavesTheFileWholeWhereverItsProcessEnds) {
    constexpr int kCalls = 5;  // make, open, write, flush, replace
    for (int calls = 0; calls <= kCalls; ++calls) {
        SaveInAnEndingProcess(target, calls);
        EXPECT_EQ(folder.Read(L"data.csv"), calls < kCalls ? kOld : kNew) << calls;
        // The next save is not kept from its work by what was left behind.
        const size_t before = Files().size();
        EXPECT_TRUE(WriteFileSafely(target, kOld));
        EXPECT_EQ(Files().size(), before);
    }
    // One for each end between its being made and its taking the target's place.
    EXPECT_EQ(Files().size(), 1u + (kCalls - 1));
}

}  // namespace
}  // namespace rl::test
