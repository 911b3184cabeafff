// Replaces a whole file in one step, through a temporary file in the same folder.
//
// Whatever fails, and whenever the process ends, the file holds either all of its old content or
// all of the new. Answers only whether it worked: users read one sentence for every failure.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace rl {

/// The system's part in a replacement, in the order of the calls. Tests put failing ones in.
struct FileWriterCalls {
    decltype(&GetTempFileNameW) makeTemporary = &GetTempFileNameW;
    decltype(&CreateFileW) open = &CreateFileW;
    decltype(&WriteFile) write = &WriteFile;
    decltype(&FlushFileBuffers) flush = &FlushFileBuffers;
    decltype(&ReplaceFileW) replace = &ReplaceFileW;
    decltype(&MoveFileExW) move = &MoveFileExW;
    decltype(&DeleteFileW) remove = &DeleteFileW;
};

/// Gives the file exactly these bytes; its attributes and security stay. On failure it is as it was
/// before, and no temporary file is left; unless the system itself lost the old file half-way, then
/// the new content stays under its temporary name. Content of 4 GiB and more cannot be written.
[[nodiscard]] bool WriteFileSafely(const std::wstring& path, std::string_view bytes,
                                   const FileWriterCalls& calls = {});

}  // namespace rl
