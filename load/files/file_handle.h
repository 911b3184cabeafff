// File handles as owners. Their empty value is not null.
#pragma once

#include <windows.h>

#include "load/files/unique_handle.h"

namespace rl {

struct FileTraits {
    using Handle = HANDLE;
    static Handle Empty() noexcept { return INVALID_HANDLE_VALUE; }
    static void Close(Handle handle) noexcept { CloseHandle(handle); }
};

using UniqueFile = UniqueHandle<FileTraits>;

}  // namespace rl
