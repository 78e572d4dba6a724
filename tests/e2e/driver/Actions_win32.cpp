#include <unordered_map>

#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"
#include "tests/e2e/driver/Driver.h"
#include "tests/e2e/driver/Input.h"
#include "tests/e2e/driver/StepFailure.h"
#include "text/Text.h"

// What each word of a script does. The arguments are listed in README.md.
namespace tarvex {
namespace {

/// A window counts as complete when nothing of it has changed for so long; captions of message
/// boxes are renamed by a timer shortly after the box is shown.
constexpr DWORD kSettledMs = 200;

std::u16string SystemError(const std::u16string& what, DWORD error) {
    return what + u" failed with the system's error " + text::Decimal(error);
}

}  // namespace

void Driver::SetLimit(const Action& action) {
    limitMs_ = static_cast<std::uint32_t>(Number(action, 0));
}

void Driver::SetEnvironment(const Action& action) {
    environment_.push_back(Argument(action, 0));
    SetEnvironmentVariableW(Wide(Argument(action, 0)), Wide(Argument(action, 1)));
}

void Driver::SetFolder(const Action& action) {
    folder_ = Argument(action, 0);
}

void Driver::Start(const Action& action) {
    if (program_.Started()) {
        throw StepFailure{u"script", u"a program has been started already"};
    }
    LARGE_INTEGER now{};
    QueryPerformanceCounter(&now);
    startCount_ = now.QuadPart;
    const std::uint32_t error = program_.Start(Argument(action, 0), Argument(action, 1), folder_);
    if (error != ERROR_SUCCESS) {
        throw StepFailure{u"start", SystemError(u"starting " + Argument(action, 0), error)};
    }
    json_.Member("counter", startCount_);
    json_.Member("process", static_cast<std::int64_t>(program_.Id()));
}

void Driver::AwaitWindow(const Action& action) {
    WindowHandle found = nullptr;
    Wait(
        u"a window: " + Describe(action),
        [&] {
            found = FindWindowFor(action);
            return found != nullptr;
        },
        2);
    MakeCurrent(found);
    json_.Key("window");
    WriteJson(json_, ReadWindow(found));
}

void Driver::AwaitSettledWindow(const Action& action) {
    Window seen;
    DWORD since = GetTickCount();
    Wait(
        u"a window whose content has settled: " + Describe(action),
        [&] {
            // Looked up every time: it may close or be covered by a dialog meanwhile.
            const WindowHandle window = FindWindowFor(action);
            Window now = window == nullptr ? Window{} : ReadWindow(window);
            if (now != seen) {
                seen = std::move(now);
                since = GetTickCount();
            }
            return seen.handle != nullptr && GetTickCount() - since >= kSettledMs;
        },
        20);
    MakeCurrent(seen.handle);
    json_.Key("window");
    WriteJson(json_, seen);
}

void Driver::AwaitIdle(const Action&) {
    // The program waits for its user, and its window has answered what was sent before.
    DWORD_PTR answer = 0;
    if (!program_.WaitForIdle(limitMs_) ||
        SendMessageTimeoutW(Current(), WM_NULL, 0, 0, SMTO_ABORTIFHUNG, limitMs_, &answer) == 0) {
        throw StepFailure{u"timeout", u"the program did not wait for its user"};
    }
}

void Driver::Dump(const Action&) {
    json_.Key("window");
    WriteJson(json_, ReadWindow(Current()));
}

void Driver::Press(const Action& action) {
    const std::u16string& by = Argument(action, 0);
    const std::u16string& which = Argument(action, 1);
    const Control button = FindControl(
        [&](const Control& control) {
            return control.className == u"Button" &&
                   (by == u"id" ? text::Decimal(control.id) == which : control.text == which);
        },
        u"button with the " + by + u" '" + which + u"'");
    const auto parameter = static_cast<WPARAM>(button.id);  // the high word is BN_CLICKED, 0
    PostMessageW(GetParent(button.handle), WM_COMMAND, parameter,
                 reinterpret_cast<LPARAM>(button.handle));
}

void Driver::Command(const Action& action) {
    PostMessageW(Current(), WM_COMMAND, static_cast<WPARAM>(Number(action, 0)), 0);
}

void Driver::Keys(const Action& action) {
    if (!BringToForeground(Current())) {
        throw StepFailure{u"refused", u"the window did not come to the foreground"};
    }
    if (!PressKeys(Argument(action, 0))) {
        throw StepFailure{u"script", u"unknown key in " + Argument(action, 0)};
    }
}

void Driver::Type(const Action& action) {
    if (!BringToForeground(Current())) {
        throw StepFailure{u"refused", u"the window did not come to the foreground"};
    }
    TypeText(Argument(action, 0));
}

void Driver::Click(const Action& action) {
    POINT place{Number(action, 0), Number(action, 1)};
    ClientToScreen(Current(), &place);
    ClickAt(place.x, place.y);
}

void Driver::SetText(const Action& action) {
    const Control control = ControlWithId(Argument(action, 0));
    // The id of a combo box is also that of its edit; the text belongs into the edit.
    WindowHandle target = control.handle;
    for (const Control& other : ReadWindow(Current()).controls) {
        if (other.id == control.id && other.className == u"Edit") {
            target = other.handle;
        }
    }
    DWORD_PTR result = 0;
    if (SendMessageTimeoutW(target, WM_SETTEXT, 0,
                            reinterpret_cast<LPARAM>(Wide(Argument(action, 1))), SMTO_ABORTIFHUNG,
                            limitMs_, &result) == 0) {
        throw StepFailure{u"timeout", u"the control did not take its text"};
    }
}

void Driver::Resize(const Action& action) {
    SetWindowPos(Current(), nullptr, 0, 0, Number(action, 0), Number(action, 1),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Driver::Close(const Action&) {
    PostMessageW(Current(), WM_CLOSE, 0, 0);
}

void Driver::CloseByTitleBar(const Action&) {
    PostMessageW(Current(), WM_SYSCOMMAND, SC_CLOSE, 0);
}

void Driver::AwaitGone(const Action&) {
    const WindowHandle window = current_;
    Wait(
        u"a window to go",
        [window] { return IsWindow(window) == FALSE || IsWindowVisible(window) == FALSE; }, 1,
        false);
    current_ = nullptr;
}

void Driver::AwaitExit(const Action&) {
    Wait(
        u"the end of the program",
        [this] {
            RefuseUnknownWindow();
            return program_.WaitForEnd(2);
        },
        0, false);
}

void Driver::AwaitLast(const Action&) {
    Wait(
        u"the end of what the program has started",
        [this] { return program_.RunningProcesses() == 0; }, 5, false);
}

void Driver::AwaitQuiet(const Action& action) {
    const DWORD start = GetTickCount();
    const auto duration = static_cast<DWORD>(Number(action, 0));
    while (GetTickCount() - start < duration) {
        RefuseUnknownWindow();
        Sleep(5);
    }
}

void Driver::Pause(const Action& action) {
    Sleep(static_cast<DWORD>(Number(action, 0)));
}

void Driver::ReadClipboard(const Action&) {
    Wait(u"the clipboard", [] { return OpenClipboard(nullptr) != FALSE; });
    std::u16string text;
    if (const HANDLE data = GetClipboardData(CF_UNICODETEXT); data != nullptr) {
        const auto* characters = static_cast<const wchar_t*>(GlobalLock(data));
        text = FromWide(std::wstring_view(characters));
        GlobalUnlock(data);
    }
    CloseClipboard();
    json_.Member("text", text);
}

void Driver::ReadEdit(const Action& action) {
    const Control edit =
        action.arguments.empty()
            ? FindControl([](const Control& control) { return control.className == u"Edit"; },
                          u"edit control")
            : ControlWithId(action.arguments.front());
    DWORD_PTR selection = 0;
    DWORD_PTR firstLine = 0;
    // The selection's ends come as two words; longer texts have -1 there.
    SendMessageTimeoutW(edit.handle, EM_GETSEL, 0, 0, SMTO_ABORTIFHUNG, limitMs_, &selection);
    SendMessageTimeoutW(edit.handle, EM_GETFIRSTVISIBLELINE, 0, 0, SMTO_ABORTIFHUNG, limitMs_,
                        &firstLine);
    json_.Member("selectionStart", static_cast<std::int64_t>(LOWORD(selection)));
    json_.Member("selectionEnd", static_cast<std::int64_t>(HIWORD(selection)));
    json_.Member("firstVisibleLine", static_cast<std::int64_t>(firstLine));
}

void Driver::ReadForeground(const Action&) {
    const HWND window = GetForegroundWindow();
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    json_.Member("title", WindowTitle(window)).Member("class", WindowClass(window));
    json_.Member("ofProgram", processId == program_.Id());
}

void Driver::ReadProcesses(const Action&) {
    json_.Member("running", static_cast<std::int64_t>(program_.RunningProcesses()));
    json_.Member("handles", static_cast<std::int64_t>(program_.Handles()));
}

void Driver::ReadErrorMode(const Action&) {
    const auto mode = program_.ErrorMode(limitMs_);
    if (!mode) {
        throw StepFailure{u"refused", u"the program's error mode could not be read"};
    }
    json_.Member("mode", static_cast<std::int64_t>(*mode));
}

void Driver::Signal(const Action& action) {
    const HANDLE file = CreateFileW(Wide(Argument(action, 0)), GENERIC_WRITE, 0, nullptr,
                                    CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        throw StepFailure{u"refused",
                          SystemError(u"creating " + Argument(action, 0), GetLastError())};
    }
    CloseHandle(file);
}

void Driver::AwaitFile(const Action& action) {
    const std::u16string& file = Argument(action, 0);
    Wait(
        u"the file " + file,
        [&file] { return GetFileAttributesW(Wide(file)) != INVALID_FILE_ATTRIBUTES; }, 5, false);
}

Driver::Handler Driver::HandlerOf(const std::u16string& verb) {
    static const std::unordered_map<std::u16string, Handler> handlers{
        {u"limit", &Driver::SetLimit},
        {u"env", &Driver::SetEnvironment},
        {u"folder", &Driver::SetFolder},
        {u"start", &Driver::Start},
        {u"window", &Driver::AwaitSettledWindow},
        {u"appear", &Driver::AwaitWindow},
        {u"idle", &Driver::AwaitIdle},
        {u"dump", &Driver::Dump},
        {u"read", &Driver::Read},
        {u"focus", &Driver::ReadFocus},
        {u"push", &Driver::Push},
        {u"choose", &Driver::Choose},
        {u"select", &Driver::Select},
        {u"drop", &Driver::Drop},
        {u"dpi", &Driver::ChangeDpi},
        {u"endsession", &Driver::EndSession},
        {u"sessionanswer", &Driver::ReadSessionAnswer},
        {u"press", &Driver::Press},
        {u"command", &Driver::Command},
        {u"keys", &Driver::Keys},
        {u"type", &Driver::Type},
        {u"click", &Driver::Click},
        {u"set", &Driver::SetText},
        {u"resize", &Driver::Resize},
        {u"close", &Driver::Close},
        {u"titlebar", &Driver::CloseByTitleBar},
        {u"gone", &Driver::AwaitGone},
        {u"exit", &Driver::AwaitExit},
        {u"drain", &Driver::AwaitLast},
        {u"quiet", &Driver::AwaitQuiet},
        {u"pause", &Driver::Pause},
        {u"clipboard", &Driver::ReadClipboard},
        {u"edit", &Driver::ReadEdit},
        {u"foreground", &Driver::ReadForeground},
        {u"processes", &Driver::ReadProcesses},
        {u"errormode", &Driver::ReadErrorMode},
        {u"signal", &Driver::Signal},
        {u"await", &Driver::AwaitFile},
    };
    const auto handler = handlers.find(verb);
    if (handler == handlers.end()) {
        throw StepFailure{u"script", u"unknown action " + verb};
    }
    return handler->second;
}

}  // namespace tarvex
