#include "tools/common/module_copy.h"

#include <windows.h>

#include <atomic>
#include <fstream>
#include <iterator>

namespace rl::tools {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    static std::atomic<int> count{0};
    const std::string name = "rowlark-" + std::to_string(GetCurrentProcessId()) + "-" +
                             std::to_string(GetTickCount64()) + "-" + std::to_string(++count);
    std::error_code ignored;
    path_ = fs::temp_directory_path(ignored) / name;
    fs::create_directories(path_, ignored);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

bool WriteBytes(const fs::path& file, const std::string& bytes) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(out.flush());
}

std::string ReadBytes(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

fs::path CopyModule(const fs::path& module, const fs::path& folder) {
    const fs::path copy = folder / module.filename();
    return CopyFileW(module.c_str(), copy.c_str(), FALSE) ? copy : fs::path();
}

}  // namespace rl::tools
