// A folder of its own for one test or one run, gone with everything in it at the end.
#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

namespace rl::tools {

class TempFolder {
public:
    TempFolder() {
        static std::atomic<unsigned> count = 0;
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        path_ = std::filesystem::temp_directory_path() /
                ("rowlark-" + std::to_string(now) + "-" + std::to_string(++count));
        std::filesystem::create_directories(path_);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

    /// The full path of a file in it, whether it exists or not.
    [[nodiscard]] std::wstring PathOf(std::wstring_view name) const {
        return (path_ / name).wstring();
    }

    /// Writes a file, over one that exists, and returns its full path.
    std::wstring Write(std::wstring_view name, std::string_view bytes) const {
        std::ofstream(path_ / name, std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return PathOf(name);
    }

    /// The bytes of a file in it; empty when it is missing.
    [[nodiscard]] std::string Read(std::wstring_view name) const {
        std::ifstream in(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

    void Remove(std::wstring_view name) const { std::filesystem::remove(path_ / name); }

private:
    std::filesystem::path path_;
};

}  // namespace rl::tools
