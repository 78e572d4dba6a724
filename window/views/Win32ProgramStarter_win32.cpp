#include "window/views/Win32ProgramStarter_win32.h"

#include "launch/PathHelpers.h"
#include "platform/win32/Handles.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"
#include "text/Text.h"

namespace tarvex {

namespace {

/// What the system says of an error, in its own language.
std::u16string SystemText(DWORD error) {
    std::u16string text(512, u'\0');
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                       0, Wide(text), static_cast<DWORD>(text.size()), nullptr);
    text.resize(length);
    return std::u16string(text::Trim(text::Replace(text, text::kLineBreak, u" ")));
}

}  // namespace

std::u16string Win32ProgramStarter::Start(std::u16string_view program,
                                          std::u16string_view argument) {
    std::u16string line = u"\"" + std::u16string(program) + u"\"";
    if (!argument.empty()) {
        // A path has no quotes, and a "\" before the closing one would take it away.
        line.append(u" \"").append(argument).append(argument.ends_with(u'\\') ? u"\\\"" : u"\"");
    }
    const std::u16string path(program);
    const std::u16string folder(FolderPart(program));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION information{};
    RestoreDllSearchForChild();
    const BOOL started =
        CreateProcessW(Wide(path), Wide(line), nullptr, nullptr, FALSE, CREATE_DEFAULT_ERROR_MODE,
                       nullptr, folder.empty() ? nullptr : Wide(folder), &startup, &information);
    const DWORD error = GetLastError();
    RestrictDllSearch();
    if (started == FALSE) {
        return SystemText(error);
    }
    AllowSetForegroundWindow(information.dwProcessId);
    const UniqueProcess process(information.hProcess);
    const UniqueProcess thread(information.hThread);
    return {};
}

}  // namespace tarvex
