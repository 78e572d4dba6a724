#include "tests/support/AccessibleName_win32.h"

#include "platform/win32/Com.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"

#include <oleacc.h>

namespace tarvex {

std::u16string AccessibleName(HWND control) {
    const SystemLibrary library(u"oleacc.dll");
    auto* const accessible = library.Function<HRESULT WINAPI(HWND, DWORD, const IID&, void**)>(
        "AccessibleObjectFromWindow");
    ComPtr<IAccessible> object;
    constexpr IID kAccessibleId = {
        0x618736E0, 0x3C3D, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
    if (accessible == nullptr || FAILED(accessible(control, static_cast<DWORD>(OBJID_CLIENT),
                                                   kAccessibleId, object.ReceiveVoid()))) {
        return u"<not accessible>";
    }
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    BSTR name = nullptr;
    object.Get()->get_accName(self, &name);
    return name == nullptr ? u"<no name>" : std::u16string(FromWide(name));
}

}  // namespace tarvex
