// Every JSON and XML file of the shared collection, each against a plain file of the same size.
//
// All but a few are small: what counts is that none of them is slow, so the figure is that of the
// slowest, and a file is loaded again and again until that can be timed.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <string>

#include "bench/support/input_file.h"
#include "bench/support/inputs.h"
#include "bench/support/task.h"
#include "load/document_loaders.h"

namespace {

using rl::bench::Stopwatch;

struct Kind {
    const char* folder;
    std::string (*makePlain)(size_t size);
    void (*load)(const std::wstring& path);
};

void LoadJson(const std::wstring& path) {
    std::wstring error;
    const auto document = rl::LoadJsonDocument(path, 0, 0, {}, error);
    rl::bench::Keep(document.get());
}

void LoadXml(const std::wstring& path) {
    std::wstring error;
    const auto document = rl::LoadXmlDocument(path, 0, {.honourXmlDeclaration = true}, error);
    rl::bench::Keep(document.get());
}

constexpr Kind kKinds[] = {{"json", rl::bench::JsonEventBytes, LoadJson},
                           {"xml", rl::bench::XmlEventBytes, LoadXml}};

/// Seconds of one load, from as many as take some milliseconds.
double SecondsOf(const std::wstring& path, const Kind& kind) {
    constexpr double kEnough = 0.004;
    const Stopwatch watch;
    double seconds = 0;
    int loads = 0;
    for (; seconds < kEnough; seconds = watch.Stop().seconds) {
        kind.load(path);
        ++loads;
    }
    return seconds / loads;
}

/// The best of a few rounds of one against those of the other, in turns.
double RatioOf(const std::wstring& path, const std::wstring& plain, const Kind& kind) {
    constexpr int kRounds = 6;
    double ours = std::numeric_limits<double>::max();
    double theirs = ours;
    for (int round = 0; round < kRounds; ++round) {
        ours = std::min(ours, SecondsOf(path, kind));
        theirs = std::min(theirs, SecondsOf(plain, kind));
    }
    return ours / theirs;
}

struct Slowest {
    double ratio = 0;
    std::filesystem::path file;
    size_t files = 0;  // that were looked at
};

Slowest FindSlowest(const Kind& kind, const std::filesystem::path& folder) {
    Slowest slowest;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file()) {
            continue;
        }
        ++slowest.files;
        const std::filesystem::path plain =
            rl::bench::WriteInput("rowlark_bench_plain", kind.makePlain(entry.file_size()));
        const double ratio = RatioOf(entry.path().wstring(), plain.wstring(), kind);
        if (ratio > slowest.ratio) {
            slowest.ratio = ratio;
            slowest.file = entry.path();
        }
        std::filesystem::remove(plain);
    }
    return slowest;
}

}  // namespace

int main() {
    constexpr double kGoal = 4;
    for (const Kind& kind : kKinds) {
        const std::filesystem::path folder = std::filesystem::path(ROWLARK_CORPUS) / kind.folder;
        if (!std::filesystem::is_directory(folder)) {
            std::printf("%s: skipped, the collection is not here\n", kind.folder);
            continue;
        }
        const Slowest slowest = FindSlowest(kind, folder);
        std::printf(
            "%s: %zu files against plain ones of their size | slowest takes %.2f times as "
            "long | goal <= %.2f | %s | %s\n",
            kind.folder, slowest.files, slowest.ratio, kGoal,
            slowest.ratio <= kGoal ? "holds" : "falls short",
            slowest.file.filename().string().c_str());
    }
    return 0;
}
