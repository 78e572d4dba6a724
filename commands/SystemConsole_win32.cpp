#include <algorithm>

#include "commands/SystemConsole.h"
#include "platform/win32/SystemFile.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32Cleanup.h"
#include "platform/win32/WindowsApi.h"
#include "text/Text.h"

namespace tarvex {
namespace {

bool IsConsole(HANDLE handle) {
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0;
}

bool WriteToConsole(HANDLE handle, std::u16string_view text) {
    constexpr std::size_t kPiece = 4096;  // old systems refuse larger ones
    std::u16string wide(text::Replace(text, u"\n", u"\r\n"));
    for (std::size_t at = 0; at < wide.size(); at += kPiece) {
        const std::size_t count = std::min(kPiece, wide.size() - at);
        DWORD written = 0;
        if (WriteConsoleW(handle, Wide(wide) + at, static_cast<DWORD>(count), &written, nullptr) ==
            0) {
            return false;
        }
    }
    return true;
}

bool Write(DWORD which, std::u16string_view text) {
    const HANDLE handle = GetStdHandle(which);
    return IsConsole(handle) ? WriteToConsole(handle, text) : WriteAll(handle, text::ToUtf8(text));
}

std::optional<std::u16string> ReadConsoleLine(HANDLE input) {
    DWORD mode = 0;
    GetConsoleMode(input, &mode);
    RestoreConsoleOnInterrupt(input, mode);
    SetConsoleMode(input, (mode | ENABLE_LINE_INPUT | ENABLE_PROCESSED_INPUT) &
                              ~static_cast<DWORD>(ENABLE_ECHO_INPUT));
    std::u16string line;
    char16_t unit = 0;
    DWORD count = 0;
    bool any = false;
    while (ReadConsoleW(input, &unit, 1, &count, nullptr) != 0 && count == 1) {
        any = true;
        if (unit == u'\n') {
            break;
        }
        line += unit;
    }
    SetConsoleMode(input, mode);
    RestoreConsoleOnInterrupt(nullptr, 0);
    return any ? std::optional(line) : std::nullopt;
}

std::optional<std::u16string> ReadRedirectedLine(HANDLE input) {
    std::string line;
    char byte = 0;
    DWORD count = 0;
    bool any = false;
    while (ReadFile(input, &byte, 1, &count, nullptr) != 0 && count == 1) {
        any = true;
        if (byte == '\n') {
            break;
        }
        line += byte;
    }
    return any ? std::optional(text::FromUtf8(line)) : std::nullopt;
}

}  // namespace

bool SystemConsole::Out(std::u16string_view text) {
    return Write(STD_OUTPUT_HANDLE, text);
}

bool SystemConsole::Err(std::u16string_view text) {
    return Write(STD_ERROR_HANDLE, text);
}

bool SystemConsole::IsInteractive() const {
    return IsConsole(GetStdHandle(STD_INPUT_HANDLE));
}

std::optional<std::u16string> SystemConsole::ReadSecretLine(std::u16string_view prompt) {
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    const bool isConsole = IsConsole(input);
    if (isConsole) {
        Err(prompt);
    }
    std::optional<std::u16string> line =
        isConsole ? ReadConsoleLine(input) : ReadRedirectedLine(input);
    if (isConsole) {
        Err(u"\n");
    }
    if (line && line->ends_with(u'\r')) {
        line->pop_back();
    }
    return line;
}

std::string SystemConsole::ReadInput() {
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    std::string bytes;
    char piece[4096];
    for (;;) {
        DWORD got = 0;
        if (ReadFile(input, piece, sizeof piece, &got, nullptr) == 0) {
            if (GetLastError() == ERROR_BROKEN_PIPE) {
                return bytes;  // how the end of a pipe is told
            }
            ThrowLastFileFailure();
        }
        if (got == 0) {
            return bytes;
        }
        bytes.append(piece, got);
    }
}

}  // namespace tarvex
