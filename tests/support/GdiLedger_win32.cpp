#include "tests/support/GdiLedger_win32.h"

namespace tarvex {

namespace {

struct Entry {
    int taken = 0;
    int givenBack = 0;
};

struct Ledger {
    DWORD thread = 0;
    Entry objects;
    Entry memoryContexts;
    Entry windowContexts;
};

Ledger ledger;

bool IsCounted() {
    return GetCurrentThreadId() == ledger.thread;
}

template <class Handle>
Handle Take(Handle handle, Entry& entry) {
    entry.taken += handle != nullptr && IsCounted() ? 1 : 0;
    return handle;
}

template <class Result>
Result GiveBack(Result done, Entry& entry) {
    entry.givenBack += done != 0 && IsCounted() ? 1 : 0;
    return done;
}

/// The functions of the system, which the ledger's own pass everything to.
struct System {
    decltype(CreateFontW)* createFont;
    decltype(CreateFontIndirectW)* createFontIndirect;
    decltype(CreateCompatibleBitmap)* createBitmap;
    decltype(CreateCompatibleDC)* createContext;
    decltype(GetDC)* getContext;
    decltype(DeleteObject)* deleteObject;
    decltype(DeleteDC)* deleteContext;
    decltype(ReleaseDC)* releaseContext;
};

System original;

HFONT WINAPI CountFont(int height, int width, int escapement, int orientation, int weight,
                       DWORD italic, DWORD underline, DWORD strikeOut, DWORD charSet,
                       DWORD outPrecision, DWORD clipPrecision, DWORD quality, DWORD pitch,
                       const wchar_t* face) {
    return Take(
        original.createFont(height, width, escapement, orientation, weight, italic, underline,
                            strikeOut, charSet, outPrecision, clipPrecision, quality, pitch, face),
        ledger.objects);
}

HFONT WINAPI CountFontIndirect(const LOGFONTW* font) {
    return Take(original.createFontIndirect(font), ledger.objects);
}

HBITMAP WINAPI CountBitmap(HDC context, int width, int height) {
    return Take(original.createBitmap(context, width, height), ledger.objects);
}

HDC WINAPI CountMemoryContext(HDC context) {
    return Take(original.createContext(context), ledger.memoryContexts);
}

HDC WINAPI CountWindowContext(HWND window) {
    return Take(original.getContext(window), ledger.windowContexts);
}

BOOL WINAPI CountDeletedObject(HGDIOBJ object) {
    return GiveBack(original.deleteObject(object), ledger.objects);
}

BOOL WINAPI CountDeletedContext(HDC context) {
    return GiveBack(original.deleteContext(context), ledger.memoryContexts);
}

int WINAPI CountReleasedContext(HWND window, HDC context) {
    return GiveBack(original.releaseContext(window, context), ledger.windowContexts);
}

void AppendOpen(std::string& text, const Entry& entry, const char* name) {
    if (entry.taken != entry.givenBack) {
        text += (text.empty() ? "" : ", ") + std::to_string(entry.taken - entry.givenBack) + name;
    }
}

}  // namespace

GdiLedger::GdiLedger() {
    ledger = Ledger();
    ledger.thread = GetCurrentThreadId();
    original = {CreateFontW,
                CreateFontIndirectW,
                CreateCompatibleBitmap,
                CreateCompatibleDC,
                GetDC,
                DeleteObject,
                DeleteDC,
                ReleaseDC};
    hooks_.emplace_back("CreateFontW", CountFont);
    hooks_.emplace_back("CreateFontIndirectW", CountFontIndirect);
    hooks_.emplace_back("CreateCompatibleBitmap", CountBitmap);
    hooks_.emplace_back("CreateCompatibleDC", CountMemoryContext);
    hooks_.emplace_back("GetDC", CountWindowContext);
    hooks_.emplace_back("DeleteObject", CountDeletedObject);
    hooks_.emplace_back("DeleteDC", CountDeletedContext);
    hooks_.emplace_back("ReleaseDC", CountReleasedContext);
}

GdiLedger::~GdiLedger() {
    ledger.thread = 0;
}

int GdiLedger::Taken() const {
    return ledger.objects.taken + ledger.memoryContexts.taken + ledger.windowContexts.taken;
}

std::string GdiLedger::Open() const {
    std::string text;
    AppendOpen(text, ledger.objects, " objects");
    AppendOpen(text, ledger.memoryContexts, " memory contexts");
    AppendOpen(text, ledger.windowContexts, " window contexts");
    return text;
}

}  // namespace tarvex
