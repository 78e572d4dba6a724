#pragma once

#include <string>
#include <string_view>

#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/ProgramInfo.h"
#include "text/TextCodec.h"

namespace tarvex {

/// The launcher's log file: named after the launcher, in its folder, ANSI text, grown entry by
/// entry.
class LogFile {
public:
    LogFile(FileSystem& files, const Clock& clock, const TextCodec& codec,
            const ProgramInfo& program);

    /// Adds one entry: the time in brackets, the text as it is, an empty line. A file that cannot
    /// be written loses the entry without a message, so that logging never hinders a launch.
    void Append(std::u16string_view entry) noexcept;

private:
    FileSystem& files_;
    const Clock& clock_;
    const TextCodec& codec_;
    std::u16string path_;
};

}  // namespace tarvex
