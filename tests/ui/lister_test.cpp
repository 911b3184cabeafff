// Our own Lister, run as the program it is.
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>

#include "load/files/unique_handle.h"
#include "tests/support/test_paths.h"
#include "tests/ui/support/pump.h"
#include "tools/common/module_copy.h"

namespace rl::test {

namespace {

namespace fs = std::filesystem;

constexpr DWORD kEndDeadline = 60'000;  // milliseconds
constexpr DWORD kStillRunning = 999;

struct ProcessTraits {
    using Handle = HANDLE;
    static Handle Empty() noexcept { return nullptr; }
    static void Close(Handle handle) noexcept { CloseHandle(handle); }
};
using UniqueProcess = UniqueHandle<ProcessTraits>;

fs::path ListerProgram() {
    return test::BuildRoot() / L"tools" / L"lister" / L"lister.exe";
}

/// One run of the program with its words kept in a file.
class ListerRun {
public:
    explicit ListerRun(const std::wstring& arguments) {
        SECURITY_ATTRIBUTES inherit{sizeof inherit, nullptr, TRUE};
        const UniqueProcess words(CreateFileW(WordsFile().c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                                              &inherit, CREATE_ALWAYS, 0, nullptr));
        STARTUPINFOW start{};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdOutput = words.Get();
        start.hStdError = words.Get();
        std::wstring line = L"\"" + ListerProgram().wstring() + L"\" " + arguments;
        PROCESS_INFORMATION started{};
        CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                       &started);
        process_.Reset(started.hProcess);
        CloseHandle(started.hThread);
    }

    ~ListerRun() {
        if (ExitCode(0) == kStillRunning) {
            TerminateProcess(process_.Get(), kStillRunning);
        }
    }

    ListerRun(const ListerRun&) = delete;
    ListerRun& operator=(const ListerRun&) = delete;

    /// Waits for the end; `kStillRunning` when it does not come.
    [[nodiscard]] DWORD ExitCode(DWORD deadline = kEndDeadline) const {
        DWORD code = kStillRunning;
        if (WaitForSingleObject(process_.Get(), deadline) == WAIT_OBJECT_0) {
            GetExitCodeProcess(process_.Get(), &code);
        }
        return code;
    }

    [[nodiscard]] std::string Words() const { return tools::ReadBytes(WordsFile()); }

    /// Its window, once there is one with a viewer inside; null after the deadline.
    [[nodiscard]] HWND WaitForWindow() const {
        HWND window = nullptr;
        PumpUntil([&] {
            window = FindWindowW(L"RowlarkLister", nullptr);
            return window != nullptr && IsWindowVisible(window) &&
                   FindWindowExW(window, nullptr, L"RowlarkViewer", nullptr) != nullptr;
        });
        return window;
    }

private:
    [[nodiscard]] fs::path WordsFile() const { return folder_.Path() / L"words.txt"; }

    tools::TempFolder folder_;
    UniqueProcess process_;
};

std::wstring Quoted(const fs::path& path) {
    return L"\"" + path.wstring() + L"\"";
}

std::wstring Sample(const wchar_t* name) {
    return Quoted(SourceRoot() / "samples" / name);
}

/// The caption of another program's window.
std::wstring TitleOf(HWND window) {
    wchar_t title[512] = L"";
    GetWindowTextW(window, title, ARRAYSIZE(title));
    return title;
}

std::uint32_t BigEndian(const std::string& bytes, size_t at) {
    std::uint32_t value = 0;
    for (size_t i = 0; i < 4; ++i) {
        value = value * 256 + static_cast<unsigned char>(bytes[at + i]);
    }
    return value;
}

TEST(Lister, WritesAScreenshotOfTheSizeAskedFor) {
    const tools::TempFolder folder;
    const fs::path png = folder.Path() / L"shot.png";

    const ListerRun run(L"--theme Dark --size 640x400 --screenshot " + Quoted(png) + L" " +
                        Sample(L"people.csv"));

    EXPECT_EQ(run.ExitCode(), 0u) << run.Words();
    const std::string bytes = tools::ReadBytes(png);
    ASSERT_GT(bytes.size(), 24u);
    EXPECT_EQ(bytes.substr(1, 3), "PNG");
    EXPECT_EQ(BigEndian(bytes, 16), 640u);
    EXPECT_EQ(BigEndian(bytes, 20), 400u);
}

TEST(Lister, EndsWithAnErrorAndTheMessageWhenAFileCannotBeShown) {
    const tools::TempFolder folder;
    const fs::path broken = folder.Path() / L"broken.csv";
    tools::WriteBytes(broken, "a,\"b\n");

    const ListerRun run(L"--screenshot " + Quoted(folder.Path() / L"x.png") + L" " +
                        Quoted(broken));

    EXPECT_EQ(run.ExitCode(), 1u);
    EXPECT_NE(run.Words().find("rowlark: The file could not be parsed (unbalanced quotes)."),
              std::string::npos)
        << run.Words();
    EXPECT_FALSE(fs::exists(folder.Path() / L"x.png"));
}

TEST(Lister, RefusesOptionsItDoesNotKnow) {
    const ListerRun run(L"--loud");

    EXPECT_EQ(run.ExitCode(), 2u);
    EXPECT_NE(run.Words().find("unknown option --loud"), std::string::npos);
}

TEST(Lister, ClosesOnEscape) {
    const ListerRun run(Sample(L"people.csv"));
    const HWND window = run.WaitForWindow();
    ASSERT_NE(window, nullptr);

    PostMessageW(window, WM_KEYDOWN, VK_ESCAPE, 1);

    EXPECT_EQ(run.ExitCode(), 0u) << run.Words();
}

TEST(Lister, GoesToTheNextFileOfTheFolderOnN) {
    const ListerRun run(Sample(L"measurements.csv"));
    const HWND window = run.WaitForWindow();
    ASSERT_NE(window, nullptr);

    PostMessageW(window, WM_KEYDOWN, 'N', 1);

    EXPECT_TRUE(PumpUntil([&] { return TitleOf(window).ends_with(L"orders.csv]"); }));
    PostMessageW(window, WM_KEYDOWN, 'Q', 1);
    EXPECT_EQ(run.ExitCode(), 0u) << run.Words();
}

TEST(Lister, PutsTheViewerBesideAListOfFilesInQuickView) {
    const ListerRun run(L"--quick-view " + Sample(L"people.csv"));
    HWND panel = nullptr;
    HWND window = nullptr;

    EXPECT_TRUE(PumpUntil([&] {
        window = FindWindowW(L"RowlarkLister", nullptr);
        panel = FindWindowExW(window, nullptr, L"RowlarkListerPanel", nullptr);
        return panel != nullptr && FindWindowExW(panel, nullptr, L"RowlarkViewer", nullptr);
    }));

    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(run.ExitCode(), 0u) << run.Words();
}

TEST(Lister, WalksTheListWithTheArrowKeysInQuickView) {
    const ListerRun run(L"--quick-view " + Sample(L"measurements.csv"));
    HWND list = nullptr;
    HWND window = nullptr;
    ASSERT_TRUE(PumpUntil([&] {
        window = FindWindowW(L"RowlarkLister", nullptr);
        list = FindWindowExW(window, nullptr, L"LISTBOX", nullptr);
        return list != nullptr && SendMessageW(list, LB_GETCURSEL, 0, 0) >= 0;
    }));

    PostMessageW(list, WM_KEYDOWN, VK_DOWN, 1);

    EXPECT_TRUE(PumpUntil([&] { return TitleOf(window).ends_with(L"orders.csv]"); }));
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(run.ExitCode(), 0u) << run.Words();
}

TEST(Lister, FindsAgainOnF3AndSaysWhenThereIsNoMore) {
    const ListerRun run(L"--find vries " + Sample(L"people.csv"));
    const HWND window = run.WaitForWindow();
    ASSERT_NE(window, nullptr);
    const HWND viewer = FindWindowExW(window, nullptr, L"RowlarkViewer", nullptr);
    const HWND placeholder = GetDlgItem(viewer, 1003);
    ASSERT_TRUE(PumpUntil([&] { return !IsWindowVisible(placeholder); }));

    PostMessageW(window, WM_KEYDOWN, VK_F3, 1);

    EXPECT_TRUE(PumpUntil([&] { return TitleOf(window).ends_with(L"\"vries\" not found"); }));
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(run.ExitCode(), 0u) << run.Words();
}

}  // namespace

}  // namespace rl::test
