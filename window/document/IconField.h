#pragma once

#include <string>
#include <string_view>

#include "platform/FileStore.h"
#include "window/document/Document.h"

namespace tarvex {

/// What was read of an icon file.
struct IconContent {
    std::string bytes;       ///< empty when there is a problem
    std::u16string problem;  ///< German, with the file; empty when there is none
};

/// Reads an icon file. A relative path starts at `folder`, that of the launcher.
IconContent ReadIcon(FileStore& files, std::u16string_view folder, std::u16string_view path);

/// Reads the icon file that the document names into it, when it names one that was not read yet. To
/// be called before the document is saved. It may have to wait for a server, so it is not called
/// while the user types. Returns what is wrong, in German, with the file; empty when nothing is. A
/// relative path starts at the launcher's folder.
std::u16string LoadIcon(Document& document, FileStore& files);

/// Reads a file that the user has chosen and enters it with its path, unless it is no usable icon.
/// Returns as LoadIcon does.
std::u16string EnterIcon(Document& document, FileStore& files, std::u16string_view path);

}  // namespace tarvex
