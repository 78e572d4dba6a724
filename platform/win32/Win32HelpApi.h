#pragma once

#include <optional>

#include "platform/HelpApi.h"
#include "platform/TextCodec.h"
#include "platform/win32/SystemLibrary.h"

namespace tarvex {

/// The help engines of Windows. The one for .chm files is loaded from the system folder when it is
/// first needed, so that the program also starts where it is missing.
class Win32HelpApi : public HelpApi {
public:
    /// Paths reach the engines in the code page of `ansi`, which outlives this object.
    explicit Win32HelpApi(const TextCodec& ansi) : ansi_(ansi) {}

    bool CallWinHelp(WindowHandle owner, std::u16string_view path, std::uint32_t command,
                     std::int32_t data) override;
    bool CallHtmlHelp(WindowHandle owner, std::u16string_view path, std::uint32_t command,
                      std::int32_t data) override;

private:
    const TextCodec& ansi_;
    std::optional<SystemLibrary> htmlHelp_;
};

}  // namespace tarvex
