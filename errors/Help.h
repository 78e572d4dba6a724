#pragma once

#include <cstdint>
#include <string_view>

#include "errors/cuAppError.h"
#include "platform/FileSystem.h"
#include "platform/HelpApi.h"

namespace tarvex {

/// Opens help files. The objects handed to the constructor must outlive it.
class Help {
public:
    Help(HelpApi& api, const FileSystem& files, cuAppError& appError)
        : api_(api), files_(files), appError_(appError) {}

    /// Opens a .hlp or .chm file at the topic with that context id; shows a message when the file
    /// is missing or cannot be opened there. Any other extension: nothing happens.
    void ShowHelp(WindowHandle owner, std::u16string_view path, std::int32_t context) noexcept;

    /// What follows the last "." of the whole path, empty without a ".". Kept: a folder's "."
    /// counts as well, so that a file without extension in such a folder opens no help.
    static std::u16string_view FileExtension(std::u16string_view path);

private:
    void Open(WindowHandle owner, std::u16string_view path, std::int32_t context);

    HelpApi& api_;
    const FileSystem& files_;
    cuAppError& appError_;
};

}  // namespace tarvex
