#include "load/files/file_reader.h"

#include <algorithm>
#include <utility>

#include "load/text/byte_size.h"
#include "load/text/messages.h"

namespace rl {
namespace {

/// Asked for in one call. Small enough that a load which nobody wants any more ends soon, large
/// enough that the calls do not count.
constexpr size_t kReadStep = size_t{4} << 20;

/// Shares everything: a file that its writer still holds open, or is about to rename, can be seen.
UniqueFile OpenForReading(const std::wstring& path) {
    return UniqueFile(CreateFileW(path.c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

/// Reads up to `count` bytes, at most one step. Returns how many came; 0 at the end of the file and
/// on an error alike.
size_t ReadSome(HANDLE file, char* out, size_t count) {
    DWORD got = 0;
    const auto wanted = static_cast<DWORD>(std::min(count, kReadStep));
    return ReadFile(file, out, wanted, &got, nullptr) ? got : 0;
}

/// Empties the buffer and gives its memory back, which an assignment would keep.
void Release(std::string& bytes) {
    std::string().swap(bytes);
}

enum class Outcome { Complete, Failed, Abandoned };

/// Fills `bytes` with `size` bytes of the file. What the string's memory held before is never
/// cleared: touching it twice costs more than the reading.
Outcome ReadExactly(HANDLE file, size_t size, std::string& bytes, const AbandonCheck& abandoned) {
    Outcome outcome = Outcome::Complete;
    bytes.resize_and_overwrite(size, [&](char* out, size_t) noexcept {
        for (size_t done = 0; done < size;) {
            if (IsAbandoned(abandoned)) {
                outcome = Outcome::Abandoned;
                return size_t{0};
            }
            const size_t got = ReadSome(file, out + done, size - done);
            if (got == 0) {
                outcome = Outcome::Failed;
                return size_t{0};
            }
            done += got;
        }
        return size;
    });
    if (outcome != Outcome::Complete) {
        Release(bytes);
    }
    return outcome;
}

/// Opens a file that is not too large; no handle and a sentence otherwise.
UniqueFile OpenLimited(const std::wstring& path, int64_t limit, size_t& size, std::wstring& error,
                       std::optional<FileStamp>* stamp) {
    error.clear();
    UniqueFile file = OpenForReading(path);
    LARGE_INTEGER found{};
    if (!file) {
        error = messages::kNotOpened;
    } else if (!GetFileSizeEx(file.Get(), &found)) {
        error = messages::kNoSize;
    } else {
        error = SizeRefusal(found.QuadPart, limit);
        size = static_cast<size_t>(found.QuadPart);
        if (stamp != nullptr) {
            *stamp = FileStampOf(file.Get());
        }
    }
    return error.empty() ? std::move(file) : UniqueFile();
}

}  // namespace

bool ReadFileLimited(const std::wstring& path, int64_t limit, std::string& bytes,
                     std::wstring& error, const AbandonCheck& abandoned,
                     std::optional<FileStamp>* stamp) {
    Release(bytes);
    size_t size = 0;
    const UniqueFile file = OpenLimited(path, limit, size, error, stamp);
    if (!file) {
        return false;
    }
    switch (ReadExactly(file.Get(), size, bytes, abandoned)) {
        case Outcome::Complete: return true;
        case Outcome::Abandoned: return false;
        case Outcome::Failed: break;
    }
    return Fail(error, messages::kNotRead);
}

bool ReadFileInPieces(const std::wstring& path, int64_t limit, const TakePiece& take,
                      std::wstring& error, const AbandonCheck& abandoned,
                      std::optional<FileStamp>* stamp) {
    // Small enough to stay in the processor's cache until it is converted.
    constexpr size_t kPiece = size_t{512} << 10;
    size_t size = 0;
    const UniqueFile file = OpenLimited(path, limit, size, error, stamp);
    if (!file) {
        return false;
    }
    std::string buffer(std::min(size, kPiece), '\0');
    size_t done = 0;
    do {
        if (IsAbandoned(abandoned)) {
            return false;
        }
        const size_t got = ReadSome(file.Get(), buffer.data(), std::min(size - done, kPiece));
        if (got == 0 && done < size) {
            return Fail(error, messages::kNotRead);
        }
        if (!take(std::string_view(buffer).substr(0, got), size)) {
            return false;
        }
        done += got;
    } while (done < size);
    return true;
}

std::string ReadFileHead(const std::wstring& path, uint32_t count) {
    std::string head;
    const UniqueFile file = OpenForReading(path);
    if (file) {
        // `count`, not the room offered: the library may offer more than was asked for.
        head.resize_and_overwrite(
            count, [&](char* out, size_t) noexcept { return ReadSome(file.Get(), out, count); });
    }
    return head;
}

std::optional<uint64_t> FileSizeOf(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA found{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &found)) {
        return std::nullopt;
    }
    return uint64_t{found.nFileSizeHigh} << 32 | found.nFileSizeLow;
}

}  // namespace rl
