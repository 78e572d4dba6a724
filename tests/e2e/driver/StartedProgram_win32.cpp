#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"
#include "tests/e2e/driver/StartedProgram.h"

namespace tarvex {

StartedProgram::~StartedProgram() {
    if (job_ != nullptr) {
        TerminateJobObject(job_, 255);
        CloseHandle(job_);
    }
    if (process_ != nullptr) {
        CloseHandle(process_);
    }
}

std::uint32_t StartedProgram::Start(const std::u16string& application,
                                    const std::u16string& commandLine,
                                    const std::u16string& folder) {
    job_ = CreateJobObjectW(nullptr, nullptr);
    if (job_ == nullptr) {
        return GetLastError();
    }
    // The driver itself may be ended at a time limit; nothing may outlive it.
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job_, JobObjectExtendedLimitInformation, &limits, sizeof(limits));

    std::u16string line = commandLine;  // CreateProcessW may write into it
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(application.empty() ? nullptr : Wide(application),
                       reinterpret_cast<wchar_t*>(line.data()), nullptr, nullptr, FALSE,
                       CREATE_SUSPENDED, nullptr, folder.empty() ? nullptr : Wide(folder), &startup,
                       &process) == FALSE) {
        return GetLastError();
    }
    process_ = process.hProcess;
    id_ = process.dwProcessId;
    DWORD error = ERROR_SUCCESS;
    if (AssignProcessToJobObject(job_, process_) == FALSE) {
        error = GetLastError();
        TerminateProcess(process_, 255);
    }
    ResumeThread(process.hThread);
    CloseHandle(process.hThread);
    return error;
}

bool StartedProgram::WaitForEnd(std::uint32_t milliseconds) const {
    return WaitForSingleObject(process_, milliseconds) == WAIT_OBJECT_0;
}

bool StartedProgram::WaitForIdle(std::uint32_t milliseconds) const {
    return WaitForInputIdle(process_, milliseconds) == 0;
}

std::optional<std::uint32_t> StartedProgram::ExitCode() const {
    DWORD code = 0;
    if (!WaitForEnd(0) || GetExitCodeProcess(process_, &code) == FALSE) {
        return std::nullopt;
    }
    return code;
}

std::uint32_t StartedProgram::RunningProcesses() const {
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION accounting{};
    QueryInformationJobObject(job_, JobObjectBasicAccountingInformation, &accounting,
                              sizeof(accounting), nullptr);
    return accounting.ActiveProcesses;
}

std::optional<std::uint32_t> StartedProgram::ErrorMode(std::uint32_t milliseconds) const {
    // Only a process itself can ask. kernel32.dll has the same address in all of them, and setting
    // the mode, which gives the one before, takes one number, as the function of a thread does.
    const auto ask = [this, milliseconds](DWORD mode) {
        const HANDLE thread = CreateRemoteThread(
            process_, nullptr, 0,
            reinterpret_cast<LPTHREAD_START_ROUTINE>(reinterpret_cast<void*>(SetErrorMode)),
            reinterpret_cast<void*>(static_cast<std::uintptr_t>(mode)), 0, nullptr);
        std::optional<std::uint32_t> answer;
        DWORD before = 0;
        if (WaitForSingleObject(thread, milliseconds) == WAIT_OBJECT_0 &&
            GetExitCodeThread(thread, &before) != FALSE) {
            answer = before;
        }
        CloseHandle(thread);
        return answer;
    };
    const auto mode = ask(0);
    if (mode) {
        ask(*mode);
    }
    return mode;
}

std::uint32_t StartedProgram::Handles() const {
    DWORD count = 0;
    GetProcessHandleCount(process_, &count);
    return count;
}

}  // namespace tarvex
