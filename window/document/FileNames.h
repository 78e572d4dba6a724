#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// A file's name without its folder.
std::u16string NameOf(std::u16string_view path);

/// A file's name without its folder and extension.
std::u16string StemOf(std::u16string_view path);

}  // namespace tarvex
