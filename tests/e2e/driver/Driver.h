#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/e2e/driver/Json.h"
#include "tests/e2e/driver/Script.h"
#include "tests/e2e/driver/StartedProgram.h"
#include "tests/e2e/driver/Window.h"

namespace tarvex {

/// Carries out a script and reports every step. Works on windows of the started program only.
class Driver {
public:
    Driver() = default;
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    /// Takes back what the script put into the environment.
    ~Driver();

    /// Stops at the first action that fails. True when none did. Can be called again: the program
    /// goes on running.
    bool Run(const std::vector<Action>& script);

    /// The report of the last run in JSON.
    const std::string& Report() const { return json_.Text(); }

private:
    using Handler = void (Driver::*)(const Action&);
    static Handler HandlerOf(const std::u16string& verb);

    void SetLimit(const Action& action);
    void SetEnvironment(const Action& action);
    void SetFolder(const Action& action);
    void Start(const Action& action);
    void AwaitSettledWindow(const Action& action);
    void AwaitWindow(const Action& action);
    void AwaitIdle(const Action& action);
    void Dump(const Action& action);
    void Read(const Action& action);
    void ReadFocus(const Action& action);
    void Push(const Action& action);
    void Choose(const Action& action);
    void Select(const Action& action);
    void Drop(const Action& action);
    void ChangeDpi(const Action& action);
    void EndSession(const Action& action);
    void ReadSessionAnswer(const Action& action);
    void Press(const Action& action);
    void Command(const Action& action);
    void Keys(const Action& action);
    void Type(const Action& action);
    void Click(const Action& action);
    void SetText(const Action& action);
    void Resize(const Action& action);
    void Close(const Action& action);
    void CloseByTitleBar(const Action& action);
    void AwaitGone(const Action& action);
    void AwaitExit(const Action& action);
    void AwaitLast(const Action& action);
    void AwaitQuiet(const Action& action);
    void Pause(const Action& action);
    void ReadClipboard(const Action& action);
    void ReadEdit(const Action& action);
    void ReadForeground(const Action& action);
    void ReadProcesses(const Action& action);
    void ReadErrorMode(const Action& action);
    void Signal(const Action& action);
    void AwaitFile(const Action& action);

    WindowHandle FindWindowFor(const Action& action) const;
    void MakeCurrent(WindowHandle window);
    Control FindControl(const std::function<bool(const Control&)>& matches,
                        const std::u16string& what) const;
    Control ControlWithId(const std::u16string& id) const;
    void Deliver(WindowHandle window, std::uint32_t message, std::uintptr_t first,
                 std::intptr_t second) const;
    WindowHandle Current() const;
    bool Known(WindowHandle window) const;
    void RefuseUnknownWindow() const;
    void Wait(const std::u16string& what, const std::function<bool()>& done,
              std::uint32_t pauseMs = 5, bool endIsFailure = true) const;
    std::int64_t Microseconds() const;

    Json json_;
    StartedProgram program_;
    std::vector<std::u16string> environment_;  ///< names that the script has set
    std::u16string folder_;
    std::uint32_t limitMs_ = 10000;
    std::int64_t startCount_ = 0;
    WindowHandle current_ = nullptr;
    std::vector<WindowHandle> known_;
    void* sessionEnd_ = nullptr;  ///< thread that asks whether the session may end
};

}  // namespace tarvex
