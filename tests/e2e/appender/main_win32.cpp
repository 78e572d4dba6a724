#include <cstdio>

#include "platform/win32/Handles.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32Files.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr DWORD kPatience = 30000;

/// "NAME entry NUMBER: " and as many characters as a long command line has.
std::string Entry(std::u16string_view name, std::int64_t number) {
    return text::ToUtf8(name) + " entry " + text::ToUtf8(text::Decimal(number)) + ": " +
           std::string(500, 'x') + "\r\n";
}

}  // namespace

}  // namespace tarvex

/// appender FILE NAME COUNT EVENT: waits for the named event, then appends COUNT entries to the
/// file, each as the launcher appends to its log file. Returns how many of them failed, 255 when
/// nothing was tried.
int main() {
    using namespace tarvex;
    int count = 0;
    wchar_t** const list = CommandLineToArgvW(GetCommandLineW(), &count);
    const auto number =
        list != nullptr && count == 5 ? text::ParseInt32(FromWide(list[3])) : std::nullopt;
    if (!number) {
        std::fputs("usage: appender FILE NAME COUNT EVENT\n", stderr);
        return 255;
    }
    const UniqueHandle<HANDLE, CloseHandle> start(OpenEventW(SYNCHRONIZE, FALSE, list[4]));
    if (!start || WaitForSingleObject(start.Get(), kPatience) != WAIT_OBJECT_0) {
        return 255;
    }
    Win32FileSystem files;
    int failed = 0;
    for (std::int32_t i = 1; i <= *number; ++i) {
        failed += files.Append(FromWide(list[1]), Entry(FromWide(list[2]), i)) ? 0 : 1;
    }
    LocalFree(list);
    return failed;
}
