// Encoding a whole text for saving, against what the system offers: ask for the size, then convert.
#include <windows.h>

#include <cstring>
#include <string>

#include "bench/support/inputs.h"
#include "bench/support/task.h"
#include "load/text/decode_text.h"
#include "load/text/encode_text.h"

namespace {

using namespace rl;
using namespace rl::bench;

const std::wstring& Csv() {
    static const std::wstring text = [] {
        TextEncoding found;
        return DecodeText(CsvBytes(kLarge), {}, found);
    }();
    return text;
}

Outcome Encode(const TextEncoding& encoding) {
    const std::wstring& text = Csv();
    std::string bytes;
    const Stopwatch watch;
    const bool done = EncodeText(text, encoding, bytes);
    Keep(bytes.data());
    return done ? watch.Stop() : Outcome{};
}

Outcome AskSystem(UINT codePage, DWORD flags) {
    const std::wstring& text = Csv();
    const int length = static_cast<int>(text.size());
    BOOL replaced = FALSE;
    BOOL* const ask = flags == 0 ? nullptr : &replaced;
    const Stopwatch watch;
    const int size =
        WideCharToMultiByte(codePage, flags, text.data(), length, nullptr, 0, nullptr, ask);
    std::string bytes;
    bytes.resize_and_overwrite(static_cast<size_t>(size), [&](char* out, size_t) {
        return static_cast<size_t>(
            WideCharToMultiByte(codePage, flags, text.data(), length, out, size, nullptr, ask));
    });
    Keep(bytes.data());
    return watch.Stop();
}

/// The least that two bytes for each unit can cost.
Outcome CopyUnits() {
    const std::wstring& text = Csv();
    const size_t size = text.size() * sizeof(wchar_t);
    std::string bytes;
    const Stopwatch watch;
    bytes.resize_and_overwrite(size, [&text, size](char* out, size_t) {
        std::memcpy(out, text.data(), size);
        return size;
    });
    Keep(bytes.data());
    return watch.Stop();
}

Outcome EncodeUtf8() {
    return Encode({.name = L"UTF-8"});
}
Outcome EncodeUtf16() {
    return Encode({.name = L"UTF-16BE"});
}
Outcome EncodeAnsi() {
    return Encode({.name = L"ANSI", .codePage = 1252});
}
Outcome SystemUtf8() {
    return AskSystem(CP_UTF8, 0);
}
Outcome SystemAnsi() {
    return AskSystem(1252, WC_NO_BEST_FIT_CHARS);
}

constexpr Task kTasks[] = {{"utf8", EncodeUtf8},        {"utf16", EncodeUtf16},
                           {"ansi", EncodeAnsi},        {"copy", CopyUnits},
                           {"system-utf8", SystemUtf8}, {"system-ansi", SystemAnsi}};

constexpr Row kRows[] = {
    {.name = "Encode UTF-8, cold / WideCharToMultiByte twice",
     .ours = "utf8",
     .peer = "system-utf8",
     .warmth = Warmth::Cold,
     .bytes = kLarge,
     .goal = 2.0,
     .memoryGoal = 1.02},
    {.name = "Encode UTF-16BE, cold / copying the units",
     .ours = "utf16",
     .peer = "copy",
     .warmth = Warmth::Cold,
     .bytes = kLarge,
     .goal = 0.9,
     .memoryGoal = 2.02},
    {.name = "Encode ANSI, cold / WideCharToMultiByte twice",
     .ours = "ansi",
     .peer = "system-ansi",
     .warmth = Warmth::Cold,
     .bytes = kLarge,
     .goal = 2.0,
     .memoryGoal = 1.02},
};

}  // namespace

int main(int argc, char** argv) {
    return rl::bench::Main(std::span(argv, static_cast<size_t>(argc)), kTasks, kRows);
}
