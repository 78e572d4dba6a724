#pragma once

#include "window/files/ProgramStarter.h"

namespace tarvex {

/// Starts programs of Windows, in windows as they want them.
class Win32ProgramStarter : public ProgramStarter {
public:
    std::u16string Start(std::u16string_view program, std::u16string_view argument) override;
};

}  // namespace tarvex
