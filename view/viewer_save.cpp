// Saving, and the question before edits are lost.
#include "load/document_saver.h"
#include "load/text/messages.h"
#include "view/control.h"
#include "view/flag_scope.h"
#include "view/viewer.h"
#include "view/wait_cursor.h"

namespace rl {
namespace {

/// Writes the document. `written` is the text of delimited text, to be read anew.
bool Write(Document& document, const std::wstring& path, std::wstring& written) {
    const WaitCursor waiting;
    try {
        return document.csv != nullptr    ? SaveCsv(*document.csv, path, written)
               : document.json != nullptr ? document.json->Save(path)
                                          : document.xml->Save(path);
    } catch (const std::exception&) {  // no memory for the text or its bytes: a failure like others
        return false;
    }
}

}  // namespace

/// True when the document may go: it was saved, or the user does not want that.
bool Viewer::AskToSave(SaveReason reason) {
    if (asking_) {
        return false;
    }
    const FlagScope guard(asking_);
    if (!EndCellEdit(true)) {
        return false;
    }
    if (!document_.IsModified()) {
        return true;
    }
    const bool save = AskYesNo(window_, SaveQuestionText(path_, reason), DefaultButton::Yes);
    return !IsGone() && (!save || SaveDocument());
}

/// False when another program has written the file since it was read, and the user wants to keep
/// that; or when the viewer is gone by now.
bool Viewer::MayOverwrite() {
    if (!IsOtherFile(document_.stamp, FileStampOf(path_))) {
        return true;
    }
    const FlagScope guard(asking_);
    return AskYesNo(window_, OverwriteQuestionText(path_), DefaultButton::No) && !IsGone();
}

bool Viewer::SaveDocument() {
    if (!EndCellEdit(true)) {
        return false;
    }
    if (!document_.IsModified()) {
        return true;
    }
    if (!MayOverwrite()) {
        return false;
    }
    std::wstring written;
    if (!Write(document_, path_, written)) {
        MessageBoxW(window_, messages::kNotSaved.data(), messages::kCaption.data(),
                    MB_OK | MB_ICONERROR);
        return false;
    }
    document_.stamp = FileStampOf(path_);
    document_.ClearModified();
    document_.hasSavedEdits = true;
    if (document_.csv != nullptr) {
        RereadSaved(std::move(written));
    }
    RefreshSource();
    UpdateStatusBar();
    return true;
}

// The delimiter in use stays: edits may have tipped what would be found now. Where the text cannot
// be read, or not be held twice, the model that was saved stays as it is.
void Viewer::RereadSaved(std::wstring text) {
    const WaitCursor waiting;
    const CsvModel& before = *document_.csv;
    auto model = std::make_unique<CsvModel>();
    CsvOptions options = before.Options();
    options.delimiter = before.Delimiter();
    std::unique_ptr<RowView> rows;
    try {
        if (!model->Parse(std::move(text), options)) {
            return;
        }
        rows = MakeRows(*model, settings_.headerRow);
    } catch (const std::exception&) {
        return;
    }
    model->encoding = before.encoding;
    const auto sameRow = [&](int row) { return row < 0 ? row : model->RowAt(before.FileRow(row)); };
    UserPlace place = RememberPlace();
    place.modelRow = sameRow(place.modelRow);
    place.topModelRow = sameRow(place.topModelRow);

    ShowInstead(place, [&] {
        std::swap(document_.csv, model);
        std::swap(document_.rows, rows);
    });
    document_.hasSavedEdits = false;
    finder_.Reset();
}

}  // namespace rl
