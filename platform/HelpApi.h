#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Ui.h"

namespace tarvex {

/// The system's two help engines. Paths reach them in the system's ANSI code page.
class HelpApi {
public:
    virtual ~HelpApi() = default;

    /// Hands a command to the engine of .hlp files. False when it could not be carried out.
    virtual bool CallWinHelp(WindowHandle owner, std::u16string_view path, std::uint32_t command,
                             std::int32_t data) = 0;

    /// Hands a command to the engine of .chm files. False when no help window came up, also when
    /// the system has no such engine.
    virtual bool CallHtmlHelp(WindowHandle owner, std::u16string_view path, std::uint32_t command,
                              std::int32_t data) = 0;
};

}  // namespace tarvex
