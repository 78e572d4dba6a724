#include <algorithm>

#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"
#include "tests/e2e/driver/Driver.h"
#include "tests/e2e/driver/StepFailure.h"
#include "text/Text.h"

namespace tarvex {
namespace {

std::int64_t Counter() {
    LARGE_INTEGER count{};
    QueryPerformanceCounter(&count);
    return count.QuadPart;
}

std::int64_t CounterFrequency() {
    LARGE_INTEGER frequency{};
    QueryPerformanceFrequency(&frequency);
    return frequency.QuadPart;
}

}  // namespace

Driver::~Driver() {
    for (const std::u16string& name : environment_) {
        SetEnvironmentVariableW(Wide(name), nullptr);
    }
}

bool Driver::Run(const std::vector<Action>& script) {
    bool ok = true;
    json_ = Json();
    json_.Begin('{').Key("steps").Begin('[');
    for (const Action& action : script) {
        json_.Begin('{').Member("line", static_cast<std::int64_t>(action.line));
        json_.Member("action", action.verb);
        try {
            (this->*HandlerOf(action.verb))(action);
        } catch (const StepFailure& failure) {
            ok = false;
            json_.Key("failure").Begin('{').Member("kind", failure.kind);
            json_.Member("text", failure.text).End();
        }
        json_.Member("us", Microseconds()).End();
        if (!ok) {
            break;
        }
    }
    json_.End();
    if (program_.Started()) {
        const std::optional<std::uint32_t> exitCode = program_.ExitCode();
        json_.Member("running", !exitCode.has_value());
        json_.Key("exitCode");
        exitCode ? json_.Value(static_cast<std::int32_t>(*exitCode)) : json_.Null();
        if (!ok) {  // who reads a failure wants to know what was there
            json_.Key("windows").Begin('[');
        }
        for (const WindowHandle window : VisibleWindows(program_.Id())) {
            if (!ok) {
                WriteJson(json_, ReadWindow(window));
            } else {  // what has closed a dialog of it may still be at work
                AwaitAnswer(window);
            }
        }
        if (!ok) {
            json_.End();
        }
    }
    json_.Member("ok", ok).End();
    return ok;
}

std::int64_t Driver::Microseconds() const {
    return startCount_ == 0 ? 0 : (Counter() - startCount_) * 1000000 / CounterFrequency();
}

bool Driver::Known(WindowHandle window) const {
    return std::find(known_.begin(), known_.end(), window) != known_.end();
}

void Driver::RefuseUnknownWindow() const {
    for (const WindowHandle window : VisibleWindows(program_.Id())) {
        if (!Known(window)) {
            throw StepFailure{u"window", u"a window that the script does not know: '" +
                                             WindowTitle(window) + u"' of class " +
                                             WindowClass(window)};
        }
    }
}

void Driver::Wait(const std::u16string& what, const std::function<bool()>& done,
                  std::uint32_t pauseMs, bool endIsFailure) const {
    const DWORD start = GetTickCount();
    while (!done()) {
        if (endIsFailure && program_.Started() && program_.WaitForEnd(0)) {
            if (done()) {
                return;  // it happened between the question and the end
            }
            throw StepFailure{u"ended", u"waited for " + what + u", but the program has ended"};
        }
        if (GetTickCount() - start > limitMs_) {
            throw StepFailure{u"timeout",
                              u"waited " + text::Decimal(limitMs_) + u" ms for " + what};
        }
        Sleep(pauseMs);
    }
}

WindowHandle Driver::FindWindowFor(const Action& action) const {
    for (const WindowHandle window : VisibleWindows(program_.Id())) {
        // The one below a dialog is disabled, and so is one that is about to close.
        bool matches = IsWindowEnabled(window) != FALSE;
        for (const std::u16string& condition : action.arguments) {
            const std::size_t equals = condition.find(u'=');
            const std::u16string key = condition.substr(0, equals);
            const std::u16string value =
                equals == std::u16string::npos ? u"" : condition.substr(equals + 1);
            if (key == u"title") {
                matches = matches && WindowTitle(window) == value;
            } else if (key == u"class") {
                matches = matches && WindowClass(window) == value;
            } else if (key == u"new") {
                matches = matches && !Known(window);
            } else if (key == u"has") {
                const Window content = ReadWindow(window);
                const auto id = text::ParseInt32(value);
                matches = matches &&
                          std::any_of(content.controls.begin(), content.controls.end(),
                                      [&id](const Control& control) { return control.id == id; });
            } else {
                throw StepFailure{u"script", u"unknown condition " + condition};
            }
        }
        if (matches) {
            return window;
        }
    }
    return nullptr;
}

void Driver::MakeCurrent(WindowHandle window) {
    current_ = window;
    known_.push_back(window);
}

WindowHandle Driver::Current() const {
    if (current_ == nullptr || IsWindow(current_) == FALSE) {
        throw StepFailure{u"missing", u"there is no current window"};
    }
    return current_;
}

Control Driver::FindControl(const std::function<bool(const Control&)>& matches,
                            const std::u16string& what) const {
    for (const Control& control : ReadWindow(Current()).controls) {
        if (control.visible && matches(control)) {
            return control;
        }
    }
    throw StepFailure{u"missing",
                      u"no " + what + u" in the window '" + WindowTitle(current_) + u"'"};
}

Control Driver::ControlWithId(const std::u16string& id) const {
    const auto number = text::ParseInt32(id);
    const auto control = number ? FindVisibleControl(Current(), *number) : std::optional<Control>();
    if (!control) {
        throw StepFailure{u"missing", u"no control with the id " + id + u" in the window '" +
                                          WindowTitle(current_) + u"'"};
    }
    return *control;
}

}  // namespace tarvex
