#include "platform/win32/PictureBitmap.h"

#include "platform/BitmapFile.h"
#include "platform/win32/Com.h"
#include "platform/win32/SystemPath.h"
#include "platform/win32/WideText.h"

namespace tarvex {

namespace {

constexpr DWORD kLargestFile = 256U << 20U;
constexpr DWORD kLargestFill = 3;
constexpr int kHimetricPerInch = 2540;

using UniqueMemory = UniqueHandle<HGLOBAL, GlobalFree>;
using UniqueDc = UniqueHandle<HDC, DeleteDC>;

UniqueMemory ReadFileToMemory(std::u16string_view path) {
    const UniqueFile file(CreateFileW(Wide(SystemPath(path)), GENERIC_READ, FILE_SHARE_READ,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER size{};
    if (!file || GetFileSizeEx(file.Get(), &size) == FALSE || size.QuadPart <= 0 ||
        size.QuadPart > kLargestFile) {
        return {};
    }
    const auto bytes = static_cast<DWORD>(size.QuadPart);
    // After the file there is room for the fill bytes that its last row may lack.
    UniqueMemory memory(GlobalAlloc(GHND, bytes + kLargestFill));
    void* const target = memory ? GlobalLock(memory.Get()) : nullptr;
    if (target == nullptr) {
        return {};
    }
    DWORD read = 0;
    const bool complete =
        ReadFile(file.Get(), target, bytes, &read, nullptr) != FALSE && read == bytes;
    const bool usable = complete && !IsTruncatedBitmap({static_cast<const char*>(target), bytes});
    GlobalUnlock(memory.Get());
    return usable ? std::move(memory) : UniqueMemory();
}

ComPtr<IPicture> DecodePicture(const SystemLibrary& ole, HGLOBAL memory) {
    const SystemLibrary oleAut(u"oleaut32.dll");
    auto* const createStream =
        ole.Function<decltype(CreateStreamOnHGlobal)>("CreateStreamOnHGlobal");
    auto* const load = oleAut.Function<decltype(OleLoadPicture)>("OleLoadPicture");
    ComPtr<IStream> stream;
    ComPtr<IPicture> picture;
    if (createStream != nullptr && load != nullptr &&
        SUCCEEDED(createStream(memory, FALSE, stream.Receive()))) {
        // The id is IPicture's, spelled out so that no import library of ids is needed.
        constexpr IID kPictureId = {
            0x7BF80980, 0xBF32, 0x101A, {0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}};
        load(stream.Get(), 0, FALSE, kPictureId, picture.ReceiveVoid());
    }
    return picture;
}

PictureBitmap Draw(IPicture& picture) {
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    if (FAILED(picture.get_Width(&width)) || FAILED(picture.get_Height(&height))) {
        return {};
    }
    const WindowDc screen(nullptr);
    PictureBitmap result;
    result.size = {MulDiv(width, GetDeviceCaps(screen.Get(), LOGPIXELSX), kHimetricPerInch),
                   MulDiv(height, GetDeviceCaps(screen.Get(), LOGPIXELSY), kHimetricPerInch)};
    if (result.size.cx <= 0 || result.size.cy <= 0) {
        return {};
    }
    const UniqueDc canvas(CreateCompatibleDC(screen.Get()));
    UniqueHandle<HBITMAP, DeleteObject> bitmap(
        CreateCompatibleBitmap(screen.Get(), result.size.cx, result.size.cy));
    if (!canvas || !bitmap) {
        return {};
    }
    const HGDIOBJ before = SelectObject(canvas.Get(), bitmap.Get());
    // The source's origin is its lower left corner.
    const HRESULT drawn = picture.Render(canvas.Get(), 0, 0, result.size.cx, result.size.cy, 0,
                                         height, width, -height, nullptr);
    SelectObject(canvas.Get(), before);
    if (SUCCEEDED(drawn)) {
        result.bitmap = std::move(bitmap);
    }
    return result;
}

}  // namespace

PictureBitmap LoadPictureBitmap(std::u16string_view path) {
    const UniqueMemory memory = ReadFileToMemory(path);
    if (!memory) {
        return {};
    }
    const SystemLibrary ole(u"ole32.dll");
    const ComApartment apartment(ole);
    const ComPtr<IPicture> picture = DecodePicture(ole, memory.Get());
    return picture ? Draw(*picture.Get()) : PictureBitmap();
}

}  // namespace tarvex
