#include "window/formviews/AccessibleTexts_win32.h"

#include "platform/win32/WideText.h"

namespace tarvex {

namespace {

constexpr CLSID kServicesClass = {
    0xB5F8350B, 0x0548, 0x48B1, {0xA6, 0xEE, 0x88, 0xBD, 0x00, 0xB4, 0xA5, 0xE7}};
constexpr IID kServicesId = {
    0x6E26E776, 0x04F0, 0x495D, {0x80, 0xE4, 0x33, 0x30, 0x35, 0x2E, 0x31, 0x69}};
constexpr GUID kName = {
    0x608D3DF8, 0x8128, 0x4AA7, {0xA4, 0x28, 0xF5, 0x5E, 0x49, 0x26, 0x72, 0x91}};
constexpr GUID kDescription = {
    0x4D48DFE4, 0xBD3F, 0x491F, {0xA6, 0x48, 0x49, 0x2D, 0x6F, 0x20, 0xC5, 0x88}};

}  // namespace

AccessibleAnnotations::AccessibleAnnotations() : ole_(u"ole32.dll"), apartment_(ole_) {
    auto* const create = ole_.Function<decltype(CoCreateInstance)>("CoCreateInstance");
    if (create != nullptr) {
        create(kServicesClass, nullptr, CLSCTX_INPROC_SERVER, kServicesId, services_.ReceiveVoid());
    }
}

void AccessibleAnnotations::Set(HWND control, const AccessibleTexts& texts) {
    if (!services_) {
        return;
    }
    const auto set = [&](const GUID& property, const std::u16string& text) {
        if (!text.empty()) {
            services_.Get()->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                            property, Wide(text));
        }
    };
    set(kName, texts.name);
    set(kDescription, texts.description);
}

}  // namespace tarvex
