#include "load/files/file_writer.h"

#include <limits>

#include "load/files/file_handle.h"

namespace rl {
namespace {

/// The same folder as the file's: the last step then never crosses volumes.
std::wstring FolderOf(const std::wstring& path) {
    const size_t separator = path.find_last_of(L"\\/");
    return separator == path.npos ? L"." : path.substr(0, separator + 1);
}

/// A new, empty file in the folder; its path is empty when there is none.
std::wstring MakeTemporary(const std::wstring& folder, const FileWriterCalls& calls) {
    wchar_t name[MAX_PATH] = {};
    return calls.makeTemporary(folder.c_str(), L"rlt", 0, name) != 0 ? name : L"";
}

bool WriteAll(HANDLE file, std::string_view bytes, const FileWriterCalls& calls) {
    if (bytes.empty()) {
        return true;
    }
    if (bytes.size() > std::numeric_limits<DWORD>::max()) {
        return false;
    }
    DWORD written = 0;
    return calls.write(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size();
}

/// Closed when it returns: an open file cannot be moved.
bool Fill(const std::wstring& path, std::string_view bytes, const FileWriterCalls& calls) {
    const UniqueFile file(calls.open(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                     FILE_ATTRIBUTE_NORMAL, nullptr));
    return file && WriteAll(file.Get(), bytes, calls) && calls.flush(file.Get());
}

enum class Outcome { Replaced, Untouched, OldIsGone };

bool IsMissing(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES;
}

/// Replacing keeps attributes and security; moving is for file systems that cannot do that. A
/// replacement may fail between its two halves, when the old file is gone and the new one still has
/// its temporary name: should moving fail as well, that is the only copy. More than one error tells
/// of that, so what counts is whether the old file is there.
Outcome PutInPlace(const std::wstring& temporary, const std::wstring& path,
                   const FileWriterCalls& calls) {
    if (calls.replace(path.c_str(), temporary.c_str(), nullptr, REPLACEFILE_WRITE_THROUGH, nullptr,
                      nullptr)) {
        return Outcome::Replaced;
    }
    if (calls.move(temporary.c_str(), path.c_str(),
                   MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        return Outcome::Replaced;
    }
    return IsMissing(path) ? Outcome::OldIsGone : Outcome::Untouched;
}

}  // namespace

bool WriteFileSafely(const std::wstring& path, std::string_view bytes,
                     const FileWriterCalls& calls) {
    const std::wstring temporary = MakeTemporary(FolderOf(path), calls);
    if (temporary.empty()) {
        return false;
    }
    const Outcome outcome =
        Fill(temporary, bytes, calls) ? PutInPlace(temporary, path, calls) : Outcome::Untouched;
    if (outcome == Outcome::Untouched) {
        calls.remove(temporary.c_str());
    }
    return outcome == Outcome::Replaced;
}

}  // namespace rl
