#pragma once

#include <string_view>

#include "platform/win32/Handles.h"

namespace tarvex {

/// A picture as pixels, and its size in pixels.
struct PictureBitmap {
    UniqueHandle<HBITMAP, DeleteObject> bitmap;  ///< none: the picture could not be loaded
    SIZE size{};
};

/// Loads a picture file (.bmp, .jpg and what else the system's picture loader knows; the content
/// counts, not the name). A missing, damaged or too large file gives no bitmap.
PictureBitmap LoadPictureBitmap(std::u16string_view path);

}  // namespace tarvex
