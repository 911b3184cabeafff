#include "tools/lister/options.h"

#include <cwchar>
#include <string_view>

namespace rl::tools {

namespace {

constexpr int kSmallestSize = 100;
constexpr int kLargestSize = 10000;
constexpr int kSmallestDpi = 48;
constexpr int kLargestDpi = 960;

std::optional<int> NumberIn(const wchar_t* text, wchar_t end, int low, int high,
                            const wchar_t** rest = nullptr) {
    wchar_t* stop = nullptr;
    const long value = std::wcstol(text, &stop, 10);
    if (stop == text || *stop != end || value < low || value > high) {
        return std::nullopt;
    }
    if (rest != nullptr) {
        *rest = stop + 1;
    }
    return static_cast<int>(value);
}

bool ParseSize(const wchar_t* text, Options& options) {
    const wchar_t* rest = nullptr;
    const auto width = NumberIn(text, L'x', kSmallestSize, kLargestSize, &rest);
    if (!width) {
        return false;
    }
    const auto height = NumberIn(rest, L'\0', kSmallestSize, kLargestSize);
    options.width = *width;
    options.height = height.value_or(0);
    return height.has_value();
}

bool ParseDpi(const wchar_t* text, Options& options) {
    const auto dpi = NumberIn(text, L'\0', kSmallestDpi, kLargestDpi);
    options.dpi = dpi.value_or(0);
    return dpi.has_value();
}

template <std::wstring Options::*field>
bool Store(const wchar_t* text, Options& options) {
    options.*field = text;
    return *text != L'\0';
}

/// Options that take a value: the next argument.
struct ValueOption {
    std::wstring_view name;
    bool (*parse)(const wchar_t* text, Options& options);
};

constexpr ValueOption kValueOptions[] = {
    {L"--screenshot", &Store<&Options::screenshot>},
    {L"--ini", &Store<&Options::ini>},
    {L"--theme", &Store<&Options::theme>},
    {L"--find", &Store<&Options::find>},
    {L"--module", &Store<&Options::module>},
    {L"--size", &ParseSize},
    {L"--dpi", &ParseDpi},
};

const ValueOption* FindValueOption(std::wstring_view name) {
    for (const ValueOption& option : kValueOptions) {
        if (option.name == name) {
            return &option;
        }
    }
    return nullptr;
}

bool ParseFlag(std::wstring_view argument, Options& options) {
    options.quickView = options.quickView || argument == L"--quick-view";
    options.help = options.help || argument == L"--help" || argument == L"-h";
    return argument == L"--quick-view" || argument == L"--help" || argument == L"-h";
}

}  // namespace

std::optional<Options> ParseOptions(int count, const wchar_t* const* arguments,
                                    std::wstring& error) {
    Options options;
    error.clear();
    for (int i = 0; i < count; ++i) {
        const std::wstring argument = arguments[i];
        if (ParseFlag(argument, options)) {
            continue;
        }
        if (const ValueOption* option = FindValueOption(argument)) {
            if (i + 1 == count || !option->parse(arguments[++i], options)) {
                error = L"a usable value is missing after " + argument;
                return std::nullopt;
            }
        } else if (argument.starts_with(L"--")) {
            error = L"unknown option " + argument;
            return std::nullopt;
        } else if (!options.file.empty()) {
            error = L"one file at a time: " + argument;
            return std::nullopt;
        } else {
            options.file = argument;
        }
    }
    if (options.file.empty() && !options.screenshot.empty() && !options.help) {
        error = L"a screenshot needs a file";
        return std::nullopt;
    }
    return options;
}

const wchar_t* UsageText() {
    return LR"(lister [options] FILE   open FILE in the rowlark viewer

  --screenshot PNG   write a picture of the window, then end
  --size WxH         size of the window with its frame (1000x700)
  --theme NAME       Light, Paper, Dark, Midnight or Solarized Dark
  --find TEXT        search as soon as the file is shown
  --ini PATH         settings for this run instead of those beside the module
  --dpi N            let the viewer lay itself out for N dots per inch
  --quick-view       as in the quick-view panel: beside a list of files, without the focus
  --module PATH      the module to use (rowlark.wlx64 beside this program by default)
  --help             this text

Keys: Esc or Q close, N and P next and previous file, Ctrl+O open, Ctrl+F find, F3 find next.
Without a display (ROWLARK_HEADLESS=1, or a screenshot) a message box is written to the error
stream and ends the run with exit code 1.
)";
}

}  // namespace rl::tools
