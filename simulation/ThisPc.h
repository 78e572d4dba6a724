#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/Registry.h"
#include "simulation/pc/PcDescription.h"
#include "text/TextCodec.h"

namespace tarvex {

/// The computer that the program runs on, as a 32-bit program on it sees it.
class ThisPc {
public:
    virtual ~ThisPc() = default;

    virtual const Registry& RegistryView() const = 0;
    virtual const FileSystem& Files() const = 0;

    /// The ANSI code page, and its number.
    virtual const TextCodec& Codec() const = 0;
    virtual std::int32_t CodePage() const = 0;

    virtual WindowsVersion Version() const = 0;

    /// The absolute path that the system understands by `path`; empty when it refuses.
    virtual std::u16string FullPath(std::u16string_view path) const = 0;
};

/// Null where no launcher runs.
std::unique_ptr<ThisPc> OpenThisPc();

}  // namespace tarvex
