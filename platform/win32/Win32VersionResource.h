#pragma once

#include "platform/TextCodec.h"
#include "platform/VersionResource.h"

namespace tarvex {

/// The version functions of Windows. version.dll is loaded by the first call that needs
/// it.
class Win32VersionResource : public VersionResource {
public:
    /// Texts pass the ANSI functions in the code page of `ansi`, which outlives this object.
    explicit Win32VersionResource(const TextCodec& ansi) : ansi_(ansi) {}

    /// A path with characters outside the code page becomes its short form (C:\PROGRA~1), which
    /// the ANSI functions understand, when the file has one.
    std::u16string FullPathName(std::u16string_view path) const override;
    std::string ReadBlock(std::u16string_view path) const override;
    std::optional<std::string> QueryBytes(std::string& block,
                                          std::u16string_view value) const override;
    std::optional<std::u16string> QueryText(std::string& block,
                                            std::u16string_view value) const override;
    std::u16string LanguageName(std::uint16_t language) const override;

private:
    std::string AnsiPath(std::u16string_view path) const;
    std::optional<std::string> Query(std::string& block, std::u16string_view value,
                                     bool isText) const;

    const TextCodec& ansi_;
};

}  // namespace tarvex
