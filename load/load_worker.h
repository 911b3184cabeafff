// The thread behind one load: its start, its one message, its end.
//
// The worker shares nothing with the viewer but the `LoadedDoc`. It reads no setting, touches no
// window, and posts one message when the document is ready or has failed. All members are called on
// the user-interface thread.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "load/files/unique_handle.h"
#include "load/load_options.h"
#include "load/loaded_doc.h"
#include "load/text/document_kind.h"

namespace rl {

/// Posted to the viewer when a load has ended, well or badly; both parameters are 0.
inline constexpr UINT kLoadFinished = WM_APP + 102;

/// Everything the worker is given.
struct LoadJob {
    std::shared_ptr<detail::LoadedDoc> doc;  // filled by the worker
    HWND viewerWindow = nullptr;             // receives kLoadFinished; may be gone by then
    DocumentKind kind = DocumentKind::Csv;
    std::wstring path;
    LoadOptions options;
};

/// Reads, decodes and parses: what the thread does. Never throws: out of memory is a failed load.
/// Posts nothing.
void RunLoad(const LoadJob& job) noexcept;

class LoadWorker {
public:
    LoadWorker() noexcept = default;
    LoadWorker(const LoadWorker&) = delete;
    LoadWorker& operator=(const LoadWorker&) = delete;
    /// Abandons a load that still runs and waits for its end, which then comes within milliseconds.
    ~LoadWorker();

    /// Starts the load. False, and nothing started, when a worker runs already or the system has no
    /// thread for it.
    [[nodiscard]] bool Start(LoadJob job);
    /// Tells a running load that its result is no longer wanted; does not wait.
    void Abandon() noexcept;
    /// Waits for the thread's end; does nothing when none was started.
    void Join() noexcept;
    /// True from a successful start until the join, also when the thread has already ended.
    [[nodiscard]] bool IsRunning() const noexcept { return static_cast<bool>(thread_); }

private:
    struct ThreadTraits {
        using Handle = HANDLE;
        static Handle Empty() noexcept { return nullptr; }
        static void Close(Handle handle) noexcept { CloseHandle(handle); }
    };

    UniqueHandle<ThreadTraits> thread_;
    std::shared_ptr<detail::LoadedDoc> doc_;  // of the running load, to abandon it
};

}  // namespace rl
