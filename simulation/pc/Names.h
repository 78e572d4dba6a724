#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// A name of a file or key in the form in which names are compared: in lower case.
std::u16string FoldedName(std::u16string_view name);

/// True when `name` is `top` or stands below it ("C:\x\y" below "C:\x"), without regard to case;
/// `top` without a "\" at its end.
bool IsAtOrBelow(std::u16string_view name, std::u16string_view top);

}  // namespace tarvex
