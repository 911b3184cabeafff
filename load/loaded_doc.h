// The result of one load, shared by the viewer and its worker.
//
// The worker fills it before it posts its message; the viewer reads it only after the message has
// come and the thread was joined. The one exception is `abandoned`, which the worker asks for while
// it runs.
#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "load/text/text_encoding.h"
#include "model/csv_model.h"

namespace rl::detail {

struct LoadedDoc {
    std::unique_ptr<CsvModel> csvModel;
    std::wstring error;                   // one sentence for the user when there is no model
    std::atomic<bool> abandoned = false;  // the viewer no longer wants the result
};

}  // namespace rl::detail
