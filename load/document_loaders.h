// Read, decode, parse: one function for each kind of document.
//
// Runs on the worker as well as on the user-interface thread; reads no setting and shows nothing.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "load/text/abandon_check.h"
#include "load/text/text_encoding.h"
#include "model/csv_model.h"
#include "model/csv_options.h"

namespace rl {

/// Loads delimited text. Nothing, and a sentence in `error`, when it cannot be read or parsed.
/// `sizeLimit` is in bytes; 0 or less means no limit of our own.
[[nodiscard]] std::unique_ptr<CsvModel> LoadCsv(const std::wstring& path, int64_t sizeLimit,
                                                const CsvOptions& options,
                                                const EncodingRequest& request, std::wstring& error,
                                                const AbandonCheck& abandoned = {});

}  // namespace rl
