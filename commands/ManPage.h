#pragma once

#include <string>

namespace tarvex {

/// The manual page of section 1 in the language of man(7), lines with "\n".
std::u16string ManPage();

}  // namespace tarvex
