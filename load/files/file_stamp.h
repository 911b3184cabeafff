// The state of a file by which a change from outside is noticed.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

namespace rl {

struct FileStamp {
    uint64_t size = 0;
    uint64_t written = 0;  // last write, as the file system counts time

    bool operator==(const FileStamp&) const = default;
};

/// The stamp of an open file; nothing when the system does not tell.
[[nodiscard]] std::optional<FileStamp> FileStampOf(HANDLE file) noexcept;

/// The same for a file by its path, whoever has it open.
[[nodiscard]] std::optional<FileStamp> FileStampOf(const std::wstring& path) noexcept;

/// Whether the file is certainly another one than it was: both stamps are known and differ.
[[nodiscard]] bool IsOtherFile(const std::optional<FileStamp>& before,
                               const std::optional<FileStamp>& now) noexcept;

}  // namespace rl
