#include "load/load_worker.h"

#include <process.h>

#include <exception>
#include <utility>

#include "load/document_loaders.h"
#include "load/text/messages.h"

namespace rl {
namespace {

/// What the thread takes over: the job, and a reference to the module whose code it runs.
struct ThreadStart {
    LoadJob job;
    HMODULE module = nullptr;
};

/// A reference to this module, which keeps its code in memory; null when the system refuses.
HMODULE PinModule() {
    HMODULE module = nullptr;
    static const char anchor = 0;
    const auto* const address = reinterpret_cast<const wchar_t*>(&anchor);
    return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, address, &module) ? module
                                                                                        : nullptr;
}

void LoadInto(detail::LoadedDoc& doc, const LoadJob& job) {
    const AbandonCheck abandoned = [&doc] { return doc.abandoned.load(); };
    const LoadOptions& options = job.options;
    switch (job.kind) {
        case DocumentKind::Csv:
            doc.csvModel = LoadCsv(job.path, options.sizeLimit, options.csv, options.encoding,
                                   doc.error, abandoned, &doc.stamp);
            return;
        case DocumentKind::Json:
            doc.jsonDoc = LoadJsonDocument(job.path, options.sizeLimit, options.parseMode,
                                           options.encoding, doc.error, abandoned, &doc.stamp);
            return;
        case DocumentKind::Xml:
            doc.xmlDoc = LoadXmlDocument(job.path, options.sizeLimit, options.encoding, doc.error,
                                         abandoned, &doc.stamp);
            return;
    }
}

/// Out of memory, or a text too long to hold. What was built is gone by now, so that the sentence
/// has room; without it the viewer says the same.
void RecordFailure(detail::LoadedDoc& doc) noexcept {
    doc.csvModel.reset();
    doc.jsonDoc.reset();
    doc.xmlDoc.reset();
    doc.error.clear();
    try {
        doc.error = messages::kNotLoaded;
    } catch (const std::exception&) {
        return;
    }
}

/// Tells the viewer. A queue that is full for a moment is tried again; a window that is gone, or no
/// longer interested, is not.
void PostFinished(const LoadJob& job) noexcept {
    constexpr int kAttempts = 200;
    constexpr DWORD kPause = 10;  // milliseconds
    for (int attempt = 0; attempt < kAttempts && !job.doc->abandoned; ++attempt) {
        if (PostMessageW(job.viewerWindow, kLoadFinished, 0, 0) ||
            GetLastError() != ERROR_NOT_ENOUGH_QUOTA) {
            return;
        }
        Sleep(kPause);
    }
}

/// The thread gives the module back with its last step, in one call that does not return here: were
/// it the last reference, a plain FreeLibrary would return into code that is no longer mapped. For
/// the same reason the reference is not given back by whoever joins.
unsigned __stdcall ThreadMain(void* argument) {
    std::unique_ptr<ThreadStart> start(static_cast<ThreadStart*>(argument));
    const HMODULE module = start->module;
    RunLoad(start->job);
    PostFinished(start->job);
    start.reset();  // nothing of ours is left on this stack from here on
    FreeLibraryAndExitThread(module, 0);
}

}  // namespace

void RunLoad(const LoadJob& job) noexcept {
    detail::LoadedDoc& doc = *job.doc;
    try {
        LoadInto(doc, job);
    } catch (...) {
        RecordFailure(doc);
    }
}

LoadWorker::~LoadWorker() {
    Abandon();
    Join();
}

bool LoadWorker::Start(LoadJob job) {
    if (IsRunning()) {
        return false;
    }
    std::shared_ptr<detail::LoadedDoc> doc = job.doc;
    auto start = std::make_unique<ThreadStart>();
    start->job = std::move(job);
    start->module = PinModule();
    if (start->module == nullptr) {
        return false;
    }
    const uintptr_t thread = _beginthreadex(nullptr, 0, ThreadMain, start.get(), 0, nullptr);
    if (thread == 0) {
        FreeLibrary(start->module);  // not the last reference: our caller runs in this module
        return false;
    }
    (void)start.release();  // the thread owns it
    thread_.Reset(reinterpret_cast<HANDLE>(thread));
    doc_ = std::move(doc);
    return true;
}

void LoadWorker::Abandon() noexcept {
    if (doc_ != nullptr) {
        doc_->abandoned = true;
    }
}

void LoadWorker::Join() noexcept {
    if (!IsRunning()) {
        return;
    }
    WaitForSingleObject(thread_.Get(), INFINITE);
    thread_.Reset();
    doc_.reset();
}

}  // namespace rl
