#include "platform/win32/WindowsApi.h"
#include "tests/e2e/driver/ControlContent.h"
#include "tests/e2e/driver/Driver.h"
#include "tests/e2e/driver/StepFailure.h"

// The words of a script about what stands in controls.
namespace tarvex {

void Driver::Deliver(WindowHandle window, std::uint32_t message, std::uintptr_t first,
                     std::intptr_t second) const {
    // Taken in this order; the handler may show a dialog, which answers the second one then.
    SendNotifyMessageW(window, message, first, second);
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutW(Current(), WM_NULL, 0, 0, SMTO_ABORTIFHUNG, limitMs_, &answer) == 0 &&
        IsWindow(Current()) != FALSE) {
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

void Driver::Select(const Action& action) {
    const Control control = ControlWithId(Argument(action, 0));
    if (!SelectLine(program_.Process(), control, Number(action, 1))) {
        throw StepFailure{u"missing", u"the control " + Argument(action, 0) + u" has no such line"};
    }
}

void Driver::Drop(const Action& action) {
    DropFile(program_.Process(), Current(), Argument(action, 0));
}

void Driver::ChangeDpi(const Action& action) {
    TellDpi(program_.Process(), Current(), Number(action, 0));
}

}  // namespace tarvex
