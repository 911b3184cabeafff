// UTF-8 to units in memory that is there already: the kernels against what bounds them.
#include <span>
#include <string>
#include <vector>

#include "bench/support/inputs.h"
#include "bench/support/task.h"
#include "bench/support/widen.h"
#include "load/text/cpu_features.h"
#include "load/text/utf_kernels.h"

namespace {

using namespace rl;
using namespace rl::bench;
using Unit = simd::TextUnit;

struct Input {
    std::string bytes;
    std::vector<Unit> units;

    explicit Input(std::string text) : bytes(std::move(text)), units(bytes.size() + 64) {}
};

template <std::string (*Make)(size_t), size_t Size>
Input& InputOf() {
    static Input input(Make(Size));
    return input;
}

template <std::string (*Make)(size_t), size_t Size>
Outcome Ours() {
    Input& input = InputOf<Make, Size>();
    const auto kernel = HasAvx2() ? simd::Utf8ToUnitsAvx2<Unit> : simd::Utf8ToUnitsSse2<Unit>;
    const Stopwatch watch;
    const utf::Progress done =
        utf::Utf8ToUnitsWith<Unit>(kernel, input.bytes, std::span(input.units));
    Keep(&done);
    return watch.Stop();
}

template <std::string (*Make)(size_t), size_t Size>
Outcome Baseline() {
    Input& input = InputOf<Make, Size>();
    const Stopwatch watch;
    const utf::Progress done = utf::Utf8ToUnitsWith<Unit>(simd::Utf8ToUnitsSse2<Unit>, input.bytes,
                                                          std::span(input.units));
    Keep(&done);
    return watch.Stop();
}

template <std::string (*Make)(size_t), size_t Size>
Outcome Scalar() {
    Input& input = InputOf<Make, Size>();
    const Stopwatch watch;
    const utf::Progress done = utf::Utf8ToUnitsScalar<Unit>(input.bytes, std::span(input.units));
    Keep(&done);
    return watch.Stop();
}

template <std::string (*Make)(size_t), size_t Size>
Outcome Widening() {
    Input& input = InputOf<Make, Size>();
    const Stopwatch watch;
    WidenAvx2(input.bytes.data(), input.bytes.size(), input.units.data());
    Keep(input.units.data());
    return watch.Stop();
}

constexpr Task kTasks[] = {
    {"csv", Ours<CsvBytes, kLarge>},
    {"csv-widen", Widening<CsvBytes, kLarge>},
    {"json", Ours<JsonBytes, kLarge>},
    {"json-widen", Widening<JsonBytes, kLarge>},
    {"cyrillic", Ours<CyrillicBytes, kMedium>},
    {"cyrillic-sse2", Baseline<CyrillicBytes, kMedium>},
    {"cyrillic-scalar", Scalar<CyrillicBytes, kMedium>},
    {"chinese", Ours<ChineseBytes, kMedium>},
    {"chinese-sse2", Baseline<ChineseBytes, kMedium>},
    {"chinese-scalar", Scalar<ChineseBytes, kMedium>},
};

constexpr Row kRows[] = {
    {.name = "Decode UTF-8, warm, csv / widening",
     .ours = "csv",
     .peer = "csv-widen",
     .bytes = kLarge,
     .goal = 0.60},
    {.name = "Decode UTF-8, warm, json / widening",
     .ours = "json",
     .peer = "json-widen",
     .bytes = kLarge,
     .goal = 0.85},
    {.name = "Decode Cyrillic, warm / scalar loop",
     .ours = "cyrillic",
     .peer = "cyrillic-scalar",
     .bytes = kMedium,
     .goal = 1.5},
    {.name = "Decode Chinese, warm / scalar loop",
     .ours = "chinese",
     .peer = "chinese-scalar",
     .bytes = kMedium,
     .goal = 1.5},
    {.name = "Decode Cyrillic with SSE2 only, warm / scalar loop",
     .ours = "cyrillic-sse2",
     .peer = "cyrillic-scalar",
     .bytes = kMedium,
     .goal = 1.5},
    {.name = "Decode Chinese with SSE2 only, warm / scalar loop",
     .ours = "chinese-sse2",
     .peer = "chinese-scalar",
     .bytes = kMedium,
     .goal = 1.5},
};

}  // namespace

int main(int argc, char** argv) {
    return rl::bench::Main(std::span(argv, static_cast<size_t>(argc)), kTasks, kRows);
}
