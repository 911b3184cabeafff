// From a file name to a table on the screen: start of a load, its completion, its failure.
#include "view/viewer.h"

#include <array>

#include "host/store/settings.h"
#include "load/load_options.h"
#include "load/text/messages.h"
#include "view/control.h"

namespace rl {

namespace {

bool OpensOnSourceTab() {
    const std::wstring tab = settings::Get(settings::kDefaultTab);
    return CompareStringOrdinal(tab.data(), static_cast<int>(tab.size()), L"source", -1, TRUE) ==
           CSTR_EQUAL;
}

}  // namespace

void Viewer::StartLoad() {
    if (loaded_ || worker_.IsRunning()) {
        return;
    }
    bool started = false;
    try {
        LoadJob job{.doc = std::make_shared<detail::LoadedDoc>(),
                    .viewerWindow = window_,
                    .kind = kind_,
                    .path = path_,
                    .options = CaptureLoadOptions(kind_)};
        pending_ = job.doc;
        delimiterDetected_ = job.options.delimiterDetected;
        SetWindowTextW(placeholder_, LoadingTextFor(path_).c_str());
        started = worker_.Start(std::move(job));
    } catch (const std::exception&) {  // out of memory: a failed load like others
    }
    if (!started) {
        pending_.reset();
        FailLoad({});
    }
}

Answer Viewer::OnLoadFinished() {
    worker_.Join();
    const std::shared_ptr<detail::LoadedDoc> doc = std::exchange(pending_, nullptr);
    if (doc == nullptr || loaded_) {
        return 0;
    }
    if (!doc->HasModel()) {
        FailLoad(doc->error);
        return 0;
    }
    try {
        Adopt(*doc);
    } catch (const std::exception&) {  // no memory for the rows: nothing half-made is shown
        FailLoad({});
    }
    return 0;
}

void Viewer::Adopt(detail::LoadedDoc& doc) {
    const RedrawScope still(window_);
    document_ = DocumentOf(doc, delimiterDetected_);
    MakeContent(document_);
    grid_.ShowTable(document_.rows.get(), GridStyle());
    loaded_ = true;
    if (OpensOnSourceTab()) {
        tab_ = ViewerTab::Source;
        tabs_.Select(tab_);
        FillSourceView();
    }
    RebuildFilterRow();
    FillTree();
    SelectFirstOutlineRow();
    UpdateValuePane();
    UpdateStatusBar();
    Relayout();
    FitOutline();
    PostMessageW(window_, kFocusRequest, 0, 0);
}

// The box pumps messages: the host may close the viewer from inside it.
void Viewer::FailLoad(const std::wstring& error) {
    loaded_ = false;
    // No copy of the sentence: this must work when memory has run out.
    MessageBoxW(window_, error.empty() ? messages::kNotLoaded.data() : error.c_str(),
                messages::kCaption.data(), MB_OK | MB_ICONERROR);
    if (!IsGone()) {
        DestroyWindow(window_);
    }
}

}  // namespace rl
