#pragma once

#include <sys/wait.h>
#include <unistd.h>

namespace tarvex {

/// Does `work` in a process of its own, a copy of this one, which ends with the code that it
/// returns. The result is the status as waitpid gives it: 0 for code 0.
template <class Work>
int StatusOfProcess(const Work& work) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(work());
    }
    int status = -1;
    waitpid(child, &status, 0);
    return status;
}

}  // namespace tarvex
