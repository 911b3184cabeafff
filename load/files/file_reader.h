// Reads a whole file into memory, under a limit.
//
// Reports failures as a sentence and shows nothing; touches no shared state, so it serves the
// worker and the user-interface thread alike.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "load/files/file_handle.h"
#include "load/files/file_stamp.h"
#include "load/text/abandon_check.h"

namespace rl {

/// Reads the file into `bytes`, which is then exactly as long as the file was when it was opened.
/// `limit` is in bytes, 0 or less for none; a file of 2 GiB is refused all the same. On failure
/// `bytes` is empty and `error` holds a sentence, or nothing when `abandoned` ended the reading.
/// `stamp` gets the file's as it was opened. Throws std::bad_alloc when the bytes do not fit into
/// memory.
[[nodiscard]] bool ReadFileLimited(const std::wstring& path, int64_t limit, std::string& bytes,
                                   std::wstring& error, const AbandonCheck& abandoned = {},
                                   std::optional<FileStamp>* stamp = nullptr);

/// Hands the file over in pieces, in order, as long as `take` answers true; the buffer is used
/// again for each, so that the file never stands in memory whole. `take` is told the file's size
/// and gets one empty piece of an empty file. Limits and failures as above; false without a
/// sentence also when `take` refused.
using TakePiece = std::function<bool(std::string_view piece, size_t fileSize)>;
[[nodiscard]] bool ReadFileInPieces(const std::wstring& path, int64_t limit, const TakePiece& take,
                                    std::wstring& error, const AbandonCheck& abandoned = {},
                                    std::optional<FileStamp>* stamp = nullptr);

/// The first `count` bytes of a file, fewer when it is shorter; empty when it cannot be read.
[[nodiscard]] std::string ReadFileHead(const std::wstring& path, uint32_t count);

/// The size of a file by its directory entry, without opening it.
[[nodiscard]] std::optional<uint64_t> FileSizeOf(const std::wstring& path);

}  // namespace rl
