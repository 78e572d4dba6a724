#include "platform/win32/WindowsApi.h"
#include "tests/e2e/driver/ControlContent.h"
#include "tests/e2e/driver/Driver.h"
#include "tests/e2e/driver/StepFailure.h"

// The words of a script about what stands in controls, and about what Windows tells a window.
namespace tarvex {
namespace {

/// Does what Windows does with a window at the end of the session; returns whether it may end.
DWORD CALLBACK AskForEnd(void* window) {
    const auto asked = static_cast<HWND>(window);
    const bool mayEnd = SendMessageW(asked, WM_QUERYENDSESSION, 0, 0) != 0;
    SendMessageW(asked, WM_ENDSESSION, mayEnd ? TRUE : FALSE, 0);
    return mayEnd ? 1 : 0;
}

}  // namespace

void Driver::Deliver(WindowHandle window, std::uint32_t message, std::uintptr_t first,
                     std::intptr_t second) const {
    const HWND asked = Current();
    // Taken in this order; the handler may show a dialog, which answers the second one then. It may
    // also close the window.
    SendNotifyMessageW(window, message, first, second);
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutW(asked, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, limitMs_, &answer) == 0 &&
        IsWindow(asked) != FALSE) {
        throw StepFailure{u"timeout", u"the window does not answer"};
    }
}

void Driver::Read(const Action& action) {
    const Control control = ControlWithId(Argument(action, 0));
    const ControlContent content = ReadContent(program_.Process(), control);
    json_.Member("class", control.className).Member("text", control.text);
    json_.Member("enabled", control.enabled).Member("style", control.style);
    json_.Member("checked", content.checked).Member("selected", content.selected);
    json_.Member("name", content.name);
    json_.Key("items").Begin('[');
    for (const std::vector<std::u16string>& line : content.items) {
        json_.Begin('[');
        for (const std::u16string& text : line) {
            json_.Value(text);
        }
        json_.End();
    }
    json_.End();
}

void Driver::ReadFocus(const Action&) {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(Current(), nullptr), &info);
    const HWND focus = info.hwndFocus;
    json_.Member("id", static_cast<std::int64_t>(focus == nullptr ? 0 : GetDlgCtrlID(focus)));
    json_.Member("class", focus == nullptr ? std::u16string() : WindowClass(focus));
    json_.Member("text", focus == nullptr ? std::u16string() : WindowText(focus));
}

void Driver::Push(const Action& action) {
    Deliver(ControlWithId(Argument(action, 0)).handle, BM_CLICK, 0, 0);
}

void Driver::Choose(const Action& action) {
    Deliver(Current(), WM_COMMAND, static_cast<WPARAM>(Number(action, 0)), 0);
}

void Driver::Select(const Action& action) {
    const Control control = ControlWithId(Argument(action, 0));
    if (!SelectLine(program_.Process(), control, Number(action, 1))) {
        throw StepFailure{u"missing", u"the control " + Argument(action, 0) + u" has no such line"};
    }
}

void Driver::Drop(const Action& action) {
    DropFile(program_.Process(), Current(), Argument(action, 0));
}

void Driver::EndSession(const Action&) {
    // The window may ask its user first, which the script answers meanwhile.
    sessionEnd_ = CreateThread(nullptr, 0, AskForEnd, Current(), 0, nullptr);
}

void Driver::ReadSessionAnswer(const Action&) {
    Wait(
        u"the answer to the end of the session",
        [this] { return WaitForSingleObject(sessionEnd_, 5) == WAIT_OBJECT_0; }, 0, false);
    DWORD mayEnd = 0;
    GetExitCodeThread(sessionEnd_, &mayEnd);
    CloseHandle(sessionEnd_);
    json_.Member("mayEnd", mayEnd != 0);
}

void Driver::ChangeDpi(const Action& action) {
    TellDpi(program_.Process(), Current(), Number(action, 0));
}

}  // namespace tarvex
