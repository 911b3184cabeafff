// The system calls of native benchmarks.
#include <time.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <string_view>

#include "bench/support/process.h"

namespace rl::bench {

namespace {

/// A figure of /proc/self/status, given there in kB.
size_t StatusBytes(std::string_view name) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.starts_with(name)) {
            return std::stoul(line.substr(name.size())) * 1024;
        }
    }
    return 0;
}

}  // namespace

size_t MemoryNow() {
    return StatusBytes("VmRSS:");
}

size_t MemoryPeak() {
    return StatusBytes("VmHWM:");
}

double ProcessorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

std::string RunProgram(const std::vector<std::string>& command) {
    std::string line;
    for (const std::string& word : command) {
        line += "'" + word + "' ";
    }
    std::FILE* pipe = popen(line.c_str(), "r");
    if (pipe == nullptr) {
        return {};
    }
    std::string out;
    std::array<char, 256> buffer{};
    while (std::fgets(buffer.data(), static_cast<int>(buffer.size()), pipe) != nullptr) {
        out += buffer.data();
    }
    return pclose(pipe) == 0 ? out : std::string();
}

}  // namespace rl::bench
