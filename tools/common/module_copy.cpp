#include "tools/common/module_copy.h"

#include <windows.h>

#include <fstream>
#include <iterator>

namespace rl::tools {

namespace fs = std::filesystem;

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
