#include "tests/support/ImportHook_win32.h"

#include <gtest/gtest.h>

#include <cstring>

namespace tarvex {

namespace {

template <class Type>
Type* AtOffset(void* module, std::size_t offset) {
    return reinterpret_cast<Type*>(static_cast<char*>(module) + offset);
}

/// Where the program keeps the address of an imported function.
void** PlaceOf(const char* function) {
    void* const module = GetModuleHandleW(nullptr);
    const auto* const file = AtOffset<IMAGE_DOS_HEADER>(module, 0);
    const auto* const headers =
        AtOffset<IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(file->e_lfanew));
    const IMAGE_DATA_DIRECTORY& imports =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* library = AtOffset<IMAGE_IMPORT_DESCRIPTOR>(module, imports.VirtualAddress);
         library->Name != 0; ++library) {
        const auto* name = AtOffset<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        auto* place = AtOffset<IMAGE_THUNK_DATA>(module, library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++place) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) {
                continue;
            }
            const auto* const import =
                AtOffset<IMAGE_IMPORT_BY_NAME>(module, name->u1.AddressOfData);
            if (std::strcmp(import->Name, function) == 0) {
                return reinterpret_cast<void**>(&place->u1.Function);
            }
        }
    }
    return nullptr;
}

void Write(void** place, void* function) {
    DWORD before = 0;
    VirtualProtect(place, sizeof(*place), PAGE_READWRITE, &before);
    *place = function;
    VirtualProtect(place, sizeof(*place), before, &before);
}

}  // namespace

ImportHook::ImportHook(const char* function, void* replacement) : place_(PlaceOf(function)) {
    EXPECT_NE(place_, nullptr) << function << " is not imported";
    if (place_ != nullptr) {
        original_ = *place_;
        Write(place_, replacement);
    }
}

ImportHook::~ImportHook() {
    if (place_ != nullptr) {
        Write(place_, original_);
    }
}

}  // namespace tarvex
