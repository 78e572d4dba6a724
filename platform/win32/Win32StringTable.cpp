#include "platform/win32/Win32StringTable.h"

#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

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

}  // namespace tarvex
