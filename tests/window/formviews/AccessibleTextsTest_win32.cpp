#include "window/formviews/AccessibleTexts_win32.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/win32/Dpi.h"
#include "platform/win32/WideText.h"
#include "tests/support/ImportHook_win32.h"
#include "tests/support/SampleForm.h"
#include "window/formviews/FormView_win32.h"

namespace tarvex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Objects of COM are never deleted through a base class.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
/// The service of Windows, which the fake of the system does not have: records what is set.
class FakeServices final : public IAccPropServices {
public:
    std::vector<std::string> log;  ///< "ID name|description TEXT", in UTF-8

    HRESULT WINAPI SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                  LPCWSTR text) override {
        constexpr GUID kName = {
            0x608D3DF8, 0x8128, 0x4AA7, {0xA4, 0x28, 0xF5, 0x5E, 0x49, 0x26, 0x72, 0x91}};
        EXPECT_EQ(static_cast<DWORD>(OBJID_CLIENT), object);
        EXPECT_EQ(0U, child);
        log.push_back(std::to_string(GetDlgCtrlID(window)) +
                      (property == kName ? " name " : " description ") +
                      text::ToUtf8(FromWide(text)));
        return S_OK;
    }

    HRESULT WINAPI QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG WINAPI AddRef() override { return 1; }
    ULONG WINAPI Release() override { return 1; }
    HRESULT WINAPI SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                 AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                     AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearHwndProps(HWND, DWORD, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                      AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
        return E_NOTIMPL;
    }
};
#pragma GCC diagnostic pop

FakeServices* services;
decltype(GetProcAddress)* findFunction;

HRESULT WINAPI CreateServices(REFCLSID, IUnknown*, DWORD, REFIID, void** object) {
    *object = static_cast<IAccPropServices*>(services);
    return S_OK;
}

FARPROC WINAPI FindFunction(HMODULE module, const char* name) {
    return std::string_view(name) == "CoCreateInstance"
               ? reinterpret_cast<FARPROC>(reinterpret_cast<void*>(CreateServices))
               : findFunction(module, name);
}

class AccessibleTextsTest : public testing::Test {
protected:
    AccessibleTextsTest() {
        services = &fake;
        findFunction = GetProcAddress;
        host = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 700, 900, nullptr, nullptr,
                               nullptr, nullptr);
        view.Create(host, kNormalDpi, true);
        form = SampleForm();
        view.SetModel(&form);
    }
    ~AccessibleTextsTest() override { DestroyWindow(host); }

    std::vector<std::string> AskFor(std::int32_t id, FormPart part = FormPart::Control) {
        const ImportHook hook("GetProcAddress", FindFunction);
        fake.log.clear();
        SendMessageW(GetDlgItem(view.Window(), FormControlId(id, part)), WM_GETOBJECT, 0,
                     static_cast<LPARAM>(OBJID_CLIENT));
        return fake.log;
    }

    FakeServices fake;
    FakeForm form;
    FormView view;
    HWND host = nullptr;
};

TEST_F(AccessibleTextsTest, ControlsAreCalledByTheirLabelsAndDescribedByTheirHints) {
    EXPECT_THAT(AskFor(10),
                ElementsAre("10010 name Schlüssel der Registrierung:",
                            "10010 description Der erste Eintrag, dessen Datei es gibt, gilt."));
    EXPECT_THAT(AskFor(11), ElementsAre("10011 name Protokoll:"));
    EXPECT_THAT(AskFor(3), ElementsAre("10003 name Ordner:",
                                       "10003 description Ordner der Datenbank, ohne Dateinamen. "
                                       "noch 85 von 100 Zeichen"));
}

TEST_F(AccessibleTextsTest, MessageTakesThePlaceOfTheHint) {
    EXPECT_THAT(AskFor(4),
                ElementsAre("10004 name Name der Datenbankdatei mit ihrer Endung:",
                            "10004 description Das Zeichen ? ist in einem Dateinamen nicht "
                            "erlaubt. noch 39 von 50 Zeichen"));
}

TEST_F(AccessibleTextsTest, BoxesKeepTheirOwnNames) {
    EXPECT_THAT(AskFor(8), IsEmpty());
    EXPECT_THAT(AskFor(7), ElementsAre("10007 description Andere können die Datenbank dann nicht "
                                       "gleichzeitig verwenden."));
}

TEST_F(AccessibleTextsTest, ButtonsWithShortCaptionsHaveNames) {
    EXPECT_THAT(AskFor(2003), ElementsAre("12003 name Ordner wählen"));
    EXPECT_THAT(AskFor(110), IsEmpty());
    EXPECT_THAT(AskFor(5, FormPart::Reveal), ElementsAre("610005 name Kennwort: Anzeigen"));
}

TEST_F(AccessibleTextsTest, SystemWithoutTheServiceIsLeftAlone) {
    services = nullptr;
    EXPECT_THAT(AskFor(10), IsEmpty());
}

}  // namespace
}  // namespace tarvex
