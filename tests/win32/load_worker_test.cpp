#include "load/load_worker.h"

#include <gtest/gtest.h>
#include <psapi.h>

#include <atomic>
#include <memory>
#include <string>

#include "tests/support/allocation_limit.h"
#include "tests/support/temp_folder.h"

namespace rl {
namespace {

/// A window that counts what the worker posts.
class Mailbox {
public:
    Mailbox()
        : window_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                  nullptr)) {}
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;
    ~Mailbox() { Close(); }

    [[nodiscard]] HWND Window() const { return window_; }

    void Close() {
        if (window_ != nullptr) {
            DestroyWindow(std::exchange(window_, nullptr));
        }
    }

    /// Waits for one message; false when none comes within ten seconds.
    [[nodiscard]] bool Wait() const {
        const ULONGLONG end = GetTickCount64() + 10'000;
        MSG message{};
        while (!PeekMessageW(&message, window_, kLoadFinished, kLoadFinished, PM_REMOVE)) {
            if (GetTickCount64() > end) {
                return false;
            }
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
        }
        return message.wParam == 0 && message.lParam == 0;
    }

    [[nodiscard]] bool IsEmpty() const {
        MSG message{};
        return !PeekMessageW(&message, window_, kLoadFinished, kLoadFinished, PM_REMOVE);
    }

private:
    HWND window_;
};

class LoadWorkerTest : public testing::Test {
protected:
    LoadJob JobFor(const std::wstring& path, DocumentKind kind = DocumentKind::Csv) {
        return {.doc = doc,
                .viewerWindow = mailbox.Window(),
                .kind = kind,
                .path = path,
                .options = {}};
    }

    /// A file that takes a while to load.
    std::wstring LargeFile() {
        std::string bytes;
        for (int row = 0; row < 2'000'000; ++row) {
            bytes += "1234567,abcdef,\"x\",1,2,3,4,5,6,7\n";
        }
        return folder.Write(L"large.csv", bytes);
    }

    test::TempFolder folder;
    Mailbox mailbox;
    std::shared_ptr<detail::LoadedDoc> doc = std::make_shared<detail::LoadedDoc>();
};

TEST(LoadFinished, HasTheNumberTheViewerKnows) {
    EXPECT_EQ(kLoadFinished, 32870u);
}

TEST_F(LoadWorkerTest, LoadsAndPostsOneMessage) {
    LoadWorker worker;
    ASSERT_TRUE(worker.Start(JobFor(folder.Write(L"a.csv", "a,b\n1,2\n"))));
    ASSERT_TRUE(mailbox.Wait());
    worker.Join();

    ASSERT_NE(doc->csvModel, nullptr);
    EXPECT_EQ(doc->csvModel->CellText(1, 1), L"2");
    EXPECT_EQ(doc->error, L"");
    EXPECT_TRUE(mailbox.IsEmpty());
}

TEST_F(LoadWorkerTest, RunsUntilItIsJoined) {
    LoadWorker worker;
    EXPECT_FALSE(worker.IsRunning());
    ASSERT_TRUE(worker.Start(JobFor(folder.Write(L"a.csv", "a"))));
    ASSERT_TRUE(mailbox.Wait());
    EXPECT_TRUE(worker.IsRunning());
    worker.Join();
    EXPECT_FALSE(worker.IsRunning());
    worker.Join();
}

TEST_F(LoadWorkerTest, DropsItsReferenceToTheDocument) {
    LoadWorker worker;
    ASSERT_TRUE(worker.Start(JobFor(folder.Write(L"a.csv", "a"))));
    worker.Join();

    EXPECT_EQ(doc.use_count(), 1);
}

TEST_F(LoadWorkerTest, RunsOneLoadAtATime) {
    LoadWorker worker;
    const std::wstring path = folder.Write(L"a.csv", "a");
    ASSERT_TRUE(worker.Start(JobFor(path)));
    EXPECT_FALSE(worker.Start(JobFor(path)));
    worker.Join();

    EXPECT_TRUE(worker.Start(JobFor(path)));
}

TEST_F(LoadWorkerTest, ReportsAFailureLikeASuccess) {
    LoadWorker worker;
    ASSERT_TRUE(worker.Start(JobFor(folder.PathOf(L"none.csv"))));
    ASSERT_TRUE(mailbox.Wait());
    worker.Join();

    EXPECT_EQ(doc->csvModel, nullptr);
    EXPECT_EQ(doc->error, L"The file could not be opened.");
}

TEST_F(LoadWorkerTest, UsesTheOptionsItWasGiven) {
    LoadJob job = JobFor(folder.Write(L"a.csv", "12345"));
    job.options.sizeLimit = 4;
    RunLoad(job);
    EXPECT_TRUE(doc->error.starts_with(L"The file could not be loaded because it exceeds"));

    job.options.sizeLimit = 0;
    job.options.csv.delimiter = L'3';
    RunLoad(job);
    ASSERT_NE(doc->csvModel, nullptr);
    EXPECT_EQ(doc->csvModel->CellText(0, 1), L"45");
    EXPECT_EQ(doc->error, L"");
}

TEST_F(LoadWorkerTest, PassesTheEncodingRequestOn) {
    LoadJob job = JobFor(folder.Write(L"a.csv", "\xE8"));
    job.options.encoding.ansiCodePage = 1250;
    RunLoad(job);

    ASSERT_NE(doc->csvModel, nullptr);
    EXPECT_EQ(doc->csvModel->CellText(0, 0), L"\x010D");
}

TEST_F(LoadWorkerTest, LoadsEachKindIntoItsOwnField) {
    RunLoad(JobFor(folder.Write(L"a.json", "{}"), DocumentKind::Json));
    ASSERT_NE(doc->jsonDoc, nullptr);
    EXPECT_EQ(doc->jsonDoc->nodes.size(), 1U);
    EXPECT_EQ(doc->csvModel, nullptr);
    EXPECT_EQ(doc->xmlDoc, nullptr);
}

TEST_F(LoadWorkerTest, LoadsXmlIntoItsOwnField) {
    RunLoad(JobFor(folder.Write(L"a.xml", "<a/>"), DocumentKind::Xml));
    ASSERT_NE(doc->xmlDoc, nullptr);
    EXPECT_EQ(doc->xmlDoc->NodeName(doc->xmlDoc->FirstElement()), L"a");
    EXPECT_EQ(doc->jsonDoc, nullptr);
}

TEST_F(LoadWorkerTest, SaysWhenTextIsNoDocumentOfItsKind) {
    RunLoad(JobFor(folder.Write(L"a.json", "{"), DocumentKind::Json));
    EXPECT_FALSE(doc->HasModel());
    EXPECT_EQ(doc->error, L"Not a valid JSON document");

    RunLoad(JobFor(folder.Write(L"a.xml", "<!-- -->"), DocumentKind::Xml));
    EXPECT_FALSE(doc->HasModel());
    EXPECT_EQ(doc->error, L"Not a valid XML document");
}

TEST_F(LoadWorkerTest, HandsTheParseModeToTheJsonLoader) {
    LoadJob job = JobFor(folder.Write(L"a.json", "{\"a\":1} oops"), DocumentKind::Json);
    RunLoad(job);
    EXPECT_FALSE(doc->HasModel());
    job.options.parseMode = 1;
    RunLoad(job);
    ASSERT_NE(doc->jsonDoc, nullptr);
    EXPECT_TRUE(doc->jsonDoc->salvaged);
}

TEST_F(LoadWorkerTest, EndsSoonAfterItWasAbandoned) {
    const std::wstring path = LargeFile();
    LoadWorker worker;
    ASSERT_TRUE(worker.Start(JobFor(path)));
    worker.Abandon();
    worker.Join();

    EXPECT_EQ(doc->csvModel, nullptr);
    EXPECT_EQ(doc->error, L"");
    EXPECT_TRUE(mailbox.IsEmpty()) << "nobody waits for that message";
}

TEST_F(LoadWorkerTest, AbandonsItsLoadWhenDestroyed) {
    const std::wstring path = LargeFile();
    {
        LoadWorker worker;
        ASSERT_TRUE(worker.Start(JobFor(path)));
    }
    EXPECT_TRUE(doc->abandoned);
    EXPECT_EQ(doc.use_count(), 1);
}

TEST_F(LoadWorkerTest, DoesNotMindAWindowThatIsGone) {
    LoadWorker worker;
    const LoadJob job = JobFor(folder.Write(L"a.csv", "a"));
    mailbox.Close();
    ASSERT_TRUE(worker.Start(job));
    worker.Join();

    EXPECT_NE(doc->csvModel, nullptr);
}

TEST_F(LoadWorkerTest, CanBeAbandonedBeforeAndAfter) {
    LoadWorker worker;
    worker.Abandon();
    ASSERT_TRUE(worker.Start(JobFor(folder.Write(L"a.csv", "a"))));
    worker.Join();
    worker.Abandon();

    EXPECT_FALSE(doc->abandoned) << "a document that was handed over is none of its business";
}

TEST_F(LoadWorkerTest, FailsWithASentenceWhenTheBytesDoNotFit) {
    const LoadJob job = JobFor(folder.Write(L"a.csv", std::string(3'000'000, 'x')));
    const test::AllocationLimit limit(2'000'000);
    RunLoad(job);

    EXPECT_EQ(doc->csvModel, nullptr);
    EXPECT_EQ(doc->error, L"The file could not be loaded.");
}

TEST_F(LoadWorkerTest, FailsWithASentenceWhenTheTextDoesNotFit) {
    const LoadJob job = JobFor(folder.Write(L"a.csv", std::string(3'000'000, 'x')));
    const test::AllocationLimit limit(4'000'000);
    RunLoad(job);

    EXPECT_EQ(doc->csvModel, nullptr);
    EXPECT_EQ(doc->error, L"The file could not be loaded.");
}

TEST_F(LoadWorkerTest, FailsWithASentenceWhenTheRecordsDoNotFit) {
    const LoadJob job = JobFor(folder.Write(L"a.csv", std::string(1'000'000, '\n')));
    const test::AllocationLimit limit(10'000'000);
    RunLoad(job);

    EXPECT_EQ(doc->csvModel, nullptr);
    EXPECT_EQ(doc->error, L"The file could not be loaded.");
}

TEST_F(LoadWorkerTest, TellsTheViewerThatMemoryRanOut) {
    const LoadJob job = JobFor(folder.Write(L"a.csv", std::string(3'000'000, 'x')));
    LoadWorker worker;
    {
        const test::AllocationLimit limit(2'000'000);
        ASSERT_TRUE(worker.Start(job));
        ASSERT_TRUE(mailbox.Wait());
        worker.Join();
    }
    EXPECT_EQ(doc->error, L"The file could not be loaded.");
}

TEST_F(LoadWorkerTest, LeavesNoHandleBehind) {
    const std::wstring path = folder.Write(L"a.csv", "a,b\n");
    const auto loadOnce = [&] {
        LoadWorker worker;
        ASSERT_TRUE(worker.Start(JobFor(path)));
        worker.Join();
    };
    loadOnce();
    DWORD before = 0;
    GetProcessHandleCount(GetCurrentProcess(), &before);
    for (int i = 0; i < 50; ++i) {
        loadOnce();
    }
    DWORD after = 0;
    GetProcessHandleCount(GetCurrentProcess(), &after);

    EXPECT_LT(after, before + 10);
}

}  // namespace
}  // namespace rl
