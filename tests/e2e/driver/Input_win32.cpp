#include "platform/win32/WindowsApi.h"
#include "tests/e2e/driver/Input.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr DWORD kForegroundMs = 2000;

struct NamedKey {
    std::u16string_view name;
    WORD code;
};

constexpr NamedKey kNamedKeys[] = {
    {u"Ctrl", VK_CONTROL},  {u"Alt", VK_MENU},      {u"Shift", VK_SHIFT},    {u"Esc", VK_ESCAPE},
    {u"Enter", VK_RETURN},  {u"Tab", VK_TAB},       {u"Space", VK_SPACE},    {u"Up", VK_UP},
    {u"Down", VK_DOWN},     {u"Left", VK_LEFT},     {u"Right", VK_RIGHT},    {u"Home", VK_HOME},
    {u"End", VK_END},       {u"Delete", VK_DELETE}, {u"Backspace", VK_BACK}, {u"F1", VK_F1},
    {u"F4", VK_F4},         {u"F5", VK_F5},         {u"F6", VK_F6},          {u"F7", VK_F7},
    {u"F8", VK_F8},         {u"F10", VK_F10},       {u"Insert", VK_INSERT},  {u"PageUp", VK_PRIOR},
    {u"PageDown", VK_NEXT},
};

/// 0 when there is no such key.
WORD KeyCode(std::u16string_view name) {
    for (const NamedKey& key : kNamedKeys) {
        if (text::EqualsIgnoreCase(key.name, name)) {
            return key.code;
        }
    }
    if (name.size() != 1) {
        return 0;
    }
    const SHORT code = VkKeyScanW(static_cast<wchar_t>(name.front()));
    return code == -1 ? WORD{0} : static_cast<WORD>(code & 0xFF);
}

INPUT KeyInput(WORD code, WORD unit, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = code;
    input.ki.wScan = unit;
    input.ki.dwFlags = flags;
    return input;
}

void Send(std::vector<INPUT>& inputs) {
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace

bool BringToForeground(WindowHandle window) {
    const DWORD start = GetTickCount();
    do {
        if (GetForegroundWindow() == window) {
            return true;
        }
        SetForegroundWindow(window);
        Sleep(20);
    } while (GetTickCount() - start < kForegroundMs);
    return false;
}

bool PressKeys(std::u16string_view keys) {
    std::vector<std::vector<WORD>> chords;
    for (const std::u16string_view chord : text::Split(keys, u' ')) {
        std::vector<WORD>& codes = chords.emplace_back();
        for (const std::u16string_view name : text::Split(chord, u'+')) {
            codes.push_back(KeyCode(name));
            if (codes.back() == 0) {
                return false;
            }
        }
    }
    for (const std::vector<WORD>& codes : chords) {
        std::vector<INPUT> inputs;
        inputs.reserve(2 * codes.size());
        for (const WORD code : codes) {
            inputs.push_back(KeyInput(code, 0, 0));
        }
        for (auto code = codes.rbegin(); code != codes.rend(); ++code) {
            inputs.push_back(KeyInput(*code, 0, KEYEVENTF_KEYUP));
        }
        Send(inputs);
        Sleep(30);  // menus open between two keys
    }
    return true;
}

void TypeText(std::u16string_view text) {
    for (const char16_t unit : text) {
        std::vector<INPUT> inputs{KeyInput(0, unit, KEYEVENTF_UNICODE),
                                  KeyInput(0, unit, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP)};
        Send(inputs);
    }
}

void ClickAt(std::int32_t x, std::int32_t y) {
    INPUT move{};
    move.type = INPUT_MOUSE;
    // Absolute places are given in 65536ths of the screen; rounding up hits the pixel.
    move.mi.dx = (x * 65536 + 65535) / GetSystemMetrics(SM_CXSCREEN);
    move.mi.dy = (y * 65536 + 65535) / GetSystemMetrics(SM_CYSCREEN);
    move.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    INPUT down{};
    down.type = INPUT_MOUSE;
    down.mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    INPUT up = down;
    up.mi.dwFlags = MOUSEEVENTF_LEFTUP;
    std::vector<INPUT> inputs{move, down, up};
    Send(inputs);
}

}  // namespace tarvex
