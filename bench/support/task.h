// How a benchmark program is put together: named tasks, run in processes of their own, and rows
// that compare two of them.
//
// A task prepares its input, times the one thing it is about and answers with what that took. The
// program runs each task by starting itself again, so that no task warms or fragments the memory of
// another; a "cold" figure is the first run of such a process, a "warm" one the median of its later
// runs. Ours and the peer's take turns, so that both see the same disturbances.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace rl::bench {

/// What one run of a task took.
struct Outcome {
    double seconds = 0;
    double growth = 0;  // bytes by which the process grew at most while it was timed
    double extra = 0;   // a figure of the task's own, such as bytes it holds at the end
};

struct Task {
    std::string_view name;
    Outcome (*run)();  // may be called again and again; keeps its input between calls
};

/// Times a stretch of code and the memory it needs. Starts with its construction.
class Stopwatch {
public:
    Stopwatch();
    /// Ends the measurement; the result's `extra` is `extra`.
    [[nodiscard]] Outcome Stop(double extra = 0) const;

private:
    size_t before_;
    double start_;  // seconds
};

enum class Warmth { Cold, Warm };

/// One comparison and its goals.
struct Row {
    std::string_view name;
    std::string_view ours;  // task names
    std::string_view peer;
    Warmth warmth = Warmth::Warm;
    double bytes = 0;       // of input: figures are shown as MB/s
    double goal = 0;        // our speed divided by the peer's, at least
    double memoryGoal = 0;  // most bytes of growth for each byte of input; 0: none
    double extraGoal = 0;   // most of what our task reports as `extra`; 0: none
};

/// The program: prints the rows, or serves as the process of one task. Returns the exit code.
[[nodiscard]] int Main(std::span<char*> arguments, std::span<const Task> tasks,
                       std::span<const Row> rows);

/// Keeps the compiler from dropping a result nobody reads.
void Keep(const void* result);

}  // namespace rl::bench
