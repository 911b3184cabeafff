// Settings that a load needs, captured by value before it starts.
//
// The worker never sees the settings store: what it needs cannot change under it. Everything here
// runs on the user-interface thread.
#pragma once

#include <cstdint>
#include <string>

#include "load/text/document_kind.h"
#include "load/text/text_encoding.h"
#include "model/csv_options.h"

namespace rl {

struct LoadOptions {
    int64_t sizeLimit = 0;  // bytes; 0 or less: no limit of our own
    int32_t parseMode = 0;  // JSON: 1 recovers balanced chunks from malformed text
    CsvOptions csv{};
    EncodingRequest encoding{};      // its name is empty: find the encoding
    bool delimiterDetected = false;  // no delimiter is configured, so csv.delimiter is 0

    bool operator==(const LoadOptions&) const = default;
};

/// Reads from the settings whatever a load of this kind of document needs.
[[nodiscard]] LoadOptions CaptureLoadOptions(DocumentKind kind);

/// The configured size limit in bytes, else the default of this machine; 0 means none.
[[nodiscard]] int64_t MaxFileSize();

/// The limit where none is configured, from this machine's physical memory; bytes.
[[nodiscard]] uint64_t DefaultMaxFileSize();

/// The kind of a file: by its name, else by the characters its first 4,096 bytes begin with. Csv
/// for a file that cannot be read.
[[nodiscard]] DocumentKind DecideDocumentKind(const std::wstring& path);

/// What the placeholder says while `path` loads: its name, and its size where the system tells.
[[nodiscard]] std::wstring LoadingTextFor(const std::wstring& path);

}  // namespace rl
