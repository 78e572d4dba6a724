#include "platform/win32/Win32Clock.h"

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

}  // namespace tarvex
