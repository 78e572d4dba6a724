#pragma once

#include <string>
#include <vector>

#include "tests/support/ImportHook_win32.h"

namespace tarvex {

/// The search for DLLs of another system, which has only some of the functions that set it, for the
/// life of the object: the program finds these instead of the real ones. Nothing is really set.
class FakeDllSearch {
public:
    struct System {
        bool hasDefault;       ///< SetDefaultDllDirectories
        bool hasFolder;        ///< SetDllDirectoryW
        bool refuses = false;  ///< the first of them fails
    };
    explicit FakeDllSearch(const System& system);

    /// What was set, in order: "default 2048" with the number of the flags, "folder 'C:\x'" or
    /// "folder none". A test may add to it.
    static std::vector<std::string>& Calls();

private:
    ImportHook hook_;
};

}  // namespace tarvex
