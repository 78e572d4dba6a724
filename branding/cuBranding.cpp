#include "branding/cuBranding.h"

namespace tarvex {

void cuBranding::SetValue(std::u16string_view value) {
    if (value_ != value) {
        value_ = value;
        dirty_ = true;
    }
}

}  // namespace tarvex
