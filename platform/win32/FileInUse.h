#pragma once

#include "platform/FileStore.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

/// Does `work` again, for a second, while it finds a file in use: another run that reads the file,
/// or a virus scanner, has it open for a moment only. Returns and throws what `work` does at last.
template <class Work>
auto AfterTheMoment(const Work& work) {
    constexpr DWORD kPause = 20;
    constexpr DWORD kLongestMoment = 1000;
    const DWORD start = GetTickCount();
    for (;;) {
        try {
            return work();
        } catch (const FileFailure& failure) {
            if (failure.problem != FileProblem::InUse || GetTickCount() - start >= kLongestMoment) {
                throw;
            }
        }
        Sleep(kPause);
    }
}

}  // namespace tarvex
