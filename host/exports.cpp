// Entry points of the plugin, as the host calls them.
#include "host/lister_api.h"

extern "C" {

HWND __stdcall ListLoadW(HWND, const wchar_t*, int) { return nullptr; }
HWND __stdcall ListLoad(HWND, const char*, int) { return nullptr; }
void __stdcall ListCloseWindow(HWND) {}
void __stdcall ListGetDetectString(char*, int) {}
int __stdcall ListSearchText(HWND, const char*, int) { return 0; }
int __stdcall ListSearchTextW(HWND, const wchar_t*, int) { return 0; }
void __stdcall ListSetDefaultParams(rl::lister::DefaultParams*) {}

}
