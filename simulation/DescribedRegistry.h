#pragma once

#include "platform/Registry.h"
#include "simulation/DescribedPc.h"
#include "simulation/PcDescription.h"

namespace tarvex {

/// The registry of a described computer, as the launcher, a 32-bit program, reads it there.
class DescribedRegistry : public Registry {
public:
    /// `ansi` is the computer's code page and outlives this object.
    DescribedRegistry(const PcDescription& description, const TextCodec& ansi);

    std::vector<std::u16string> ListValueNames(std::int32_t root, std::u16string_view key,
                                               std::size_t maxNameChars,
                                               std::size_t maxDataBytes) const override;

    /// Null: nobody is told.
    PcListener* listener = nullptr;

protected:
    std::optional<std::string> ReadTextInView(View view, std::int32_t root, std::u16string_view key,
                                              std::u16string_view valueName) const override;
    bool Has64BitView() const override { return is64Bit_; }

private:
    const TextCodec& ansi_;
    bool is64Bit_;
};

}  // namespace tarvex
