#pragma once

#include <list>
#include <string>

#include "tests/support/ImportHook_win32.h"

namespace tarvex {

/// Counts what the program's own code takes from GDI and gives back, on the thread that made the
/// object and while it lives; the count that the system keeps is always 0 under Wine. One object at
/// a time.
class GdiLedger {
public:
    GdiLedger();
    GdiLedger(const GdiLedger&) = delete;
    GdiLedger& operator=(const GdiLedger&) = delete;
    ~GdiLedger();

    /// Calls that took something: fonts and bitmaps, memory device contexts, those of windows.
    int Taken() const;

    /// What is not given back, for example "2 objects, 1 memory contexts"; empty: nothing.
    std::string Open() const;

private:
    std::list<ImportHook> hooks_;
};

}  // namespace tarvex
