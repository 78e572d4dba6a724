// Stands in for the database program in tests: records what it was started with and ends.
//
// One record is appended in one piece to the file named by the environment variable STUB_RECORD,
// else to msaccess.rec beside the program (its own name with another extension). UTF-8, lines end
// in CR LF, an empty line ends the record:
//   line=      the command line as it was passed
//   arg=       each argument after the program name, as the system splits the line
//   show=      show state asked for by the starting program (3: maximised), "none" when not set
//   nCmdShow=  the same as WinMain gets it
//   dir=       current folder
//   ticks=     the system's performance counter at the first instruction
//   bits=      32 or 64, what the stand-in was compiled for
//   errorMode= which boxes the system does not show for the program (0: it shows all)
// STUB_STAY_MS keeps the program running for that many milliseconds afterwards.

#include <string>

#include "platform/win32/WideText.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/WindowsApi.h"
#include "text/Text.h"

namespace tarvex {

namespace {

std::u16string Environment(const wchar_t* name) {
    return ReadGrowing([name](wchar_t* buffer, DWORD size) {
        const DWORD length = GetEnvironmentVariableW(name, buffer, size);
        return length < size ? GrowingRead{length, false} : GrowingRead{0, true};
    });
}

std::u16string RecordFile() {
    if (std::u16string file = Environment(L"STUB_RECORD"); !file.empty()) {
        return file;
    }
    const std::u16string program = ReadGrowing([](wchar_t* buffer, DWORD size) {
        const DWORD length = GetModuleFileNameW(nullptr, buffer, size);
        return length < size ? GrowingRead{length, false} : GrowingRead{0, true};
    });
    return program.substr(0, program.rfind(u'.')) + u".rec";
}

std::u16string CurrentFolder() {
    return ReadGrowing([](wchar_t* buffer, DWORD size) {
        const DWORD length = GetCurrentDirectoryW(size, buffer);
        return length < size ? GrowingRead{length, false} : GrowingRead{0, true};
    });
}

std::string Record(int show, const LARGE_INTEGER& ticks) {
    std::string record;
    const auto add = [&record](const char* name, const std::string& value) {
        record.append(name).append("=").append(value).append("\r\n");
    };
    add("line", text::ToUtf8(FromWide(GetCommandLineW())));
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) {
        add("arg", text::ToUtf8(FromWide(arguments[i])));
    }
    LocalFree(arguments);
    STARTUPINFOW startup;
    GetStartupInfoW(&startup);
    const bool given = (startup.dwFlags & STARTF_USESHOWWINDOW) != 0;
    add("show", given ? std::to_string(startup.wShowWindow) : "none");
    add("nCmdShow", std::to_string(show));
    add("dir", text::ToUtf8(CurrentFolder()));
    add("ticks", std::to_string(ticks.QuadPart));
    add("bits", std::to_string(8 * sizeof(void*)));
    add("errorMode", std::to_string(SetErrorMode(0)));
    return record.append("\r\n");
}

}  // namespace

}  // namespace tarvex

int WINAPI WinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, LPSTR /*arguments*/, int show) {
    using namespace tarvex;
    LARGE_INTEGER ticks;
    QueryPerformanceCounter(&ticks);
    if (!Win32FileSystem().Append(RecordFile(), Record(show, ticks))) {
        return 1;
    }
    if (const auto stay = text::ParseInt32(Environment(L"STUB_STAY_MS")); stay && *stay > 0) {
        Sleep(static_cast<DWORD>(*stay));
    }
    return 0;
}
