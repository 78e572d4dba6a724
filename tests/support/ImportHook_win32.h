#pragma once

#include "platform/win32/WindowsApi.h"

namespace tarvex {

/// Puts a function of the test in the place of one that the test program imports from a DLL, for
/// the life of the object: all of the program's own code calls the replacement, the DLLs among
/// themselves do not. One object per function at a time; a function that the program does not
/// import fails the test.
class ImportHook {
public:
    template <class Signature>
    ImportHook(const char* function, Signature* replacement)
        : ImportHook(function, reinterpret_cast<void*>(replacement)) {}
    ImportHook(const char* function, void* replacement);
    ImportHook(const ImportHook&) = delete;
    ImportHook& operator=(const ImportHook&) = delete;
    ~ImportHook();

private:
    void** place_;  ///< in the program's import table, null when it does not import the function
    void* original_ = nullptr;
};

}  // namespace tarvex
