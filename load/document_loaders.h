// Read, decode, parse: one function for each kind of document.
//
// Runs on the worker as well as on the user-interface thread; reads no setting and shows nothing.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "load/files/file_stamp.h"
#include "load/text/abandon_check.h"
#include "load/text/text_encoding.h"
#include "model/csv_model.h"
#include "model/csv_options.h"
#include "model/json_document.h"
#include "model/xml_document.h"

namespace rl {

/// Loads delimited text. Nothing, and a sentence in `error`, when it cannot be read or parsed.
/// `sizeLimit` is in bytes; 0 or less means no limit of our own. `stamp` gets the file's as it was
/// opened.
[[nodiscard]] std::unique_ptr<CsvModel> LoadCsv(const std::wstring& path, int64_t sizeLimit,
                                                const CsvOptions& options,
                                                const EncodingRequest& request, std::wstring& error,
                                                const AbandonCheck& abandoned = {},
                                                std::optional<FileStamp>* stamp = nullptr);

/// Loads JSON. A file named .jsonl or .ndjson is read line by line; any other as one document and,
/// when it is none, line by line. `parseMode` 1 searches a broken text for balanced blocks.
/// Nothing, and a sentence in `error`, when it cannot be read or parsed.
[[nodiscard]] std::unique_ptr<JsonDocument> LoadJsonDocument(
    const std::wstring& path, int64_t sizeLimit, int32_t parseMode, const EncodingRequest& request,
    std::wstring& error, const AbandonCheck& abandoned = {},
    std::optional<FileStamp>* stamp = nullptr);

/// Loads XML. Nothing, and a sentence in `error`, when it cannot be read or holds no element.
[[nodiscard]] std::unique_ptr<XmlDocument> LoadXmlDocument(
    const std::wstring& path, int64_t sizeLimit, const EncodingRequest& request,
    std::wstring& error, const AbandonCheck& abandoned = {},
    std::optional<FileStamp>* stamp = nullptr);

}  // namespace rl
