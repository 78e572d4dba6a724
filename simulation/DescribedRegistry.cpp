#include "simulation/DescribedRegistry.h"

namespace tarvex {

DescribedRegistry::DescribedRegistry(const PcDescription& description, const TextCodec& ansi)
    : ansi_(ansi), is64Bit_(description.is64Bit) {}

std::optional<std::string> DescribedRegistry::ReadTextInView(View view, std::int32_t root,
                                                             std::u16string_view key,
                                                             std::u16string_view valueName) const {
    static_cast<void>(view);
    static_cast<void>(root);
    static_cast<void>(key);
    static_cast<void>(ansi_.ToAnsi(valueName));
    return std::nullopt;
}

std::vector<std::u16string> DescribedRegistry::ListValueNames(std::int32_t root,
                                                              std::u16string_view key,
                                                              std::size_t maxNameChars,
                                                              std::size_t maxDataBytes) const {
    static_cast<void>(root);
    static_cast<void>(key);
    static_cast<void>(maxNameChars);
    static_cast<void>(maxDataBytes);
    return {};
}

}  // namespace tarvex
