#pragma once

#include "platform/Clock.h"
#include "platform/Process.h"
#include "platform/ProgramInfo.h"
#include "platform/Registry.h"
#include "platform/StringTable.h"
#include "platform/VersionResource.h"
#include "platform/win32/Handles.h"
#include "text/TextCodec.h"

namespace tarvex {

/// The local time in the formats of the user's regional settings, and the time since Windows
/// started.
class Win32Clock : public Clock {
public:
    std::u16string GeneralDateTime() const override;
    std::uint32_t Milliseconds() const override;
};

/// The string table in the resources of the running program.
class Win32StringTable : public StringTable {
public:
    std::u16string Load(std::int32_t id) const override;
};

/// What the system knows about the running program.
ProgramInfo ReadProgramInfo();

/// Starts programs of Windows.
class Win32Process : public Process {
public:
    std::uint32_t StartMaximised(std::u16string_view commandLine) override;
    bool AllowForeground(std::uint32_t processId) override;
    bool OtherInForeground() const override;
    bool HandleMessages(std::uint32_t milliseconds) override;

private:
    UniqueProcess started_;
};

/// The registry of Windows. Names pass its ANSI interface in the code page of `ansi`, which
/// outlives this object.
class Win32Registry : public Registry {
public:
    explicit Win32Registry(const TextCodec& ansi) : ansi_(ansi) {}

    std::vector<std::u16string> ListValueNames(std::int32_t root, std::u16string_view key,
                                               std::size_t maxNameChars,
                                               std::size_t maxDataBytes) const override;

protected:
    std::optional<std::string> ReadTextInView(View view, std::int32_t root, std::u16string_view key,
                                              std::u16string_view valueName) const override;
    bool Has64BitView() const override;

private:
    const TextCodec& ansi_;
};

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
