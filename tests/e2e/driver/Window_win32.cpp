#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"
#include "tests/e2e/driver/Json.h"
#include "tests/e2e/driver/Window.h"

namespace tarvex {
namespace {

constexpr UINT kAnswerMs = 2000;

struct Search {
    DWORD processId;
    std::vector<WindowHandle> found;
};

BOOL CALLBACK AddIfOfProcess(HWND window, LPARAM parameter) {
    auto* search = reinterpret_cast<Search*>(parameter);
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    // The launcher's anchor is one pixel that nobody sees.
    if (processId == search->processId && IsWindowVisible(window) != FALSE &&
        WindowClass(window) != u"ForegroundAnchor") {
        search->found.push_back(window);
    }
    return TRUE;
}

BOOL CALLBACK AddChild(HWND window, LPARAM parameter) {
    reinterpret_cast<std::vector<WindowHandle>*>(parameter)->push_back(window);
    return TRUE;
}

Rectangle FromRect(const RECT& rect) {
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

Rectangle OuterRectangle(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return FromRect(rect);
}

Rectangle ClientRectangle(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    POINT corner{0, 0};
    ClientToScreen(window, &corner);
    return {corner.x, corner.y, rect.right, rect.bottom};
}

std::uint32_t StyleOf(HWND window, int index) {
    return static_cast<std::uint32_t>(GetWindowLongW(window, index));
}

Control ReadControl(HWND window) {
    return {window,
            GetDlgCtrlID(window),
            WindowClass(window),
            WindowText(window),
            StyleOf(window, GWL_STYLE),
            IsWindowVisible(window) != FALSE,
            IsWindowEnabled(window) != FALSE,
            OuterRectangle(window)};
}

void WriteJson(Json& json, std::string_view key, const Rectangle& rectangle) {
    json.Key(key).Begin('[');
    json.Value(rectangle.left).Value(rectangle.top).Value(rectangle.width).Value(rectangle.height);
    json.End();
}

void WriteJson(Json& json, const Control& control) {
    json.Begin('{');
    json.Member("class", control.className).Member("id", control.id).Member("text", control.text);
    json.Member("style", control.style);
    json.Member("visible", control.visible).Member("enabled", control.enabled);
    WriteJson(json, "rect", control.rectangle);
    json.End();
}

}  // namespace

std::vector<WindowHandle> VisibleWindows(std::uint32_t processId) {
    Search search{processId, {}};
    EnumWindows(AddIfOfProcess, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::u16string WindowTitle(WindowHandle window) {
    wchar_t title[512];
    const int length = GetWindowTextW(window, title, static_cast<int>(std::size(title)));
    return std::u16string(FromWide({title, static_cast<std::size_t>(length)}));
}

std::u16string WindowClass(WindowHandle window) {
    wchar_t name[257];
    const int length = GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return std::u16string(FromWide({name, static_cast<std::size_t>(length)}));
}

std::u16string WindowText(WindowHandle window) {
    DWORD_PTR length = 0;
    if (SendMessageTimeoutW(window, WM_GETTEXTLENGTH, 0, 0, SMTO_ABORTIFHUNG, kAnswerMs, &length) ==
        0) {
        return {};
    }
    std::wstring text(length + 1, L'\0');
    DWORD_PTR copied = 0;
    if (SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                            SMTO_ABORTIFHUNG, kAnswerMs, &copied) == 0) {
        return {};
    }
    return std::u16string(FromWide({text.data(), copied}));
}

Window ReadWindow(WindowHandle window) {
    Window result{window,
                  WindowTitle(window),
                  WindowClass(window),
                  StyleOf(window, GWL_STYLE),
                  StyleOf(window, GWL_EXSTYLE),
                  IsWindowEnabled(window) != FALSE,
                  GetForegroundWindow() == window,
                  OuterRectangle(window),
                  ClientRectangle(window),
                  {}};
    std::vector<WindowHandle> children;
    EnumChildWindows(window, AddChild, reinterpret_cast<LPARAM>(&children));
    for (const WindowHandle child : children) {
        result.controls.push_back(ReadControl(child));
    }
    return result;
}

void AwaitAnswer(WindowHandle window) {
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, kAnswerMs, &answer);
}

std::optional<Control> FindVisibleControl(WindowHandle window, std::int32_t id) {
    std::vector<WindowHandle> children;
    EnumChildWindows(window, AddChild, reinterpret_cast<LPARAM>(&children));
    for (const WindowHandle child : children) {
        if (GetDlgCtrlID(child) == id && IsWindowVisible(child) != FALSE) {
            return ReadControl(child);
        }
    }
    return std::nullopt;
}

void WriteJson(Json& json, const Window& window) {
    json.Begin('{');
    json.Member("title", window.title).Member("class", window.className);
    json.Member("style", window.style).Member("exstyle", window.extendedStyle);
    json.Member("enabled", window.enabled).Member("foreground", window.foreground);
    WriteJson(json, "rect", window.rectangle);
    WriteJson(json, "client", window.client);
    json.Key("controls").Begin('[');
    for (const Control& control : window.controls) {
        WriteJson(json, control);
    }
    json.End().End();
}

}  // namespace tarvex
