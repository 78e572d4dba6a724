#pragma once

#include "platform/Process.h"

namespace tarvex {

/// Starts programs of Windows.
class Win32Process : public Process {
public:
    std::uint32_t StartMaximised(std::u16string_view commandLine) override;
};

}  // namespace tarvex
