#include "platform/Registry.h"

namespace tarvex {

std::string_view CountingBytes(std::string_view storedBytes) {
    const std::size_t zero = storedBytes.find('\0');
    if (zero != std::string_view::npos) {
        return storedBytes.substr(0, zero);
    }
    while (storedBytes.starts_with(' ')) {
        storedBytes.remove_prefix(1);
    }
    while (storedBytes.ends_with(' ')) {
        storedBytes.remove_suffix(1);
    }
    return storedBytes;
}

std::optional<std::string> Registry::ReadText(std::int32_t root, std::u16string_view key,
                                              std::u16string_view valueName) const {
    std::optional<std::string> bytes = ReadTextInView(View::kOwn, root, key, valueName);
    if (bytes && !CountingBytes(*bytes).empty()) {
        return bytes;
    }
    if (!has64BitView_) {
        has64BitView_ = Has64BitView();
    }
    return *has64BitView_ ? ReadTextInView(View::k64Bit, root, key, valueName) : bytes;
}

}  // namespace tarvex
