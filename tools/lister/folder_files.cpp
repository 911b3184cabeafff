#include "tools/lister/folder_files.h"

#include <windows.h>

#include <algorithm>

namespace rl::tools {

namespace fs = std::filesystem;

namespace {

std::wstring Upper(std::wstring text) {
    CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

bool ComesBefore(const fs::path& left, const fs::path& right) {
    return CompareStringOrdinal(left.filename().c_str(), -1, right.filename().c_str(), -1, TRUE) ==
           CSTR_LESS_THAN;
}

bool SameName(const fs::path& left, const fs::path& right) {
    return CompareStringOrdinal(left.filename().c_str(), -1, right.filename().c_str(), -1, TRUE) ==
           CSTR_EQUAL;
}

}  // namespace

bool IsWanted(const std::string& detectString, const fs::path& file) {
    const std::wstring extension = Upper(file.extension().wstring());
    if (extension.size() < 2) {
        return false;
    }
    const std::wstring term = L"ext=\"" + extension.substr(1) + L"\"";
    return std::wstring(detectString.begin(), detectString.end()).find(term) != std::wstring::npos;
}

std::vector<fs::path> WantedFilesBeside(const std::string& detectString, const fs::path& file) {
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(file.parent_path(), error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code ignored;
        if (entry->is_regular_file(ignored) && IsWanted(detectString, entry->path())) {
            files.push_back(entry->path());
        }
    }
    std::sort(files.begin(), files.end(), ComesBefore);
    return files;
}

fs::path NeighbourOf(const std::string& detectString, const fs::path& file, int step) {
    const std::vector<fs::path> files = WantedFilesBeside(detectString, file);
    const auto here = std::find_if(files.begin(), files.end(), [&](const fs::path& candidate) {
        return SameName(candidate, file);
    });
    const auto index = here - files.begin() + step;
    const bool known = here != files.end();
    return known && index >= 0 && index < std::ssize(files) ? files[static_cast<size_t>(index)]
                                                            : fs::path();
}

}  // namespace rl::tools
