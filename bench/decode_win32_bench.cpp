// Decoding a whole file as the module does it: into fresh memory, against the least that costs and
// against what the system offers.
#include <windows.h>

#include <memory>
#include <string>

#include "bench/support/inputs.h"
#include "bench/support/task.h"
#include "load/text/decode_text.h"
#include "load/text/utf.h"

namespace {

using namespace rl;
using namespace rl::bench;

const std::string& Csv() {
    static const std::string bytes = CsvBytes(kLarge);
    return bytes;
}

/// How much larger than the text its memory is.
double Slack(const std::wstring& text) {
    return static_cast<double>(text.capacity()) / static_cast<double>(text.size());
}

Outcome Decode() {
    const std::string& bytes = Csv();
    TextEncoding found;
    const Stopwatch watch;
    const std::wstring text = DecodeText(bytes, {}, found);
    Keep(text.data());
    return watch.Stop(Slack(text));
}

Outcome TouchPages() {
    constexpr size_t kPage = 4096;
    const size_t size = utf::CountUnits(Csv()) * sizeof(wchar_t);
    const Stopwatch watch;
    const std::unique_ptr<char[]> pages = std::make_unique_for_overwrite<char[]>(size);
    for (size_t at = 0; at < size; at += kPage) {
        pages[at] = 1;
    }
    Keep(pages.get());
    return watch.Stop();
}

Outcome AskSystem() {
    const std::string& bytes = Csv();
    const int length = static_cast<int>(bytes.size());
    const Stopwatch watch;
    const int units = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, nullptr, 0);
    std::wstring text;
    text.resize_and_overwrite(static_cast<size_t>(units), [&](wchar_t* out, size_t) {
        return static_cast<size_t>(
            MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, out, units));
    });
    Keep(text.data());
    return watch.Stop();
}

constexpr Task kTasks[] = {{"decode", Decode}, {"touch", TouchPages}, {"system", AskSystem}};

constexpr Row kRows[] = {
    {.name = "Decode UTF-8, cold / touching the output",
     .ours = "decode",
     .peer = "touch",
     .warmth = Warmth::Cold,
     .bytes = kLarge,
     .goal = 0.85,
     .memoryGoal = 2.02,
     .extraGoal = 1.01},
    {.name = "Decode UTF-8, cold / MultiByteToWideChar twice",
     .ours = "decode",
     .peer = "system",
     .warmth = Warmth::Cold,
     .bytes = kLarge,
     .goal = 1.7,
     .memoryGoal = 2.02},
};

}  // namespace

int main(int argc, char** argv) {
    return rl::bench::Main(std::span(argv, static_cast<size_t>(argc)), kTasks, kRows);
}
