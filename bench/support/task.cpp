// Runs tasks in processes of their own and prints what came out; see the header.
#include "bench/support/task.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <vector>

#include "bench/support/process.h"

namespace rl::bench {

namespace {

constexpr int kRuns = 5;

/// Elapsed time or, where ROWLARK_BENCH_CLOCK is "cpu", the processor's time for us: coarser, but
/// what others do on the machine matters less, and a second thread of ours counts as well.
double Seconds() {
    static const char* const clock = std::getenv("ROWLARK_BENCH_CLOCK");
    if (clock != nullptr && std::string_view(clock) == "cpu") {
        return ProcessorSeconds();
    }
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

Outcome MedianOf(const std::vector<Outcome>& runs) {
    const auto of = [&runs](double Outcome::*field) {
        std::vector<double> values;
        for (const Outcome& run : runs) {
            values.push_back(run.*field);
        }
        return Median(std::move(values));
    };
    return {of(&Outcome::seconds), of(&Outcome::growth), of(&Outcome::extra)};
}

/// The process of one task: its figures go to the standard output, for the process that asked.
int RunTask(const Task& task, Warmth warmth) {
    std::vector<Outcome> runs;
    const Outcome first = task.run();
    if (warmth == Warmth::Cold) {
        runs.push_back(first);
    }
    while (warmth == Warmth::Warm && runs.size() < kRuns) {
        runs.push_back(task.run());
    }
    const Outcome middle = MedianOf(runs);
    std::printf("%.9f %.0f %.6f\n", middle.seconds, std::max(first.growth, middle.growth),
                middle.extra);
    return 0;
}

std::optional<Outcome> AskProcess(const std::string& program, std::string_view task,
                                  Warmth warmth) {
    const std::string out =
        RunProgram({program, warmth == Warmth::Cold ? "--cold" : "--warm", std::string(task)});
    Outcome outcome;
    const char* at = out.c_str();
    for (double* field : {&outcome.seconds, &outcome.growth, &outcome.extra}) {
        char* end = nullptr;
        *field = std::strtod(at, &end);
        if (end == at) {
            return std::nullopt;
        }
        at = end;
    }
    return outcome;
}

struct Pair {
    Outcome ours;
    Outcome peer;
};

/// Ours and the peer's in turns. Warm processes take their own median already, so fewer will do.
std::optional<Pair> Compare(const std::string& program, const Row& row) {
    std::vector<Outcome> ours;
    std::vector<Outcome> peers;
    const int processes = row.warmth == Warmth::Cold ? kRuns : 3;
    for (int turn = 0; turn < processes; ++turn) {
        const std::optional<Outcome> our = AskProcess(program, row.ours, row.warmth);
        const std::optional<Outcome> peer = AskProcess(program, row.peer, row.warmth);
        if (!our || !peer) {
            return std::nullopt;
        }
        ours.push_back(*our);
        peers.push_back(*peer);
    }
    return Pair{MedianOf(ours), MedianOf(peers)};
}

bool Holds(const Row& row, const Pair& pair, double ratio, double growth) {
    return ratio >= row.goal && (row.memoryGoal == 0 || growth <= row.memoryGoal) &&
           (row.extraGoal == 0 || pair.ours.extra <= row.extraGoal);
}

void Print(const Row& row, const Pair& pair) {
    const double ratio = pair.peer.seconds / pair.ours.seconds;
    const double growth = pair.ours.growth / row.bytes;
    std::array<char, 64> memory{};
    std::snprintf(memory.data(), memory.size(), row.memoryGoal == 0 ? "" : " (<= %.2f)",
                  row.memoryGoal);
    std::array<char, 64> extra{};
    std::snprintf(extra.data(), extra.size(), row.extraGoal == 0 ? "" : " | extra %.3f (<= %.3f)",
                  pair.ours.extra, row.extraGoal);
    std::printf(
        "%s | ours %.0f MB/s | peer %.0f MB/s | %.2fx | goal >= %.2fx | %s | +%.2f B/B%s%s\n",
        std::string(row.name).c_str(), row.bytes / pair.ours.seconds / 1e6,
        row.bytes / pair.peer.seconds / 1e6, ratio, row.goal,
        Holds(row, pair, ratio, growth) ? "holds" : "falls short", growth, memory.data(),
        extra.data());
    std::fflush(stdout);
}

}  // namespace

Stopwatch::Stopwatch() : before_(MemoryNow()), start_(Seconds()) {}

Outcome Stopwatch::Stop(double extra) const {
    const double time = Seconds() - start_;
    const size_t peak = MemoryPeak();
    const double growth = peak > before_ ? static_cast<double>(peak - before_) : 0.0;
    return {time, growth, extra};
}

int Main(std::span<char*> arguments, std::span<const Task> tasks, std::span<const Row> rows) {
    if (arguments.size() == 3) {
        const std::string_view how = arguments[1];
        const auto task = std::ranges::find(tasks, std::string_view(arguments[2]), &Task::name);
        return task == tasks.end() ? 2
                                   : RunTask(*task, how == "--cold" ? Warmth::Cold : Warmth::Warm);
    }
    int failed = 0;
    for (const Row& row : rows) {
        const std::optional<Pair> pair = Compare(arguments[0], row);
        if (pair) {
            Print(row, *pair);
        } else {
            std::printf("%s | could not be measured\n", std::string(row.name).c_str());
            failed = 1;
        }
    }
    return failed;
}

void Keep(const void* result) {
    static const void* volatile kept;
    kept = result;
    (void)kept;
}

}  // namespace rl::bench
