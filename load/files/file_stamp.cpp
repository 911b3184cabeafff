#include "load/files/file_stamp.h"

#include "load/files/file_handle.h"

namespace rl {

std::optional<FileStamp> FileStampOf(HANDLE file) noexcept {
    BY_HANDLE_FILE_INFORMATION found{};
    if (!GetFileInformationByHandle(file, &found)) {
        return std::nullopt;
    }
    const FILETIME& written = found.ftLastWriteTime;
    return FileStamp{
        .size = uint64_t{found.nFileSizeHigh} << 32 | found.nFileSizeLow,
        .written = uint64_t{written.dwHighDateTime} << 32 | written.dwLowDateTime,
    };
}

// By a handle and not by the directory entry, which may lag behind.
std::optional<FileStamp> FileStampOf(const std::wstring& path) noexcept {
    const UniqueFile file(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file ? FileStampOf(file.Get()) : std::nullopt;
}

bool IsOtherFile(const std::optional<FileStamp>& before,
                 const std::optional<FileStamp>& now) noexcept {
    return before && now && *before != *now;
}

}  // namespace rl
