// Replaces functions that a loaded module imports, so that a host can answer them itself.
//
// The module needs no test code and no hooks for this: its import table is a list of pointers, and
// one of them is exchanged. Only calls made by that module are affected.
#pragma once

#include <windows.h>

namespace rl::tools {

/// Exchanges the pointer behind the function that `module` imports by this name. Returns the
/// pointer that stood there; null, and nothing changed, when the module has no such import.
void* ExchangeImport(HMODULE module, const char* name, void* replacement);

/// The same for a function of the caller's own, type and all: both must have one signature.
template <typename Result, typename... Arguments>
auto PatchImport(HMODULE module, const char* name, Result(__stdcall* replacement)(Arguments...)) {
    return reinterpret_cast<Result(__stdcall*)(Arguments...)>(
        ExchangeImport(module, name, reinterpret_cast<void*>(replacement)));
}

}  // namespace rl::tools
