// Serialise, encode, write: how an edited document gets back into its file.
//
// The members `Save` of the JSON and XML documents are defined here too, because their own files
// know nothing of bytes. Shows nothing; the documents stay modified, whatever comes of it.
#pragma once

#include <string>
#include <string_view>

#include "load/text/text_encoding.h"
#include "model/csv_model.h"

namespace rl {

/// Replaces the file's content by a text in an encoding. False, and the file untouched, when the
/// encoding cannot hold the text or the file cannot be written.
[[nodiscard]] bool SaveText(const std::wstring& path, std::wstring_view text,
                            const TextEncoding& encoding);

/// Saves delimited text. `written` is what the file holds now, to be parsed anew.
[[nodiscard]] bool SaveCsv(const CsvModel& model, const std::wstring& path, std::wstring& written);

}  // namespace rl
