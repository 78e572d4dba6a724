#include "platform/win32/Win32ProgramInfo.h"

#include "platform/win32/GrowingBuffer.h"
#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

ProgramInfo ReadProgramInfo() {
    const std::u16string path = ReadGrowing([](wchar_t* buffer, DWORD size) {
        // A path that does not fit is cut to the size of the buffer.
        const DWORD length = GetModuleFileNameW(nullptr, buffer, size);
        return length < size ? GrowingRead{length, false} : GrowingRead{0, true};
    });
    return MakeProgramInfo(path, FromWide(GetCommandLineW()));
}

}  // namespace tarvex
