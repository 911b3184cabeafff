// The Lister: a small window of the kind the file manager has, to try the plugin without it.
#include <windows.h>

#include <shellapi.h>

#include "tools/lister/console.h"
#include "tools/lister/lister_window.h"
#include "tools/lister/module_setup.h"
#include "tools/lister/options.h"
#include "tools/lister/resource.h"
#include "tools/lister/screenshot.h"

namespace rl::tools {

namespace {

constexpr int kUsageError = 2;
constexpr int kFailure = 1;

int RunMessages(ListerWindow& lister, bool headless) {
    const HACCEL accelerators =
        LoadAcceleratorsW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDA_LISTER));
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!TranslateAcceleratorW(lister.Window(), accelerators, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        lister.NoticeViewer();
        if (headless && ModuleSetup::MessageBoxCount() > 0) {
            return kFailure;
        }
    }
    return static_cast<int>(message.wParam);
}

int Run(const Options& options) {
    const bool headless = IsHeadless() || !options.screenshot.empty();
    std::wstring error;
    const ModuleSetup setup(options, headless, error);
    if (!error.empty()) {
        PrintError(L"lister: " + error);
        return kFailure;
    }
    ListerWindow lister(setup.Module(), options);
    if (!lister.Create()) {
        PrintError(L"lister: no window can be made; is there a display?");
        return kFailure;
    }
    if (!options.file.empty() && !lister.Open(options.file) && headless) {
        PrintError(L"lister: the plugin does not show " + options.file);
        return kFailure;
    }
    return options.screenshot.empty() ? RunMessages(lister, headless)
                                      : TakeScreenshot(lister, options.screenshot);
}

int Main() {
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::wstring error;
    const std::optional<Options> options = ParseOptions(count - 1, arguments + 1, error);
    LocalFree(arguments);
    if (!options) {
        PrintError(L"lister: " + error + L"\n\n" + UsageText());
        return kUsageError;
    }
    if (options->help) {
        PrintLine(UsageText());
        return 0;
    }
    return Run(*options);
}

}  // namespace

}  // namespace rl::tools

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return rl::tools::Main();
}
