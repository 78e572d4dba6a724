#include "window/document/FileNames.h"

#include "launch/PathHelpers.h"

namespace tarvex {

std::u16string NameOf(std::u16string_view path) {
    return std::u16string(FileNamePart(path));
}

std::u16string StemOf(std::u16string_view path) {
    const std::u16string_view name = FileNamePart(path);
    return std::u16string(name.substr(0, name.rfind(u'.')));
}

}  // namespace tarvex
