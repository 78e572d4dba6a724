#pragma once

#include "platform/Registry.h"
#include "platform/TextCodec.h"

namespace tarvex {

/// The registry of Windows. Names pass its ANSI interface in the code page of `ansi`, which
/// outlives this object.
class Win32Registry : public Registry {
public:
    explicit Win32Registry(const TextCodec& ansi) : ansi_(ansi) {}

    std::optional<std::string> ReadText(std::int32_t root, std::u16string_view key,
                                        std::u16string_view valueName) const override;
    std::vector<std::u16string> ListValueNames(std::int32_t root, std::u16string_view key,
                                               std::size_t maxNameChars,
                                               std::size_t maxDataBytes) const override;

private:
    const TextCodec& ansi_;
};

}  // namespace tarvex
