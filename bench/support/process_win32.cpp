// The system calls of Windows benchmarks.
#include <windows.h>

#include <psapi.h>

#include <array>
#include <cstdint>

#include "bench/support/process.h"
#include "load/files/unique_handle.h"

namespace rl::bench {

namespace {

struct KernelTraits {
    using Handle = HANDLE;
    static Handle Empty() noexcept { return nullptr; }
    static void Close(Handle handle) noexcept { CloseHandle(handle); }
};
using UniqueKernelObject = UniqueHandle<KernelTraits>;

PROCESS_MEMORY_COUNTERS Counters() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters;
}

std::string ReadToEnd(HANDLE pipe) {
    std::string out;
    std::array<char, 256> buffer{};
    DWORD read = 0;
    while (ReadFile(pipe, buffer.data(), static_cast<DWORD>(buffer.size()), &read, nullptr) &&
           read > 0) {
        out.append(buffer.data(), read);
    }
    return out;
}

}  // namespace

size_t MemoryNow() {
    return Counters().WorkingSetSize;
}

size_t MemoryPeak() {
    return Counters().PeakWorkingSetSize;
}

double ProcessorSeconds() {
    FILETIME created{};
    FILETIME ended{};
    FILETIME kernel{};
    FILETIME user{};
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    const auto seconds = [](const FILETIME& time) {
        const uint64_t ticks = uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
        return static_cast<double>(ticks) / 1e7;
    };
    return seconds(kernel) + seconds(user);
}

std::string RunProgram(const std::vector<std::string>& command) {
    std::string line;
    for (const std::string& word : command) {
        line += "\"" + word + "\" ";
    }
    SECURITY_ATTRIBUTES inherit{sizeof inherit, nullptr, TRUE};
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    if (!CreatePipe(&readEnd, &writeEnd, &inherit, 0)) {
        return {};
    }
    const UniqueKernelObject reader(readEnd);
    UniqueKernelObject writer(writeEnd);
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = writer.Get();
    PROCESS_INFORMATION made{};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                        &made)) {
        return {};
    }
    const UniqueKernelObject process(made.hProcess);
    const UniqueKernelObject thread(made.hThread);
    writer.Reset();  // or the pipe would never end
    const std::string out = ReadToEnd(reader.Get());
    WaitForSingleObject(process.Get(), INFINITE);
    DWORD code = 1;
    GetExitCodeProcess(process.Get(), &code);
    return code == 0 ? out : std::string();
}

}  // namespace rl::bench
