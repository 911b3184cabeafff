#include "tools/common/import_patch.h"

#include <cstdint>
#include <cstring>

namespace rl::tools {

namespace {

template <typename T>
T* At(std::uint8_t* base, std::uint64_t offset) {
    return reinterpret_cast<T*>(base + offset);
}

const IMAGE_IMPORT_DESCRIPTOR* FirstImport(std::uint8_t* base) {
    const auto* dos = At<IMAGE_DOS_HEADER>(base, 0);
    const auto* headers = At<IMAGE_NT_HEADERS>(base, static_cast<std::uint32_t>(dos->e_lfanew));
    const auto& folder = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    return folder.Size == 0 ? nullptr : At<IMAGE_IMPORT_DESCRIPTOR>(base, folder.VirtualAddress);
}

/// The slot that holds the address of the named function, or null.
ULONGLONG* FindSlot(std::uint8_t* base, const IMAGE_IMPORT_DESCRIPTOR& library, const char* name) {
    const auto* names = At<IMAGE_THUNK_DATA>(base, library.OriginalFirstThunk);
    auto* slots = At<IMAGE_THUNK_DATA>(base, library.FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++slots) {
        if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) {
            continue;
        }
        const auto* entry = At<IMAGE_IMPORT_BY_NAME>(base, names->u1.AddressOfData);
        if (std::strcmp(reinterpret_cast<const char*>(entry->Name), name) == 0) {
            return &slots->u1.Function;
        }
    }
    return nullptr;
}

void* Exchange(ULONGLONG* slot, void* replacement) {
    DWORD protection = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    const ULONGLONG previous = *slot;
    *slot = reinterpret_cast<ULONGLONG>(replacement);
    VirtualProtect(slot, sizeof *slot, protection, &protection);
    return reinterpret_cast<void*>(previous);
}

}  // namespace

void* ExchangeImport(HMODULE module, const char* name, void* replacement) {
    auto* base = reinterpret_cast<std::uint8_t*>(module);
    const IMAGE_IMPORT_DESCRIPTOR* library = FirstImport(base);
    if (library == nullptr) {
        return nullptr;
    }
    for (; library->Name != 0; ++library) {
        if (ULONGLONG* slot = FindSlot(base, *library, name)) {
            return Exchange(slot, replacement);
        }
    }
    return nullptr;
}

}  // namespace rl::tools
