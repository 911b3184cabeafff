// The result of one load, shared by the viewer and its worker.
//
// The worker fills it before it posts its message; the viewer reads it only after the message has
// come and the thread was joined. The one exception is `abandoned`, which the worker asks for while
// it runs.
#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>

#include "load/files/file_stamp.h"
#include "load/text/text_encoding.h"
#include "model/csv_model.h"
#include "model/json_document.h"
#include "model/xml_document.h"

namespace rl::detail {

struct LoadedDoc {
    std::unique_ptr<CsvModel> csvModel;  // one of the three, or none
    std::unique_ptr<JsonDocument> jsonDoc;
    std::unique_ptr<XmlDocument> xmlDoc;
    std::optional<FileStamp> stamp;       // of the file that was read
    std::wstring error;                   // one sentence for the user when there is no model
    std::atomic<bool> abandoned = false;  // the viewer no longer wants the result

    [[nodiscard]] bool HasModel() const {
        return csvModel != nullptr || jsonDoc != nullptr || xmlDoc != nullptr;
    }
};

}  // namespace rl::detail
