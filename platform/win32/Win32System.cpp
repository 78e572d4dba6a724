#include "platform/win32/Win32System.h"

#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

namespace {

/// The result of GetDateFormatW or GetTimeFormatW, which return sizes with the closing zero.
template <class Function>
std::u16string Format(Function function, DWORD flags, const SYSTEMTIME& time) {
    const int size = function(LOCALE_USER_DEFAULT, flags, &time, nullptr, nullptr, 0);
    if (size <= 0) {
        return {};
    }
    std::u16string text(static_cast<std::size_t>(size), u'\0');
    const int written = function(LOCALE_USER_DEFAULT, flags, &time, nullptr, Wide(text), size);
    text.resize(written > 0 ? static_cast<std::size_t>(written - 1) : 0);
    return text;
}

}  // namespace

std::u16string Win32Clock::GeneralDateTime() const {
    SYSTEMTIME now;
    GetLocalTime(&now);  // once, so that date and time belong together at midnight
    return Format(GetDateFormatW, DATE_SHORTDATE, now) + u" " + Format(GetTimeFormatW, 0, now);
}

std::uint32_t Win32Clock::Milliseconds() const {
    return GetTickCount();
}

std::u16string Win32StringTable::Load(std::int32_t id) const {
    if (id < 0 || id > UINT16_MAX) {
        return {};  // Windows would take the lower 16 bits
    }
    // With a size of 0 the function returns the place of the text in the resources, which has no
    // closing zero, instead of a copy that may be cut.
    const wchar_t* text = nullptr;
    const int length = LoadStringW(GetModuleHandleW(nullptr), static_cast<UINT>(id),
                                   reinterpret_cast<wchar_t*>(&text), 0);
    if (length <= 0 || text == nullptr) {
        return {};
    }
    return std::u16string(FromWide({text, static_cast<std::size_t>(length)}));
}

ProgramInfo ReadProgramInfo() {
    const std::u16string path = ReadGrowing([](wchar_t* buffer, DWORD size) {
        // A path that does not fit is cut to the size of the buffer.
        const DWORD length = GetModuleFileNameW(nullptr, buffer, size);
        return length < size ? GrowingRead{length, false} : GrowingRead{0, true};
    });
    return MakeProgramInfo(path, FromWide(GetCommandLineW()));
}

}  // namespace tarvex
